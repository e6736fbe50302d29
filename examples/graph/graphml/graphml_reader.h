// Reads GraphML: nodes, edges, and typed values of both and of the graph.
//
// Labels of nodes are their ids. Ids that are just numbers, with or without an "n" in front, come
// from programs that keep labels elsewhere: then the texts called "label", or else those called
// "name", are the labels if every node has one and no two the same. An edge has the weight that its
// number "weight" tells, or the default of that, or 1. Ids of edges are not kept.
//
// The program's own writer puts what GraphML has no words for into attributes of a key called
// oxa:type, oxa:min, oxa:max and oxa:column, and into elements <oxa:entry name="..." value="..."/>
// in a key, which are the entries of an enumeration; the description of a key is the property's
// tooltip. Other elements and keys of other namespaces are passed over, whatever they hold.
// Directed edges, nested graphs, hyperedges and ports are refused.
#pragma once

#include <graph_plugin.h>

namespace graph {

class GraphmlReader final : public Reader {
 public:
  explicit GraphmlReader(IOXAContext* context) : Reader("GraphML", ".graphml"), context_(context) {}

 private:
  void read(std::string_view text, IGraph& graph) override;

  IOXAContext* context_;
};

}  // namespace graph
