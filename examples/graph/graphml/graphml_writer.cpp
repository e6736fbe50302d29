#include "graphml_writer.h"

#include <graph_values.h>
#include <oxa/oxa.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <set>

#include "entities.h"
#include "file_document.h"
#include "memory_file.h"
#include "plain_xml.h"
#include "type_names.h"

using OXA::Property::DataType;

namespace graph {
namespace {

constexpr std::size_t items_between_stops = 4096;
constexpr const char* part_names[] = {"graph", "node", "edge"};

// A carriage return is the five bytes "&#13;" in the file.
std::size_t written_size(std::string_view escaped) {
  return escaped.size() +
         4 * static_cast<std::size_t>(std::count(escaped.begin(), escaped.end(), '\r'));
}

// Refuses what no reader would read as it is. `what` begins a sentence: "the label".
void check_writable(std::string_view text, std::string_view escaped, std::size_t longest,
                    const std::string& what) {
  for (std::size_t position = 0; position < text.size();) {
    if (!allowed_in_xml(oxa::decode_utf8(text, position))) {
      throw Failure(E_INVALIDDATA, what + " has a character that GraphML cannot hold; remove it");
    }
  }
  if (written_size(escaped) > longest) {
    throw Failure(E_INVALIDDATA, what + " is longer than the " + std::to_string(longest) +
                                     " bytes that can be read again; shorten it");
  }
}

// What is written under a key: the values of an attribute, or a column.
struct Written {
  std::string key;
  std::uint64_t attribute;
  // Null for a column.
  IOXAProperty* description;
  const double* column;
  GraphColumnKind kind;
};

// Refuses a value that the reader would refuse.
void check_entry(IOXAProperty& description, const std::string& text) {
  char* entry = nullptr;
  if (description.DataType() == DataType::Enum && description.GetAttributeCount() > 0 &&
      description.GetAttributeFromValue(text.c_str(), &entry) == E_NOTFOUND) {
    throw Failure(E_INVALIDDATA, "the value " + quoted(text) + " of " + quoted(description.Name()) +
                                     " is none of its entries; correct one of them");
  }
}

void check_default(IOXAProperty& description) {
  const char* value = description.DefaultValue();
  if (value == nullptr) {
    return;
  }
  if (!parse_value(description.DataType(), value)) {
    throw Failure(E_INVALIDDATA, "the default " + quoted(value) + " of " +
                                     quoted(description.Name()) +
                                     " is not of its data type; correct it");
  }
  check_entry(description, value);
}

class Writing {
 public:
  Writing(IOXAContext* context, IGraph& graph)
      : progress_(oxa::service<IOXAProgressIndicator>(context)), types_(context), graph_(graph) {
    const auto parser = oxa::service<IOXAXMLParser>(context);
    if (!parser) {
      throw Failure(E_FAIL, "the program has no XML parser; restart it");
    }
    check(parser->CreateEmptyDocument(oxa::adopt_into(document_)));
  }

  void run(IGraphOutput& output) {
    oxa::Ref<IOXAXMLElement> root = make("graphml");
    set(*root, "xmlns", "http://graphml.graphdrawing.org/xmlns");
    set(*root, "xmlns:oxa", "urn:oxa-graph:1");
    add_keys(*root);
    oxa::Ref<IOXAXMLElement> element = make("graph");
    set(*element, "edgedefault", "undirected");
    add_data(*element, GraphPart::graph, 0);
    add_nodes(*element);
    add_edges(*element);
    add(*root, std::move(element));
    check(document_->SetRoot(root.detach()));
    copy_to(output);
  }

 private:
  oxa::Ref<IOXAXMLElement> make(const char* name) {
    oxa::Ref<IOXAXMLElement> element;
    check(document_->CreateElement(name, oxa::adopt_into(element)));
    return element;
  }

  static void add(IOXAXMLElement& parent, oxa::Ref<IOXAXMLElement> child) {
    check(oxa::add_child(parent, std::move(child)));
  }

  // Sets an attribute to what needs no escaping.
  static void set(IOXAXMLElement& element, const char* name, const std::string& value) {
    oxa::require_memory(element.AddAttribute(name, value.c_str()));
  }

