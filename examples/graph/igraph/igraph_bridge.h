// igraph behind the contract: graphs and vectors that clean up after themselves, and errors,
// progress and interruption the way the contract wants them.
#pragma once

#include <graph_plugin.h>
#include <igraph.h>
#include <oxa/IOXAContext.h>
#include <oxa/sdk/ref.h>

#include <vector>

namespace graph {

// Throws a Failure with igraph's reason for anything but success.
void check_igraph(igraph_error_t code);

// Makes igraph report to the context's progress indicator, stop when that is not active, and return
// its errors instead of ending the process. Random numbers begin from a fixed seed, so that the
// same graph gives the same result. igraph's settings are the process's, so the previous ones come
// back at the end: the handlers are code of a plug-in that may be unloaded.
class IgraphScope {
 public:
  explicit IgraphScope(IOXAContext* context);
  ~IgraphScope();
  IgraphScope(const IgraphScope&) = delete;
  IgraphScope& operator=(const IgraphScope&) = delete;

 private:
  oxa::Ref<IOXAProgressIndicator> progress_;
  igraph_error_handler_t* error_handler_;
  igraph_warning_handler_t* warning_handler_;
  igraph_interruption_handler_t* interruption_handler_;
  igraph_progress_handler_t* progress_handler_;
};

class IgraphVector {
 public:
  IgraphVector() { check_igraph(igraph_vector_init(&vector_, 0)); }
  ~IgraphVector() { igraph_vector_destroy(&vector_); }
  IgraphVector(const IgraphVector&) = delete;
  IgraphVector& operator=(const IgraphVector&) = delete;

  igraph_vector_t* get() { return &vector_; }
  std::vector<double> values() const;

 private:
  igraph_vector_t vector_;
};

class IgraphIntegers {
 public:
  IgraphIntegers() { check_igraph(igraph_vector_int_init(&vector_, 0)); }
  ~IgraphIntegers() { igraph_vector_int_destroy(&vector_); }
  IgraphIntegers(const IgraphIntegers&) = delete;
  IgraphIntegers& operator=(const IgraphIntegers&) = delete;

  igraph_vector_int_t* get() { return &vector_; }
  std::vector<std::size_t> values() const;

 private:
  igraph_vector_int_t vector_;
};

// A point per row.
class IgraphPoints {
 public:
  explicit IgraphPoints(std::size_t count) {
    check_igraph(igraph_matrix_init(&matrix_, static_cast<igraph_integer_t>(count), 2));
  }
  ~IgraphPoints() { igraph_matrix_destroy(&matrix_); }
  IgraphPoints(const IgraphPoints&) = delete;
  IgraphPoints& operator=(const IgraphPoints&) = delete;

  igraph_matrix_t* get() { return &matrix_; }
  double& x(std::size_t row) { return *at(row, 0); }
  double& y(std::size_t row) { return *at(row, 1); }

 private:
  double* at(std::size_t row, igraph_integer_t column) {
    return &MATRIX(matrix_, static_cast<igraph_integer_t>(row), column);
  }

  igraph_matrix_t matrix_;
};

// An undirected igraph graph with the weights of its edges, scaled so that the greatest is 1: their
// proportions are all that counts, and igraph's solvers fail on numbers of extreme size.
class IgraphGraph {
 public:
  explicit IgraphGraph(IGraph& graph) : IgraphGraph(graph.GetNodeCount(), edges(graph)) {}
  IgraphGraph(std::size_t node_count, const std::vector<GraphEdge>& edges);
  ~IgraphGraph() { igraph_destroy(&graph_); }
  IgraphGraph(const IgraphGraph&) = delete;
  IgraphGraph& operator=(const IgraphGraph&) = delete;

  const igraph_t* get() const { return &graph_; }
  igraph_vector_t* weights() { return weights_.get(); }

 private:
  igraph_t graph_;
  IgraphVector weights_;
};

// Sets a category column from a class number per node, numbered anew so that the largest class is
// 0; of equally large ones the class of the first node comes first.
void set_categories(IGraph& graph, const char* name, const std::vector<std::size_t>& classes);

}  // namespace graph
