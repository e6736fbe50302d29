// The force layout, computed by igraph: each connected part on its own, the parts side by side.
#include <graph_settings.h>
#include <igraph_bridge.h>
#include <oxa/sdk/plugin.h>

#include <algorithm>
#include <cmath>
#include <numeric>

#include "packing.h"

namespace {

using graph::IgraphGraph;
using graph::IgraphPoints;
using graph::Part;

std::vector<Part> parts_of(IGraph& graph) {
  graph::IgraphIntegers membership;
  igraph_integer_t count = 0;
  const IgraphGraph igraph(graph);
  graph::check_igraph(
      igraph_connected_components(igraph.get(), membership.get(), nullptr, &count, IGRAPH_WEAK));
  std::vector<Part> parts(static_cast<std::size_t>(count));
  const std::vector<std::size_t> part_of = membership.values();
  std::vector<std::size_t> local(part_of.size());
  for (std::size_t node = 0; node < part_of.size(); ++node) {
    local[node] = parts[part_of[node]].nodes.size();
    parts[part_of[node]].nodes.push_back(node);
  }
  for (const GraphEdge& edge : graph::edges(graph)) {
    if (edge.source != edge.target) {
      parts[part_of[edge.source]].edges.push_back(
          {local[edge.source], local[edge.target], edge.weight});
    }
  }
  return parts;
}

// Both steps begin from a circle rather than from chance, so the picture depends on the graph
// alone.
void start_on_circle(IgraphPoints& points, std::size_t count) {
  const double radius = std::sqrt(static_cast<double>(count));
  for (std::size_t node = 0; node < count; ++node) {
    const double angle = 2 * M_PI * static_cast<double>(node) / static_cast<double>(count);
    points.x(node) = radius * std::cos(angle);
    points.y(node) = radius * std::sin(angle);
  }
}

// What people choose. Distances between all pairs are kept in memory.
struct Effort {
  int rounds;
  int most_for_distances;
};

void arrange_part(Part& part, const Effort& effort) {
  const std::size_t count = part.nodes.size();
  IgraphPoints points(count);
  if (count > 1) {
    const IgraphGraph igraph(count, part.edges);
    start_on_circle(points, count);
    if (count <= static_cast<std::size_t>(effort.most_for_distances)) {
      const auto rounds = static_cast<igraph_integer_t>(50 * count);
      graph::check_igraph(igraph_layout_kamada_kawai(igraph.get(), points.get(), true, rounds, 0,
                                                     static_cast<double>(count), nullptr, nullptr,
                                                     nullptr, nullptr, nullptr));
    }
    graph::check_igraph(igraph_layout_fruchterman_reingold(
        igraph.get(), points.get(), true, effort.rounds, std::sqrt(static_cast<double>(count)) / 10,
        IGRAPH_LAYOUT_AUTOGRID, nullptr, nullptr, nullptr, nullptr, nullptr));
  }
  for (std::size_t node = 0; node < count; ++node) {
    part.points.push_back({points.x(node), points.y(node)});
  }
}

class Force final : public graph::Layout {
 public:
  explicit Force(IOXAContext* context)
      : Layout("force", "tied nodes close together (distances, then Fruchterman-Reingold)"),
        context_(context),
        rounds_(context, "force_layout", "rounds", 500, {0, 100000},
                {"Layout", "rounds of force", "rounds of Fruchterman-Reingold"}),
        most_for_distances_(
            context, "force_layout", "distances-up-to", 1500, {0, 10000},
            {"Layout", "distances of force",
             "up to so many nodes, distances between all pairs arrange a part first"}) {}

 private:
  void arrange(IGraph& graph) override {
    const std::size_t count = graph.GetNodeCount();
    std::vector<double> x(count);
    std::vector<double> y(count);
    const graph::IgraphScope scope(context_);
    const auto progress = oxa::service<IOXAProgressIndicator>(context_);
    const Effort effort{rounds_.value(), most_for_distances_.value()};
    std::vector<Part> parts = parts_of(graph);
    for (Part& part : parts) {
      graph::stop_if_asked(progress.get());
      arrange_part(part, effort);
      turn_and_scale(part);
      even_out(part);
      loosen(part);
    }
    pack(parts);
    for (const Part& part : parts) {
      for (std::size_t index = 0; index < part.nodes.size(); ++index) {
        x[part.nodes[index]] = part.points[index].x;
        y[part.nodes[index]] = part.points[index].y;
      }
    }
    graph::set_column(graph, "x", GraphColumnKind::position, x);
    graph::set_column(graph, "y", GraphColumnKind::position, y);
  }

  IOXAContext* context_;
  graph::NumberSetting<int> rounds_;
  graph::NumberSetting<int> most_for_distances_;
};

}  // namespace

OXA_PLUGIN("Force layout", "1.0", oxa::offer<Force>(IID_IOXALayout))