  static void set_text(IOXAXMLElement& element, const char* name, const char* text,
                       const std::string& what) {
    const std::string escaped = as_attribute(text);
    check_writable(text, escaped, longest_value, what);
    set(element, name, escaped);
  }

  oxa::Ref<IOXAXMLElement> make_text(const char* name, std::string_view text,
                                     const std::string& what) {
    constexpr std::size_t room_for_reference = 10;  // which the reader puts in front
    const std::string escaped = as_text(text);
    check_writable(text, escaped, longest_text - room_for_reference, what);
    oxa::Ref<IOXAXMLElement> element = make(name);
    check(element->SetText(escaped.c_str()));
    return element;
  }

  void stop_now_and_then() {
    if (++items_ % items_between_stops == 0) {
      stop_if_asked(progress_.get());
    }
  }

  std::vector<Written>& written(GraphPart part) { return written_[static_cast<std::size_t>(part)]; }

  void add_keys(IOXAXMLElement& root) {
    std::set<std::string_view> columns;
    for (std::uint64_t column = 0; const char* name = graph_.GetColumnName(column); ++column) {
      columns.insert(name);
    }
    for (const GraphPart part : {GraphPart::graph, GraphPart::node, GraphPart::edge}) {
      for (std::uint64_t attribute = 0;
           IOXAProperty* description = graph_.GetAttribute(part, attribute); ++attribute) {
        if (part != GraphPart::node || columns.count(description->Name()) == 0) {
          add_attribute_key(root, part, attribute, *description);
        }
      }
      if (part == GraphPart::node) {
        add_column_keys(root);
      }
    }
    weight_key_ = next_key();
    add(root, make_key(weight_key_, GraphPart::edge, "weight", "double"));
  }

  std::string next_key() { return "d" + std::to_string(keys_++); }

  oxa::Ref<IOXAXMLElement> make_key(const std::string& id, GraphPart part, const char* name,
                                    const std::string& type) {
    oxa::Ref<IOXAXMLElement> key = make("key");
    set(*key, "id", id);
    set(*key, "for", part_names[static_cast<int>(part)]);
    set_text(*key, "attr.name", name, "the name of an attribute");
    set(*key, "attr.type", type);
    return key;
  }

  void add_attribute_key(IOXAXMLElement& root, GraphPart part, std::uint64_t attribute,
                         IOXAProperty& description) {
    const std::string id = next_key();
    const DataType type = description.DataType();
    const std::string in_files = types_.in_files(type);
    oxa::Ref<IOXAXMLElement> key = make_key(id, part, description.Name(), in_files);
    const char* record_type = description.UserDefinedDataType();
    if (types_.type(in_files) != type &&
        (type != DataType::UserDefined || record_type != nullptr)) {
      set_text(*key, "oxa:type", record_type != nullptr ? record_type : types_.name(type).c_str(),
               "the name of a type");
    }
    if (description.IsRangeSet()) {
      set(*key, "oxa:min", number_as_text(description.MinimumValue()));
      set(*key, "oxa:max", number_as_text(description.MaximumValue()));
    }
    describe(*key, description);
    add(root, std::move(key));
    written(part).push_back({id, attribute, &description, nullptr, {}});
  }

  void describe(IOXAXMLElement& key, IOXAProperty& description) {
    const std::string whose = " of " + quoted(description.Name());
    if (const char* tooltip = description.ViewHints()->Tooltip()) {
      add(key, make_text("desc", tooltip, "the description" + whose));
    }
    check_default(description);
    if (const char* value = description.DefaultValue()) {
      add(key, make_text("default", value, "the default" + whose));
    }
    for (const char* name : oxa::attribute_names(description)) {
      oxa::Ref<IOXAXMLElement> entry = make("oxa:entry");
      set_text(*entry, "name", name, "an entry" + whose);
      set_text(*entry, "value", oxa::attribute(description, name), "an entry" + whose);
      add(key, std::move(entry));
    }
  }

  void add_column_keys(IOXAXMLElement& root) {
    for (std::uint64_t column = 0; const char* name = graph_.GetColumnName(column); ++column) {
      GraphColumnKind kind{};
      const double* values = find_column(graph_, name, &kind);
      const bool category = kind == GraphColumnKind::category;
      const std::string id = next_key();
      oxa::Ref<IOXAXMLElement> key =
          make_key(id, GraphPart::node, name, category ? "int" : "double");
      set(*key, "oxa:column",
          category                            ? "category"
          : kind == GraphColumnKind::position ? "position"
                                              : "measure");
      add(root, std::move(key));
      written(GraphPart::node).push_back({id, 0, nullptr, values, kind});
    }
  }

