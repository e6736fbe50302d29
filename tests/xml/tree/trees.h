// Trees for the tests, and how they look.
#pragma once

#include <gtest/gtest.h>
#include <oxa/IOXAXMLAttributeEnum.h>
#include <oxa/IOXAXMLElementEnum.h>
#include <oxa/sdk/ref.h>

#include <cstddef>
#include <initializer_list>
#include <sstream>
#include <string>
#include <utility>

#include "xml/oxa_xml_element.h"
#include "xml/oxa_xml_parser.h"

namespace oxa_test {

using Element = oxa::Ref<oxa_xml_element>;

inline Element element(const char* name, const char* text = "") {
  int result = E_FAIL;
  Element made = Element::adopt(new oxa_xml_element(name, result));
  made->SetText(text);
  return made;
}

// Adds a child and returns it, borrowed.
inline oxa_xml_element* add(oxa_xml_element& parent, Element child) {
  oxa_xml_element* const added = child.get();
  EXPECT_EQ(parent.AddChild(child.detach()), S_OK);
  return added;
}

// Reads a tree that has outlived its document; its elements are in an arena.
inline Element parsed(const std::string& source) {
  int result = S_OK;
  auto* document = new oxa_xml_parser(nullptr, result);
  document->SetBuffer(source.c_str());
  EXPECT_EQ(document->Parse(), S_OK) << source.substr(0, 100);
  IOXAXMLElement* root = nullptr;
  EXPECT_EQ(document->GetRoot(&root), S_OK);
  EXPECT_EQ(root->ReleaseReference(), 1);
  document->Open(nullptr);
  document->ReleaseReference();
  return Element::adopt(static_cast<oxa_xml_element*>(root));
}

inline Element copied(const oxa_xml_element& original) {
  Element copy = element(original.name(), original.text());
  for (const oxa::xml_attribute& attribute : original.attributes()) {
    copy->AddAttribute(attribute.key.c_str(), attribute.value.c_str());
  }
  for (std::size_t position = 0; position < original.child_count(); ++position) {
    add(*copy, copied(*original.child(position)));
  }
  return copy;
}

// Makes the same tree as parsed, on the heap.
inline Element built(const std::string& source) { return copied(*parsed(source)); }

// Cases that hold for elements on the heap and in an arena.
class HomesTest : public testing::TestWithParam<Element (*)(const std::string&)> {
 protected:
  static Element tree(const std::string& source) { return GetParam()(source); }
};

inline auto homes() { return testing::Values(&built, &parsed); }

inline std::string home_name(const testing::TestParamInfo<HomesTest::ParamType>& info) {
  return info.index == 0 ? "Heap" : "Arena";
}

// Goes down by the positions of children.
inline oxa_xml_element& below(const Element& top, std::initializer_list<std::size_t> way) {
  oxa_xml_element* element = top.get();
  for (const std::size_t position : way) {
    element = element->child(position);
  }
  return *element;
}

inline std::string dumped(oxa_xml_element& top, int level = 0) {
  std::ostringstream os;
  top.dump(os, level);
  return os.str();
}

// Shows a tree on one line: a[key=value key=](b(c) d).
inline std::string shown(const oxa_xml_element& top) {
  std::string text = top.name();
  const char* before = "[";
  for (const oxa::xml_attribute& attribute : top.attributes()) {
    text.append(before).append(attribute.key.c_str()).append("=").append(attribute.value.c_str());
    before = " ";
  }
  text += top.attributes().count() == 0 ? "" : "]";
  for (std::size_t position = 0; position < top.child_count(); ++position) {
    text.append(position == 0 ? "(" : " ").append(shown(*top.child(position)));
  }
  text += top.child_count() == 0 ? "" : ")";
  return text;
}

// Shows the names of elements: "a b c".
inline std::string names(const oxa_xml_element::elements& elements) {
  std::string text;
  for (const oxa_xml_element* element : elements) {
    text.append(text.empty() ? "" : " ").append(element->name());
  }
  return text;
}

// The text or value that an operation stored, "(null)" for null.
inline std::string text_of(const char* stored) { return stored != nullptr ? stored : "(null)"; }

inline std::string text_of(IOXAXMLElement& element) {
  char* text = nullptr;
  EXPECT_EQ(element.GetText(text), S_OK);
  return text_of(text);
}

inline std::string value_of(IOXAXMLElement& element, const char* key) {
  char* value = nullptr;
  element.GetAttribute(key, &value);
  return text_of(value);
}

}  // namespace oxa_test
