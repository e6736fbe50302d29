#include "graph_store.h"

#include <graph_plugin.h>
#include <oxa/sdk/guard.h>
#include <oxa/sdk/implements.h>

#include <algorithm>
#include <cmath>
#include <deque>
#include <limits>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "attribute_store.h"

namespace {

constexpr double no_value = std::numeric_limits<double>::quiet_NaN();
// A column of an empty graph has values to point to all the same.
constexpr double nothing = 0;

// Whether all values are numbers of classes, of which there are no more than nodes, or none.
bool are_classes(const double* values, std::uint64_t count) {
  return std::all_of(values, values + count, [&](double value) {
    return std::isnan(value) ||
           (value >= 0 && value < static_cast<double>(count) && value == std::floor(value));
  });
}

class GraphStore final : public oxa::Implements<IGraph> {
 public:
  explicit GraphStore(oxa::Ref<IOXAPreferences> preferences)
      : attributes_(std::move(preferences)) {}

  OXAResult AddNode(const char* label, std::uint64_t* node) override;
  OXAResult AddEdge(std::uint64_t source, std::uint64_t target, double weight) override;
  std::uint64_t GetNodeCount() override { return labels_.size(); }
  std::uint64_t GetEdgeCount() override { return edges_.size(); }
  const char* GetLabel(std::uint64_t node) override;
  OXAResult GetEdge(std::uint64_t edge, GraphEdge* out) override;
  OXAResult SetColumn(const char* name, GraphColumnKind kind, const double* values,
                      std::uint64_t count) override;
  OXAResult GetColumn(const char* name, GraphColumnKind* kind, const double** values) override;
  const char* GetColumnName(std::uint64_t column) override;
  OXAResult AddAttribute(GraphPart part, const char* name, OXA::Property::DataType type,
                         std::uint64_t* attribute) override {
    return attributes_.add(part, name, type, attribute);
  }
  IOXAProperty* GetAttribute(GraphPart part, std::uint64_t attribute) override {
    return attributes_.description(part, attribute);
  }
  OXAResult SetValue(GraphPart part, std::uint64_t attribute, std::uint64_t item,
                     const OXAVariant& value) override {
    return has(part, item) ? attributes_.set(part, attribute, item, value) : E_INVALIDARG;
  }
  const OXAVariant* GetValue(GraphPart part, std::uint64_t attribute, std::uint64_t item) override {
    return attributes_.get(part, attribute, item);
  }

 private:
  struct Column {
    std::string name;
    GraphColumnKind kind;
    std::vector<double> values;
  };

  Column* find(std::string_view name);
  bool has(GraphPart part, std::uint64_t item) { return item < graph::item_count(*this, part); }

  // Deques, so that views of labels and names, and borrowed ones, stay valid as they grow.
  std::deque<std::string> labels_;
  std::unordered_map<std::string_view, std::uint64_t> nodes_;
  std::vector<GraphEdge> edges_;
  std::deque<Column> columns_;
  // By their names.
  std::unordered_map<std::string_view, Column*> columns_by_name_;
  AttributeStore attributes_;
};

OXAResult GraphStore::AddNode(const char* label, std::uint64_t* node) {
  if (label == nullptr || node == nullptr) {
    return E_INVALIDARG;
  }
  return oxa::guard([&]() -> OXAResult {
    const auto found = nodes_.find(std::string_view(label));
    if (found != nodes_.end()) {
      *node = found->second;
      return S_FALSE;
    }
    for (Column& column : columns_) {
      if (column.values.size() == column.values.capacity()) {
        column.values.reserve(2 * labels_.size() + 1);
      }
    }
    labels_.emplace_back(label);
    try {
      nodes_.emplace(labels_.back(), labels_.size() - 1);
    } catch (...) {
      labels_.pop_back();
      throw;
    }
    for (Column& column : columns_) {
      column.values.push_back(no_value);
    }
    *node = labels_.size() - 1;
    return S_OK;
  });
}

OXAResult GraphStore::AddEdge(std::uint64_t source, std::uint64_t target, double weight) {
  const bool there = source < labels_.size() && target < labels_.size();
  if (!there || !std::isfinite(weight) || weight < 0) {
    return E_INVALIDARG;
  }
  return oxa::guard([&] {
    edges_.push_back({source, target, weight});
    return S_OK;
  });
}

const char* GraphStore::GetLabel(std::uint64_t node) {
  return node < labels_.size() ? labels_[node].c_str() : nullptr;
}

OXAResult GraphStore::GetEdge(std::uint64_t edge, GraphEdge* out) {
  if (edge >= edges_.size() || out == nullptr) {
    return E_INVALIDARG;
  }
  *out = edges_[edge];
  return S_OK;
}

OXAResult GraphStore::SetColumn(const char* name, GraphColumnKind kind, const double* values,
                                std::uint64_t count) {
  if (name == nullptr || count != labels_.size() || (values == nullptr && count > 0)) {
    return E_INVALIDARG;
  }
  if (kind == GraphColumnKind::category && !are_classes(values, count)) {
    return E_INVALIDARG;
  }
  return oxa::guard([&] {
    std::vector<double> copy(values, values + count);
    if (Column* column = find(name)) {
      column->kind = kind;
      column->values.swap(copy);
    } else {
      columns_.push_back({name, kind, std::move(copy)});
      try {
        columns_by_name_.emplace(columns_.back().name, &columns_.back());
      } catch (...) {
        columns_.pop_back();
        throw;
      }
    }
    return S_OK;
  });
}

OXAResult GraphStore::GetColumn(const char* name, GraphColumnKind* kind, const double** values) {
  if (name == nullptr || kind == nullptr || values == nullptr) {
    return E_INVALIDARG;
  }
  Column* column = find(name);
  if (column == nullptr) {
    return E_NOTFOUND;
  }
  *kind = column->kind;
  *values = column->values.empty() ? &nothing : column->values.data();
  return S_OK;
}

const char* GraphStore::GetColumnName(std::uint64_t column) {
  return column < columns_.size() ? columns_[column].name.c_str() : nullptr;
}

GraphStore::Column* GraphStore::find(std::string_view name) {
  const auto found = columns_by_name_.find(name);
  return found != columns_by_name_.end() ? found->second : nullptr;
}

}  // namespace

oxa::Ref<IGraph> make_graph(oxa::Ref<IOXAPreferences> preferences) {
  return oxa::make<GraphStore>(std::move(preferences));
}