  void add_data(IOXAXMLElement& parent, GraphPart part, std::uint64_t item) {
    for (const Written& each : written(part)) {
      if (each.description != nullptr) {
        const OXAVariant* value = graph_.GetValue(part, each.attribute, item);
        if (value != nullptr) {
          const std::string text = value_text(*value);
          check_long(*value);
          check_entry(*each.description, text);
          add_datum(parent, each.key, text);
        }
      } else if (!std::isnan(each.column[item])) {
        add_datum(parent, each.key,
                  each.kind == GraphColumnKind::category
                      ? number_as_text(static_cast<std::uint64_t>(each.column[item]))
                      : number_as_text(each.column[item]));
      }
    }
  }

  static void check_long(const OXAVariant& value) {
    if (value.kind == OXAVariant::Kind::UnsignedLongLong &&
        value.unsigned_long_long_value > LLONG_MAX) {
      throw Failure(E_INVALIDDATA, "the value " + value_text(value) +
                                       " is greater than all that GraphML has a data type for; "
                                       "leave it out");
    }
  }

  void add_datum(IOXAXMLElement& parent, const std::string& key, const std::string& text) {
    oxa::Ref<IOXAXMLElement> data = make_text("data", text, "a value");
    set(*data, "key", key);
    add(parent, std::move(data));
  }

  void add_nodes(IOXAXMLElement& parent) {
    for (std::uint64_t node = 0; node < graph_.GetNodeCount(); ++node) {
      stop_now_and_then();
      oxa::Ref<IOXAXMLElement> element = make("node");
      set_text(*element, "id", graph_.GetLabel(node),
               "the label of node " + std::to_string(node + 1));
      add_data(*element, GraphPart::node, node);
      add(parent, std::move(element));
    }
  }

  void add_edges(IOXAXMLElement& parent) {
    const std::vector<GraphEdge> all = edges(graph_);
    for (std::uint64_t edge = 0; edge < all.size(); ++edge) {
      stop_now_and_then();
      oxa::Ref<IOXAXMLElement> element = make("edge");
      set(*element, "source", as_attribute(graph_.GetLabel(all[edge].source)));
      set(*element, "target", as_attribute(graph_.GetLabel(all[edge].target)));
      add_datum(*element, weight_key_, number_as_text(all[edge].weight));
      add_data(*element, GraphPart::edge, edge);
      add(parent, std::move(element));
    }
  }

  // Carriage returns, which a reader would take for ends of lines, get their number here: there are
  // no others in the file.
  void copy_to(IGraphOutput& output) {
    constexpr std::size_t piece = std::size_t{1} << 20;
    const MemoryFile file;
    check(document_->Serialize(oxa::widen(file.path()).c_str()));
    check_end(file);
    for (std::uint64_t position = 0; position < file.size(); position += piece) {
      stop_if_asked(progress_.get());
      std::string bytes = file.read(position, piece);
      for (std::size_t next = bytes.find('\r'); next != std::string::npos;
           next = bytes.find('\r', next)) {
        bytes.replace(next, 1, "&#13;");
      }
      check(output.Write(bytes.data(), bytes.size()));
    }
  }

  // The library says S_OK of a file that it could not write, too.
  static void check_end(const MemoryFile& file) {
    constexpr std::string_view end = "</graphml>\n";
    const std::uint64_t size = file.size();
    if (size < end.size() || file.read(size - end.size(), end.size()) != end) {
      throw std::bad_alloc();
    }
  }

  oxa::Ref<IOXAProgressIndicator> progress_;
  TypeNames types_;
  IGraph& graph_;
  oxa::XMLDocument document_;
  std::array<std::vector<Written>, 3> written_;
  std::string weight_key_;
  std::size_t keys_ = 0;
  std::size_t items_ = 0;
};

}  // namespace

void GraphmlWriter::write(IGraph& graph, IGraphOptions* /*options*/, IGraphOutput& output) {
  Writing(context_, graph).run(output);
}

}  // namespace graph
