// How a parse makes its elements, texts and arrays.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

#include "core/object_arena.h"
#include "core/thin_string.h"
#include "xml/xml_characters.h"

class oxa_xml_tokenizer;

namespace oxa {

// Gives out the memory of an arena while a parse runs. Lives as long as the parse.
class xml_builder {
 public:
  // Blocks of more than this come from the heap.
  static constexpr std::size_t largest_block = std::size_t{1} << 16U;

  // The copy of a name. `known` means that each equal name of this parse has the same copy.
  struct name_copy {
    char* text = nullptr;
    bool known = false;
  };

  explicit xml_builder(const oxa_xml_tokenizer& source) : source_(source) {}
  xml_builder(const xml_builder&) = delete;
  xml_builder& operator=(const xml_builder&) = delete;
  ~xml_builder() {
    if (arena_ != nullptr) {
      arena_->finish(made_);
    }
  }

  // The arena of what was made so far, null if that is nothing.
  object_arena* arena() const { return arena_; }

  // Gives room for an element and counts it as made. Throws std::bad_alloc.
  void* add_element(std::size_t bytes) {
    void* room = take(bytes);
    ++made_;
    return room;
  }
  // Tells that the constructor of an element threw.
  void undo_element() { --made_; }

  // Copy texts of a source, from the begin of which at least 16 bytes can be read; the copy is
  // terminated and begins at a multiple of thin_string::alignment. copy_name is for what documents
  // repeat. Throw std::bad_alloc.
  char* copy(std::string_view text);
  name_copy copy_name(std::string_view name);

  // Gives a block of at most largest_block bytes, and takes one back to give it out again. The
  // first throws std::bad_alloc, the second nothing.
  void* allocate_block(std::size_t bytes) {
    free_block*& head = free_blocks_[size_class(bytes)];
    if (head == nullptr) {
      return take(std::bit_ceil(bytes));
    }
    return std::exchange(head, head->next);
  }
  void recycle_block(void* block, std::size_t bytes);

 private:
  struct free_block {
    free_block* next;
  };
  // A name of at most 16 bytes, filled up with zeros, and its copy.
  struct known_name {
    std::array<std::uint64_t, 2> characters;
    char* copy;
  };

  // Blocks are kept apart by the power of two that holds them.
  static std::size_t size_class(std::size_t bytes) { return std::bit_width(bytes - 1); }

  static constexpr unsigned name_bits = 7;

  void* take(std::size_t bytes) {
    if (static_cast<std::size_t>(back_ - front_) < bytes) {
      add_chunk(bytes);
    }
    return back_ -= bytes;
  }
  std::size_t expected_bytes() const;
  void add_chunk(std::size_t bytes);

  const oxa_xml_tokenizer& source_;
  object_arena* arena_ = nullptr;
  std::int64_t made_ = 0;
  // What is free of the newest chunk: texts grow from its front, objects from its back.
  char* front_ = nullptr;
  char* back_ = nullptr;
  // The size of all chunks.
  std::size_t taken_ = 0;
  std::array<free_block*, 17> free_blocks_{};
  std::array<known_name, std::size_t{1} << name_bits> known_names_{};
};

inline char* xml_builder::copy(std::string_view text) {
  constexpr std::size_t step = thin_string::alignment;
  const std::size_t bytes = (text.size() / step + 1) * step;
  // A short text is copied as a whole vector, the rest of which is overwritten later.
  const std::size_t room = std::max(bytes, vector_bytes);
  if (static_cast<std::size_t>(back_ - front_) < room) {
    add_chunk(room);
  }
  char* const to = front_;
  std::memcpy(to, text.data(), vector_bytes);
  if (text.size() > vector_bytes) {
    std::memcpy(to + vector_bytes, text.data() + vector_bytes, text.size() - vector_bytes);
  }
  to[text.size()] = '\0';
  front_ += bytes;
  return to;
}

inline xml_builder::name_copy xml_builder::copy_name(std::string_view name) {
  if (name.size() > vector_bytes) {
    return {copy(name), false};
  }
  const std::array<std::uint64_t, 2> characters = first_characters(name);
  constexpr std::uint64_t spread = 0x9E3779B97F4A7C15U;
  const std::uint64_t hash = (characters[0] + characters[1]) * spread;
  known_name& known = known_names_[hash >> (64U - name_bits)];
  if (known.characters == characters) {
    return {known.copy, true};
  }
  char* const copied = copy(name);
  const bool first = known.copy == nullptr;
  if (first) {
    known = {characters, copied};
  }
  return {copied, first};
}

}  // namespace oxa
