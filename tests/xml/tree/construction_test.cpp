// What the constructors of an element give.
#include <gtest/gtest.h>

#include <memory>

#include "xml/tree/trees.h"

using namespace oxa_test;

namespace {

TEST(ElementConstructionTest, EmptyWithoutArguments) {
  int result = E_FAIL;
  const auto made = Element::adopt(new oxa_xml_element(result));
  EXPECT_EQ(result, S_OK);
  EXPECT_EQ(made->CheckReference(), 1);
  EXPECT_EQ(made->Name(), nullptr);
  EXPECT_EQ(text_of(*made), "(null)");
  EXPECT_FALSE(made->HasChildren());
  EXPECT_FALSE(made->hasText());
  EXPECT_EQ(shown(*made), "");
}

TEST(ElementConstructionTest, NamedByItsArgument) {
  int result = E_FAIL;
  const auto made = Element::adopt(new oxa_xml_element("graph", result));
  EXPECT_EQ(result, S_OK);
  EXPECT_EQ(made->CheckReference(), 1);
  EXPECT_STREQ(made->Name(), "graph");
  EXPECT_FALSE(made->hasText());
}

TEST(ElementConstructionTest, ANullNameLeavesItNameless) {
  int result = S_OK;
  const auto made = Element::adopt(new oxa_xml_element(nullptr, result));
  EXPECT_EQ(result, E_INVALIDARG);
  EXPECT_EQ(made->CheckReference(), 1);
  EXPECT_EQ(made->Name(), nullptr);
}

TEST(ElementConstructionTest, AnEmptyNameIsAccepted) {
  int result = E_FAIL;
  const auto made = Element::adopt(new oxa_xml_element("", result));
  EXPECT_EQ(result, S_OK);
  EXPECT_EQ(made->Name(), nullptr);
}

TEST(ElementConstructionTest, OnlyTheNameXmlBringsAVersion) {
  EXPECT_EQ(shown(*element("xml")), "xml[version=1.0]");
  for (const char* name : {"XML", "xm", "xmll", "xml ", "axml", ""}) {
    EXPECT_EQ(shown(*element(name)), name);
  }
}

// Deleted by hand, since it has no reference to be released.
std::unique_ptr<oxa_xml_element> with_text(const char* name, const char* text, int& result) {
  return std::make_unique<oxa_xml_element>(name, text, result);
}

TEST(ElementConstructionTest, WithATextItBeginsWithoutAReference) {
  int result = E_FAIL;
  auto* const made = new oxa_xml_element("note", "hello", result);
  EXPECT_EQ(made->CheckReference(), 0);
  EXPECT_EQ(made->AddReference(), 1);
  EXPECT_EQ(made->ReleaseReference(), 0);
}

TEST(ElementConstructionTest, NamedAndFilledByItsArguments) {
  int result = E_FAIL;
  const auto made = with_text("note", "a &lt; b", result);
  EXPECT_EQ(result, S_OK);
  EXPECT_STREQ(made->Name(), "note");
  EXPECT_EQ(text_of(*made), "a &lt; b");
}

TEST(ElementConstructionTest, TheNameXmlBringsAVersionWithATextToo) {
  int result = E_FAIL;
  EXPECT_EQ(shown(*with_text("xml", "x", result)), "xml[version=1.0]");
  EXPECT_EQ(shown(*with_text("xmls", "x", result)), "xmls");
}

TEST(ElementConstructionTest, EitherNullLeavesBothUnset) {
  const std::pair<const char*, const char*> given[] = {
      {nullptr, "text"}, {"xml", nullptr}, {nullptr, nullptr}};
  for (const auto& [name, text] : given) {
    int result = S_OK;
    const auto made = with_text(name, text, result);
    EXPECT_EQ(result, E_INVALIDARG);
    EXPECT_EQ(made->CheckReference(), 0);
    EXPECT_EQ(made->Name(), nullptr);
    EXPECT_FALSE(made->hasText());
    EXPECT_EQ(shown(*made), "");
  }
}

TEST(ElementConstructionTest, AParsedXmlElementHasAVersionThatItsOwnReplaces) {
  EXPECT_EQ(shown(*parsed("<xml/>")), "xml[version=1.0]");
  EXPECT_EQ(shown(*parsed("<xml a=\"1\" version=\"2\"/>")), "xml[version=2 a=1]");
}

TEST(ElementConstructionTest, CountsItsReferences) {
  const Element made = element("a");
  EXPECT_EQ(made->AddReference(), 2);
  EXPECT_EQ(made->CheckReference(), 2);
  EXPECT_EQ(made->ReleaseReference(), 1);
}

}  // namespace
