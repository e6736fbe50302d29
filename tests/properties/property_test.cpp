// A property: what it is at first, its flags and texts.
#include <functional>

#include "support.h"
#include "support/allocations.h"

using namespace oxa_test;

namespace {

TEST_F(PropertyTest, SaysWhereItWasRegisteredAndNothingElse) {
  IOXAProperty* property = nullptr;
  ASSERT_EQ(properties_.manager->Register("one::two", "name", &property), S_OK);
  EXPECT_EQ(property->ID(), 1);
  EXPECT_STREQ(property->Name(), "name");
  EXPECT_STREQ(property->Namespace(), "one::two");
  EXPECT_STREQ(property->FullNamespace(), "one::two::name");
  EXPECT_EQ(property->Type(), OXA::Property::Type{0});
  EXPECT_EQ(property->DataType(), NoDataType);
  EXPECT_EQ(property->UserDefinedDataType(), nullptr);
  EXPECT_EQ(property->DefaultValue(), nullptr);
  EXPECT_FALSE(property->HasDependency());
  EXPECT_FALSE(property->IsRangeSet());
  EXPECT_EQ(property->MinimumValue(), 0.0);
  EXPECT_EQ(property->MaximumValue(), 1.0);
  EXPECT_FALSE(property->IsMutable());
  EXPECT_FALSE(property->SupportsAllNodes());
  EXPECT_EQ(property->GetAttributeCount(), 0);
  EXPECT_EQ(property->CheckReference(), 1);
}

// What a setter stores, and how the description of the property shows it.
struct Setting {
  std::function<void(IOXAProperty&)> set;
  const char* before;
  const char* after;
};

const Setting settings[] = {
    {[](auto& property) { property.SetID(-7); }, "0 'x' in", "-7 'x' in"},
    {[](auto& property) { property.SetDependency(true); }, "flags 000", "flags 100"},
    {[](auto& property) { property.SetMutable(true); }, "flags 000", "flags 010"},
    {[](auto& property) { property.SetSupportAllNodes(true); }, "flags 000", "flags 001"},
    {[](auto& property) { property.SetPropertyType(OXA::Property::Type{-2147483647}); }, ", type 0",
     ", type -2147483647"},
    {[](auto& property) { property.SetDataType(DataType::String); }, "data type -1", "data type 1"},
    {[](auto& property) { property.SetDefaultValue("7"); }, "default -", "default '7'"},
    {[](auto& property) { property.SetDefaultValue(""); }, "default -", "default ''"},
    {[](auto& property) { property.AddAttribute("n", "v"); }, "attributes 0",
     "attributes 1 'n'='v'"},
    {[](auto& property) { property.AddSupport("b", "1"); }, "supports 0000", "supports 0010"},
    {[](auto& property) { property.ViewHints()->SetAlias("A"); }, "hints -", "hints 'A'"},
    {[](auto& property) { property.ViewHints()->SetTooltip("T"); }, "hints --", "hints -'T'"},
    {[](auto& property) { property.ViewHints()->SetGroup("G"); }, "hints ---", "hints --'G'"},
    {[](auto& property) { property.ViewHints()->SetEditor(-3); }, "---00", "----30"},
    {[](auto& property) { property.ViewHints()->SetDisplayFlag(true); }, "---00", "---01"},
};

TEST_F(PropertyTest, ASetterChangesOneThing) {
  for (const Setting& each : settings) {
    Properties properties;
    IOXAProperty& property = properties.add("a", "x");
    std::string expected = described(property);
    const std::size_t at = expected.find(each.before);
    ASSERT_NE(at, std::string::npos) << each.before;
    expected.replace(at, std::string(each.before).size(), each.after);
    each.set(property);
    if (std::string(each.after) == "flags 001") {
      expected.replace(expected.size() - 4, 4, "1111");  // it supports everything then
    }
    EXPECT_EQ(described(property), expected);
  }
}

TEST_F(PropertyTest, FlagsCanBeTakenBack) {
  const std::string before = described(property_);
  for (const bool flag : {true, false}) {
    property_.SetDependency(flag);
    property_.SetMutable(flag);
    property_.SetSupportAllNodes(flag);
    EXPECT_EQ(property_.HasDependency() && property_.IsMutable() && property_.SupportsAllNodes(),
              flag);
  }
  EXPECT_EQ(described(property_), before);
}

TEST_F(PropertyTest, TheDefaultCanBeReplaced) {
  for (const char* text : {"a", long_text, "", "b"}) {
    EXPECT_EQ(property_.SetDefaultValue(text), S_OK);
    EXPECT_STREQ(property_.DefaultValue(), text);
  }
}

TEST_F(PropertyTest, TheDefaultIsACopy) {
  std::string text = long_text;
  property_.SetDefaultValue(text.c_str());
  text.assign(text.size(), 'x');
  EXPECT_STREQ(property_.DefaultValue(), long_text);
  EXPECT_EQ(property_.SetDefaultValue(property_.DefaultValue()), S_OK);
  EXPECT_STREQ(property_.DefaultValue(), long_text);
}

TEST_F(PropertyTest, ThereIsNoNullDefault) {
  EXPECT_EQ(property_.SetDefaultValue(nullptr), E_INVALIDARG);
  EXPECT_EQ(property_.DefaultValue(), nullptr);
  property_.SetDefaultValue("kept");
  EXPECT_EQ(property_.SetDefaultValue(nullptr), E_INVALIDARG);
  EXPECT_STREQ(property_.DefaultValue(), "kept");
}

TEST_F(PropertyTest, TheDefaultNeedNotFitTheDataType) {
  property_.SetDataType(DataType::Int);
  EXPECT_EQ(property_.SetDefaultValue("red"), S_OK);
  EXPECT_STREQ(property_.DefaultValue(), "red");
}

TEST_F(PropertyTest, OutlivesItsManagerByAReference) {
  const auto kept = oxa::Ref<IOXAProperty>::share(&property_);
  property_.SetDefaultValue(long_text);
  const std::string before = described(*kept);
  properties_.manager = nullptr;
  EXPECT_EQ(kept->CheckReference(), 1);
  EXPECT_EQ(described(*kept), before);
}

TEST_F(PropertyTest, ReadingAllocatesNothing) {
  property_.SetDefaultValue(long_text);
  property_.AddAttribute("name", long_text);
  property_.AddSupport("category", long_text);
  char* text = nullptr;
  const unsigned long before = made_allocations();
  EXPECT_STREQ(property_.DefaultValue(), long_text);
  EXPECT_EQ(property_.GetFirstAttribute(&text), S_OK);
  EXPECT_EQ(property_.GetNextAttribute(&text), S_FALSE);
  EXPECT_EQ(property_.GetAttributeValue("name", &text), S_OK);
  EXPECT_EQ(property_.GetAttributeFromValue(long_text, &text), S_OK);
  EXPECT_TRUE(property_.Supports("category", long_text));
  EXPECT_FALSE(property_.Supports("a category that nobody has ever heard of", long_text));
  EXPECT_EQ(made_allocations(), before);
}

}  // namespace
