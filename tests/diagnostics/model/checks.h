// Comparisons of all that can be asked.
#pragma once

#include "diagnostics/model/model_diagnostics.h"
#include "properties/model/program.h"

namespace oxa_test::model {

// Throw std::runtime_error where the counterpart in the library differs.
void check_category(Account& account, const Category& category);
void check_diagnostic(const Diagnostics& manager, const Diagnostic& diagnostic);

}  // namespace oxa_test::model
