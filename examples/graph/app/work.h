// From a file to a picture: read, check, compute, arrange, write.
#pragma once

#include <graph_contract.h>
#include <oxa/oxa.h>

#include "options.h"
#include "selection.h"

// Does all of the work and fills `graph`. Throws Problem and Stopped.
void draw_graph(const Selection& selection, const Options& options, const Settings& settings,
                IGraph& graph, IOXAContext* context);

// Does what may report findings: reads, looks for what is unusual, and computes. Throws Problem and
// Stopped.
void check_graph(const Selection& selection, const Options& options, const Settings& settings,
                 IGraph& graph, IOXAContext* context);
