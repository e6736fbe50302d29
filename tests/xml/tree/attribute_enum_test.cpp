// The enumerator over attributes.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "xml/oxa_xml_enums.h"
#include "xml/tree/trees.h"

using namespace oxa_test;

namespace {

using AttributeEnum = oxa::Ref<IOXAXMLAttributeEnum>;

AttributeEnum attributes_of(const Element& element) {
  IOXAXMLAttributeEnum* made = nullptr;
  EXPECT_EQ(element->GetAttributes(&made), S_OK);
  return AttributeEnum::adopt(made);
}

// The outputs of a call, which begin as something.
struct Outputs {
  char before[7] = "before";
  char* key = before;
  char* value = before;
  std::string text() const { return text_of(key) + "=" + text_of(value); }
};

TEST(AttributeEnumTest, WalksInTheOrderOfTheAttributes) {
  const AttributeEnum walked = attributes_of(parsed("<e b=\"1\" a=\"2\" c=\"3\"/>"));
  Outputs out;
  EXPECT_EQ(walked->GetFirst(&out.key, &out.value), S_OK);
  EXPECT_EQ(out.text(), "b=1");
  EXPECT_EQ(walked->GetNext(&out.key, &out.value), S_OK);
  EXPECT_EQ(out.text(), "a=2");
  EXPECT_EQ(walked->GetNext(&out.key, &out.value), S_OK);
  EXPECT_EQ(out.text(), "c=3");
}

TEST(AttributeEnumTest, BelongsToTheCaller) {
  const Element given = element("e");
  IOXAXMLAttributeEnum* made = nullptr;
  EXPECT_EQ(given->GetAttributes(&made), S_OK);
  EXPECT_EQ(made->CheckReference(), 1);
  EXPECT_EQ(made->ReleaseReference(), 0);
  EXPECT_EQ(given->GetAttributes(nullptr), E_POINTER);
}

TEST(AttributeEnumTest, IsEmptyWithoutAttributes) {
  const AttributeEnum walked = attributes_of(element("e"));
  Outputs out;
  EXPECT_EQ(walked->GetNext(&out.key, &out.value), S_FALSE);
  EXPECT_EQ(out.text(), "before=before");
  EXPECT_EQ(walked->GetFirst(&out.key, &out.value), E_UNEXPECTED);
  EXPECT_EQ(out.text(), "(null)=(null)");
}

TEST(AttributeEnumTest, BothOutputsAreRequired) {
  const AttributeEnum walked = attributes_of(parsed("<e a=\"1\" b=\"2\"/>"));
  Outputs out;
  for (const auto move : {&IOXAXMLAttributeEnum::GetFirst, &IOXAXMLAttributeEnum::GetNext}) {
    EXPECT_EQ((*walked.*move)(nullptr, &out.value), E_POINTER);
    EXPECT_EQ((*walked.*move)(&out.key, nullptr), E_POINTER);
    EXPECT_EQ((*walked.*move)(nullptr, nullptr), E_POINTER);
  }
  EXPECT_EQ(out.text(), "before=before");
  EXPECT_EQ(walked->GetNext(&out.key, &out.value), S_OK);
  EXPECT_EQ(out.text(), "b=2");
  EXPECT_EQ(walked->GetFirst(nullptr, &out.value), E_POINTER);
  EXPECT_EQ(walked->GetNext(&out.key, &out.value), S_FALSE);
}

TEST(AttributeEnumTest, BeginsOnTheFirst) {
  const AttributeEnum walked = attributes_of(parsed("<e a=\"1\" b=\"2\"/>"));
  Outputs out;
  EXPECT_EQ(walked->GetNext(&out.key, &out.value), S_OK);
  EXPECT_EQ(out.text(), "b=2");
}

TEST(AttributeEnumTest, StaysAtItsEndAndBeginsAgain) {
  const AttributeEnum walked = attributes_of(parsed("<e a=\"1\" b=\"2\"/>"));
  Outputs out;
  walked->GetNext(&out.key, &out.value);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(walked->GetNext(&out.key, &out.value), S_FALSE);
    EXPECT_EQ(out.text(), "b=2");
  }
  EXPECT_EQ(walked->GetFirst(&out.key, &out.value), S_OK);
  EXPECT_EQ(out.text(), "a=1");
  EXPECT_EQ(walked->GetNext(&out.key, &out.value), S_OK);
  EXPECT_EQ(out.text(), "b=2");
}

