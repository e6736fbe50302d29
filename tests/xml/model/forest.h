// Trees in the library and, element by element, in the model.
#pragma once

#include <gtest/gtest.h>

#include <iterator>
#include <string>

#include "xml/model/model_element.h"
#include "xml/model/outcome.h"
#include "xml/model/random_documents.h"
#include "xml/model/twins.h"
#include "xml/oxa_xml_element.h"
#include "xml/oxa_xml_parser.h"

namespace oxa_test::model {

// Holds references to some of its elements; the others are held by their parents alone.
class Forest {
 public:
  explicit Forest(Random& random) : random_(random) {}
  Forest(const Forest&) = delete;
  Forest& operator=(const Forest&) = delete;
  ~Forest() {
    while (!alive_.empty()) {
      Element* element = any();
      while (element->held > 0 && !release(element)) {
      }
    }
  }

  bool empty() const { return alive_.empty(); }
  std::size_t size() const { return alive_.size(); }

  Element* any() {
    auto found = alive_.begin();
    std::advance(found, random_.below(alive_.size()));
    return found->second;
  }

  void make_empty() {
    OXAResult expected = E_FAIL;
    OXAResult result = E_FAIL;
    add(new Element(expected, &alive_), new oxa_xml_element(result));
    EXPECT_EQ(result, expected);
  }

  void make(const char* name) {
    OXAResult expected = E_FAIL;
    OXAResult result = E_FAIL;
    add(new Element(name, expected, &alive_), new oxa_xml_element(name, result));
    EXPECT_EQ(result, expected);
  }

  void make(const char* name, const char* text) {
    OXAResult expected = E_FAIL;
    OXAResult result = E_FAIL;
    auto* const element = new Element(name, text, expected, &alive_);
    auto* const its_twin = new oxa_xml_element(name, text, result);
    EXPECT_EQ(result, expected);
    EXPECT_EQ(its_twin->CheckReference(), element->count);
    EXPECT_EQ(its_twin->AddReference(), element->add_reference());
    add(element, its_twin);
  }

  // Takes the tree out of a document that was parsed, with one reference more than usual.
  void make_parsed(const std::string& source) {
    Document document(&alive_);
    document.set_source(source);
    document.parse();
    OXAResult result = S_OK;
    oxa_xml_parser* const its_twin = new oxa_xml_parser(nullptr, result);
    its_twin->SetBuffer(source.c_str());
    its_twin->Parse();
    its_twin->Open(nullptr);
    IOXAXMLElement* root = nullptr;
    its_twin->GetRoot(&root);
    its_twin->ReleaseReference();
    if (document.root != nullptr) {
      ASSERT_TRUE(make_twins(*document.root, *static_cast<oxa_xml_element*>(root)));
      document.root->held = document.root->count;
      document.root = nullptr;
    }
  }

  void reference(Element* element) {
    EXPECT_EQ(twin(element)->AddReference(), element->add_reference());
    ++element->held;
  }

  // Returns whether the element has ended.
  bool release(Element* element) {
    oxa_xml_element* const its_twin = twin(element);
    --element->held;
    const long left = element->release_reference();
    EXPECT_EQ(its_twin->ReleaseReference(), left);
    return left == 0;
  }

  // Hands one of the test's references over to the parent, if that makes no cycle.
  void add_child(Element* parent, Element* child) {
    for (const Element* above = parent; above != nullptr; above = above->owner) {
      if (above == child) {
        return;
      }
    }
    if (child->owner == nullptr) {
      EXPECT_EQ(twin(parent)->AddChild(twin(child)), parent->AddChild(child));
      --child->held;
    }
  }

  void expect_equal() {
    for (const auto& [number, element] : alive_) {
      if (element->owner == nullptr) {
        std::string expected;
        std::string found;
        describe(*element, expected);
        describe(*twin(element), found);
        ASSERT_EQ(found, expected);
      }
    }
  }

 private:
  void add(Element* element, oxa_xml_element* its_twin) {
    element->twin = its_twin;
    element->held = 1;
  }

  Random& random_;
  Element::Registry alive_;
};

}  // namespace oxa_test::model
