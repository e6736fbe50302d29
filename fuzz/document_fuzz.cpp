// Input: a line with options and queries, and the document. `f` in front makes the document a file,
// `l` behind that makes each of its first characters `@` nearly as long as names may be, and `L`
// the first one behind a `>` nearly as long as texts may be. `m` behind that makes each message add
// an attribute to the root.
#include <oxa/IOXAXMLElementEnum.h>
#include <oxa/sdk/ref.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "assertion_stops.h"
#include "check.h"
#include "input.h"
#include "support/fakes.h"
#include "support/memory_file.h"
#include "tree_checks.h"
#include "xml/model/model_document.h"
#include "xml/model/outcome.h"
#include "xml/model/twins.h"
#include "xml/oxa_xml_parser.h"

using oxa_fuzz::check;
using oxa_fuzz::Element;

namespace {

oxa_xml_element* root_of(oxa_xml_parser& document) {
  IOXAXMLElement* root = nullptr;
  const OXAResult result = document.GetRoot(&root);
  check(result == (root != nullptr ? S_OK : E_INVALIDDATA),
        "GetRoot tells whether there is a root");
  return static_cast<oxa_xml_element*>(root);
}

// A document of the library and one of the model. What their sinks are told includes the tree as it
// is at the first messages.
class Document {
 public:
  explicit Document(bool adds_attributes = false) : adds_attributes_(adds_attributes) {
    int result = 0;
    parser_ = new oxa_xml_parser(&sink_, result);
    check(result == S_OK, "a document can be made");
    sink_.on_message = [this] {
      if (oxa_fuzz::last_stop == nullptr) {
        look(root_of(*parser_), sink_.lines);
      }
    };
    model_.messages.on_message = [this] { look(model_.root, model_.messages.lines); };
  }
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  // What parses before the last one have left belongs to whoever wants it; here, to nobody.
  ~Document() {
    check(parser_->Destroy() == 0, "nobody else holds the document");
    check(sink_.CheckReference() == 1, "the document lets go of its sink");
  }

  oxa_xml_parser* operator->() { return parser_; }
  // The root of the model's document, twin of the library's.
  Element* root() { return model_.root; }

  // Sets a source and parses it. Tells whether it was accepted without a word.
  bool parse(const std::string& source, bool from_file) {
    if (from_file) {
      const oxa_test::MemoryFile file(source);
      check(parser_->Open(file.path().c_str()) == S_OK, "a file can be opened");
    } else {
      check(parser_->SetBuffer(source.c_str()) == S_OK, "a buffer can be set");
    }
    model_.set_source(from_file ? source : source.c_str());
    oxa_xml_element* const old_root = root_of(*parser_);
    Element* const old_model_root = model_.root;
    sink_.Clear();
    model_.messages.lines.clear();
    const OXAResult result = parse_both();
    if (old_root != root_of(*parser_)) {
      delete old_root;
    }
    if (old_model_root != model_.root) {
      delete old_model_root;
    }
    check_roots();
    return result == S_OK && sink_.lines.empty();
  }

  std::string serialized() {
    const oxa_test::MemoryFile file("what was there before");
    check(parser_->Serialize(file.path().c_str()) == (root() != nullptr ? S_OK : S_FALSE),
          "Serialize tells whether there is a root");
    const std::string written = file.content();
    check(written == model_.serialized(), "Serialize writes what the model writes");
    return written;
  }

 private:
  template <class AnyElement>
  void look(AnyElement* root, std::vector<std::string>& lines) {
    constexpr std::size_t most_looks = 50;
    if (root != nullptr && adds_attributes_) {
      check(root->AddAttribute("key", "told") == S_OK, "an attribute can be added");
    }
    if (root != nullptr && lines.size() < most_looks) {
      oxa_test::model::describe(*root, lines.back());
    }
  }

