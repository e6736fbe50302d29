// What is unusual about the values of attributes.
#pragma once

#include <graph_contract.h>

#include <vector>

// An attribute with values out of the range that its description sets.
struct ValuesOutOfRange {
  GraphPart part;
  std::uint64_t attribute;
  // Borrowed from the graph.
  IOXAProperty* description;
  // In rising order, at least one. graph::value_text (graph_values.h) shows their values.
  std::vector<std::uint64_t> items;
};

// Returns the attributes that have such values: those of the graph, of nodes and of edges, each in
// their order. NaN is out of every range. What holds no number has no range, nor has an attribute
// whose description sets none. Throws std::bad_alloc.
std::vector<ValuesOutOfRange> values_out_of_range(IGraph& graph);
