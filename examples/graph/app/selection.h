// Choosing, among what the plug-ins offer, what the command line asks for.
#pragma once

#include <vector>

#include "options.h"
#include "plugin_folder.h"

// What a run needs; borrowed from the folder of plug-ins.
struct Selection {
  const Offered* reader = nullptr;
  // In the order in which to run them.
  std::vector<const Offered*> algorithms;
  const Offered* layout = nullptr;
  const Offered* writer = nullptr;
};

// Throws Problem with exit_usage for a name or an extension that no plug-in serves.
Selection select(const PluginFolder& plugins, const Options& options);
