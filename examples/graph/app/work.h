// From a file to a picture: read, compute, arrange, write.
#pragma once

#include <graph_contract.h>
#include <oxa/IOXAProgressIndicator.h>

#include "options.h"
#include "selection.h"

// Does the work and fills `graph`. Throws Problem and Stopped.
void draw_graph(const Selection& selection, const Options& options, IGraph& graph,
                IOXAProgressIndicator& progress);
