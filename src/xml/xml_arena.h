// The memory that the elements of one parse share.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace oxa {

// Large chunks, freed together when the last element in them is gone. Only the parse takes memory
// from them, through an xml_builder, so its elements may be used by different threads afterwards:
// what they need then comes from the heap.
class xml_arena {
 public:
  // Makes an arena that lives at least until finish. Throws std::bad_alloc.
  static xml_arena* create() { return new xml_arena(); }

  // What each chunk holds besides what it gives.
  static constexpr std::size_t header = alignof(std::max_align_t);

  // Adds a chunk with at least `bytes` besides its header, and stores how many there are. They are
  // aligned for any object. Throws std::bad_alloc.
  char* add_chunk(std::size_t& bytes);

  // Ends the parse, which has made so many elements: the arena lives on for those that are alive.
  void finish(std::int64_t made) { remove_elements(parse_holds - made); }

  // Tells that elements are gone; the arena goes with the last one.
  void remove_elements(std::int64_t count) {
    if (alive_.fetch_sub(count, std::memory_order_acq_rel) == count) {
      delete this;
    }
  }

 private:
  struct chunk {
    chunk* previous;
    std::size_t bytes;
  };
  static_assert(sizeof(chunk) <= header);

  // Until finish, the count of elements stands so high that the parse need not add each one: it is
  // corrected once, at the end.
  static constexpr std::int64_t parse_holds = std::int64_t{1} << 62U;

  xml_arena() = default;
  ~xml_arena();

  chunk* chunks_ = nullptr;
  std::atomic<std::int64_t> alive_{parse_holds};
};

}  // namespace oxa
