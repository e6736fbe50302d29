// Cells of tables of findings.
#pragma once

#include <oxa/OXAVariant.h>

// Returns the number that a cell holds, 1 for a cell that holds no whole number from 0 on.
unsigned long long cell_count(const OXAVariant& cell);
