#include "picture.h"

#include <graph_plugin.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace graph {
namespace {

std::string option(IGraphOptions* options, const char* name) {
  const char* value = options != nullptr ? options->Get(name) : nullptr;
  return value != nullptr ? value : "";
}

Theme theme_of(const std::string& name) {
  if (name.empty() || name == "auto") {
    return Theme::automatic;
  }
  if (name == "light" || name == "dark") {
    return name == "light" ? Theme::light : Theme::dark;
  }
  throw Failure(E_INVALIDARG, "there is no theme \"" + name + "\"; use auto, light or dark");
}

void take_range(Scale& scale, std::size_t count) {
  bool first = true;
  for (std::size_t node = 0; node < count; ++node) {
    const double value = scale.values[node];
    if (std::isfinite(value)) {
      scale.least = first ? value : std::min(scale.least, value);
      scale.most = first ? value : std::max(scale.most, value);
      first = false;
    }
  }
}

Scale scale_of(IGraph& graph, const std::string& column) {
  Scale scale;
  if (column.empty()) {
    return scale;
  }
  scale.column = column;
  scale.values = find_column(graph, column.c_str(), &scale.kind);
  if (scale.values == nullptr) {
    throw Failure(E_INVALIDARG,
                  "the graph has no column \"" + column + "\"; run the algorithm that makes it");
  }
  take_range(scale, graph.GetNodeCount());
  return scale;
}

// How far a value lies from 0, or from the least one if that is below 0, to the greatest.
double share_of(const Scale& scale, double value) {
  const double from = std::min(scale.least, 0.0);
  return std::isfinite(value) && scale.most > from ? (value - from) / (scale.most - from) : 0;
}

std::string fill_of(const Scale& scale, std::size_t node) {
  if (scale.values == nullptr) {
    return "c0";
  }
  const double value = scale.values[node];
  if (!std::isfinite(value) || value < scale.least) {
    return "cn";
  }
  if (scale.kind == GraphColumnKind::category) {
    return value >= 0 && value < static_cast<double>(category_colours)
               ? "c" + std::to_string(static_cast<std::size_t>(value))
               : "cn";
  }
  const double span = scale.most - scale.least;
  const double place = span > 0 ? (value - scale.least) / span : 1;
  return "r" + std::to_string(std::lround(place * static_cast<double>(ramp_steps - 1)));
}

// Fits the layout into the page, proportions kept, with room for nodes and labels at the rim.
void place_nodes(Picture& picture, const double* x, const double* y) {
  const std::size_t count = picture.nodes.size();
  const auto [left, right] = std::minmax_element(x, x + count);
  const auto [top, bottom] = std::minmax_element(y, y + count);
  const double rim_x = picture.most_radius + 24;
  const double rim_y = picture.most_radius + 12;
  const double width = graph_right - graph_left - 2 * rim_x;
  const double height = graph_bottom - graph_top - 2 * rim_y;
  const double span_x = *right - *left;
  const double span_y = *bottom - *top;
  double scale = 1;
  if (span_x > 0 || span_y > 0) {
    scale =
        std::min(span_x > 0 ? width / span_x : HUGE_VAL, span_y > 0 ? height / span_y : HUGE_VAL);
  }
  for (std::size_t node = 0; node < count; ++node) {
    picture.nodes[node].x =
        (graph_left + graph_right) / 2 + (x[node] - (*left + *right) / 2) * scale;
    picture.nodes[node].y =
        (graph_top + graph_bottom) / 2 + (y[node] - (*top + *bottom) / 2) * scale;
  }
}

// Pushes two nodes apart if they touch. Returns whether they did.
bool push_apart(PictureNode& left, PictureNode& right) {
  constexpr double gap = 4;
  double dx = right.x - left.x;
  double dy = right.y - left.y;
  const double wanted = left.radius + right.radius + gap;
  double distance = std::hypot(dx, dy);
  if (distance >= wanted) {
    return false;
  }
  if (distance <= 0) {
    dx = distance = 1;
    dy = 0;
  }
  const double push = (wanted - distance) / (2 * distance);
  left.x -= dx * push;
  left.y -= dy * push;
  right.x += dx * push;
  right.y += dy * push;
  return true;
}

void keep_on_page(PictureNode& node) {
  node.x = std::clamp(node.x, graph_left + node.radius, graph_right - node.radius);
  node.y = std::clamp(node.y, graph_top + node.radius, graph_bottom - node.radius);
}

// No node hides another, in graphs that leave room for that.
void separate_nodes(std::vector<PictureNode>& nodes) {
  constexpr std::size_t most_nodes = 1000;
  constexpr int most_rounds = 80;
  bool moved = nodes.size() <= most_nodes;
  for (int round = 0; moved && round < most_rounds; ++round) {
    moved = false;
    for (std::size_t left = 0; left < nodes.size(); ++left) {
      for (std::size_t right = left + 1; right < nodes.size(); ++right) {
        moved = push_apart(nodes[left], nodes[right]) || moved;
      }
      keep_on_page(nodes[left]);
    }
  }
}

void take_edges(Picture& picture) {
  const std::vector<GraphEdge> all = edges(picture.graph);
  Scale& weight = picture.weight;
  for (const GraphEdge& edge : all) {
    weight.least = &edge == &all.front() ? edge.weight : std::min(weight.least, edge.weight);
    weight.most = std::max(weight.most, edge.weight);
  }
  std::map<std::pair<std::size_t, std::size_t>, std::size_t> twins;
  picture.edges.reserve(all.size());
  for (const GraphEdge& edge : all) {
    const std::size_t twin = twins[std::minmax(edge.source, edge.target)]++;
    picture.edges.push_back({edge.source, edge.target, width_of(picture, edge.weight), twin});
  }
}

}  // namespace

