// Putting separately arranged parts of a graph side by side.
#pragma once

#include <graph_contract.h>

#include <cstddef>
#include <vector>

namespace graph {

struct Point {
  double x;
  double y;
};

// A connected part: its nodes, its edges in terms of positions in `nodes`, and a point per node.
struct Part {
  std::vector<std::size_t> nodes;
  std::vector<GraphEdge> edges;
  std::vector<Point> points;
};

// Turns a part so that its longer side lies across, and scales it so that its area grows with the
// number of its nodes.
void turn_and_scale(Part& part);

// Gives crowded stretches more room and empty ones less, along both axes, and stretches a flat part
// towards the proportions of a page. What is left of what, and what above, stays.
void even_out(Part& part);

// Moves points apart that are much closer than their number and the area allow for.
void loosen(Part& part);

// Moves the parts into rows, the largest first, none over another, about as wide as high.
void pack(std::vector<Part>& parts);

}  // namespace graph
