// Objects as code sees them that shares nothing with us but the binary contract.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <typeinfo>
#include <utility>

namespace oxa_test {

// Returns the function in slot `slot` of an object's table; slots count from 1.
template <class Function>
Function slot_of(void* object, std::size_t slot) {
  void** table = *static_cast<void***>(object);
  return reinterpret_cast<Function>(table[slot - 1]);
}

// Calls a slot whose function returns `Result`.
template <class Result, class... Arguments>
Result call_slot(void* object, std::size_t slot, Arguments... arguments) {
  return slot_of<Result (*)(void*, Arguments...)>(object, slot)(object, arguments...);
}

// A table that stands for a class. In front of the functions it has what sanitizers look at: the
// offset to the object's start and the type.
template <std::size_t Slots>
struct RawTable {
  std::ptrdiff_t offset_to_top;
  const std::type_info* type;
  std::array<void*, Slots> slots;
};

template <class... Functions>
RawTable<sizeof...(Functions)> raw_table(const std::type_info& type, Functions... functions) {
  return {0, &type, {reinterpret_cast<void*>(functions)...}};
}

}  // namespace oxa_test
