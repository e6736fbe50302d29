// Documents and how they look, for the tests of sdk/xml.h.
#pragma once

#include <gtest/gtest.h>
#include <oxa/IOXAXMLParser.h>
#include <oxa/sdk/xml.h>

#include <new>
#include <string>

#include "support/allocations.h"

namespace oxa_test {

using Document = oxa::Ref<IOXAXMLDocument>;
using Element = oxa::Ref<IOXAXMLElement>;

inline oxa::Ref<IOXAXMLParser> parser() {
  oxa::Ref<IOXAXMLParser> made;
  EXPECT_EQ(OXACreateXMLParser(IID_IOXAXMLParser, oxa::adopt_into(made)), S_OK);
  return made;
}

inline Document document_of(const char* source) {
  Document document;
  EXPECT_EQ(parser()->CreateDocumentFromBuffer(source, oxa::adopt_into(document)), S_OK);
  EXPECT_EQ(document->Parse(), S_OK);
  return document;
}

// The root is borrowed: it goes with its document.
inline IOXAXMLElement& root_of(const Document& document) {
  IOXAXMLElement* root = nullptr;
  EXPECT_EQ(document->GetRoot(&root), S_OK);
  return *root;
}

inline std::string listed(IOXAXMLElement& element) {
  std::string text;
  for (const oxa::XMLAttribute& attribute : oxa::attributes(element)) {
    text.append(attribute.key).append("=").append(attribute.value).append(";");
  }
  return text;
}

// Runs an operation with each allocation failing in turn, and expects it to say so; returns how
// many failed.
template <class Operation>
unsigned long throwing_failures(Operation operation) {
  return oxa_test::fail_each_allocation([&] {
    bool thrown = false;
    try {
      operation();
    } catch (const std::bad_alloc&) {
      thrown = true;
    }
    EXPECT_EQ(thrown, oxa_test::FailingAllocation::happened());
  });
}

// Gives the names of the elements of a range.
template <class Range>
std::string named(const Range& range) {
  std::string names;
  for (IOXAXMLElement* element : range) {
    names.append(element->Name() != nullptr ? element->Name() : "?").append(" ");
  }
  return names;
}

// Gives the attributes and texts of a tree as text, with brackets around children.
inline std::string shown(IOXAXMLElement& element) {
  std::string tree = element.Name() != nullptr ? element.Name() : "?";
  tree.append("(").append(listed(element)).append(")").append(oxa::text(element));
  for (IOXAXMLElement* child : oxa::children(element)) {
    tree.append("[").append(shown(*child)).append("]");
  }
  return tree;
}

}  // namespace oxa_test
