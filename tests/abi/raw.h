// Objects as code sees them that shares nothing with us but the binary contract.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
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

constexpr std::size_t release_slot = 2;
constexpr std::size_t check_slot = 3;

// Calls a slot whose function returns a text, which may be null.
inline std::string text_in(void* object, std::size_t slot) {
  const char* held = call_slot<const char*>(object, slot);
  return held == nullptr ? "null" : held;
}

// Two words in front of a table stands how far its part of the object is from the start of it.
inline std::ptrdiff_t offset_to_top(void* part) {
  std::ptrdiff_t offset = 1;
  std::memcpy(&offset, *static_cast<char**>(part) - 16, sizeof offset);
  return offset;
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
