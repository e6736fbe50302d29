// Centralities and communities, computed by igraph.
//
// Weights say how strong a tie is, so those measures use them that add up or follow strength;
// closeness and betweenness go by the number of steps, since strength is no length.
#include <graph_settings.h>
#include <igraph_algorithm.h>
#include <oxa/sdk/plugin.h>

namespace {

using graph::IgraphGraph;

class Degree final : public graph::IgraphMeasure {
 public:
  explicit Degree(IOXAContext* context)
      : IgraphMeasure(context, "degree", "number of edges at a node") {}

 private:
  igraph_error_t measure(IgraphGraph& igraph, igraph_vector_t* result) override {
    return igraph_strength(igraph.get(), result, igraph_vss_all(), IGRAPH_ALL, IGRAPH_LOOPS,
                           nullptr);
  }
};

class Closeness final : public graph::IgraphMeasure {
 public:
  explicit Closeness(IOXAContext* context)
      : IgraphMeasure(context, "closeness", "how few steps away the other nodes are") {}

 private:
  igraph_error_t measure(IgraphGraph& igraph, igraph_vector_t* result) override {
    return igraph_closeness(igraph.get(), result, nullptr, nullptr, igraph_vss_all(), IGRAPH_ALL,
                            nullptr, true);
  }
};

class Betweenness final : public graph::IgraphMeasure {
 public:
  explicit Betweenness(IOXAContext* context)
      : IgraphMeasure(context, "betweenness", "number of shortest paths through a node") {}

 private:
  igraph_error_t measure(IgraphGraph& igraph, igraph_vector_t* result) override {
    return igraph_betweenness(igraph.get(), result, igraph_vss_all(), IGRAPH_UNDIRECTED, nullptr);
  }
};

class PageRank final : public graph::IgraphMeasure {
 public:
  explicit PageRank(IOXAContext* context)
      : IgraphMeasure(context, "pagerank", "how often a random walk visits a node"),
        damping_(context, "centralities", "damping", 0.85, {0.01, 0.99},
                 {"Algorithms", "damping of pagerank",
                  "how likely the random walk goes on along an edge, rather than anywhere"}) {}

 private:
  igraph_error_t measure(IgraphGraph& igraph, igraph_vector_t* result) override {
    return igraph_pagerank(igraph.get(), IGRAPH_PAGERANK_ALGO_PRPACK, result, nullptr,
                           igraph_vss_all(), IGRAPH_UNDIRECTED, damping_.value(), igraph.weights(),
                           nullptr);
  }

  graph::NumberSetting<double> damping_;
};

class Eigenvector final : public graph::IgraphMeasure {
 public:
  explicit Eigenvector(IOXAContext* context)
      : IgraphMeasure(context, "eigenvector", "how strongly a node is tied to central nodes") {}

 private:
  igraph_error_t measure(IgraphGraph& igraph, igraph_vector_t* result) override {
    igraph_arpack_options_t options;
    igraph_arpack_options_init(&options);
    return igraph_eigenvector_centrality(igraph.get(), result, nullptr, IGRAPH_UNDIRECTED, true,
                                         igraph.weights(), &options);
  }
};

class Community final : public graph::IgraphClasses {
 public:
  explicit Community(IOXAContext* context)
      : IgraphClasses(context, "community", "group of densely tied nodes (multilevel modularity)") {
  }

 private:
  igraph_error_t classify(IgraphGraph& igraph, igraph_vector_int_t* result) override {
    return igraph_community_multilevel(igraph.get(), igraph.weights(), 1, result, nullptr, nullptr);
  }
};

}  // namespace

OXA_PLUGIN("Centralities and communities", "1.0", oxa::offer<Degree>(IID_IOXAAlgorithm),
           oxa::offer<Closeness>(IID_IOXAAlgorithm), oxa::offer<Betweenness>(IID_IOXAAlgorithm),
           oxa::offer<PageRank>(IID_IOXAAlgorithm), oxa::offer<Eigenvector>(IID_IOXAAlgorithm),
           oxa::offer<Community>(IID_IOXAAlgorithm))
