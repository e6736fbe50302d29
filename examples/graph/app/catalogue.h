// Showing what the plug-ins offer.
#pragma once

#include "plugin_folder.h"

// Prints a line for every registered object: namespace, interface, its own name, plug-in, file.
void print_catalogue(const PluginFolder& plugins);

// Prints what can be asked for by name, with what it does.
void print_choices(const PluginFolder& plugins);
