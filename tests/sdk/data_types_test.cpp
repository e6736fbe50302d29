// Record types, and walking them.
#include <oxa/sdk/data_types.h>

#include <gtest/gtest.h>
#include <oxa/oxa.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using Names = std::vector<std::string>;

class DataTypesTest : public testing::Test {
 protected:
  DataTypesTest() {
    EXPECT_EQ(OXACreateContext(IID_IOXAContext, oxa::adopt_into(context_)), S_FALSE);
    EXPECT_EQ(OXACreateUserDefinedDataTypeManager(
                  context_.get(), IID_IOXAUserDefinedDataTypeManager, oxa::adopt_into(manager_)),
              S_OK);
  }

  IOXAPluginDataTypeNamespace& name_space(const char* name) {
    IOXAPluginDataTypeNamespace* found = nullptr;
    manager_->NewNamespace(name, &found);
    return *found;
  }

  IOXAUserDefinedDataType& add_type(const char* name) {
    IOXAUserDefinedDataType* type = nullptr;
    EXPECT_EQ(name_space("p").AddUserDefinedType(name, "struct", &type), S_OK);
    return *type;
  }

  static void add_member(IOXAUserDefinedDataType& type, const char* name) {
    IOXADataElement* element = nullptr;
    type.CreateElement(&element);
    element->SetName(name);
    EXPECT_EQ(type.AddElement(element), S_OK);
  }

  oxa::Ref<IOXAContext> context_;
  oxa::Ref<IOXAUserDefinedDataTypeManager> manager_;
};

TEST_F(DataTypesTest, NamespacesComeOnceEach) {
  name_space("p");
  name_space("q");
  name_space("r");
  std::multiset<std::string> names;
  for (IOXAPluginDataTypeNamespace* each : oxa::namespaces(*manager_)) {
    EXPECT_EQ(each->CheckReference(), 1);
    names.insert(each->Name());
  }
  EXPECT_EQ(names, (std::multiset<std::string>{"p", "q", "r"}));
}

TEST_F(DataTypesTest, TypesComeOnceEach) {
  add_type("point");
  add_type("line");
  std::multiset<std::string> names;
  for (IOXAUserDefinedDataType* each : oxa::types(name_space("p"))) {
    EXPECT_EQ(each->CheckReference(), 1);
    names.insert(each->Name());
  }
  EXPECT_EQ(names, (std::multiset<std::string>{"line", "point"}));
}

TEST_F(DataTypesTest, ElementsComeInOrder) {
  IOXAUserDefinedDataType& type = add_type("point");
  for (const char* name : {"z", "a", "m"}) {
    add_member(type, name);
  }
  for (int round = 0; round < 2; ++round) {
    Names names;
    for (IOXADataElement* each : oxa::elements(type)) {
      names.emplace_back(each->Name());
    }
    EXPECT_EQ(names, (Names{"z", "a", "m"}));
  }
}

TEST_F(DataTypesTest, NothingIsAnEmptyRange) {
  EXPECT_TRUE(oxa::namespaces(*manager_).begin() == oxa::namespaces(*manager_).end());
  IOXAUserDefinedDataType& type = add_type("point");
  EXPECT_TRUE(oxa::elements(type).begin() == oxa::elements(type).end());
  IOXAPluginDataTypeNamespace& empty = name_space("q");
  EXPECT_TRUE(oxa::types(empty).begin() == oxa::types(empty).end());
}

TEST_F(DataTypesTest, KeepTheirHolderAlive) {
  IOXAUserDefinedDataType& type = add_type("point");
  add_member(type, "x");
  add_member(type, "y");
  Names names;
  for (IOXADataElement* each : oxa::elements(type)) {
    manager_.reset();
    names.emplace_back(each->Name());
  }
  EXPECT_EQ(names, (Names{"x", "y"}));
}

TEST_F(DataTypesTest, ReleaseTheirHolder) {
  IOXAUserDefinedDataType& type = add_type("point");
  add_member(type, "x");
  for ([[maybe_unused]] IOXADataElement* each : oxa::elements(type)) {
    EXPECT_GT(type.CheckReference(), 1);
    break;
  }
  for (IOXAPluginDataTypeNamespace* each : oxa::namespaces(*manager_)) {
    EXPECT_NE(oxa::types(*each).begin(), oxa::types(*each).end());
    EXPECT_EQ(each->CheckReference(), 1);
  }
  EXPECT_EQ(type.CheckReference(), 1);
  EXPECT_EQ(manager_->CheckReference(), 1);
}

TEST_F(DataTypesTest, CanBeNestedOverDifferentHolders) {
  for (const char* name : {"point", "line"}) {
    IOXAUserDefinedDataType& type = add_type(name);
    add_member(type, "x");
    add_member(type, "y");
  }
  std::multiset<std::string> names;
  for (IOXAPluginDataTypeNamespace* name_space : oxa::namespaces(*manager_)) {
    for (IOXAUserDefinedDataType* type : oxa::types(*name_space)) {
      for (IOXADataElement* element : oxa::elements(*type)) {
        names.insert(std::string(type->Name()) + "." + element->Name());
      }
    }
  }
  EXPECT_EQ(names, (std::multiset<std::string>{"line.x", "line.y", "point.x", "point.y"}));
}

TEST_F(DataTypesTest, TheManagerIsReachedWithAndWithoutAContext) {
  EXPECT_EQ(oxa::type_manager(), manager_);
  EXPECT_EQ(oxa::type_manager(nullptr), manager_);
  EXPECT_EQ(oxa::type_manager(context_.get()), manager_);
  EXPECT_EQ(oxa::type_manager(context_), manager_);
  EXPECT_EQ(manager_->CheckReference(), 1);
  manager_.reset();
  EXPECT_EQ(oxa::type_manager(), nullptr);
  EXPECT_NE(oxa::type_manager(context_), nullptr);
}

TEST_F(DataTypesTest, FindTypeGivesRecordTypesAlone) {
  IOXAUserDefinedDataType& point = add_type("point");
  EXPECT_EQ(oxa::find_type(*manager_, "p::point"), &point);
  EXPECT_EQ(point.CheckReference(), 1);
  for (const char* other : {"p::line", "int", "point", ""}) {
    EXPECT_EQ(oxa::find_type(*manager_, other), nullptr) << other;
  }
  EXPECT_EQ(oxa::find_type(*manager_, nullptr), nullptr);
}

TEST_F(DataTypesTest, AddElementGivesTheReferenceAwayOrDropsIt) {
  IOXAUserDefinedDataType& point = add_type("point");
  for (const OXAResult expected : {S_OK, E_ALREADYEXISTS}) {
    oxa::Ref<IOXADataElement> member;
    point.CreateElement(oxa::adopt_into(member));
    member->SetName("x");
    const auto kept = member;
    EXPECT_EQ(oxa::add_element(point, std::move(member)), expected);
    EXPECT_EQ(kept->CheckReference(), expected == S_OK ? 2 : 1);
  }
  EXPECT_EQ(oxa::add_element(point, nullptr), E_INVALIDARG);
  EXPECT_EQ(point.ElementCount(), 1);
}

}  // namespace
