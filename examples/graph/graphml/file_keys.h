// The keys of a GraphML file: what its data elements tell.
#pragma once

#include <graph_plugin.h>
#include <oxa/OXAVariant.h>

#include <array>
#include <deque>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "file_document.h"
#include "type_names.h"

namespace graph {

// Takes the data of a key: as values of an attribute, as a computed column, as the weight of edges,
// or not at all.
class FileKey {
 public:
  // Reads a key and adds its attributes to the graph.
  FileKey(const FileDocument& file, const TypeNames& types, IOXAXMLElement& element, IGraph& graph);

  // Whether it is somebody's extension, which is passed over: a key that has neither attr.name nor
  // attr.type, or is for something that there is not here.
  bool is_foreign() const { return foreign_; }
  bool is_for(GraphPart part) const { return parts_[static_cast<std::size_t>(part)]; }
  const std::string& name() const { return name_; }
  // Whether what it tells of edges is their weight.
  bool is_weight() const { return !foreign_ && is_for(GraphPart::edge) && name_ == "weight"; }
  // Whether it is a column that another run of the program has computed.
  bool is_column() const { return column_kind_.has_value(); }
  OXA::Property::DataType type() const { return type_; }

  // Reads the text of a data element.
  OXAVariant value(IOXAXMLElement& data) const;
  void take(IOXAXMLElement& data, IGraph& graph, GraphPart part, std::uint64_t item);

  // Returns the weight that a value is.
  double weight(IOXAXMLElement& at, const OXAVariant& value) const;
  double default_weight() const { return default_weight_; }

  // Sets the column once all data is taken.
  void finish(IGraph& graph);

 private:
  void read_parts();
  void read_type();
  void read_column();
  void add_attributes(IGraph& graph);
  void describe(IOXAProperty& description);
  void read_range(IOXAProperty& description) const;
  void read_entries(IOXAProperty& description);
  void read_default(IOXAProperty* description);
  [[noreturn]] void refuse_markup(IOXAXMLElement& at) const;
  OXAVariant parse(IOXAXMLElement& at, const std::string& text) const;

  const FileDocument& file_;
  const TypeNames& types_;
  IOXAXMLElement& element_;
  bool foreign_ = false;
  std::array<bool, 3> parts_{};
  std::string name_;
  OXA::Property::DataType type_{};
  std::string record_type_;
  std::array<std::uint64_t, 3> attributes_{};
  std::unordered_set<std::string> entries_;
  double default_weight_ = 1;
  std::optional<GraphColumnKind> column_kind_;
  std::vector<double> column_;
};

// All keys by their ids.
class FileKeys {
 public:
  FileKeys(const FileDocument& file, const TypeNames& types, IGraph& graph);

  // Returns the key of a data element of a part, null for one that is passed over.
  FileKey* of(const FileDocument& file, IOXAXMLElement& data, GraphPart part);

  // Returns the attribute of nodes that has a name and holds texts, null when there is none.
  const FileKey* texts_of_nodes(const char* name) const;

  // Returns the weight of an edge that has none.
  double default_weight() const { return default_weight_; }

  void finish(IGraph& graph);

 private:
  std::deque<FileKey> keys_;
  std::unordered_map<std::string, FileKey*> by_id_;
  double default_weight_ = 1;
};

}  // namespace graph
