// Showing what the plug-ins offer.
#pragma once

#include "plugin_folder.h"
#include "record_types.h"

// Prints a line for every registered object: namespace, interface, its own name, plug-in, file.
void print_catalogue(const PluginFolder& plugins);

// Prints what can be asked for by name, with what it does.
void print_choices(const PluginFolder& plugins);

// Prints how many record types there are and where to see them, or nothing when there are none.
void print_record_type_count(const std::vector<RecordType>& types);

// Prints a line for every member of every record type, or nothing when there are none.
void print_record_types(const std::vector<RecordType>& types);
