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

// What is needed to draw a picture. Throws Problem with exit_usage for a name or an extension that
// no plug-in serves. The settings have what the plug-ins offer among their entries.
Selection select(const PluginFolder& plugins, const Options& options, const Settings& settings);

// What is needed to look for findings: the reader, and algorithms if they were asked for, since
// they may report some. Throws as above.
Selection select_for_check(const PluginFolder& plugins, const Options& options,
                           const Settings& settings);

// Adds what the plug-ins offer to the settings that choose among it.
void add_choices(Settings& settings, const PluginFolder& plugins);
