// Writes GraphML: nodes by their labels, edges with their weights, attributes with what describes
// them, and the columns of the graph, of which GraphmlReader makes the same graph again. How it
// says what GraphML has no words for stands there.
//
// A column takes the place of an attribute of nodes that has its name: it is the newer of the two.
// Numbers of types that GraphML does not know are written as wider ones (TypeNames); values above
// 2^63 - 1 are refused, and so are characters that XML does not hold, texts that are too long to be
// read again, values that are none of their entries and defaults that are not of their data type.
#pragma once

#include <graph_plugin.h>

namespace graph {

class GraphmlWriter final : public Writer {
 public:
  explicit GraphmlWriter(IOXAContext* context) : Writer("GraphML", ".graphml"), context_(context) {}

 private:
  void write(IGraph& graph, IGraphOptions* options, IGraphOutput& output) override;

  IOXAContext* context_;
};

}  // namespace graph
