// Memory for much at once.
#pragma once

#include <cstddef>
#include <memory>

namespace oxa {

inline constexpr std::size_t huge_page = std::size_t{1} << 21U;

// Gives memory of at least `bytes`, and stores there how many it has. From a huge page
// on it comes from the system in such pages: with small ones, nearly half the time of a large parse
// went to the system's preparing one after another. Throws std::bad_alloc.
void* allocate_large(std::size_t& bytes);
// Takes the rounded size.
void free_large(void* memory, std::size_t bytes);

// Owns such memory.
struct large_deleter {
  void operator()(char* memory) const { free_large(memory, bytes); }
  std::size_t bytes = 0;
};
using large_buffer = std::unique_ptr<char[], large_deleter>;

// Throws std::bad_alloc.
inline large_buffer make_large_buffer(std::size_t bytes) {
  auto* const memory = static_cast<char*>(allocate_large(bytes));
  return {memory, large_deleter{bytes}};
}

}  // namespace oxa
