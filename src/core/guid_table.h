// A table from interface id to a value.
#pragma once

#include <oxa/guid.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

// A hash table with open addressing, so that looking an id up touches one slot, however many ids
// there are, and allocates nothing. A value that compares equal to Value{} means that there is
// none; ids are never taken out.
template <class Value>
class guid_table {
 public:
  // Returns the value of an id, or Value{}.
  Value find(const _GUID& id) const noexcept {
    return slots_.empty() ? Value{} : slots_[probe(id)].value;
  }

  // Sets the value of an id and returns the previous one, or Value{}. Throws std::bad_alloc with
  // nothing changed, and only for an id that had none.
  Value set(const _GUID& id, Value value) {
    if (!slots_.empty()) {
      slot& known = slots_[probe(id)];
      if (known.value != Value{}) {
        return std::exchange(known.value, value);
      }
    }
    if ((taken_ + 1) * 4 > slots_.size() * 3) {
      grow();
    }
    slots_[probe(id)] = {id, value};
    ++taken_;
    return Value{};
  }

 private:
  struct slot {
    _GUID id{};
    Value value{};
  };

  // Hashes the 20 significant bytes: three products that do not wait for one another. The
  // well-mixed bits of their sum are the high ones, from which the table takes its position.
  static std::uint64_t hash(const _GUID& id) noexcept {
    std::uint64_t middle = 0;
    std::uint32_t tail = 0;
    std::memcpy(&middle, &id.Data2, sizeof middle);
    std::memcpy(&tail, &id.Data4[4], sizeof tail);
    return id.Data1 * 0x9E3779B97F4A7C15U + middle * 0xC2B2AE3D27D4EB4FU +
           tail * 0x165667B19E3779F9U;
  }

  // Returns the slot that holds the id, or the free slot where it belongs. There must be a free
  // one.
  std::size_t probe(const _GUID& id) const noexcept {
    const std::size_t mask = slots_.size() - 1;
    std::size_t position = hash(id) >> shift_;
    while (slots_[position].value != Value{} && slots_[position].id != id) {
      position = (position + 1) & mask;
    }
    return position;
  }

  void grow() {
    std::vector<slot> previous(slots_.empty() ? 16 : slots_.size() * 2);
    previous.swap(slots_);
    shift_ = std::countl_zero(slots_.size()) + 1;
    for (const slot& taken : previous) {
      if (taken.value != Value{}) {
        slots_[probe(taken.id)] = taken;
      }
    }
  }

  std::vector<slot> slots_;  // empty, or a power of two with at least a quarter of it free
  std::size_t taken_ = 0;
  int shift_ = 0;  // leaves as many of the hash's high bits as tell the slots apart
};
