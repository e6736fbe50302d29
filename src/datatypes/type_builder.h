// Memory for the types that extension files declare.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "core/object_arena.h"
#include "core/thin_string.h"

// Gives out the memory of an arena for types, their members and texts. They are only ever added, so
// the arena lives on until the last of them is gone.
class type_builder {
 public:
  type_builder() = default;
  type_builder(const type_builder&) = delete;
  type_builder& operator=(const type_builder&) = delete;
  ~type_builder() {
    if (arena_ != nullptr) {
      arena_->finish(made_);
    }
  }

  // The arena of what was made so far, null if that is nothing.
  oxa::object_arena* arena() const { return arena_; }

  // Gives room for an object and counts it as made. Throws std::bad_alloc.
  void* add_object(std::size_t bytes) {
    void* const room = take(bytes, alignof(void*));
    ++made_;
    return room;
  }
  // Tells that the constructor of an object threw.
  void undo_object() { --made_; }

  // Copies a text, which an object made after it keeps alive. Null gives an empty one. Throws
  // std::bad_alloc.
  oxa::thin_string copy(const char* text) {
    if (text == nullptr) {
      return {};
    }
    const std::size_t bytes = std::strlen(text) + 1;
    char* const room = take(bytes, oxa::thin_string::alignment);
    std::memcpy(room, text, bytes);
    return oxa::thin_string::borrow(room);
  }

 private:
  static constexpr std::size_t least_chunk = std::size_t{1} << 12U;

  char* take(std::size_t bytes, std::size_t alignment) {
    std::size_t gap = -reinterpret_cast<std::uintptr_t>(free_) % alignment;
    if (static_cast<std::size_t>(end_ - free_) < gap + bytes) {
      add_chunk(bytes);
      gap = 0;
    }
    char* const taken = free_ + gap;
    free_ = taken + bytes;
    return taken;
  }
  // Most programs have few types, so the first chunk is small. The others are as large as all
  // before them, up to a huge page.
  void add_chunk(std::size_t bytes);

  oxa::object_arena* arena_ = nullptr;
  std::int64_t made_ = 0;
  // What is free of the newest chunk.
  char* free_ = nullptr;
  char* end_ = nullptr;
  // The size of all chunks.
  std::size_t taken_ = 0;
};

// Gives a class room on the heap, for `new`, or in the arena of a builder, for `new (builder)`. In
// front of each object is the arena, or null. To be derived from behind the interface; it is empty.
class arena_placed {
 public:
  static void* operator new(std::size_t bytes);
  static void* operator new(std::size_t bytes, type_builder& builder);
  static void operator delete(void* object);
  // For a constructor that throws.
  static void operator delete(void*, type_builder& builder) { builder.undo_object(); }

 protected:
  ~arena_placed() = default;
};
