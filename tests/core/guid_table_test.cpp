#include "core/guid_table.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

#include "support/allocations.h"

namespace {

_GUID id_of(unsigned long number) { return {number, 0, 0, {}}; }

TEST(GuidTableTest, AnEmptyTableHasNoValues) {
  const guid_table<int> table;
  EXPECT_EQ(table.find(id_of(1)), 0);
}

TEST(GuidTableTest, SettingReturnsThePreviousValue) {
  guid_table<int> table;
  EXPECT_EQ(table.set(id_of(1), 5), 0);
  EXPECT_EQ(table.set(id_of(1), 6), 5);
  EXPECT_EQ(table.find(id_of(1)), 6);
  EXPECT_EQ(table.find(id_of(2)), 0);
}

// Ids that differ in few bits, in different places, as people number them by hand.
TEST(GuidTableTest, AgreesWithAMap) {
  std::mt19937 random(1);
  guid_table<int> table;
  std::map<std::pair<unsigned long, unsigned>, int> model;
  for (int step = 1; step < 100000; ++step) {
    const unsigned long group = random() % 300;
    const auto byte = static_cast<unsigned>(random() % 200);
    const _GUID id{group << 32, 0, 0, {0, 0, 0, 0, 0, 0, 0, static_cast<unsigned char>(byte)}};
    int& known = model[{group, byte}];
    ASSERT_EQ(table.find(id), known);
    ASSERT_EQ(table.set(id, step), known);
    known = step;
  }
}

TEST(GuidTableTest, KeepsAHundredThousandIdsApart) {
  constexpr unsigned long count = 100000;
  guid_table<unsigned long> table;
  for (unsigned long number = 1; number <= count; ++number) {
    table.set(id_of(number * 0x10001), number);
  }
  for (unsigned long number = 1; number <= count; ++number) {
    ASSERT_EQ(table.find(id_of(number * 0x10001)), number);
  }
}

TEST(GuidTableTest, FindingAndReplacingAllocateNothing) {
  guid_table<int> table;
  for (unsigned long number = 0; number < 1000; ++number) {
    table.set(id_of(number), 1);
  }
  const unsigned long made = oxa_test::made_allocations();
  for (unsigned long number = 0; number < 1000; ++number) {
    table.find(id_of(number));
    table.set(id_of(number), 2);
  }
  EXPECT_EQ(oxa_test::made_allocations(), made);
}

TEST(GuidTableTest, AFailedAllocationChangesNothing) {
  guid_table<int> table;
  for (unsigned long number = 0; number < 100; ++number) {
    const oxa_test::FailingAllocation failing(0);
    try {
      table.set(id_of(number), 1);
      EXPECT_EQ(table.find(id_of(number)), 1);
    } catch (const std::bad_alloc&) {
      EXPECT_EQ(table.find(id_of(number)), 0);
      EXPECT_EQ(table.set(id_of(number), 1), 0);
    }
    EXPECT_EQ(table.find(id_of(0)), 1);
  }
}

}  // namespace
