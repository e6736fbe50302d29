// [snippet: minimal]
#include <graph_plugin.h>
#include <oxa/sdk/plugin.h>

class Strength final : public graph::Algorithm {
 public:
  Strength() : Algorithm("strength", "sum of the weights of a node's edges") {}

 private:
  void run(IGraph& graph) override {
    std::vector<double> strength(graph.GetNodeCount());
    for (const GraphEdge& edge : graph::edges(graph)) {
      strength[edge.source] += edge.weight;
      strength[edge.target] += edge.weight;
    }
    graph::set_column(graph, GetName(), GraphColumnKind::measure, strength);
  }
};

OXA_PLUGIN("Strength", "1.0", oxa::offer<Strength>(IID_IOXAAlgorithm))
// [snippet end]
