// The common shape of the exported factories.
#pragma once

#include <oxa/result.h>
#include <oxa/sdk/guard.h>

// Checks and clears the output of a factory, then runs the rest of it behind the exception wall.
template <class Rest>
OXAResult run_factory(void** out, Rest rest) {
  if (out == nullptr) {
    return E_INVALIDARG;
  }
  *out = nullptr;
  return oxa::guard(rest);
}
