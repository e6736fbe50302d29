// A hash table of objects that keep their own keys.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace oxa {

// Finds objects by a hash of their key and a test for the key itself; it does not own them. Open
// addressing with the hash beside the pointer: a search looks at the object that it finds and at no
// other, however many there are, and growing looks at none.
template <class Object>
class hash_index {
 public:
  std::size_t size() const { return taken_; }

  // Returns the object with this hash for which `matches` holds, null when there is none.
  template <class Matches>
  Object* find(std::size_t hash, Matches matches) const {
    if (slots_.empty()) {
      return nullptr;
    }
    std::size_t at = home(hash);
    while (slots_[at].object != nullptr) {
      if (slots_[at].hash == hash && matches(*slots_[at].object)) {
        return slots_[at].object;
      }
      at = after(at);
    }
    return nullptr;
  }

  // Makes room for one more object. Throws std::bad_alloc with nothing changed.
  void reserve_one() {
    if ((taken_ + 1) * 3 > slots_.size() * 2) {
      grow();
    }
  }

  // Adds an object whose key is not there yet, for which room was made.
  void add(std::size_t hash, Object* object) noexcept {
    insert({hash, object});
    ++taken_;
  }

  // Takes an object out that is there under this hash. What stands behind it moves up, so that no
  // search stops too early.
  void remove(std::size_t hash, const Object* object) noexcept {
    std::size_t hole = home(hash);
    while (slots_[hole].object != object) {
      hole = after(hole);
    }
    for (std::size_t at = after(hole); slots_[at].object != nullptr; at = after(at)) {
      if (distance(home(slots_[at].hash), at) >= distance(hole, at)) {
        slots_[hole] = slots_[at];
        hole = at;
      }
    }
    slots_[hole] = {};
    --taken_;
  }

  // Calls `visit` for each object, in no particular order. It must not change the table.
  template <class Visit>
  void for_each(Visit visit) const {
    for (const slot& each : slots_) {
      if (each.object != nullptr) {
        visit(*each.object);
      }
    }
  }

 private:
  struct slot {
    std::size_t hash = 0;
    Object* object = nullptr;  // null in a free slot
  };

  // Keys such as numbers are their own hashes: the product spreads them, best in its high bits.
  std::size_t home(std::size_t hash) const { return hash * 0x9E3779B97F4A7C15U >> shift_; }
  std::size_t after(std::size_t at) const { return (at + 1) & (slots_.size() - 1); }
  std::size_t distance(std::size_t from, std::size_t to) const {
    return (to - from) & (slots_.size() - 1);
  }

  void insert(slot taken) noexcept {
    std::size_t at = home(taken.hash);
    while (slots_[at].object != nullptr) {
      at = after(at);
    }
    slots_[at] = taken;
  }

  void grow() {
    std::vector<slot> previous(slots_.empty() ? 8 : slots_.size() * 2);
    previous.swap(slots_);
    shift_ = std::countl_zero(slots_.size()) + 1;
    for (const slot& each : previous) {
      if (each.object != nullptr) {
        insert(each);
      }
    }
  }

  std::vector<slot> slots_;  // empty, or a power of two with at least a third of it free
  std::size_t taken_ = 0;
  int shift_ = 0;  // leaves as many of the high bits as tell the slots apart
};

}  // namespace oxa
