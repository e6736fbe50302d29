// Showing the settings.
#pragma once

#include "settings.h"

// Prints all settings that are to be shown, in the groups of their view hints: each with its value
// the way --set takes it, its meaning, its data type, what it takes, and its default.
void print_settings(const Settings& settings, IOXAPropertyDataTypeTranslator& translator);
