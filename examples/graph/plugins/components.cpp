// Connected components, computed by igraph.
#include <igraph_algorithm.h>
#include <oxa/sdk/plugin.h>

namespace {

class Component final : public graph::IgraphClasses {
 public:
  explicit Component(IOXAContext* context)
      : IgraphClasses(context, "component", "part of the graph that hangs together") {}

 private:
  igraph_error_t classify(graph::IgraphGraph& igraph, igraph_vector_int_t* result) override {
    return igraph_connected_components(igraph.get(), result, nullptr, nullptr, IGRAPH_WEAK);
  }
};

}  // namespace

OXA_PLUGIN("Connected components", "1.0", oxa::offer<Component>(IID_IOXAAlgorithm))
