// Elements of the model and the elements of the library that they stand for.
#pragma once

#include <cstddef>
#include <vector>

#include "xml/model/model_element.h"
#include "xml/oxa_xml_element.h"

namespace oxa_test::model {

inline oxa_xml_element* twin(const Element* element) {
  return element == nullptr ? nullptr : static_cast<oxa_xml_element*>(element->twin);
}

inline std::vector<oxa_xml_element*> twins(const std::vector<Element*>& elements) {
  std::vector<oxa_xml_element*> found;
  for (const Element* element : elements) {
    found.push_back(twin(element));
  }
  return found;
}

// Makes twins of two trees. Returns whether they have the same shape.
inline bool make_twins(Element& element, oxa_xml_element& its_twin) {
  element.twin = &its_twin;
  bool same = its_twin.child_count() == element.children.size();
  for (std::size_t at = 0; same && at < element.children.size(); ++at) {
    same = make_twins(*element.children[at], *its_twin.child(at));
  }
  return same;
}

}  // namespace oxa_test::model
