// Random programs.
#pragma once

#include <string>
#include <string_view>

#include "xml/model/random_documents.h"

namespace oxa_test::model {

// A digit for what it runs on, and operations: a letter each and as many digits as it may take. The
// first two mostly pick one of few, so that operations meet; the third picks any.
inline std::string random_program(Random& random, std::string_view letters, std::size_t longest) {
  constexpr std::size_t few = 2;
  constexpr std::size_t all = 32;
  std::string program(1, static_cast<char>('0' + random.below(10)));
  for (std::size_t left = random.below(longest); left > 0; --left) {
    program += random.of(letters);
    for (int digit = 0; digit < 3; ++digit) {
      const bool is_common = digit == 2 || random.one_in(3);
      program += static_cast<char>('0' + random.below(is_common ? all : few));
    }
  }
  return program;
}

}  // namespace oxa_test::model
