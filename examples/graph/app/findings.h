// What was found in a graph, by the program's checks and by plug-ins.
#pragma once

#include <graph_contract.h>
#include <oxa/oxa.h>

#include <string>

#include "settings.h"

// Gives the table of a context's diagnostics its columns, of which plug-ins know as well. Throws
// Problem when the context has no diagnostics.
oxa::Ref<IOXADiagnosticsManager> prepare_findings(IOXAContext* context);

// Runs the checks that the settings leave on. Throws Stopped.
void run_checks(IGraph& graph, const Settings& settings, IOXADiagnosticsManager& manager);

// Returns how often what was found, "2 self loops, 1 isolated node", of the severities that are to
// be shown; nothing without findings.
std::string count_findings(IOXADiagnosticsManager& manager, const Settings& settings);

// Prints all categories, whoever made them, as a table, and what the findings mean; nothing without
// findings that are to be shown.
void print_findings(IOXADiagnosticsManager& manager, const Settings& settings);
