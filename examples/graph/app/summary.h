// What the computed columns say, in a few lines.
#pragma once

#include <graph_contract.h>

// Prints a line per column: the nodes with the greatest values, or the number and sizes of groups.
void print_summary(IGraph& graph);
