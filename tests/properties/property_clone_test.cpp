// Copies of properties.
#include "datatypes/support.h"
#include "support.h"

using namespace oxa_test;

namespace {

class PropertyCloneTest : public PropertyTest {
 protected:
  static oxa::Ref<IOXAProperty> clone(IOXAProperty& property) {
    oxa::Ref<IOXAProperty> copy;
    EXPECT_EQ(property.Clone(oxa::adopt_into(copy)), S_OK);
    return copy;
  }
};

TEST_F(PropertyCloneTest, HasAllThatThePropertyHas) {
  fill(property_);
  EXPECT_EQ(described(*clone(property_)), described(property_));
}

TEST_F(PropertyCloneTest, OfANewPropertyIsLikeANewOne) {
  EXPECT_EQ(described(*clone(property_)), described(property_));
}

TEST_F(PropertyCloneTest, HasTheRecordType) {
  const Host host;
  property_.SetDataType(DataType::UserDefined);
  property_.SetUserDefinedDataType("int");
  EXPECT_STREQ(clone(property_)->UserDefinedDataType(), "int");
  EXPECT_EQ(described(*clone(property_)), described(property_));
}

TEST_F(PropertyCloneTest, HasAnEmptyDefault) {
  property_.SetDefaultValue("");
  EXPECT_STREQ(clone(property_)->DefaultValue(), "");
}

TEST_F(PropertyCloneTest, HasEachFlagOfItsOwn) {
  const std::function<void(IOXAProperty&)> flags[] = {
      [](auto& property) { property.SetDependency(true); },
      [](auto& property) { property.SetMutable(true); },
      [](auto& property) { property.SetSupportAllNodes(true); },
      [](auto& property) { property.SetRange(0, 1); },
      [](auto& property) { property.ViewHints()->SetDisplayFlag(true); },
  };
  int number = 0;
  for (const auto& set : flags) {
    IOXAProperty& property = add(std::to_string(++number).c_str(), DataType::String);
    set(property);
    EXPECT_EQ(described(*clone(property)), described(property));
  }
}

TEST_F(PropertyCloneTest, KeepsEmptyNames) {
  for (const char* ns : {"", "a", "a::"}) {
    IOXAProperty& property = properties_.add(ns, "");
    EXPECT_EQ(described(*clone(property)), described(property));
  }
}

TEST_F(PropertyCloneTest, BelongsToTheCallerAlone) {
  const auto copy = clone(property_);
  EXPECT_EQ(copy->CheckReference(), 1);
  EXPECT_EQ(property_.CheckReference(), 1);
  EXPECT_EQ(properties_.listed(), Lines{"a::b::x"});
  EXPECT_EQ(properties_.find("a::b", "x"), &property_);
}

TEST_F(PropertyCloneTest, IsIndependent) {
  fill(property_);
  const std::string before = described(property_);
  const auto copy = clone(property_);
  copy->SetID(1000);
  copy->SetDefaultValue("other");
  copy->SetDataType(DataType::Bool);
  copy->AddAttribute("other", "5");
  copy->AddSupport("b", "2");
  copy->SetMutable(false);
  copy->ViewHints()->SetAlias("other");
  copy->ViewHints()->SetDisplayFlag(false);
  EXPECT_EQ(described(property_), before);
  copy->ClearAttributes();
  EXPECT_EQ(described(property_), before);
}

TEST_F(PropertyCloneTest, OutlivesThePropertyAndTheManager) {
  fill(property_);
  const std::string before = described(property_);
  const auto copy = clone(property_);
  properties_.manager->Unregister(&property_);
  EXPECT_EQ(described(*copy), before);
  properties_.manager = nullptr;
  EXPECT_EQ(described(*copy), before);
  EXPECT_EQ(described(*clone(*copy)), before);
}

TEST_F(PropertyCloneTest, IsNotMadeForNobody) {
  EXPECT_EQ(property_.Clone(nullptr), E_INVALIDARG);
  EXPECT_EQ(property_.CheckReference(), 1);
}

}  // namespace
