// What a piece of code takes from the heap.
#pragma once

#include <cstddef>

namespace bench {

// Blocks that were taken, and bytes that are still in use: of each block what malloc_usable_size
// says, and the word in front of it that malloc needs. Blocks that were grown in place count once
// more.
struct allocation_count {
  std::size_t blocks;
  std::ptrdiff_t live_bytes;
};

// Counts all threads' use of malloc, operator new and their relatives between the two calls; what
// is freed must have been taken after begin_counting. While nothing is counted, this costs a test
// per call.
void begin_counting();
allocation_count end_counting();

}  // namespace bench
