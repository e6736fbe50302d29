// The circular layout, computed by igraph: nodes of a community side by side.
#include <igraph_bridge.h>
#include <oxa/sdk/plugin.h>

#include <algorithm>
#include <numeric>

namespace {

class Circle final : public graph::Layout {
 public:
  explicit Circle(IOXAContext* context)
      : Layout("circle", "nodes on a circle, communities side by side"), context_(context) {}

 private:
  void arrange(IGraph& graph) override {
    const std::size_t count = graph.GetNodeCount();
    const graph::IgraphScope scope(context_);
    const graph::IgraphGraph igraph(count, {});
    graph::IgraphPoints points(count);
    graph::check_igraph(igraph_layout_circle(igraph.get(), points.get(), igraph_vss_all()));

    std::vector<double> x(count);
    std::vector<double> y(count);
    const std::vector<std::size_t> order = around(graph);
    for (std::size_t place = 0; place < count; ++place) {
      x[order[place]] = points.x(place);
      y[order[place]] = points.y(place);
    }
    graph::set_column(graph, "x", GraphColumnKind::position, x);
    graph::set_column(graph, "y", GraphColumnKind::position, y);
  }

  static std::vector<std::size_t> around(IGraph& graph) {
    std::vector<std::size_t> order(graph.GetNodeCount());
    std::iota(order.begin(), order.end(), std::size_t{0});
    if (const double* community = graph::find_column(graph, "community")) {
      std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        return community[left] < community[right];
      });
    }
    return order;
  }

  IOXAContext* context_;
};

}  // namespace

OXA_PLUGIN("Circular layout", "1.0", oxa::offer<Circle>(IID_IOXALayout))
