// The graph that the program and its plug-ins work on.
#pragma once

#include <graph_contract.h>
#include <oxa/sdk/ref.h>

// Makes an empty graph. Throws std::bad_alloc.
oxa::Ref<IGraph> make_graph();
