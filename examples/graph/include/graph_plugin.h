// Writing a plug-in for oxa-graph: base classes that leave only the work to write, and short forms
// of the graph's operations; <graph_values.h> turns values of attributes into text and back. What
// is written on top of them may throw: a Failure carries the sentence for people, and every other
// exception becomes a result code.
#pragma once

#include <graph_contract.h>
#include <oxa/IOXAProgressIndicator.h>
#include <oxa/sdk/guard.h>
#include <oxa/sdk/implements.h>

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace graph {

// Ends an operation with a result code and, unless it is empty, a text for people; see
// IGraphErrorText::Set for its form.
class Failure : public std::runtime_error {
 public:
  explicit Failure(OXAResult result, const std::string& text = {})
      : std::runtime_error(text), result_(result) {}

  OXAResult result() const { return result_; }

 private:
  OXAResult result_;
};

// Throws a Failure for a negative result.
inline void check(OXAResult result) {
  if (result < 0) {
    throw Failure(result);
  }
}

// Runs `operation` behind the exception wall; the text of a Failure goes to `error`.
template <class Operation>
OXAResult wall(IGraphErrorText* error, Operation&& operation) {
  return oxa::guard([&]() -> OXAResult {
    try {
      operation();
      return S_OK;
    } catch (const Failure& failure) {
      if (error != nullptr && *failure.what() != '\0') {
        error->Set(failure.what());
      }
      return failure.result();
    }
  });
}

// Copies all edges.
inline std::vector<GraphEdge> edges(IGraph& graph) {
  std::vector<GraphEdge> all(graph.GetEdgeCount());
  for (std::size_t edge = 0; edge < all.size(); ++edge) {
    check(graph.GetEdge(edge, &all[edge]));
  }
  return all;
}

inline void set_column(IGraph& graph, const char* name, GraphColumnKind kind,
                       const std::vector<double>& values) {
  check(graph.SetColumn(name, kind, values.data(), values.size()));
}

// Returns the values of a column, or null when there is none of that name.
inline const double* find_column(IGraph& graph, const char* name, GraphColumnKind* kind = nullptr) {
  GraphColumnKind ignored{};
  const double* values = nullptr;
  graph.GetColumn(name, kind != nullptr ? kind : &ignored, &values);
  return values;
}

// Returns how many items a part has.
inline std::uint64_t item_count(IGraph& graph, GraphPart part) {
  return part == GraphPart::graph  ? 1
         : part == GraphPart::node ? graph.GetNodeCount()
                                   : graph.GetEdgeCount();
}

// Returns the number of an attribute that is there or added, of which a new one has no value yet.
// Throws a Failure.
inline std::uint64_t add_attribute(IGraph& graph, GraphPart part, const char* name,
                                   OXA::Property::DataType type) {
  std::uint64_t attribute = 0;
  check(graph.AddAttribute(part, name, type, &attribute));
  return attribute;
}

// Returns the number of the attribute called `name`, nothing when there is none.
inline std::optional<std::uint64_t> find_attribute(IGraph& graph, GraphPart part,
                                                   std::string_view name) {
  for (std::uint64_t attribute = 0; IOXAProperty* found = graph.GetAttribute(part, attribute);
       ++attribute) {
    if (found->Name() == name) {
      return attribute;
    }
  }
  return std::nullopt;
}

// Ends the operation when the host has asked it to stop.
inline void stop_if_asked(IOXAProgressIndicator* progress) {
  if (progress != nullptr && !progress->IsActive()) {
    throw Failure(E_FAIL);
  }
}

class Reader : public oxa::Implements<IGraphReader> {
 public:
  const char* GetName() final { return name_; }
  const char* GetExtensions() final { return extensions_; }
  OXAResult Read(const char* data, std::uint64_t size, IGraph* graph,
                 IGraphErrorText* error) final {
    if (data == nullptr || graph == nullptr) {
      return E_INVALIDARG;
    }
    return wall(error, [&] { read(std::string_view(data, size), *graph); });
  }

 protected:
  // Both texts outlive the object.
  Reader(const char* name, const char* extensions) : name_(name), extensions_(extensions) {}
  virtual void read(std::string_view text, IGraph& graph) = 0;

 private:
  const char* name_;
  const char* extensions_;
};

class Writer : public oxa::Implements<IGraphWriter> {
 public:
  const char* GetName() final { return name_; }
  const char* GetExtensions() final { return extensions_; }
  OXAResult Write(IGraph* graph, IGraphOptions* options, IGraphOutput* output,
                  IGraphErrorText* error) final {
    if (graph == nullptr || output == nullptr) {
      return E_INVALIDARG;
    }
    return wall(error, [&] { write(*graph, options, *output); });
  }

 protected:
  Writer(const char* name, const char* extensions) : name_(name), extensions_(extensions) {}
  virtual void write(IGraph& graph, IGraphOptions* options, IGraphOutput& output) = 0;

 private:
  const char* name_;
  const char* extensions_;
};

class Algorithm : public oxa::Implements<IGraphAlgorithm> {
 public:
  const char* GetName() final { return name_; }
  const char* GetDescription() final { return description_; }
  OXAResult Run(IGraph* graph, IGraphErrorText* error) final {
    return graph == nullptr ? E_INVALIDARG : wall(error, [&] { run(*graph); });
  }

 protected:
  Algorithm(const char* name, const char* description) : name_(name), description_(description) {}
  virtual void run(IGraph& graph) = 0;

 private:
  const char* name_;
  const char* description_;
};

class Layout : public oxa::Implements<IGraphLayout> {
 public:
  const char* GetName() final { return name_; }
  const char* GetDescription() final { return description_; }
  OXAResult Arrange(IGraph* graph, IGraphErrorText* error) final {
    return graph == nullptr ? E_INVALIDARG : wall(error, [&] { arrange(*graph); });
  }

 protected:
  Layout(const char* name, const char* description) : name_(name), description_(description) {}
  virtual void arrange(IGraph& graph) = 0;

 private:
  const char* name_;
  const char* description_;
};

}  // namespace graph
