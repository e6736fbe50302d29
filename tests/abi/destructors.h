// Destructors, which follow the operations of an interface in an object's table.
#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "abi/raw.h"
#include "support/allocations.h"

namespace oxa_test {

// Expects the complete destructor in a slot, which ends what an object holds, and in the next one
// the deleting destructor, which ends its own memory as well. `make` makes an object that holds
// something and is nobody else's; it lies so many bytes behind the begin of its block.
inline void expect_destructors_at(std::size_t complete, const std::function<void*()>& make,
                                  std::size_t behind = 0) {
  const long before = live_allocations();
  void* object = make();
  EXPECT_GT(live_allocations(), before + 1);
  call_slot<void>(object, complete);
  EXPECT_EQ(live_allocations(), before + 1);
  operator delete(static_cast<char*>(object) - behind);
  call_slot<void>(make(), complete + 1);
  EXPECT_EQ(live_allocations(), before);
}

}  // namespace oxa_test
