// Hand-made objects in the hands of the type manager: which of their slots it calls, in which
// order, and what it does with a document that is not the library's.
#include <gtest/gtest.h>

#include <cstdarg>
#include <map>
#include <string>

#include <oxa/oxa.h>

#include "abi/raw.h"
#include "abi/raw_object.h"

using namespace oxa_test;

namespace {

struct RawElement;

struct RawList : RawObject {
  RawElement* only = nullptr;
};

OXAResult get_first(RawList* self, RawElement** out) {
  note(self, "4");
  *out = self->only;
  return self->only == nullptr ? S_FALSE : S_OK;
}

OXAResult get_next(RawList* self, RawElement** out) {
  note(self, "5");
  *out = nullptr;
  return S_FALSE;
}

const auto list_table =
    raw_table(typeid(IOXAXMLElementEnum), add, release, no, get_first, get_next, no);

struct RawElement : RawObject {
  std::map<std::string, std::string> attributes;
  RawList* children = nullptr;
};

const char* element_name(RawElement* self) {
  note(self, "4");
  return "extension";
}

OXAResult get_attribute(RawElement* self, const char* key, char** out) {
  note(self, std::string("13 ") + key);
  const auto found = self->attributes.find(key);
  *out = found == self->attributes.end() ? nullptr : found->second.data();
  return *out == nullptr ? E_NOTFOUND : S_OK;
}

OXAResult get_immediate_children(RawElement* self, const char* name, const char* key,
                                 const char* value, RawList** out) {
  note(self, std::string("19 ") + name);
  EXPECT_EQ(key, nullptr);
  EXPECT_EQ(value, nullptr);
  *out = self->children;
  return S_OK;
}

const auto element_table =
    raw_table(typeid(IOXAXMLElement), no, no, no, element_name, no, no, no, no, no, no, no, no,
              get_attribute, no, no, no, no, no, get_immediate_children, no, no);

struct RawDocument : RawObject {
  RawElement* root;
  OXAResult parsed = S_OK;
  OXAResult given = S_OK;
};

OXAResult parse(RawDocument* self) {
  note(self, "8");
  return self->parsed;
}

OXAResult get_root(RawDocument* self, RawElement** out) {
  note(self, "14");
  *out = self->root;
  return self->given;
}

const auto document_table = raw_table(typeid(IOXAXMLDocument), no, release, no, no, no, no, no,
                                      parse, no, no, no, no, no, get_root);

struct RawParser : RawObject {
  RawDocument* document;
  OXAResult made = S_OK;
};

OXAResult create_document(RawParser* self, const wchar_t* path, RawDocument** out) {
  const std::wstring text = path;
  note(self, "4 " + std::string(text.begin(), text.end()));
  *out = self->document;
  return self->made;
}

const auto parser_table =
    raw_table(typeid(IOXAXMLParser), add, release, no, create_document, no, no);

OXAResult scan(RawObject* self, const wchar_t* folder, const char* pattern) {
  note(self, std::string("4 ") + pattern);
  EXPECT_STREQ(folder, L"folder");
  return S_OK;
}

OXAResult first_name(RawObject* self, const wchar_t** name) {
  note(self, "5");
  *name = L"a.xml";
  return S_OK;
}

OXAResult next_name(RawObject* self, const wchar_t** name) {
  note(self, "6");
  *name = nullptr;
  return S_FALSE;
}

const auto scanner_table =
    raw_table(typeid(IOXADirectoryScanner), add, release, no, scan, first_name, next_name);

std::int32_t to_type(RawObject* self, const char* name) {
  note(self, std::string("6 ") + name);
  return 11;
}

const auto translator_table =
    raw_table(typeid(IOXAPropertyDataTypeTranslator), add, release, no, no, no, to_type, no);

void emit_error(RawObject* self, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  note(self, std::string("4 ") + format + " " + va_arg(arguments, const char*));
  va_end(arguments);
}

const auto sink_table =
    raw_table(typeid(IOXADebugMessage), add, release, no, emit_error, no, no, no, no, no, no, no);

// A host whose context holds hand-made services, and the type manager that works with them. The
// one document has a root with one type with one member.
class RawHostTest : public testing::Test {
 protected:
  RawHostTest() {
    OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
    context->AddToContext(IID_IOXAXMLParser, &parser);
    context->AddToContext(IID_IOXADirectoryScanner, &scanner);
    context->AddToContext(IID_IOXAPropertyDataTypeTranslator, &translator);
    calls.clear();
    OXACreateUserDefinedDataTypeManager(context.get(), IID_IOXAUserDefinedDataTypeManager,
                                        oxa::adopt_into(manager));
  }

  // Returns the calls that reading a file makes.
  std::string calls_of_load(OXAResult expected) {
    calls.clear();
    EXPECT_EQ(manager->Load(L"x"), expected);
    return calls;
  }

