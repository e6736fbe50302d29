// The name of an element, its text, and the two other forms of that.
#include <gtest/gtest.h>

#include <string>

#include "xml/tree/trees.h"

using namespace oxa_test;

namespace {

using Converter = OXAResult (oxa_xml_element::*)(char*&);

std::string converted(oxa_xml_element& element, Converter convert) {
  char* text = nullptr;
  EXPECT_EQ((element.*convert)(text), S_OK);
  return text_of(text);
}

class ElementNameTest : public HomesTest {};
INSTANTIATE_TEST_SUITE_P(Homes, ElementNameTest, homes(), home_name);

TEST_P(ElementNameTest, IsReplaced) {
  const Element named = tree("<first/>");
  EXPECT_EQ(named->SetName("a much longer name than the first one"), S_OK);
  EXPECT_STREQ(named->Name(), "a much longer name than the first one");
  EXPECT_EQ(named->SetName("b"), S_OK);
  EXPECT_STREQ(named->Name(), "b");
}

TEST_P(ElementNameTest, NullIsRefused) {
  const Element named = tree("<a/>");
  EXPECT_EQ(named->SetName(nullptr), E_INVALIDARG);
  EXPECT_STREQ(named->Name(), "a");
}

TEST_P(ElementNameTest, AnEmptyOneIsNull) {
  const Element named = tree("<a/>");
  EXPECT_EQ(named->SetName(""), S_OK);
  EXPECT_EQ(named->Name(), nullptr);
}

TEST_P(ElementNameTest, XmlSetLaterBringsNoVersion) {
  const Element named = tree("<a/>");
  named->SetName("xml");
  EXPECT_EQ(shown(*named), "xml");
}

TEST_P(ElementNameTest, TheVersionStaysWhenXmlIsRenamed) {
  const Element named = tree("<xml/>");
  named->SetName("a");
  EXPECT_EQ(shown(*named), "a[version=1.0]");
}

TEST_P(ElementNameTest, MayBeSetToItself) {
  const Element named = tree("<name/>");
  EXPECT_EQ(named->SetName(named->Name()), S_OK);
  EXPECT_STREQ(named->Name(), "name");
}

class ElementTextTest : public HomesTest {};
INSTANTIATE_TEST_SUITE_P(Homes, ElementTextTest, homes(), home_name);

TEST_P(ElementTextTest, IsReplaced) {
  const Element filled = tree("<a>one</a>");
  EXPECT_EQ(filled->SetText("another"), S_OK);
  EXPECT_EQ(text_of(*filled), "another");
  EXPECT_TRUE(filled->hasText());
}

TEST_P(ElementTextTest, NullIsRefused) {
  const Element filled = tree("<a>one</a>");
  EXPECT_EQ(filled->SetText(nullptr), E_INVALIDARG);
  EXPECT_EQ(text_of(*filled), "one");
}

TEST_P(ElementTextTest, AnEmptyOneIsNullInEveryForm) {
  const Element filled = tree("<a>one</a>");
  converted(*filled, &oxa_xml_element::GetPlainText);
  EXPECT_EQ(filled->SetText(""), S_OK);
  EXPECT_FALSE(filled->hasText());
  EXPECT_EQ(converted(*filled, &oxa_xml_element::GetText), "(null)");
  EXPECT_EQ(converted(*filled, &oxa_xml_element::GetHTMLEscapedText), "(null)");
  EXPECT_EQ(converted(*filled, &oxa_xml_element::GetPlainText), "(null)");
}

TEST_P(ElementTextTest, OutputsOfAnEmptyOneAreReset) {
  const Element empty = tree("<a/>");
  for (const Converter get : {&oxa_xml_element::GetText, &oxa_xml_element::GetHTMLEscapedText,
                              &oxa_xml_element::GetPlainText}) {
    char before[] = "before";
    char* text = before;
    EXPECT_EQ((*empty.*get)(text), S_OK);
    EXPECT_EQ(text, nullptr);
  }
}

TEST_P(ElementTextTest, IsKeptAsItStands) {
  for (const char* text :
       {"a &lt; b", "&amp;amp;", "&#60;", "<b/>", " \t\n ", "\xFF\xFE\x80\x01"}) {
    const Element filled = tree("<a/>");
    filled->SetText(text);
    EXPECT_EQ(text_of(*filled), text);
  }
}

TEST_P(ElementTextTest, HasAnEscapedAndAPlainForm) {
  const Element filled = tree("<a/>");
  filled->SetText("a<b &amp;amp; \"c\" &quot;");
  EXPECT_EQ(converted(*filled, &oxa_xml_element::GetHTMLEscapedText),
            "a&lt;b &amp;amp; \"c\" &amp;quot;");
  EXPECT_EQ(converted(*filled, &oxa_xml_element::GetPlainText), "a<b & \"c\" &quot;");
  EXPECT_EQ(text_of(*filled), "a<b &amp;amp; \"c\" &quot;");
}

TEST_P(ElementTextTest, MayBeLong) {
  const std::string text = std::string(1000000, 'x') + "<";
  const Element filled = tree("<a>short</a>");
  EXPECT_EQ(filled->SetText(text.c_str()), S_OK);
  EXPECT_EQ(text_of(*filled), text);
  EXPECT_EQ(converted(*filled, &oxa_xml_element::GetHTMLEscapedText),
            std::string(1000000, 'x') + "&lt;");
}

TEST_P(ElementTextTest, MayBeSetToAFormOfItself) {
  const Element filled = tree("<a>1 &lt; 2</a>");
  char* text = nullptr;
  filled->GetText(text);
  EXPECT_EQ(filled->SetText(text), S_OK);
  EXPECT_EQ(text_of(*filled), "1 &lt; 2");
  filled->GetPlainText(text);
  EXPECT_EQ(filled->SetText(text), S_OK);
  EXPECT_EQ(text_of(*filled), "1 < 2");
}

TEST_P(ElementTextTest, AConvertedFormOutlivesAChangeOfTheText) {
  const Element filled = tree("<a>1 &lt; 2</a>");
  char* text = nullptr;
  filled->GetPlainText(text);
  filled->SetText("changed");
  EXPECT_STREQ(text, "1 < 2");
  filled->SetText("");
  EXPECT_STREQ(text, "1 < 2");
}

TEST(ElementInPlaceTest, FreesItsConvertedText) {
  int result = E_FAIL;
  oxa_xml_element filled("a", result);
  filled.SetText("a text that is longer than a short string &lt;");
  EXPECT_EQ(converted(filled, &oxa_xml_element::GetPlainText),
            "a text that is longer than a short string <");
}

TEST_P(ElementTextTest, PointersStayWhereOtherThingsChange) {
  const Element changed = tree("<a>text</a>");
  const char* const name = changed->Name();
  char* text = nullptr;
  changed->GetText(text);
  for (int i = 0; i < 100; ++i) {
    changed->AddAttribute(std::to_string(i).c_str(), "value");
    add(*changed, element("child"));
  }
  converted(*changed, &oxa_xml_element::GetPlainText);
  changed->children(nullptr, "key", nullptr);
  EXPECT_EQ(changed->Name(), name);
  EXPECT_STREQ(name, "a");
  EXPECT_STREQ(text, "text");
  changed->SetText("other");
  EXPECT_EQ(changed->Name(), name);
}

TEST_P(ElementTextTest, MayBeWrittenThroughItsPointer) {
  const Element top = tree("<top><a>text</a><a>text</a></top>");
  char* text = nullptr;
  below(top, {0}).GetText(text);
  text[0] = 'n';
  EXPECT_EQ(text_of(below(top, {0})), "next");
  EXPECT_EQ(text_of(below(top, {1})), "text");
}

TEST_P(ElementTextTest, AConvertedFormMayBeWrittenToo) {
  const Element filled = tree("<a>&lt;b</a>");
  char* text = nullptr;
  filled->GetPlainText(text);
  text[0] = '[';
  EXPECT_STREQ(text, "[b");
  EXPECT_EQ(text_of(*filled), "&lt;b");
  EXPECT_EQ(converted(*filled, &oxa_xml_element::GetPlainText), "<b");
}

}  // namespace
