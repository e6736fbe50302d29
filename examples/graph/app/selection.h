// Choosing, among what the plug-ins offer, what the command line asks for.
#pragma once

#include <graph_contract.h>

#include <string>
#include <vector>

#include "options.h"
#include "plugin_folder.h"

// What a run needs; borrowed from the plug-ins.
struct Selection {
  IGraphReader* reader = nullptr;
  std::vector<IGraphAlgorithm*> algorithms;
  IGraphLayout* layout = nullptr;
  IGraphWriter* writer = nullptr;
};

// Throws Problem with exit_usage for a name or an extension that no plug-in serves.
Selection select(const PluginFolder& plugins, const Options& options);
