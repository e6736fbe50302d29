// What stands in each slot of the library's XML objects, those of the classes alone included, and
// what the shared library exports for XML.
#include <gtest/gtest.h>

#include <oxa/oxa.h>

#include <string>
#include <utility>
#include <vector>

#include "abi/raw.h"
#include "plugins/files.h"
#include "support/allocations.h"

using namespace oxa_test;

namespace {

constexpr std::size_t parser_destroy_document = 9;
constexpr std::size_t document_get_root = 14;
constexpr std::size_t document_destroy = 17;

void* make_parser() {
  void* parser = nullptr;
  EXPECT_EQ(OXACreateXMLParser(IID_IOXAXMLParser, &parser), S_OK);
  return parser;
}

// A document that has parsed a text; it belongs to the caller.
void* make_document(const char* input) {
  void* parser = make_parser();
  void* document = nullptr;
  EXPECT_EQ(call_slot<OXAResult>(parser, 5, input, &document), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(document, 8), S_OK);
  EXPECT_EQ(call_slot<std::int64_t>(parser, release_slot), 0);
  return document;
}

// A document and its root, as bare pointers.
struct RawTree {
  explicit RawTree(const char* input) : document(make_document(input)) {
    EXPECT_EQ(call_slot<OXAResult>(document, document_get_root, &root), S_OK);
  }
  RawTree(const RawTree&) = delete;
  RawTree& operator=(const RawTree&) = delete;
  ~RawTree() { EXPECT_EQ(call_slot<std::int64_t>(document, document_destroy), 0); }

