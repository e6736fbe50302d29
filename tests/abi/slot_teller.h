// Which slot a compiled call goes to: the side of whoever holds the pointer.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <utility>

#include "abi/raw.h"

namespace oxa_test {

inline std::int64_t called = 0;

// Returns its own number and remembers it, for operations that return nothing.
template <std::int64_t Slot>
std::int64_t answer() {
  return called = Slot;
}

// An object that says which of its slots was called.
template <class Interface>
class SlotTeller {
 public:
  Interface* operator->() { return reinterpret_cast<Interface*>(&slots_); }

 private:
  static constexpr std::size_t slot_count = 40;

  template <std::size_t... Index>
  static RawTable<slot_count> make_table(std::index_sequence<Index...>) {
    return raw_table(typeid(Interface), &answer<static_cast<std::int64_t>(Index) + 1>...);
  }

  RawTable<slot_count> table_ = make_table(std::make_index_sequence<slot_count>());
  void* slots_ = table_.slots.data();
};

template <class Operation>
std::int64_t slot_called_by(Operation operation) {
  called = 0;
  operation();
  return called;
}

template <class Interface>
void expect_reference_slots() {
  SlotTeller<Interface> object;
  EXPECT_EQ(object->AddReference(), 1);
  EXPECT_EQ(object->ReleaseReference(), 2);
  EXPECT_EQ(object->CheckReference(), 3);
}

}  // namespace oxa_test
