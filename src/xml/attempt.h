// The exception wall of what is E_UNEXPECTED whatever fails.
#pragma once

#include <oxa/result.h>
#include <oxa/sdk/guard.h>

namespace oxa {

// Runs a part of an operation; whatever it throws is E_UNEXPECTED.
template <class Part>
OXAResult attempt(Part part) {
  try {
    return part();
  } catch (...) {
    static_cast<void>(result_of_exception());
    return E_UNEXPECTED;
  }
}

}  // namespace oxa
