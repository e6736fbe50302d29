// Hand-made objects that note which of their slots are called.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace oxa_test {

// An object whose functions note their calls, all in one text, by its letter and the slot.
struct RawObject {
  const void* table;
  char letter;
  std::string* calls;
  std::int64_t count = 1;
};

inline void note(RawObject* self, const std::string& slot) {
  *self->calls += self->letter + slot + " ";
}

inline std::int64_t add(RawObject* self) {
  note(self, "1");
  return ++self->count;
}

inline std::int64_t release(RawObject* self) {
  note(self, "2");
  return --self->count;
}

// Fills the slots that must not be called.
inline void no() { ADD_FAILURE() << "a slot was called that has no business here"; }

}  // namespace oxa_test
