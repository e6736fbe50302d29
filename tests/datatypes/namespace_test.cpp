// The record types of one plug-in.
#include "datatypes/OXAPluginDataTypeNamespace.h"

#include "datatypes/OXAUserDefinedDataType.h"
#include "support.h"

using namespace oxa_test;

namespace {

class NamespaceTest : public testing::Test {
 protected:
  // Returns the type that was added, which must be new.
  IOXAUserDefinedDataType* add(const char* name) const {
    IOXAUserDefinedDataType* type = nullptr;
    EXPECT_EQ(name_space_->AddUserDefinedType(name, "struct", &type), S_OK);
    return type;
  }

  IOXAUserDefinedDataType* marked() { return reinterpret_cast<IOXAUserDefinedDataType*>(&marker_); }

  Host host_;
  IOXAPluginDataTypeNamespace* name_space_ = host_.name_space("p");
  int marker_ = 0;
};

TEST_F(NamespaceTest, BeginsWithoutTypes) {
  IOXAUserDefinedDataType* type = marked();
  EXPECT_STREQ(name_space_->Name(), "p");
  EXPECT_EQ(name_space_->CheckReference(), 1);
  EXPECT_EQ(name_space_->GetFirstType(&type), S_FALSE);
  EXPECT_EQ(type, nullptr);
}

TEST_F(NamespaceTest, AnEmptyNameIsNull) { EXPECT_EQ(host_.name_space("")->Name(), nullptr); }

TEST_F(NamespaceTest, AddsAType) {
  IOXAUserDefinedDataType* const type = add("point");
  ASSERT_NE(type, nullptr);
  EXPECT_STREQ(type->Name(), "point");
  EXPECT_STREQ(type->Type(), "struct");
  EXPECT_STREQ(type->Namespace(), "p");
  EXPECT_EQ(type->CheckReference(), 1);
}

TEST_F(NamespaceTest, ATypeIsAddedOnce) {
  IOXAUserDefinedDataType* const first = add("point");
  for (const char* type_string : {"struct", "class", ""}) {
    IOXAUserDefinedDataType* type = marked();
    EXPECT_EQ(name_space_->AddUserDefinedType("point", type_string, &type), E_ALREADYEXISTS);
    EXPECT_EQ(type, nullptr);
  }
  EXPECT_STREQ(first->Type(), "struct");
  EXPECT_EQ(outline(*host_.manager), Lines{"p: point()"});
}

TEST_F(NamespaceTest, NullArgumentsAreRefused) {
  IOXAUserDefinedDataType* type = marked();
  EXPECT_EQ(name_space_->AddUserDefinedType(nullptr, "struct", &type), E_INVALIDARG);
  EXPECT_EQ(name_space_->AddUserDefinedType("point", nullptr, &type), E_INVALIDARG);
  EXPECT_EQ(name_space_->AddUserDefinedType("point", "struct", nullptr), E_INVALIDARG);
  EXPECT_EQ(name_space_->FindUserDefinedType(nullptr, &type), E_INVALIDARG);
  EXPECT_EQ(name_space_->FindUserDefinedType("point", nullptr), E_INVALIDARG);
  EXPECT_EQ(name_space_->GetFirstType(nullptr), E_INVALIDARG);
  EXPECT_EQ(type, marked());
  EXPECT_EQ(outline(*host_.manager), Lines{"p:"});
}

TEST_F(NamespaceTest, NamesAndTypeStringsMayBeEmpty) {
  IOXAUserDefinedDataType* type = nullptr;
  EXPECT_EQ(name_space_->AddUserDefinedType("", "", &type), S_OK);
  IOXAUserDefinedDataType* found = nullptr;
  EXPECT_EQ(name_space_->FindUserDefinedType("", &found), S_OK);
  EXPECT_EQ(found, type);
}

TEST_F(NamespaceTest, FindsByTheExactName) {
  IOXAUserDefinedDataType* const added = add("point");
  IOXAUserDefinedDataType* type = nullptr;
  EXPECT_EQ(name_space_->FindUserDefinedType("point", &type), S_OK);
  EXPECT_EQ(type, added);
  EXPECT_EQ(type->CheckReference(), 1);
  for (const char* name :
       {"Point", "POINT", " point", "point ", "poin", "points", "", "p::point"}) {
    type = marked();
    EXPECT_EQ(name_space_->FindUserDefinedType(name, &type), E_NOTFOUND) << name;
    EXPECT_EQ(type, nullptr);
  }
}

TEST_F(NamespaceTest, GivesEachTypeOnce) {
  Lines expected{"p:"};
  for (int number = 100; number < 500; ++number) {
    const std::string name = "type " + std::to_string(number);
    add(name.c_str());
    expected[0] += " " + name + "()";
  }
  EXPECT_EQ(outline(*host_.manager), expected);
  EXPECT_EQ(outline(*host_.manager), expected);
}

TEST_F(NamespaceTest, ANullOutputLeavesThePosition) {
  add("point");
  add("line");
  IOXAUserDefinedDataType* first = nullptr;
  IOXAUserDefinedDataType* second = nullptr;
  EXPECT_EQ(name_space_->GetFirstType(&first), S_OK);
  EXPECT_EQ(name_space_->GetNextType(nullptr), E_INVALIDARG);
  EXPECT_EQ(name_space_->GetNextType(&second), S_OK);
  EXPECT_NE(first, second);
  EXPECT_EQ(first->CheckReference(), 1);
  EXPECT_EQ(name_space_->GetNextType(&second), S_FALSE);
  EXPECT_EQ(second, nullptr);
}

TEST_F(NamespaceTest, IsIndependentOfOthers) {
  IOXAUserDefinedDataType* const here = add("point");
  IOXAUserDefinedDataType* there = nullptr;
  EXPECT_EQ(host_.name_space("q")->AddUserDefinedType("point", "class", &there), S_OK);
  EXPECT_NE(here, there);
  EXPECT_STREQ(here->Type(), "struct");
  EXPECT_STREQ(there->Namespace(), "q");
}

TEST_F(NamespaceTest, OneThatIsHeldGoesOnLiving) {
  const auto held = oxa::Ref<IOXAPluginDataTypeNamespace>::share(name_space_);
  add("point");
  host_.manager.reset();
  IOXAUserDefinedDataType* type = nullptr;
  EXPECT_EQ(held->FindUserDefinedType("point", &type), S_OK);
  EXPECT_EQ(add_member(*type, "x"), S_OK);
  EXPECT_EQ(outline(*type), "point(x)");
}

TEST_F(NamespaceTest, IsMadeEvenOfNullArguments) {
  OXAResult result = S_OK;
  IOXAContext* const context = host_.context.get();
  IOXAUserDefinedDataTypeManager* const manager = host_.manager.get();
  oxa::make<OXAPluginDataTypeNamespace>(nullptr, manager, "p", result);
  EXPECT_EQ(result, E_INVALIDARG);
  oxa::make<OXAPluginDataTypeNamespace>(context, nullptr, "p", result = S_OK);
  EXPECT_EQ(result, E_INVALIDARG);
  oxa::make<OXAPluginDataTypeNamespace>(context, manager, nullptr, result = S_OK);
  EXPECT_EQ(result, E_INVALIDARG);
  oxa::make<OXAPluginDataTypeNamespace>(context, manager, "p", result);
  EXPECT_EQ(result, S_OK);
}

TEST_F(NamespaceTest, TypesAreMadeEvenOfNullArguments) {
  OXAResult result = S_OK;
  const auto ownerless = oxa::make<OXAUserDefinedDataType>(nullptr, "a", "b", result);
  EXPECT_EQ(result, E_INVALIDARG);
  EXPECT_EQ(ownerless->Namespace(), nullptr);
  EXPECT_EQ(ownerless->CheckReference(), 1);
  oxa::make<OXAUserDefinedDataType>(name_space_, nullptr, "b", result = S_OK);
  EXPECT_EQ(result, E_INVALIDARG);
  const auto stringless =
      oxa::make<OXAUserDefinedDataType>(name_space_, "a", nullptr, result = S_OK);
  EXPECT_EQ(result, E_INVALIDARG);
  EXPECT_EQ(stringless->Namespace(), nullptr);
}

}  // namespace
