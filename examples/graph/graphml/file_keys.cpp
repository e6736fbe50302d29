#include "file_keys.h"

#include <graph_values.h>
#include <oxa/oxa.h>

#include <cmath>
#include <limits>
#include <set>

#include "plain_xml.h"

using OXA::Property::DataType;

namespace graph {
namespace {

constexpr const char* part_names[] = {"graph", "node", "edge"};
constexpr GraphPart all_parts[] = {GraphPart::graph, GraphPart::node, GraphPart::edge};

std::size_t index_of(GraphPart part) { return static_cast<std::size_t>(part); }

// Whether the process knows a record type.
bool is_record_type(const std::string& name) {
  oxa::Ref<IOXAUserDefinedDataTypeManager> manager;
  OXACreateUserDefinedDataTypeManager(nullptr, IID_IOXAUserDefinedDataTypeManager,
                                      oxa::adopt_into(manager));
  return manager && manager->TypeDefined(name.c_str());
}

bool is_text(DataType type) { return oxa::kind_of(type) == OXAVariant::Kind::Text; }

bool is_number(DataType type) { return !is_text(type) && type != DataType::Bool; }

std::optional<GraphColumnKind> column_kind(const std::string& name) {
  if (name == "measure") return GraphColumnKind::measure;
  if (name == "category") return GraphColumnKind::category;
  if (name == "position") return GraphColumnKind::position;
  return std::nullopt;
}

}  // namespace

FileKey::FileKey(const FileDocument& file, const TypeNames& types, IOXAXMLElement& element,
                 IGraph& graph)
    : file_(file), types_(types), element_(element) {
  const auto name = FileDocument::value(element, "attr.name");
  foreign_ = !name && !FileDocument::value(element, "attr.type");
  name_ = name ? *name : file_.needed_value(element, "id");
  read_parts();
  if (foreign_) {
    return;
  }
  if (name_.empty()) {
    file_.malformed(element, "has a key without a name; name it");
  }
  read_type();
  read_column();
  if (!is_column()) {
    add_attributes(graph);
  }
}

void FileKey::read_parts() {
  const std::string target = FileDocument::value(element_, "for").value_or("all");
  bool known = target == "graphml" || target == "hyperedge" || target == "port" ||
               target == "endpoint" || target == "all";
  foreign_ = foreign_ || (known && target != "all");
  for (const GraphPart part : all_parts) {
    parts_[index_of(part)] = target == "all" || target == part_names[index_of(part)];
    known = known || parts_[index_of(part)];
  }
  if (!known) {
    file_.malformed(element_, "has a key for " + quoted(target) +
                                  ", which GraphML does not know; write graph, node, edge or all");
  }
}

void FileKey::read_type() {
  const std::string in_file = FileDocument::value(element_, "attr.type").value_or("string");
  type_ = types_.type(in_file);
  if (oxa::kind_of(type_) == OXAVariant::Kind::Nothing || type_ == DataType::UserDefined) {
    file_.malformed(element_, "has the attr.type " + quoted(in_file) +
                                  ", which GraphML does not know; write boolean, int, long, float, "
                                  "double or string");
  }
  const auto exact = FileDocument::value(element_, "oxa:type");
  if (!exact) {
    return;
  }
  DataType type = types_.type(*exact);
  if (type == DataType::UserDefined) {
    record_type_ = is_record_type(*exact) ? *exact : "";
    type = record_type_.empty() ? DataType::String : type;
  }
  if (oxa::kind_of(type) == OXAVariant::Kind::Nothing || is_text(type) != is_text(type_) ||
      is_number(type) != is_number(type_)) {
    file_.malformed(element_, "has the oxa:type " + quoted(*exact) + ", which is no kind of " +
                                  in_file + "; correct it or leave it out");
  }
  type_ = type;
}

void FileKey::read_column() {
  const auto kind = FileDocument::value(element_, "oxa:column");
  if (!kind) {
    return;
  }
  column_kind_ = column_kind(*kind);
  if (!column_kind_ || !is_number(type_) || is_for(GraphPart::graph) || is_for(GraphPart::edge)) {
    file_.malformed(element_, "has the column " + quoted(*kind) +
                                  ", which is not one of numbers of nodes that are a measure, "
                                  "category or position; leave out oxa:column");
  }
}

void FileKey::add_attributes(IGraph& graph) {
  for (const GraphPart part : all_parts) {
    if (!is_for(part)) {
      continue;
    }
    if (part == GraphPart::edge && is_weight()) {
      if (!is_number(type_)) {
        file_.malformed(element_,
                        "has weights of edges that are no numbers; write attr.type "
                        "double, or rename them");
      }
      read_default(nullptr);
      continue;
    }
    std::uint64_t& attribute = attributes_[index_of(part)];
    const OXAResult result = graph.AddAttribute(part, name_.c_str(), type_, &attribute);
    if (result == E_TYPEMISMATCH) {
      file_.malformed(element_, "has " + quoted(name_) +
                                    ", which the graph holds with another data type; rename it");
    }
    if (result == E_NOTFOUND) {
      throw Failure(E_FAIL, "the program keeps no attributes; restart it");
    }
    check(result);
    if (result == S_OK) {
      describe(*graph.GetAttribute(part, attribute));
    }
  }
}

void FileKey::describe(IOXAProperty& description) {
  if (!record_type_.empty()) {
    check(description.SetUserDefinedDataType(record_type_.c_str()));
  }
  read_range(description);
  read_entries(description);
  read_default(&description);
  for (IOXAXMLElement* note : oxa::children(element_, "desc")) {
    check(description.ViewHints()->SetTooltip(FileDocument::text(*note).c_str()));
  }
}

void FileKey::read_range(IOXAProperty& description) const {
  const auto least = FileDocument::value(element_, "oxa:min");
  const auto greatest = FileDocument::value(element_, "oxa:max");
  if (!least && !greatest) {
    return;
  }
  const auto from = least ? parse_number<double>(*least) : description.MinimumValue();
  const auto to = greatest ? parse_number<double>(*greatest) : description.MaximumValue();
  if (!from || !to || std::isnan(*from) || std::isnan(*to) ||
      oxa::failed(description.SetRange(*from, *to))) {
    file_.malformed(element_, "has for " + quoted(name_) + " a range from " +
                                  quoted(least.value_or("")) + " to " +
                                  quoted(greatest.value_or("")) +
                                  ", which is none of its data type; correct oxa:min and oxa:max");
  }
}

void FileKey::read_entries(IOXAProperty& description) {
  for (IOXAXMLElement* entry : oxa::children(element_, "oxa:entry")) {
    const std::string name = file_.needed_value(*entry, "name");
    const std::string value = file_.needed_value(*entry, "value");
    const OXAResult result = description.AddAttribute(name.c_str(), value.c_str());
    if (result == E_ALREADYEXISTS) {
      file_.malformed(*entry, "has the entry " + quoted(name) + " again; remove one");
    }
    if (oxa::failed(result)) {
      throw std::bad_alloc();
    }
    if (type_ == DataType::Enum) {
      entries_.insert(value);
    }
  }
}

void FileKey::read_default(IOXAProperty* description) {
  for (IOXAXMLElement* element : oxa::children(element_, "default")) {
    if (element->HasChildren()) {
      refuse_markup(*element);
    }
    const std::string text = FileDocument::text(*element);
    const OXAVariant value = parse(*element, text);
    if (description != nullptr) {
      check(description->SetDefaultValue(is_text(type_) ? text.c_str()
                                                        : std::string(trimmed(text)).c_str()));
    } else {
      default_weight_ = weight(*element, value);
    }
  }
}

OXAVariant FileKey::parse(IOXAXMLElement& at, const std::string& text) const {
  auto value = parse_value(type_, text);
  if (!value) {
    file_.malformed(at, "has the value " + quoted(text) + " for " + quoted(name_) +
                            ", which is not of the type " + types_.name(type_) + "; correct it");
  }
  if (!entries_.empty() && entries_.count(text) == 0) {
    file_.malformed(at, "has the value " + quoted(text) + " for " + quoted(name_) +
                            ", which is none of its entries; correct it or add an oxa:entry");
  }
  return std::move(*value);
}

void FileKey::refuse_markup(IOXAXMLElement& at) const {
  file_.malformed(at, "has elements within the value for " + quoted(name_) + "; write < as &lt;");
}

OXAVariant FileKey::value(IOXAXMLElement& data) const {
  if (oxa::attribute(data, markup_attribute, nullptr) != nullptr) {
    refuse_markup(data);
  }
  return parse(data, FileDocument::text(data));
}

void FileKey::take(IOXAXMLElement& data, IGraph& graph, GraphPart part, std::uint64_t item) {
  const OXAVariant read = value(data);
  if (!is_column()) {
    check(graph.SetValue(part, attributes_[index_of(part)], item, read));
    return;
  }
  column_.resize(std::max<std::size_t>(column_.size(), graph.GetNodeCount()),
                 std::numeric_limits<double>::quiet_NaN());
  with_number(read, [&](auto number) { column_[item] = static_cast<double>(number); });
}

double FileKey::weight(IOXAXMLElement& at, const OXAVariant& value) const {
  double weight = -1;
  with_number(value, [&](auto number) { weight = static_cast<double>(number); });
  if (!std::isfinite(weight) || weight < 0) {
    file_.malformed(at, "has the weight " + quoted(value_text(value)) +
                            ", which is not a finite number from 0 on; correct it");
  }
  return weight;
}

void FileKey::finish(IGraph& graph) {
  if (!is_column()) {
    return;
  }
  column_.resize(graph.GetNodeCount(), std::numeric_limits<double>::quiet_NaN());
  const OXAResult result =
      graph.SetColumn(name_.c_str(), *column_kind_, column_.data(), column_.size());
  if (result == E_INVALIDARG) {
    file_.malformed(element_, "has the column " + quoted(name_) +
                                  " with values that are no numbers of classes; leave out "
                                  "oxa:column");
  }
  check(result);
}

FileKeys::FileKeys(const FileDocument& file, const TypeNames& types, IGraph& graph) {
  std::set<std::pair<GraphPart, std::string>> names;
  for (IOXAXMLElement* element : oxa::children(file.root(), "key")) {
    const std::string id = file.needed_value(*element, "id");
    FileKey& key = keys_.emplace_back(file, types, *element, graph);
    if (key.is_weight()) {
      default_weight_ = key.default_weight();
    }
    if (!by_id_.emplace(id, &key).second) {
      file.malformed(*element, "has a second key with the id " + quoted(id) + "; rename one");
    }
    for (const GraphPart part : all_parts) {
      if (!key.is_foreign() && key.is_for(part) && !names.emplace(part, key.name()).second) {
        file.malformed(*element, "has a second key called " + quoted(key.name()) +
                                     " for the same; "
                                     "rename one");
      }
    }
  }
}

FileKey* FileKeys::of(const FileDocument& file, IOXAXMLElement& data, GraphPart part) {
  const std::string id = file.needed_value(data, "key");
  const auto found = by_id_.find(id);
  if (found == by_id_.end()) {
    file.malformed(data, "has a value for the key " + quoted(id) +
                             ", which is not in the file; add a <key> with this id");
  }
  if (found->second->is_foreign()) {
    return nullptr;
  }
  if (!found->second->is_for(part)) {
    file.malformed(data, std::string("has a value of ") +
                             (part == GraphPart::graph  ? "the graph"
                              : part == GraphPart::node ? "a node"
                                                        : "an edge") +
                             " for the key " + quoted(id) + ", which is for others; write for=\"" +
                             part_names[index_of(part)] + "\" or \"all\" there");
  }
  return found->second;
}

const FileKey* FileKeys::texts_of_nodes(const char* name) const {
  for (const FileKey& key : keys_) {
    if (!key.is_foreign() && key.is_for(GraphPart::node) && key.name() == name &&
        is_text(key.type())) {
      return &key;
    }
  }
  return nullptr;
}

void FileKeys::finish(IGraph& graph) {
  for (FileKey& key : keys_) {
    key.finish(graph);
  }
}

}  // namespace graph
