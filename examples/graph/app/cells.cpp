#include "cells.h"

#include <graph_values.h>

#include <type_traits>

unsigned long long cell_count(const OXAVariant& cell) {
  unsigned long long count = 1;
  graph::with_number(cell, [&](auto number) {
    if constexpr (std::is_integral_v<decltype(number)>) {
      count = number >= 0 ? static_cast<unsigned long long>(number) : 1;
    }
  });
  return count;
}
