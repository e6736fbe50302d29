// Objects in order and by name.
#pragma once

#include <oxa/result.h>
#include <oxa/sdk/ref.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

#include "core/thin_string.h"

// Holds objects in the order in which they were added, owns a reference to each, finds them by the
// names that they were added under, and keeps a position among them. What it hands out is borrowed.
// Many are found through an open-addressed table, so that finding one takes the same steps among a
// million.
template <class Object>
class named_list {
 public:
  named_list() = default;
  named_list(const named_list&) = delete;
  named_list& operator=(const named_list&) = delete;
  // Releases them in that order.
  ~named_list() {
    for (entry& each : entries_) {
      each.object.reset();
    }
  }

  std::size_t size() const { return entries_.size(); }

  // Null when there is none.
  Object* find(std::string_view name) const {
    if (!table_.empty()) {
      return table_[slot_of(table_, name)].object;
    }
    for (const entry& each : entries_) {
      if (oxa::same_text(each.name.c_str(), name)) {
        return each.object.get();
      }
    }
    return nullptr;
  }

  // Appends an object under a name that is not there yet, and takes over a reference to it. Throws
  // std::bad_alloc, with nothing changed and the reference still the caller's.
  void add(oxa::thin_string name, Object* object) {
    entries_.reserve(capacity_for(entries_.size() + 1));
    reserve_slots(entries_.size() + 1);
    if (!table_.empty()) {
      table_[slot_of(table_, name.c_str())] = {name.c_str(), object};
    }
    entries_.push_back({std::move(name), oxa::Ref<Object>::adopt(object)});
  }

  // Move to the first and to the next object and store it. After the last one comes the end, and
  // after the end the first one.
  // S_OK; S_FALSE at the end, with `*out` null; E_INVALIDARG for a null `out`.
  template <class Interface>
  OXAResult first(Interface** out) {
    return move(out, 0);
  }
  template <class Interface>
  OXAResult next(Interface** out) {
    return move(out, position_ == at_end ? 0 : position_ + 1);
  }

 private:
  struct entry {
    oxa::thin_string name;
    oxa::Ref<Object> object;
  };
  // What an entry says, so that a search need not look at it; free without a name. At most half of
  // the slots are taken.
  struct slot {
    const char* name = nullptr;
    Object* object = nullptr;
  };
  using table = std::vector<slot>;

  static constexpr std::size_t usual_size = 4;
  // Up to so many are searched one by one.
  static constexpr std::size_t largest_unindexed = 8;
  static constexpr std::size_t at_end = static_cast<std::size_t>(-1);

  std::size_t capacity_for(std::size_t count) const {
    const std::size_t capacity = entries_.capacity();
    return count <= capacity ? capacity : std::max(usual_size, capacity * 2);
  }

  // Returns the slot of a name, or the free one where it belongs.
  static std::size_t slot_of(const table& in, std::string_view name) {
    const std::size_t mask = in.size() - 1;
    std::size_t at = std::hash<std::string_view>()(name) & mask;
    while (in[at].name != nullptr && !oxa::same_text(in[at].name, name)) {
      at = (at + 1) & mask;
    }
    return at;
  }

  void reserve_slots(std::size_t count) {
    if (count <= largest_unindexed || count * 2 <= table_.size()) {
      return;
    }
    table wider(std::bit_ceil(count * 2));
    for (const entry& each : entries_) {
      wider[slot_of(wider, each.name.c_str())] = {each.name.c_str(), each.object.get()};
    }
    table_ = std::move(wider);
  }

  template <class Interface>
  OXAResult move(Interface** out, std::size_t target) {
    if (out == nullptr) {
      return E_INVALIDARG;
    }
    position_ = target < entries_.size() ? target : at_end;
    *out = position_ == at_end ? nullptr : entries_[position_].object.get();
    return position_ == at_end ? S_FALSE : S_OK;
  }

  std::vector<entry> entries_;
  table table_;
  std::size_t position_ = at_end;
};
