// Programs on properties: a letter for each operation, and its arguments.
#pragma once

#include <string_view>

#include "properties/model/program.h"

namespace oxa_test::model {

// Runs a program on the library and on the model. Throws std::runtime_error where they differ.
//
// It begins with a digit that adds up what it runs on: 1 for preferences instead of a manager and
// the values of its properties, 2 for a process with a type manager; 4 ends the manager before the
// values.
void run_property_program(std::string_view bytes, Account& account);

// The letters that do something.
inline constexpr std::string_view property_letters = "ruUeEfFsSgGmMl+-itTRDdyYAxacbnkKpPCohv";

}  // namespace oxa_test::model
