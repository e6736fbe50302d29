// What the picture shows: everything in places, sizes and classes, before any markup.
#pragma once

#include <graph_contract.h>

#include <cstddef>
#include <string>
#include <vector>

#include "theme.h"

namespace graph {

// The page, in pixels: the title on top, the graph on the left, the legend on the right.
inline constexpr double page_width = 1280;
inline constexpr double page_height = 880;
inline constexpr double margin = 40;
inline constexpr double graph_left = margin;
inline constexpr double graph_right = 1010;
inline constexpr double graph_top = 104;
inline constexpr double graph_bottom = page_height - margin;
inline constexpr double legend_left = 1060;

struct PictureNode {
  double x = 0;
  double y = 0;
  double radius = 0;
  std::string fill;
};

struct PictureEdge {
  std::size_t source = 0;
  std::size_t target = 0;
  double width = 0;
  // How many earlier edges join the same two nodes.
  std::size_t twin = 0;
};

// A column that sizes or colours stand for.
struct Scale {
  // Empty when nothing is shown.
  std::string column;
  GraphColumnKind kind = GraphColumnKind::measure;
  const double* values = nullptr;
  double least = 0;
  double most = 0;
};

struct Picture {
  IGraph& graph;
  std::string title;
  Theme theme = Theme::automatic;
  Scale size;
  Scale colour;
  Scale weight;
  double least_radius = 0;
  double most_radius = 0;
  std::vector<PictureNode> nodes;
  std::vector<PictureEdge> edges;
};

// Reads the options and the columns they name. Throws a Failure for an option that makes no sense,
// and when the graph has not been laid out.
Picture make_picture(IGraph& graph, IGraphOptions* options);

// Returns the radius of a node with `value` on the size scale.
double radius_of(const Picture& picture, double value);

// Returns the width of an edge with `weight`.
double width_of(const Picture& picture, double weight);

}  // namespace graph