  // Where the model stops, the library goes on to give up what is open, and tells that.
  OXAResult parse_both() {
    oxa_fuzz::last_stop = nullptr;
    const OXAResult result = parser_->Parse();
    const std::string stop = oxa_fuzz::last_stop == nullptr ? "" : oxa_fuzz::last_stop;
    OXAResult expected = E_UNEXPECTED;
    std::string expected_stop;
    try {
      expected = model_.parse();
    } catch (const oxa_test::model::Stop& caught) {
      expected_stop = caught.expression;
      sink_.lines.resize(std::min(sink_.lines.size(), model_.messages.lines.size()));
    }
    check(stop == expected_stop, "the same assertion fails");
    check(result == expected, "the result is that of the model");
    check(sink_.lines == model_.messages.lines, "the messages are those of the model");
    return result;
  }

  void check_roots() {
    oxa_xml_element* const root = root_of(*parser_);
    check((root == nullptr) == (model_.root == nullptr), "there is a root where the model has one");
    if (root != nullptr) {
      check(oxa_test::model::make_twins(*model_.root, *root), "the tree has the model's shape");
      oxa_fuzz::check_tree(*model_.root);
    }
  }

  bool adds_attributes_;
  oxa_test::RecordingSink sink_;
  oxa_xml_parser* parser_ = nullptr;
  oxa_test::model::Document model_;
};

void check_query(Document& document, oxa_fuzz::Input& input) {
  Element& root = *document.root();
  const char operation = input.next();
  const char* const text = input.text();
  if (operation == 'i') {
    IOXAXMLElement* found = nullptr;
    Element* expected = nullptr;
    const char* const id = text == nullptr ? "" : text;
    check(document->GetElementByID(id, &found) == root.GetChild(id, &expected),
          "GetElementByID succeeds");
    check(found == twin(expected), "GetElementByID finds what GetChild finds");
    oxa_fuzz::check_get_child(root, id);
    return;
  }
  const char* const key = input.text();
  const oxa_fuzz::Query query{text, key, input.text()};
  oxa::Ref<IOXAXMLElementEnum> found;
  document->GetElementEnumByNameKeyValue(query.name, query.key, query.value, adopt_into(found));
  check((found != nullptr ? found->Count() : 0) ==
            root.all_children(query.name, query.key, query.value).size(),
        "a document finds so many");
  oxa_fuzz::check_queries(root, query);
}

// Writes a tree, and parses what was written into another document.
void check_written(Document& document) {
  const std::string written = document.serialized();
  Document other;
  const bool accepted = other.parse(written, true);
  if (document.root() == nullptr || oxa_fuzz::writes_itself(*document.root())) {
    check(accepted, "what was written can be parsed");
    check(other.serialized() == written, "what was written is written the same again");
  }
}

// Replaces the last character of the first marks with a long text.
std::string lengthened(std::string_view source, std::string_view mark, std::size_t length,
                       int marks) {
  std::string longer(source);
  for (std::size_t at = longer.find(mark); marks > 0 && at != std::string::npos;
       at = longer.find(mark, at), --marks) {
    longer.replace(at + mark.size() - 1, 1, length, 'y');
  }
  return longer;
}

bool take(std::string_view& text, char first) {
  const bool is_there = text.substr(0, 1) == std::string_view(&first, 1);
  text.remove_prefix(is_there ? 1 : 0);
  return is_there;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  oxa_fuzz::Input input(data, size);
  std::string_view program = input.until('\n');
  const bool from_file = take(program, 'f');
  const std::string source = take(program, 'l')   ? lengthened(input.rest(), "@", 4090, 3)
                             : take(program, 'L') ? lengthened(input.rest(), ">@", 99990, 1)
                                                  : std::string(input.rest());

  Document document(take(program, 'm'));
  document.parse(source, from_file);
  while (take(program, 'p')) {
    document.parse(source, from_file);
  }
  if (document.root() != nullptr) {
    for (oxa_fuzz::Input queries(program); !queries.empty();) {
      check_query(document, queries);
    }
    oxa_fuzz::check_tree(*document.root());
  }
  check_written(document);
  return 0;
}
