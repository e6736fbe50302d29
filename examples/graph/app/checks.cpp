#include "checks.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "attribute_values.h"

namespace {

using Counts = std::vector<unsigned long long>;

template <class Visit>
void for_each_edge(IGraph& graph, Visit visit) {
  const std::uint64_t count = graph.GetEdgeCount();
  GraphEdge edge{};
  for (std::uint64_t index = 0; index < count; ++index) {
    graph.GetEdge(index, &edge);
    visit(edge);
  }
}

std::string label(IGraph& graph, std::size_t node) { return graph.GetLabel(node); }

void find_self_loops(IGraph& graph, graph::FindingReport& report) {
  Counts loops(graph.GetNodeCount());
  for_each_edge(graph, [&](const GraphEdge& edge) {
    loops[edge.source] += edge.source == edge.target ? 1 : 0;
  });
  for (std::size_t node = 0; node < loops.size(); ++node) {
    if (loops[node] > 0) {
      report.add(label(graph, node), loops[node]);
    }
  }
}

// For each node, the nodes above it that it shares an edge with, once per edge.
class UpperNeighbours {
 public:
  explicit UpperNeighbours(IGraph& graph) : begins_(graph.GetNodeCount() + 1) {
    for_each_joining_edge(graph, [&](std::size_t low, std::size_t) { ++begins_[low + 1]; });
    for (std::size_t node = 1; node < begins_.size(); ++node) {
      begins_[node] += begins_[node - 1];
    }
    neighbours_.resize(begins_.back());
    std::vector<std::size_t> next = begins_;
    for_each_joining_edge(
        graph, [&](std::size_t low, std::size_t high) { neighbours_[next[low]++] = high; });
  }

  template <class Visit>
  void for_each(std::size_t node, Visit visit) const {
    for (std::size_t place = begins_[node]; place < begins_[node + 1]; ++place) {
      visit(neighbours_[place]);
    }
  }

 private:
  template <class Visit>
  static void for_each_joining_edge(IGraph& graph, Visit visit) {
    for_each_edge(graph, [&](const GraphEdge& edge) {
      if (edge.source != edge.target) {
        visit(std::min(edge.source, edge.target), std::max(edge.source, edge.target));
      }
    });
  }

  std::vector<std::size_t> begins_;
  std::vector<std::size_t> neighbours_;
};

void find_parallel_edges(IGraph& graph, graph::FindingReport& report) {
  const UpperNeighbours neighbours(graph);
  Counts joined(graph.GetNodeCount());
  for (std::size_t low = 0; low < joined.size(); ++low) {
    neighbours.for_each(low, [&](std::size_t high) { ++joined[high]; });
    neighbours.for_each(low, [&](std::size_t high) {
      if (joined[high] > 1) {
        report.add(label(graph, low) + " - " + label(graph, high), joined[high]);
      }
      joined[high] = 0;  // reported once, and ready for the next node
    });
  }
}

void find_isolated_nodes(IGraph& graph, graph::FindingReport& report) {
  std::vector<bool> joined(graph.GetNodeCount());
  for_each_edge(graph, [&](const GraphEdge& edge) {
    if (edge.source != edge.target) {
      joined[edge.source] = joined[edge.target] = true;
    }
  });
  for (std::size_t node = 0; node < joined.size(); ++node) {
    if (!joined[node]) {
      report.add(label(graph, node));
    }
  }
}

// Names an item of a part of the graph for people.
std::string item_name(IGraph& graph, GraphPart part, std::uint64_t item) {
  if (part == GraphPart::node) {
    return label(graph, item);
  }
  GraphEdge edge{};
  if (part == GraphPart::graph || graph.GetEdge(item, &edge) < 0) {
    return "the graph";
  }
  return label(graph, edge.source) + " - " + label(graph, edge.target);
}

void find_values_out_of_range(IGraph& graph, graph::FindingReport& report) {
  for (const ValuesOutOfRange& values : values_out_of_range(graph)) {
    for (const std::uint64_t item : values.items) {
      report.add(item_name(graph, values.part, item) + ": " + values.description->Name(), {},
                 *graph.GetValue(values.part, values.attribute, item));
    }
  }
}

constexpr Check checks[] = {
    {"checks::self-loops",
     {"self loops", "self loop", "an edge from a node to itself", graph::severity::warning},
     find_self_loops},
    {"checks::parallel-edges",
     {"parallel edges", "parallel edge", "one of several edges that join the same two nodes",
      graph::severity::warning},
     find_parallel_edges},
    {"checks::isolated-nodes",
     {"isolated nodes", "isolated node", "a node that no edge joins to another one",
      graph::severity::note},
     find_isolated_nodes},
    {"checks::values-out-of-range",
     {"values out of range", "out-of-range value",
      "a value of an attribute beyond the range that its description sets",
      graph::severity::warning},
     find_values_out_of_range}};

}  // namespace

std::span<const Check> all_checks() { return checks; }
