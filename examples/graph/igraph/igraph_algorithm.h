// The base of algorithms that igraph computes.
#pragma once

#include <oxa/IOXAContext.h>

#include "igraph_bridge.h"

namespace graph {

// Calls compute within a scope, for graphs that have nodes; igraph refuses some work on others.
class IgraphAlgorithm : public Algorithm {
 protected:
  IgraphAlgorithm(IOXAContext* context, const char* name, const char* description)
      : Algorithm(name, description), context_(context) {}

  virtual void compute(IGraph& graph, IgraphGraph& igraph) = 0;
  virtual GraphColumnKind kind() const = 0;

 private:
  void run(IGraph& graph) final {
    if (graph.GetNodeCount() == 0) {
      set_column(graph, GetName(), kind(), {});
      return;
    }
    const IgraphScope scope(context_);
    IgraphGraph igraph(graph);
    compute(graph, igraph);
  }

  IOXAContext* context_;
};

// An algorithm whose result is one number per node.
class IgraphMeasure : public IgraphAlgorithm {
 protected:
  using IgraphAlgorithm::IgraphAlgorithm;
  virtual igraph_error_t measure(IgraphGraph& igraph, igraph_vector_t* result) = 0;

 private:
  GraphColumnKind kind() const final { return GraphColumnKind::measure; }
  void compute(IGraph& graph, IgraphGraph& igraph) final {
    IgraphVector result;
    check_igraph(measure(igraph, result.get()));
    set_column(graph, GetName(), kind(), result.values());
  }
};

// An algorithm whose result is a class per node.
class IgraphClasses : public IgraphAlgorithm {
 protected:
  using IgraphAlgorithm::IgraphAlgorithm;
  virtual igraph_error_t classify(IgraphGraph& igraph, igraph_vector_int_t* result) = 0;

 private:
  GraphColumnKind kind() const final { return GraphColumnKind::category; }
  void compute(IGraph& graph, IgraphGraph& igraph) final {
    IgraphIntegers result;
    check_igraph(classify(igraph, result.get()));
    set_categories(graph, GetName(), result.values());
  }
};

}  // namespace graph
