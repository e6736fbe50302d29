// Looking for what is unusual in a graph.
#pragma once

#include <graph_contract.h>
#include <graph_findings.h>

#include <span>

// A check: one more takes a function and a line in the table. Its time and memory grow with the
// size of the graph, no faster.
struct Check {
  // The path of the setting that turns it off.
  const char* setting;
  graph::FindingKind kind;
  void (*look)(IGraph& graph, graph::FindingReport& report);
};

// Returns the checks in the order in which they run.
std::span<const Check> all_checks();
