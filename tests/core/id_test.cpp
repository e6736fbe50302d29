#include <gtest/gtest.h>

#include <algorithm>
#include <thread>
#include <vector>

#include "core/OXAId.h"

namespace {

TEST(OXAIdTest, CountsFromZero) {
  OXAId id;
  EXPECT_EQ(id.CreateID(), 0U);
  EXPECT_EQ(id.CreateID(), 1U);
  EXPECT_EQ(id.CreateID(), 2U);
  EXPECT_EQ(id.CurrentValue(), 3U);
}

TEST(OXAIdTest, ResetChoosesTheNextNumber) {
  OXAId id;
  id.Reset(10);
  EXPECT_EQ(id.CurrentValue(), 10U);
  EXPECT_EQ(id.CreateID(), 10U);
  id.Reset();
  EXPECT_EQ(id.CreateID(), 0U);
}

TEST(OXAIdTest, CountsBeyond32Bits) {
  OXAId id;
  id.Reset(0xFFFFFFFFU);
  EXPECT_EQ(id.CreateID(), 0xFFFFFFFFU);
  EXPECT_EQ(id.CreateID(), 0x100000000U);
}

TEST(OXAIdTest, ConcurrentCallsNeverShareANumber) {
  constexpr unsigned long threads = 4;
  constexpr unsigned long calls = 10000;
  OXAId id;
  std::vector<std::vector<unsigned long>> taken(threads);
  {
    std::vector<std::jthread> running;
    running.reserve(threads);
    for (auto& mine : taken) {
      running.emplace_back([&] {
        for (unsigned long call = 0; call < calls; ++call) {
          mine.push_back(id.CreateID());
        }
      });
    }
  }
  std::vector<unsigned long> all;
  for (const auto& mine : taken) {
    all.insert(all.end(), mine.begin(), mine.end());
  }
  std::sort(all.begin(), all.end());
  for (unsigned long number = 0; number < threads * calls; ++number) {
    ASSERT_EQ(all[number], number);
  }
}

}  // namespace