  std::string calls;
  RawElement member{{element_table.slots.data(), 'm', &calls}, {{"name", "x"}, {"type", "\tany "}}};
  RawList members{{list_table.slots.data(), 'k', &calls}, &member};
  RawElement type{
      {element_table.slots.data(), 't', &calls}, {{"name", "point"}, {"type", "struct"}}, &members};
  RawList types{{list_table.slots.data(), 'l', &calls}, &type};
  RawElement root{
      {element_table.slots.data(), 'r', &calls}, {{"type", "data"}, {"plugin", "p"}}, &types};
  RawDocument document{{document_table.slots.data(), 'd', &calls}, &root};
  RawParser parser{{parser_table.slots.data(), 'p', &calls}, &document};
  RawObject scanner{scanner_table.slots.data(), 's', &calls};
  RawObject translator{translator_table.slots.data(), 'n', &calls};
  RawObject sink{sink_table.slots.data(), 'o', &calls};  // not filed
  oxa::Ref<IOXAContext> context;
  oxa::Ref<IOXAUserDefinedDataTypeManager> manager;
};

TEST_F(RawHostTest, TheServicesAreReferencedAndReleasedInTheirOrder) {
  EXPECT_EQ(calls, "n1 s1 p1 ");
  manager.reset();
  EXPECT_EQ(calls, "n1 s1 p1 n2 s2 p2 ");
}

TEST_F(RawHostTest, AFileIsReadByTheseCalls) {
  EXPECT_EQ(calls_of_load(S_FALSE),
            "p4 x d8 d14 r4 r13 type r13 plugin r19 data_type "
            "l4 t13 name t13 type t19 member "
            "k4 m13 name m13 type n6 any m13 range_min m13 tooltip m13 default k5 k2 "
            "l5 l2 d2 ");
  EXPECT_TRUE(manager->TypeDefined("p::point"));
}

TEST_F(RawHostTest, AFolderIsReadByTheseCalls) {
  types.only = nullptr;
  calls.clear();
  EXPECT_EQ(manager->LoadAll(L"folder"), S_FALSE);
  EXPECT_EQ(calls,
            "s4 *.xml s5 p4 folder/a.xml d8 d14 r4 r13 type r13 plugin r19 data_type l4 l2 d2 s6 ");
}

TEST_F(RawHostTest, TheSinkIsHeldWhileSomethingIsRead) {
  context->AddToContext(IID_IOXADebugMessage, &sink);
  parser.made = E_OPENFAILED;
  calls.clear();
  EXPECT_EQ(manager->LoadAll(L"folder"), E_OPENFAILED);
  EXPECT_EQ(calls, "s4 *.xml o1 s5 o1 p4 folder/a.xml d2 o2 o4 Loading XML (%s) failed! a.xml o2 ");
}

TEST_F(RawHostTest, ABuiltInTypeIsAskedForOnceByItsNameAlone) {
  calls.clear();
  EXPECT_TRUE(manager->TypeDefined("x$any%2"));
  EXPECT_EQ(calls, "n6 any ");
}

TEST_F(RawHostTest, ADocumentThatComesWithAFailureIsReleased) {
  parser.made = E_OPENFAILED;
  EXPECT_EQ(calls_of_load(E_OPENFAILED), "p4 x d2 ");
}

TEST_F(RawHostTest, WithoutADocumentNothingIsReleased) {
  parser.document = nullptr;
  EXPECT_EQ(calls_of_load(E_POINTER), "p4 x ");
  parser.made = E_FAIL;
  EXPECT_EQ(calls_of_load(E_FAIL), "p4 x ");
}

TEST_F(RawHostTest, ADocumentThatCannotBeParsedIsReleased) {
  document.parsed = E_UNEXPECTED;
  EXPECT_EQ(calls_of_load(E_UNEXPECTED), "p4 x d8 d2 ");
}

TEST_F(RawHostTest, ADocumentWithoutARootIsReleased) {
  document.root = nullptr;
  EXPECT_EQ(calls_of_load(E_POINTER), "p4 x d8 d14 d2 ");
  document.given = E_INVALIDDATA;
  EXPECT_EQ(calls_of_load(E_INVALIDDATA), "p4 x d8 d14 d2 ");
}

TEST_F(RawHostTest, AnElementWithoutAListOfChildrenIsRefused) {
  root.children = nullptr;
  EXPECT_EQ(calls_of_load(E_POINTER), "p4 x d8 d14 r4 r13 type r13 plugin r19 data_type d2 ");
}

const char* member_name(RawObject* self) {
  note(self, "4");
  return "x";
}

const auto member_table = raw_table(typeid(IOXADataElement), no, release, no, member_name, no, no,
                                    no, no, no, no, no, no, no, no, no, no, no, no);

TEST_F(RawHostTest, ATypeAsksAMemberForItsNameAndReleasesItAtTheEnd) {
  RawObject foreign{member_table.slots.data(), 'f', &calls};
  IOXAPluginDataTypeNamespace* name_space = nullptr;
  IOXAUserDefinedDataType* point = nullptr;
  manager->NewNamespace("p", &name_space);
  name_space->AddUserDefinedType("point", "struct", &point);
  calls.clear();
  EXPECT_EQ(point->AddElement(reinterpret_cast<IOXADataElement*>(&foreign)), S_OK);
  EXPECT_EQ(point->AddElement(reinterpret_cast<IOXADataElement*>(&foreign)), E_ALREADYEXISTS);
  EXPECT_EQ(calls, "f4 f4 ");
  manager.reset();
  EXPECT_EQ(calls, "f4 f4 n2 s2 p2 f2 ");
}

}  // namespace