  void* document;
  void* root = nullptr;
};

std::string name_of(void* element) { return call_slot<const char*>(element, 4); }

// Returns the names of what an enumerator gives, and releases it.
std::string names_of(void* enumerator) {
  std::string names;
  void* element = nullptr;
  for (std::size_t slot = 4; call_slot<OXAResult>(enumerator, slot, &element) == S_OK; slot = 5) {
    names += name_of(element);
  }
  EXPECT_EQ(call_slot<unsigned long>(enumerator, 6), names.size());
  EXPECT_EQ(call_slot<std::int64_t>(enumerator, release_slot), 0);
  return names;
}

void expect_reference_operations(void* object, std::int64_t count) {
  EXPECT_EQ(call_slot<std::int64_t>(object, check_slot), count);
  EXPECT_EQ(call_slot<std::int64_t>(object, 1), count + 1);
  EXPECT_EQ(call_slot<std::int64_t>(object, release_slot), count);
}

TEST(XMLSlotsTest, EveryObjectBeginsWithTheReferenceOperations) {
  const RawTree tree("<a><b/></a>");
  void* parser = make_parser();
  void* elements = nullptr;
  void* attributes = nullptr;
  call_slot<OXAResult>(tree.document, 10, static_cast<const char*>(nullptr), &elements);
  call_slot<OXAResult>(tree.root, 14, &attributes);
  for (void* object : {parser, elements, attributes}) {
    expect_reference_operations(object, 1);
    EXPECT_EQ(call_slot<std::int64_t>(object, release_slot), 0);
  }
  expect_reference_operations(tree.document, 1);
  expect_reference_operations(tree.root, 2);
}

TEST(XMLSlotsTest, ElementNameAndText) {
  const RawTree tree("<a>x &lt; y</a>");
  char* text = nullptr;
  EXPECT_EQ(name_of(tree.root), "a");
  EXPECT_FALSE(call_slot<bool>(tree.root, 7));
  EXPECT_TRUE(call_slot<bool>(tree.root, 8));
  EXPECT_EQ(call_slot<OXAResult>(tree.root, 11, &text), S_OK);
  EXPECT_STREQ(text, "x < y");
  EXPECT_EQ(call_slot<OXAResult>(tree.root, 5, "c"), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(tree.root, 6, "<"), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(tree.root, 9, &text), S_OK);
  EXPECT_STREQ(text, "<");
  EXPECT_EQ(call_slot<OXAResult>(tree.root, 10, &text), S_OK);
  EXPECT_STREQ(text, "&lt;");
  EXPECT_EQ(name_of(tree.root), "c");
}

TEST(XMLSlotsTest, ElementAttributes) {
  const RawTree tree("<a k=\"v\"/>");
  char* value = nullptr;
  EXPECT_EQ(call_slot<OXAResult>(tree.root, 12, "l", "w"), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(tree.root, 13, "l", &value), S_OK);
  EXPECT_STREQ(value, "w");
}

TEST(XMLSlotsTest, ElementChildren) {
  const RawTree tree("<a/>");
  void* child = nullptr;
  void* found = nullptr;
  call_slot<OXAResult>(tree.document, 4, "b", &child);
  EXPECT_EQ(call_slot<OXAResult>(tree.root, 15, child), S_OK);
  EXPECT_TRUE(call_slot<bool>(tree.root, 7));
  EXPECT_EQ(call_slot<OXAResult>(tree.root, 20, &found), S_OK);
  EXPECT_EQ(found, child);
  EXPECT_EQ(call_slot<OXAResult>(tree.root, 16, child), S_OK);
  EXPECT_FALSE(call_slot<bool>(tree.root, 7));
}

constexpr char family[] = R"(<a><b k="v"><c k="w"/></b><d id="1" k="v"/></a>)";
constexpr const char* any = nullptr;

TEST(XMLSlotsTest, ElementQueries) {
  const RawTree tree(family);
  void* found = nullptr;
  EXPECT_EQ(call_slot<OXAResult>(tree.root, 17, "1", &found), S_OK);
  EXPECT_EQ(name_of(found), "d");
  EXPECT_EQ(call_slot<OXAResult>(tree.root, 18, any, any, any, &found), S_OK);
  EXPECT_EQ(names_of(found), "bcd");
  EXPECT_EQ(call_slot<OXAResult>(tree.root, 18, "c", "k", "w", &found), S_OK);
  EXPECT_EQ(names_of(found), "c");
  EXPECT_EQ(call_slot<OXAResult>(tree.root, 19, any, any, any, &found), S_OK);
  EXPECT_EQ(names_of(found), "bd");
  EXPECT_EQ(call_slot<OXAResult>(tree.root, 21, any, "k", "w", &found), S_OK);
  EXPECT_EQ(name_of(found), "c");
}

TEST(XMLSlotsTest, TheElementGoesOnWithTwoQueriesAfterItsDestructors) {
  const RawTree tree(family);
  void* found = nullptr;
  EXPECT_EQ(call_slot<OXAResult>(tree.root, 24, "c", &found), S_OK);
  EXPECT_EQ(names_of(found), "c");
  EXPECT_EQ(call_slot<OXAResult>(tree.root, 25, "k", "v", &found), S_OK);
  EXPECT_EQ(names_of(found), "bd");
}

TEST(XMLSlotsTest, AttributeEnumWithItsCountAfterItsDestructors) {
  const RawTree tree("<a k=\"v\" l=\"w\"/>");
  void* attributes = nullptr;
  char* key = nullptr;
  char* value = nullptr;
  EXPECT_EQ(call_slot<OXAResult>(tree.root, 14, &attributes), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(attributes, 4, &key, &value), S_OK);
  EXPECT_STREQ(key, "k");
  EXPECT_STREQ(value, "v");
  EXPECT_EQ(call_slot<OXAResult>(attributes, 5, &key, &value), S_OK);
  EXPECT_STREQ(key, "l");
  EXPECT_EQ(call_slot<OXAResult>(attributes, 5, &key, &value), S_FALSE);
  EXPECT_EQ(call_slot<unsigned long>(attributes, 8), 2);
  call_slot<void>(attributes, 7);  // the deleting destructor
}

TEST(XMLSlotsTest, DocumentSourceAndFile) {
  const TemporaryFolder folder;
  const RawTree tree("<a/>");
  const std::wstring path = wide(folder / "a.xml");
  EXPECT_EQ(call_slot<OXAResult>(tree.document, 7, path.c_str()), S_OK);
  EXPECT_TRUE(std::filesystem::exists(folder / "a.xml"));
  EXPECT_EQ(call_slot<OXAResult>(tree.document, 5, path.c_str()), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(tree.document, 5, L"/not/there"), E_OPENFAILED);
  EXPECT_EQ(call_slot<OXAResult>(tree.document, 8), E_UNEXPECTED);
  EXPECT_EQ(call_slot<OXAResult>(tree.document, 6, "="), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(tree.document, 8), E_UNEXPECTED);
}

TEST(XMLSlotsTest, DocumentQueries) {
  const RawTree tree(family);
  void* found = nullptr;
  EXPECT_EQ(call_slot<OXAResult>(tree.document, 9, "1", &found), S_OK);
  EXPECT_EQ(name_of(found), "d");
  EXPECT_EQ(call_slot<OXAResult>(tree.document, 10, "b", &found), S_OK);
  EXPECT_EQ(names_of(found), "b");
  EXPECT_EQ(call_slot<OXAResult>(tree.document, 11, "k", "v", &found), S_OK);
  EXPECT_EQ(names_of(found), "bd");
  EXPECT_EQ(call_slot<OXAResult>(tree.document, 12, "d", "k", "v", &found), S_OK);
  EXPECT_EQ(names_of(found), "d");
}

TEST(XMLSlotsTest, DocumentElementsAndRoot) {
  const RawTree tree("<a/>");
  void* element = nullptr;
  void* root = nullptr;
  EXPECT_EQ(call_slot<OXAResult>(tree.document, 4, "b", &element), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(tree.document, 13, element), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(tree.document, 14, &root), S_OK);
  EXPECT_EQ(root, element);
}

TEST(XMLSlotsTest, Parser) {
  void* parser = make_parser();
  void* document = nullptr;
  EXPECT_EQ(call_slot<OXAResult>(parser, 4, L"/not/there", &document), E_OPENFAILED);
  EXPECT_EQ(call_slot<OXAResult>(parser, parser_destroy_document, document), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(parser, 6, &document), S_OK);
  EXPECT_EQ(call_slot<std::int64_t>(document, 1), 2);
  EXPECT_EQ(call_slot<OXAResult>(parser, parser_destroy_document, document), E_HANDLE);
  EXPECT_EQ(call_slot<OXAResult>(parser, parser_destroy_document, document), S_OK);
  EXPECT_EQ(call_slot<std::int64_t>(parser, release_slot), 0);
}

// Makes one object of each class that is nobody else's, with its first slot after the interface.
struct Destructible {
  const char* what;
  void* (*make)();
  std::size_t complete_destructor;
};

void* make_empty_document() {
  void* parser = make_parser();
  void* document = nullptr;
  call_slot<OXAResult>(parser, 6, &document);
  call_slot<std::int64_t>(parser, release_slot);
  return document;
}

void* make_element() {
  void* document = make_empty_document();
  void* element = nullptr;
  call_slot<OXAResult>(document, 4, "a name that is long enough to need memory", &element);
  call_slot<OXAResult>(element, 12, "key", "value");
  call_slot<std::int64_t>(document, document_destroy);
  return element;
}

void* make_attribute_enum() {
  void* element = make_element();
  void* attributes = nullptr;
  call_slot<OXAResult>(element, 14, &attributes);
  call_slot<std::int64_t>(element, release_slot);
  return attributes;
}

void* make_element_enum() {
  const RawTree tree("<a><b/><b/></a>");
  void* elements = nullptr;
  call_slot<OXAResult>(tree.document, 10, any, &elements);
  return elements;
}

const Destructible classes[] = {{"element", make_element, 22},
                                {"element enumerator", make_element_enum, 7},
                                {"attribute enumerator", make_attribute_enum, 6},
                                {"document", make_empty_document, 15},
                                {"parser", make_parser, 7}};

TEST(XMLSlotsTest, TheDestructorsFollowTheInterface) {
  for (const Destructible& one : classes) {
    const long before = live_allocations();
    void* object = one.make();
    EXPECT_GT(live_allocations(), before);
    call_slot<void>(object, one.complete_destructor);
    EXPECT_EQ(live_allocations(), before + 1) << one.what;  // the memory of the object itself
    operator delete(object);
    call_slot<void>(one.make(), one.complete_destructor + 1);
    EXPECT_EQ(live_allocations(), before) << one.what;
  }
}

TEST(XMLSlotsTest, TheDeletingDestructorOfAParsedElementEndsItsTree) {
  void* document = make_empty_document();
  void* root = nullptr;
  const long before = live_allocations();
  call_slot<OXAResult>(document, 6, "<a><b>x</b><c/></a>");
  call_slot<OXAResult>(document, 8);
  call_slot<OXAResult>(document, document_get_root, &root);
  call_slot<OXAResult>(document, 5, static_cast<const wchar_t*>(nullptr));
  EXPECT_EQ(call_slot<std::int64_t>(document, release_slot), 0);
  EXPECT_GT(live_allocations(), 0);
  call_slot<void>(root, 23);
  EXPECT_LT(live_allocations(), before);
}

// A sink that notes the slot, the level and the format of each call.
struct RawSink {
  const void* table;
  std::int64_t count = 1;
  std::vector<std::string> calls = {};
};

std::int64_t add_reference(RawSink* self) { return ++self->count; }
std::int64_t release_reference(RawSink* self) { return --self->count; }
std::int64_t check_reference(RawSink* self) { return self->count; }

void not_to_be_called() { ADD_FAILURE() << "a slot was called that has no business here"; }

void emit_error(RawSink* self, const char* format, ...) {
  self->calls.push_back("4 " + std::string(format));
}

template <int Slot>
void emit_at_level(RawSink* self, int level, const char* format, ...) {
  self->calls.push_back(std::to_string(Slot) + " " + std::to_string(level) + " " + format);
}

const auto sink_table =
    raw_table(typeid(IOXADebugMessage), add_reference, release_reference, check_reference,
              emit_error, not_to_be_called, not_to_be_called, not_to_be_called, not_to_be_called,
              not_to_be_called, emit_at_level<10>, emit_at_level<11>);

// Returns what is said to the sink of a context when a file, which is missing, and a text are
// parsed.
std::vector<std::string> calls_for(const std::string& input) {
  RawSink sink{sink_table.slots.data()};
  oxa::Ref<IOXAContext> context;
  oxa::Ref<IOXAXMLDocument> document;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  context->AddToContext(IID_IOXADebugMessage, &sink);
  const auto parser = oxa::service<IOXAXMLParser>(context.get());
  const auto before = sink.count;
  parser->CreateDocument(L"/not/there", oxa::adopt_into(document));
  EXPECT_EQ(sink.count, before + 1);
  document->SetBuffer(input.c_str());
  document->Parse();
  oxa::end_document(document);
  EXPECT_EQ(sink.count, before);
  return sink.calls;
}

constexpr char could_not_open[] = "10 5 Could not open file %s";
constexpr char confused[] = "4 Badly formed XML file; confused during parsing";

TEST(XMLRawSinkTest, ErrorsAreToldAsTheyStand) {
  const std::pair<const char*, const char*> cases[] = {
      {"=", "4 Badly formed XML file; and I don't know why!"},
      {"<?", "4 Badly formed XML file; confused by the <?xml ?> tag for some reason"},
      {"<a/><b/>", "4 Badly formed XML file; more than 1 top level element"},
      {"<a", confused}};
  for (const auto& [input, call] : cases) {
    EXPECT_EQ(calls_for(input), (std::vector<std::string>{could_not_open, call}));
  }
}

TEST(XMLRawSinkTest, NamesAndAttributesAreArguments) {
  EXPECT_EQ(
      calls_for("<a k=\"v\"><b>x</b><c>"),
      (std::vector<std::string>{could_not_open, "4 Badly formed XML file; parsing confused! (%s)",
                                "10 0 %s=%s", confused}));
  EXPECT_EQ(
      calls_for("<a k=\"v\"><b/>"),
      (std::vector<std::string>{could_not_open, "4 Badly formed XML file; unknown parsing error!",
                                "10 0 %s=%s", confused}));
}

TEST(XMLRawSinkTest, TextsThatAreTooLongAreToldAtTheirLevels) {
  EXPECT_EQ(calls_for("<" + std::string(4096, 'n') + "/>").at(1),
            "10 5 Buffer too small for name, truncating");
  EXPECT_EQ(calls_for("<a k=\"" + std::string(4096, 'v') + "\"/>").at(1),
            "11 5 buffer of sixe(%d) is too small for string, truncating");
  EXPECT_EQ(calls_for("<a>" + std::string(99999, 't') + "</a>").at(1),
            "10 5 Buffer too small for data, truncating");
}

TEST(XMLExportsTest, TheEscapingFunctionsReturnStrings) {
  const std::string escaped = ConvertToHTMLEscapedText("a<b>c&d");
  EXPECT_EQ(escaped, "a&lt;b&gt;c&amp;d");
  EXPECT_EQ(ConvertFromHTMLEscapedText(escaped.c_str()), "a<b>c&d");
  const std::string text(1000, 't');
  EXPECT_EQ(ConvertToHTMLEscapedText(text.c_str()), text);
}

TEST(XMLExportsTest, ADocumentIsMadeReadAndEnded) {
  oxa::Ref<IOXAXMLParser> parser;
  oxa::Ref<IOXAXMLDocument> document;
  EXPECT_EQ(OXACreateXMLParser(IID_IOXAXMLParser, oxa::adopt_into(parser)), S_OK);
  EXPECT_EQ(parser->CreateDocumentFromBuffer("<a><b/></a>", oxa::adopt_into(document)), S_OK);
  EXPECT_EQ(document->Parse(), S_OK);
  oxa::end_document(document);
}

}  // namespace
