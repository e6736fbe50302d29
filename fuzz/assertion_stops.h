// Included in front of every source of the library when fuzzers are built: turns the assertion
// stops that malformed input must cause into an exception, which input can cause as well. All other
// assertions stop the process, as ever.
#pragma once

#undef NDEBUG
#include <cassert>
#include <string_view>

namespace oxa_fuzz {

struct AssertionStop {
  const char* expression;
};

// The last one, or null if there was none: a parse catches whatever is thrown in it.
inline const char* last_stop = nullptr;

[[noreturn]] inline void assertion_failed(const char* assertion, const char* file, unsigned line,
                                          const char* function) {
  const std::string_view text = assertion;
  if (text == "next_c == '>'" || text == "next_next_c == '-'" || text == "chk == '-'") {
    last_stop = assertion;
    throw AssertionStop{assertion};
  }
  (__assert_fail)(assertion, file, line, function);
}

}  // namespace oxa_fuzz

// The function is declared to throw nothing, so that no definition of it could. <cassert>, which
// redefines `assert` wherever it is included, declares it once, above.
#define __assert_fail(assertion, file, line, function) \
  ::oxa_fuzz::assertion_failed(assertion, file, line, function)
