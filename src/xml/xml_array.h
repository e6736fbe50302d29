// The arrays of an XML element.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <stdexcept>
#include <utility>

#include "xml/xml_builder.h"

namespace oxa {

// A growing array in two words. Its block lies on the heap, or in an arena as long as only a parse
// has made it grow. `tail_bytes(capacity)` more bytes lie in the block behind the items; an array
// that has them loses no items.
template <class Item, std::size_t (*tail_bytes)(std::size_t capacity)>
class xml_array {
 public:
  xml_array() = default;
  xml_array(const xml_array&) = delete;
  xml_array& operator=(const xml_array&) = delete;
  ~xml_array() { clear(); }

  std::size_t count() const { return count_; }
  std::size_t capacity() const { return block_ == nullptr ? 0 : std::size_t{1} << capacity_bits_; }
  Item* begin() const { return block_ + gap_; }
  Item* end() const { return begin() + count_; }
  Item& operator[](std::size_t position) const { return begin()[position]; }
  void* tail() const { return block_ + capacity(); }

  // Makes room for another `more` items, in the arena of `builder` if there is one. Tells whether
  // the block is a new one. Throws std::bad_alloc, or std::length_error beyond 2^30 items, with
  // nothing changed.
  bool reserve(std::size_t more, xml_builder* builder) {
    if (gap_ + count_ + more <= capacity()) {
      return false;
    }
    // A gap is worth closing once it is a good part of the block; else each item that is added
    // behind one that was taken out might move them all.
    if (count_ + more <= capacity() && gap_ >= capacity() / 4) {
      close_gap();
      return false;
    }
    const std::size_t least = gap_ == 0 ? 0 : capacity() + 1;
    grow(std::bit_ceil(std::max({first_capacity, least, count_ + more})), builder);
    return true;
  }

  // Appends without allocating: reserve has made room.
  Item& append(Item item) {
    Item* const added = new (end()) Item(std::move(item));
    ++count_;
    return *added;
  }

  // Takes out an item, keeping the order of the others. The first and the last one go at once.
  void remove(Item* item) {
    if (item == begin() && gap_ < largest_gap) {
      std::destroy_at(item);
      ++gap_;
    } else {
      std::move(item + 1, end(), item);
      std::destroy_at(end() - 1);
    }
    --count_;
  }

  void clear() {
    std::destroy(begin(), end());
    if (on_heap_ != 0) {
      ::operator delete(block_);
    }
    block_ = nullptr;
    count_ = 0;
    capacity_bits_ = 0;
    on_heap_ = 0;
    gap_ = 0;
  }

 private:
  // NOLINTNEXTLINE(bugprone-sizeof-expression): items may well be pointers.
  static constexpr std::size_t item_bytes = sizeof(Item);
  static constexpr std::size_t first_capacity = 2;
  static constexpr std::size_t largest_capacity = std::size_t{1} << 30U;
  static constexpr std::uint32_t largest_gap = (std::uint32_t{1} << 26U) - 1;

  static std::size_t block_bytes(std::size_t capacity) {
    return capacity * item_bytes + tail_bytes(capacity);
  }

  // Each item goes to where none is: in front of all, or where one has left.
  void close_gap() {
    Item* to = block_;
    for (Item& item : *this) {
      new (to++) Item(std::move(item));
      std::destroy_at(&item);
    }
    gap_ = 0;
  }

  void grow(std::size_t capacity, xml_builder* builder) {
    if (capacity > largest_capacity) {
      throw std::length_error("too many items in one element");
    }
    const std::size_t bytes = block_bytes(capacity);
    const bool in_arena =
        builder != nullptr && on_heap_ == 0 && bytes <= xml_builder::largest_block;
    auto* const block =
        static_cast<Item*>(in_arena ? builder->allocate_block(bytes) : ::operator new(bytes));
    std::uninitialized_move(begin(), end(), block);
    std::destroy(begin(), end());
    if (on_heap_ != 0) {
      ::operator delete(block_);
    } else if (builder != nullptr && block_ != nullptr) {
      builder->recycle_block(block_, block_bytes(this->capacity()));
    }
    block_ = block;
    capacity_bits_ = static_cast<std::uint32_t>(std::countr_zero(capacity)) & 0x1FU;
    on_heap_ = in_arena ? 0 : 1;
    gap_ = 0;
  }

  Item* block_ = nullptr;
  std::uint32_t count_ = 0;
  std::uint32_t capacity_bits_ : 5 = 0;
  std::uint32_t on_heap_ : 1 = 0;
  // How many items were taken out in front of the first one.
  std::uint32_t gap_ : 26 = 0;
};

}  // namespace oxa
