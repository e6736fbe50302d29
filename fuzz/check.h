// What a fuzz target expects.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace oxa_fuzz {

// Ends the process when an expectation does not hold: that is a finding.
inline void check(bool held, const char* expectation) {
  if (!held) {
    std::fprintf(stderr, "Does not hold: %s\n", expectation);
    std::abort();
  }
}

}  // namespace oxa_fuzz