double radius_of(const Picture& picture, double value) {
  if (picture.size.values == nullptr) {
    return (picture.least_radius + picture.most_radius) / 2.5;
  }
  const double area = share_of(picture.size, value) * picture.most_radius * picture.most_radius;
  return std::max(picture.least_radius, std::sqrt(std::max(area, 0.0)));
}

double width_of(const Picture& picture, double weight) {
  const auto count = static_cast<double>(picture.graph.GetEdgeCount());
  const double thin = std::clamp(std::sqrt(600 / count), 0.25, 1.0);
  if (picture.weight.least >= picture.weight.most) {
    return 1.4 * thin;
  }
  return (0.7 + 5.3 * std::sqrt(weight / picture.weight.most)) * thin;
}

Picture make_picture(IGraph& graph, IGraphOptions* options) {
  const std::size_t count = graph.GetNodeCount();
  const double* x = find_column(graph, "x");
  const double* y = find_column(graph, "y");
  if (count > 0 && (x == nullptr || y == nullptr)) {
    throw Failure(E_INVALIDARG, "the nodes have no places; run a layout first");
  }
  Picture picture{graph,
                  option(options, "title"),
                  theme_of(option(options, "theme")),
                  scale_of(graph, option(options, "size")),
                  scale_of(graph, option(options, "color")),
                  {},
                  0,
                  0,
                  {},
                  {}};
  if (picture.size.kind != GraphColumnKind::measure) {
    throw Failure(E_INVALIDARG, "sizes cannot show \"" + picture.size.column +
                                    "\", whose values are no quantities; size by a measure");
  }
  picture.most_radius = std::clamp(250 / std::sqrt(static_cast<double>(count) + 1), 3.0, 30.0);
  picture.least_radius = std::max(1.5, picture.most_radius / 6);
  take_edges(picture);
  picture.nodes.resize(count);
  for (std::size_t node = 0; node < count; ++node) {
    picture.nodes[node].radius =
        radius_of(picture, picture.size.values != nullptr ? picture.size.values[node] : 0);
    picture.nodes[node].fill = fill_of(picture.colour, node);
  }
  if (count > 0) {
    place_nodes(picture, x, y);
    separate_nodes(picture.nodes);
  }
  return picture;
}

}  // namespace graph
