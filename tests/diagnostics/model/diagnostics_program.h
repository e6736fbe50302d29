// Programs on diagnostics: a letter for each operation, and its arguments.
#pragma once

#include <string_view>

#include "properties/model/program.h"

namespace oxa_test::model {

// Runs a program on the library and on the model. Throws std::runtime_error where they differ.
// It begins with a digit: with an odd one the manager ends before what is held.
void run_diagnostics_program(std::string_view bytes, Account& account);

// The letters that do something.
inline constexpr std::string_view diagnostics_letters = "nhHoOcCtuTxZeEwWfFqQNDAbBkK+-iIvVgGlLprz";

}  // namespace oxa_test::model
