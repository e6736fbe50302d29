// The memory that many objects share.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace oxa {

// Large chunks, freed together when the last object in them is gone. Only the builder that makes
// the objects takes memory from them, so these may be used by different threads afterwards: what
// they need then comes from the heap.
class object_arena {
 public:
  // Makes an arena that lives at least until finish. Throws std::bad_alloc.
  static object_arena* create() { return new object_arena(); }

  // What each chunk holds besides what it gives.
  static constexpr std::size_t header = alignof(std::max_align_t);

  // Adds a chunk with at least `bytes` besides its header, and stores how many there are. They are
  // aligned for any object. Throws std::bad_alloc.
  char* add_chunk(std::size_t& bytes);

  // Ends the building, which has made so many objects: the arena lives on for those that are alive.
  void finish(std::int64_t made) { remove_objects(builder_holds - made); }

  // Tells that objects are gone; the arena goes with the last one.
  void remove_objects(std::int64_t count) {
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

  // Until finish, the count of objects stands so high that the builder need not add each one: it is
  // corrected once, at the end.
  static constexpr std::int64_t builder_holds = std::int64_t{1} << 62U;

  object_arena() = default;
  ~object_arena();

  chunk* chunks_ = nullptr;
  std::atomic<std::int64_t> alive_{builder_holds};
};

}  // namespace oxa
