// The namespaces that the type manager keeps.
#include "support.h"

using namespace oxa_test;

namespace {

class TypeManagerTest : public testing::Test {
 protected:
  IOXAPluginDataTypeNamespace* marked() {
    return reinterpret_cast<IOXAPluginDataTypeNamespace*>(&marker_);
  }

  Host host_;
  IOXAUserDefinedDataTypeManager& manager_ = *host_.manager;
  int marker_ = 0;
};

TEST_F(TypeManagerTest, BeginsWithoutNamespaces) {
  IOXAPluginDataTypeNamespace* found = marked();
  EXPECT_EQ(manager_.CheckReference(), 1);
  EXPECT_EQ(manager_.GetFirstNamespace(&found), S_FALSE);
  EXPECT_EQ(found, nullptr);
}

TEST_F(TypeManagerTest, MakesANamespaceOnce) {
  IOXAPluginDataTypeNamespace* first = marked();
  IOXAPluginDataTypeNamespace* second = marked();
  EXPECT_EQ(manager_.NewNamespace("p", &first), S_OK);
  EXPECT_EQ(manager_.NewNamespace("p", &second), 5);
  EXPECT_EQ(first, second);
  EXPECT_STREQ(first->Name(), "p");
  EXPECT_EQ(first->CheckReference(), 1);
}

TEST_F(TypeManagerTest, NullArgumentsAreRefused) {
  IOXAPluginDataTypeNamespace* found = marked();
  EXPECT_EQ(manager_.NewNamespace(nullptr, &found), E_INVALIDARG);
  EXPECT_EQ(manager_.NewNamespace("p", nullptr), E_INVALIDARG);
  EXPECT_EQ(manager_.FindNamespace(nullptr, &found), E_INVALIDARG);
  EXPECT_EQ(manager_.FindNamespace("p", nullptr), E_INVALIDARG);
  EXPECT_EQ(manager_.GetFirstNamespace(nullptr), E_INVALIDARG);
  EXPECT_EQ(found, marked());
  EXPECT_EQ(outline(manager_), Lines{});
}

TEST_F(TypeManagerTest, FindsByTheExactName) {
  IOXAPluginDataTypeNamespace* const added = host_.name_space("plug-in");
  IOXAPluginDataTypeNamespace* found = nullptr;
  EXPECT_EQ(manager_.FindNamespace("plug-in", &found), S_OK);
  EXPECT_EQ(found, added);
  EXPECT_EQ(found->CheckReference(), 1);
  for (const char* name : {"Plug-in", "", "plug-in ", "plug", "plug-in::", "plug-ins"}) {
    found = marked();
    EXPECT_EQ(manager_.FindNamespace(name, &found), E_NOTFOUND) << name;
    EXPECT_EQ(found, nullptr);
  }
}

TEST_F(TypeManagerTest, TheNameMayBeEmpty) {
  IOXAPluginDataTypeNamespace* added = nullptr;
  IOXAPluginDataTypeNamespace* found = nullptr;
  EXPECT_EQ(manager_.NewNamespace("", &added), S_OK);
  EXPECT_EQ(manager_.FindNamespace("", &found), S_OK);
  EXPECT_EQ(found, added);
  EXPECT_EQ(manager_.NewNamespace("", &found), S_ALREADYEXISTS);
}

TEST_F(TypeManagerTest, CopiesTheName) {
  std::string name = "a name that is longer than short ones";
  IOXAPluginDataTypeNamespace* const added = host_.name_space(name.c_str());
  name[0] = '?';
  EXPECT_STREQ(added->Name(), "a name that is longer than short ones");
  IOXAPluginDataTypeNamespace* found = nullptr;
  EXPECT_EQ(manager_.FindNamespace("a name that is longer than short ones", &found), S_OK);
}

TEST_F(TypeManagerTest, GivesEachNamespaceOnce) {
  Lines expected;
  for (int number = 100; number < 500; ++number) {
    expected.push_back("plug-in " + std::to_string(number));
    host_.name_space(expected.back().c_str());
    expected.back() += ":";
  }
  EXPECT_EQ(outline(manager_), expected);
  EXPECT_EQ(outline(manager_), expected);
}

TEST_F(TypeManagerTest, ANullOutputLeavesThePosition) {
  host_.name_space("p");
  host_.name_space("q");
  IOXAPluginDataTypeNamespace* first = nullptr;
  IOXAPluginDataTypeNamespace* second = nullptr;
  EXPECT_EQ(manager_.GetFirstNamespace(&first), S_OK);
  EXPECT_EQ(manager_.GetNextNamespace(nullptr), E_INVALIDARG);
  EXPECT_EQ(manager_.GetNextNamespace(&second), S_OK);
  EXPECT_NE(first, second);
  EXPECT_EQ(manager_.GetNextNamespace(&second), S_FALSE);
  EXPECT_EQ(second, nullptr);
}

TEST_F(TypeManagerTest, StoresOnlyWhatIsAdded) {
  host_.name_space("p");
  IOXAUserDefinedDataType* type = nullptr;
  manager_.GetUserType("q::point", &type);
  manager_.TypeDefined("r::point");
  IOXAPluginDataTypeNamespace* found = nullptr;
  manager_.FindNamespace("s", &found);
  EXPECT_EQ(outline(manager_), Lines{"p:"});
}

}  // namespace
