// A host's own objects, compiled elsewhere and without type information, in the library's hands.
#include "abi/foreign_objects.h"

#include <gtest/gtest.h>

#include <string>

#include <oxa/oxa.h>
#include <oxa/sdk/implements.h>

#include "plugins/files.h"

using namespace oxa_test;

namespace {

using OXA::Property::DataType;

// A host with a type manager. Its context holds foreign objects in place of some services.
class ForeignObjectsTest : public testing::TestWithParam<const char*> {
 protected:
  ForeignObjectsTest() {
    handle_ = LoadPlugin((std::string(OXA_FOREIGN_DIRECTORY "/") + GetParam() + ".so").c_str());
    const auto function = FindFunction(handle_, "GetForeignObjects");
    objects = reinterpret_cast<const ForeignObjects* (*)()>(function)();
    OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  }
  ~ForeignObjectsTest() override {
    manager.reset();
    context.reset();
    UnloadPlugin(handle_);
  }

  template <class Interface>
  void file(Interface* foreign) {
    oxa::add_service(context.get(), oxa::Ref<Interface>::adopt(foreign));
  }

  void make_manager() {
    OXACreateUserDefinedDataTypeManager(context.get(), IID_IOXAUserDefinedDataTypeManager,
                                        oxa::adopt_into(manager));
  }

  // Returns the type of that name, which the manager must have.
  IOXAUserDefinedDataType* type(const char* name) const {
    IOXAUserDefinedDataType* found = nullptr;
    EXPECT_EQ(manager->GetUserType(name, &found), S_OK);
    return found;
  }

  const ForeignObjects* objects = nullptr;
  oxa::Ref<IOXAContext> context;
  oxa::Ref<IOXAUserDefinedDataTypeManager> manager;

 private:
  void* handle_;
};

TEST_P(ForeignObjectsTest, AFolderIsReadThroughThem) {
  file(objects->make_parser());
  file(objects->make_scanner());
  file(objects->make_translator());
  make_manager();
  EXPECT_EQ(manager->LoadAll(L"/not/there"), S_FALSE);
  std::string members;
  for (IOXADataElement* each : oxa::elements(*type("foreign::point"))) {
    members += each->Name() + std::string(each->Type() == DataType::Double ? " double " : " ") +
               (each->UserDefinedType() != nullptr ? each->UserDefinedType() : "");
  }
  EXPECT_EQ(members, "x double next foreign::point");
}

TEST_P(ForeignObjectsTest, AForeignParserServesBesideTheLibrarysOwn) {
  const TemporaryFolder folder;
  const auto path =
      folder.write("a.xml", R"(<extension type="data" plugin="p"><data_type name="t" type="s"/>)"
                            "</extension>");
  make_manager();
  EXPECT_EQ(manager->Load(wide(path).c_str()), S_FALSE);  // a document of the library came first
  EXPECT_STREQ(type("p::t")->Type(), "s");
  manager.reset();
  file(objects->make_parser());
  make_manager();
  EXPECT_EQ(manager->Load(wide(path).c_str()), S_FALSE);
  EXPECT_STREQ(type("foreign::point")->Type(), "struct");
}

TEST_P(ForeignObjectsTest, ATypeTakesOverAForeignMember) {
  make_manager();
  IOXAPluginDataTypeNamespace* name_space = nullptr;
  IOXAUserDefinedDataType* point = nullptr;
  manager->NewNamespace("p", &name_space);
  name_space->AddUserDefinedType("point", "struct", &point);
  const auto refused = oxa::Ref<IOXADataElement>::adopt(objects->make_element("x"));
  IOXADataElement* const member = objects->make_element("x");
  EXPECT_EQ(point->AddElement(member), S_OK);
  EXPECT_EQ(point->AddElement(refused.get()), E_ALREADYEXISTS);
  IOXADataElement* found = nullptr;
  EXPECT_EQ(point->GetFirstElement(&found), S_OK);
  EXPECT_EQ(found, member);
  EXPECT_EQ(member->CheckReference(), 1);
}

TEST_P(ForeignObjectsTest, AllCallersShareOneManager) {
  EXPECT_EQ(objects->find_manager(), nullptr);
  make_manager();
  const auto found = oxa::Ref<IOXAUserDefinedDataTypeManager>::adopt(objects->find_manager());
  EXPECT_EQ(found, manager);
  EXPECT_EQ(found->CheckReference(), 2);
  manager.reset();
  EXPECT_EQ(found->CheckReference(), 1);
}

INSTANTIATE_TEST_SUITE_P(EachCompiler, ForeignObjectsTest, testing::Values("g++", "clang++"),
                         [](const auto& tested) {
                           return std::string(tested.param[0] == 'g' ? "GCC" : "Clang");
                         });

// Gives out documents of the library, of which it may keep the last one.
class ForwardingParser final : public oxa::Implements<IOXAXMLParser> {
 public:
  explicit ForwardingParser(bool keeps) : keeps_(keeps) {
    OXACreateXMLParser(IID_IOXAXMLParser, oxa::adopt_into(parser_));
  }

  OXAResult CreateDocument(const wchar_t*, IOXAXMLDocument** out) override {
    const OXAResult result = parser_->CreateDocumentFromBuffer(
        R"(<extension type="data" plugin="p"><data_type name="t" type="s"/></extension>)", out);
    if (keeps_) {
      kept = oxa::XMLDocument(oxa::Ref<IOXAXMLDocument>::share(*out));
    }
    return result;
  }
  OXAResult CreateDocumentFromBuffer(const char*, IOXAXMLDocument**) override { return E_FAIL; }
  OXAResult CreateEmptyDocument(IOXAXMLDocument**) override { return E_FAIL; }

  oxa::XMLDocument kept;

 private:
  bool keeps_;
  oxa::Ref<IOXAXMLParser> parser_;
};

class ForwardingParserTest : public testing::Test {
 protected:
  void load(const oxa::Ref<ForwardingParser>& parser) {
    OXACreateContext(IID_IOXAContext, oxa::adopt_into(context_));
    oxa::add_service<IOXAXMLParser>(context_.get(), parser);
    manager_ = oxa::type_manager(context_.get());
    EXPECT_EQ(manager_->Load(L"x"), S_FALSE);
    EXPECT_TRUE(manager_->TypeDefined("p::t"));
  }

  oxa::Ref<IOXAContext> context_;
  oxa::Ref<IOXAUserDefinedDataTypeManager> manager_;
};

TEST_F(ForwardingParserTest, ADocumentOfTheLibraryEndsWithItsTreeWhoeverHandsItOut) {
  load(oxa::make<ForwardingParser>(false));  // what it leaves alive would fail this test
}

TEST_F(ForwardingParserTest, ADocumentThatTheHostKeepsIsReleased) {
  const auto parser = oxa::make<ForwardingParser>(true);
  load(parser);
  ASSERT_TRUE(parser->kept);
  EXPECT_EQ(parser->kept->CheckReference(), 1);
  ASSERT_NE(oxa::root(*parser->kept), nullptr);
  EXPECT_STREQ(oxa::root(*parser->kept)->Name(), "extension");
}

}  // namespace