TEST(AttributeEnumTest, GetFirstResetsTheOutputOfAnEmptyValue) {
  const AttributeEnum walked = attributes_of(parsed("<e a=\"\"/>"));
  Outputs out;
  EXPECT_EQ(walked->GetFirst(&out.key, &out.value), S_OK);
  EXPECT_EQ(out.text(), "a=(null)");
}

TEST(AttributeEnumTest, GetFirstResetsTheOutputOfAnEmptyKey) {
  const Element given = element("e");
  given->AddAttribute("", "1");
  Outputs out;
  EXPECT_EQ(attributes_of(given)->GetFirst(&out.key, &out.value), S_OK);
  EXPECT_EQ(out.key, nullptr);
}

TEST(AttributeEnumTest, GetNextLeavesTheOutputOfAnEmptyValue) {
  const AttributeEnum walked = attributes_of(parsed("<e a=\"1\" b=\"\" c=\"3\"/>"));
  Outputs out;
  walked->GetFirst(&out.key, &out.value);
  char* const first = out.value;
  EXPECT_EQ(walked->GetNext(&out.key, &out.value), S_OK);
  EXPECT_EQ(out.text(), "b=1");
  EXPECT_EQ(out.value, first);
  EXPECT_EQ(walked->GetNext(&out.key, &out.value), S_OK);
  EXPECT_EQ(out.text(), "c=3");
}

TEST(AttributeEnumTest, GetNextLeavesTheOutputOfAnEmptyKey) {
  const Element given = parsed("<e a=\"1\"/>");
  given->AddAttribute("", "2");
  const AttributeEnum walked = attributes_of(given);
  Outputs out;
  walked->GetFirst(&out.key, &out.value);
  EXPECT_EQ(walked->GetNext(&out.key, &out.value), S_OK);
  EXPECT_EQ(out.text(), "a=2");
}

TEST(AttributeEnumTest, IsACopyThatOutlivesTheElement) {
  Element given = built("<e a=\"1\" b=\"2\"/>");
  const AttributeEnum walked = attributes_of(given);
  given->AddAttribute("a", "changed");
  given->AddAttribute("c", "added");
  given.reset();
  Outputs out;
  EXPECT_EQ(walked->GetFirst(&out.key, &out.value), S_OK);
  EXPECT_EQ(out.text(), "a=1");
  EXPECT_EQ(walked->GetNext(&out.key, &out.value), S_OK);
  EXPECT_EQ(out.text(), "b=2");
  EXPECT_EQ(walked->GetNext(&out.key, &out.value), S_FALSE);
}

TEST(AttributeEnumTest, PointersLiveAsLongAsItDoes) {
  const AttributeEnum walked = attributes_of(parsed("<e a=\"1\" b=\"2\" c=\"3\"/>"));
  std::vector<Outputs> all(3);
  walked->GetFirst(&all[0].key, &all[0].value);
  walked->GetNext(&all[1].key, &all[1].value);
  walked->GetNext(&all[2].key, &all[2].value);
  walked->GetNext(&all[2].key, &all[2].value);
  Outputs again;
  walked->GetFirst(&again.key, &again.value);
  EXPECT_EQ(again.key, all[0].key);
  EXPECT_EQ(all[0].text() + all[1].text() + all[2].text(), "a=1b=2c=3");
}

TEST(AttributeEnumTest, ItsTextsMayBeWritten) {
  const Element given = parsed("<e a=\"1\"/>");
  const AttributeEnum walked = attributes_of(given);
  Outputs out;
  walked->GetFirst(&out.key, &out.value);
  out.key[0] = 'x';
  out.value[0] = '9';
  EXPECT_EQ(walked->GetFirst(&out.key, &out.value), S_OK);
  EXPECT_EQ(out.text(), "x=9");
  EXPECT_EQ(shown(*given), "e[a=1]");
}

TEST(AttributeEnumTest, TheClassCounts) {
  for (const char* source : {"<e/>", "<e a=\"\"/>", "<e a=\"1\" b=\"2\"/>"}) {
    const Element given = parsed(source);
    oxa_xml_attribute_enum counted(given->attributes());
    EXPECT_EQ(counted.Count(), given->attributes().count());
  }
}

}  // namespace
