// The graph that the program and its plug-ins work on.
#pragma once

#include <graph_contract.h>
#include <oxa/IOXAPreferences.h>
#include <oxa/sdk/ref.h>

// Makes an empty graph, whose attributes the preferences describe: in the namespaces
// "graph::graph", "graph::node" and "graph::edge", which are to be left to graphs. Without
// preferences it takes no attributes. Throws std::bad_alloc.
oxa::Ref<IGraph> make_graph(oxa::Ref<IOXAPreferences> preferences = nullptr);
