#include "xml/model/outcome.h"

#include <memory>
#include <ostream>
#include <sstream>
#include <utility>

#include "support/fakes.h"
#include "support/memory_file.h"
#include "xml/model/random_documents.h"
#include "xml/oxa_xml_enums.h"
#include "xml/oxa_xml_parser.h"

namespace oxa_test::model {

namespace {

void describe_attribute(const char* key, const char* value, OXAResult result, std::string& out) {
  out.append(" ").append(key).append("='").append(value);
  out.append(result == S_OK ? "'" : result == E_INVALIDARG ? "'E" : "'?");
}

void describe_state(std::int64_t count, bool has_text, bool has_children, std::string& out) {
  out.append(" x").append(std::to_string(count));
  out.append(has_text ? "t" : "").append(has_children ? "c[" : "[");
}

std::string or_empty(const char* text) { return text == nullptr ? "" : text; }

void describe_attributes(oxa_xml_element& element, std::string& out) {
  IOXAXMLAttributeEnum* attributes = nullptr;
  element.GetAttributes(&attributes);
  char* key = nullptr;
  char* value = nullptr;
  for (OXAResult found = attributes->GetFirst(&key, &value); found == S_OK;
       found = attributes->GetNext(&key, &value)) {
    char* stored = nullptr;
    const OXAResult result = element.GetAttribute(or_empty(key).c_str(), &stored);
    describe_attribute(or_empty(key).c_str(), or_empty(value).c_str(), result, out);
    key = value = nullptr;
  }
  attributes->ReleaseReference();
}

}  // namespace

bool operator==(const Outcome& a, const Outcome& b) {
  return a.result == b.result && a.messages == b.messages && a.root_count == b.root_count &&
         a.tree == b.tree && a.dumped == b.dumped && a.file == b.file && a.queried == b.queried;
}

std::ostream& operator<<(std::ostream& os, const Outcome& outcome) {
  os << "result " << outcome.result << ", root count " << outcome.root_count << "\n";
  for (const std::string& message : outcome.messages) {
    os << "  " << printable(message) << "\n";
  }
  return os << "tree " << printable(outcome.tree) << "\nfile " << printable(outcome.file)
            << "\nqueried " << printable(outcome.queried) << "\n"
            << outcome.dumped;
}

void describe(const Element& element, std::string& out) {
  out.append("<").append(element.name).append("|").append(element.text).append("|");
  for (const auto& [key, value] : element.attributes) {
    describe_attribute(key.c_str(), value.c_str(), value.empty() ? E_INVALIDARG : S_OK, out);
  }
  describe_state(element.count, !element.text.empty(), !element.children.empty(), out);
  for (const Element* child : element.children) {
    describe(*child, out);
  }
  out += "]";
}

void describe(oxa_xml_element& element, std::string& out) {
  char* text = nullptr;
  element.GetText(text);
  out.append("<")
      .append(or_empty(element.Name()))
      .append("|")
      .append(or_empty(text))
      .append(text != nullptr && *text == '\0' ? "?|" : "|");
  describe_attributes(element, out);
  describe_state(element.CheckReference(), element.hasText(), element.HasChildren(), out);
  for (oxa_xml_element* child : element.immediate_children(nullptr, nullptr, nullptr)) {
    describe(*child, out);
  }
  out += "]";
}

std::string dumped(oxa_xml_element& element, int level) {
  std::ostringstream os;
  element.dump(os, level);
  return os.str() + std::to_string(level);
}

std::string dumped(const Element& element, int level) {
  std::string out;
  element.dump(out, level);
  return out + std::to_string(level);
}

namespace {

// The arguments of the queries that an outcome includes.
struct Query {
  const char* name;
  const char* key;
  const char* value;
};
constexpr Query queries[] = {{"b", nullptr, nullptr}, {nullptr, "x", "1"}, {"a", "id", ""}};

std::string query(IOXAXMLDocument& document) {
  IOXAXMLElement* by_id = nullptr;
  std::string out = std::to_string(document.GetElementByID("1", &by_id));
  out += by_id == nullptr ? "-" : or_empty(by_id->Name());
  for (const auto& [name, key, value] : queries) {
    IOXAXMLElementEnum* found = nullptr;
    const OXAResult result = key == nullptr ? document.GetElementEnumByName(name, &found)
                             : name == nullptr
                                 ? document.GetElementEnumByKeyValue(key, value, &found)
                                 : document.GetElementEnumByNameKeyValue(name, key, value, &found);
    out += "," + std::to_string(result);
    if (found != nullptr) {
      out += "x" + std::to_string(found->Count());
      found->ReleaseReference();
    }
  }
  return out;
}

std::string query(Document& document) {
  if (document.root == nullptr) {
    return "1-,1,1,1";
  }
  Element* by_id = nullptr;
  std::string out = std::to_string(document.root->GetChild("1", &by_id));
  out += by_id == nullptr ? "-" : by_id->name;
  for (const auto& [name, key, value] : queries) {
    const auto found = document.root->all_children(name, key, value);
    out += "," + (found.empty() ? std::to_string(E_NOTFOUND) : "0x" + std::to_string(found.size()));
  }
  return out;
}

// Parses again, and ends a tree that this took out of the document. Throws Stop.
OXAResult parse_again(Document& document) {
  std::unique_ptr<Element> first(std::exchange(document.root, nullptr));
  const OXAResult result = document.parse();
  if (document.root == nullptr) {
    document.root = first.release();
  }
  return result;
}

OXAResult parse_again(oxa_xml_parser& document) {
  IOXAXMLElement* first = nullptr;
  IOXAXMLElement* second = nullptr;
  document.GetRoot(&first);
  const OXAResult result = document.Parse();
  document.GetRoot(&second);
  while (first != nullptr && first != second && first->ReleaseReference() > 0) {
  }
  return result;
}

std::string serialized(oxa_xml_parser& document) {
  const MemoryFile file("what was there before, longer than any document of this test is");
  document.Serialize(file.path().c_str());
  return file.content();
}

}  // namespace

Outcome model_outcome(const std::string& source, Way way) {
  Document document;
  document.set_source(way.from_file ? source : source.c_str());
  Outcome outcome;
  outcome.result = document.parse();
  if (way.second_parse) {
    outcome.result = parse_again(document);
  }
  if (way.queries) {
    outcome.queried = query(document);
  }
  if (document.root != nullptr) {
    outcome.root_count = document.root->count;
    describe(*document.root, outcome.tree);
    outcome.dumped = dumped(*document.root, 0);
  }
  outcome.messages = document.messages.lines;
  outcome.file = way.to_file ? document.serialized() : "";
  return outcome;
}

Outcome library_outcome(const std::string& source, Way way) {
  const auto sink = oxa::make<RecordingSink>();
  Outcome outcome;
  auto* const document = new oxa_xml_parser(sink.get(), outcome.result);
  if (way.from_file) {
    document->Open(MemoryFile(source).path().c_str());
  } else {
    document->SetBuffer(source.c_str());
  }
  outcome.result = document->Parse();
  if (way.second_parse) {
    outcome.result = parse_again(*document);
  }
  if (way.queries) {
    outcome.queried = query(*document);
  }
  IOXAXMLElement* found = nullptr;
  document->GetRoot(&found);
  if (auto* const root = static_cast<oxa_xml_element*>(found)) {
    outcome.root_count = root->CheckReference();
    describe(*root, outcome.tree);
    outcome.dumped = dumped(*root, 0);
  }
  outcome.file = way.to_file ? serialized(*document) : "";
  outcome.messages = sink->lines;
  document->Destroy();
  return outcome;
}

}  // namespace oxa_test::model
