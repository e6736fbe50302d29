// Memory for much at once.
#include "core/large_memory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <new>

#include "support/allocations.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace {

using oxa::huge_page;

TEST(LargeMemoryTest, LittleComesFromTheHeap) {
  const long before = oxa_test::live_allocations();
  std::size_t bytes = huge_page - 1;
  void* const memory = oxa::allocate_large(bytes);
  EXPECT_EQ(oxa_test::live_allocations(), before + 1);
  EXPECT_EQ(bytes, huge_page - 1);
  oxa::free_large(memory, bytes);
  EXPECT_EQ(oxa_test::live_allocations(), before);
}

TEST(LargeMemoryTest, MuchIsWholeHugePages) {
  const long before = oxa_test::live_allocations();
  for (const std::size_t wanted : {huge_page, huge_page + 1, 3 * huge_page - 1}) {
    std::size_t bytes = wanted;
    void* const memory = oxa::allocate_large(bytes);
    EXPECT_GE(bytes, wanted);
    EXPECT_EQ(bytes % huge_page, 0U);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(memory) % huge_page, 0U);
    std::memset(memory, 0xFF, bytes);
    oxa::free_large(memory, bytes);
  }
  EXPECT_EQ(oxa_test::live_allocations(), before);
}

TEST(LargeMemoryTest, WhatTheSystemHasNotFails) {
  std::size_t bytes = std::size_t{1} << 60U;
  EXPECT_THROW(oxa::allocate_large(bytes), std::bad_alloc);
}

// Returns the size of the process, in pages.
std::size_t pages() {
  std::size_t all = 0;
  std::ifstream("/proc/self/statm") >> all;
  return all;
}

TEST(LargeMemoryTest, IsGivenBack) {
  const std::size_t before = pages();
  for (int round = 0; round < 100; ++round) {
    static_cast<void>(oxa::make_large_buffer(std::size_t{1} << 26U));
  }
  EXPECT_LT(pages() - before, std::size_t{1} << 14U);  // one buffer
}

#if defined(__SANITIZE_ADDRESS__)
// What only such memory points to is no leak.
TEST(LargeMemoryTest, ALeakCheckerLooksIntoIt) {
  std::size_t bytes = huge_page;
  auto* const memory = static_cast<void**>(oxa::allocate_large(bytes));
  constexpr std::size_t blocks = 100;  // more than registers hold
  std::generate_n(memory, blocks, [] { return ::operator new(100); });
  EXPECT_EQ(__lsan_do_recoverable_leak_check(), 0);
  std::for_each_n(memory, blocks, [](void* block) { ::operator delete(block); });
  oxa::free_large(memory, bytes);
}
#endif

}  // namespace
