// The arrays of an element.
#include "xml/xml_array.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <stdexcept>
#include <utility>

#include "support/allocations.h"
#include "xml/tree/building.h"

using oxa::xml_builder;
using oxa_test::live_allocations;

namespace {

std::size_t no_tail(std::size_t) { return 0; }
std::size_t a_byte_each(std::size_t capacity) { return capacity; }

using Numbers = oxa::xml_array<std::size_t, no_tail>;
using Owners = oxa::xml_array<std::unique_ptr<std::size_t>, a_byte_each>;

// Appends the numbers from the count of the array on.
void fill(Numbers& numbers, std::size_t count, xml_builder* builder) {
  while (numbers.count() < count) {
    numbers.reserve(1, builder);
    numbers.append(numbers.count());
  }
}

void expect_filled(const Numbers& numbers, std::size_t count) {
  ASSERT_EQ(numbers.count(), count);
  ASSERT_EQ(numbers.end() - numbers.begin(), static_cast<std::ptrdiff_t>(count));
  for (std::size_t i = 0; i < count; ++i) {
    ASSERT_EQ(numbers[i], i);
  }
}

TEST(XmlArrayTest, BeginsEmptyWithoutMemory) {
  const unsigned long before = oxa_test::made_allocations();
  const Numbers numbers;
  expect_filled(numbers, 0);
  EXPECT_EQ(numbers.capacity(), 0U);
  EXPECT_EQ(oxa_test::made_allocations(), before);
}

TEST(XmlArrayTest, GrowsOnTheHeap) {
  Numbers numbers;
  for (const std::size_t count : {1U, 2U, 3U, 100U, 100000U}) {
    fill(numbers, count, nullptr);
    expect_filled(numbers, count);
  }
}

TEST(XmlArrayTest, TellsWhenItsBlockIsNew) {
  Numbers numbers;
  EXPECT_TRUE(numbers.reserve(1, nullptr));
  EXPECT_FALSE(numbers.reserve(1, nullptr));
  fill(numbers, numbers.capacity(), nullptr);
  EXPECT_TRUE(numbers.reserve(1, nullptr));
}

TEST(XmlArrayTest, MakesRoomForManyAtOnce) {
  Numbers numbers;
  fill(numbers, 1, nullptr);
  EXPECT_TRUE(numbers.reserve(20, nullptr));
  const std::size_t* const block = numbers.begin();
  fill(numbers, 21, nullptr);
  EXPECT_EQ(numbers.begin(), block);
  expect_filled(numbers, 21);
}

TEST(XmlArrayTest, RefusesMoreThanItCanCount) {
  Numbers numbers;
  fill(numbers, 2, nullptr);
  EXPECT_THROW(numbers.reserve(std::size_t{1} << 30U, nullptr), std::length_error);
  expect_filled(numbers, 2);
}

TEST(XmlArrayTest, GrowsInAnArenaUpToALimit) {
  oxa_test::Building building;
  Numbers numbers;
  building.builder.allocate_block(16);
  const long before = live_allocations();
  fill(numbers, 4, &building.builder);
  EXPECT_EQ(live_allocations(), before);
  fill(numbers, xml_builder::largest_block / sizeof(std::size_t), &building.builder);
  const unsigned long made = oxa_test::made_allocations();
  EXPECT_TRUE(numbers.reserve(1, &building.builder));
  EXPECT_EQ(oxa_test::made_allocations(), made + 1);
  fill(numbers, 100000, &building.builder);
  expect_filled(numbers, 100000);
}

TEST(XmlArrayTest, GivesABlockItHasOutgrownToTheNext) {
  oxa_test::Building building;
  Numbers first;
  Numbers second;
  fill(first, 2, &building.builder);
  const std::size_t* const block = first.begin();
  fill(first, 3, &building.builder);
  fill(second, 1, &building.builder);
  EXPECT_EQ(second.begin(), block);
  expect_filled(first, 3);
}

TEST(XmlArrayTest, LeavesItsArenaForTheHeap) {
  Numbers numbers;
  oxa_test::Building building;
  fill(numbers, 4, &building.builder);
  const long before = live_allocations();
  fill(numbers, 5, nullptr);
  EXPECT_EQ(live_allocations(), before + 1);
  expect_filled(numbers, 5);
}

TEST(XmlArrayTest, StaysOnTheHeapOnceItIsThere) {
  Numbers numbers;
  {
    oxa_test::Building building;
    fill(numbers, 2, nullptr);
    fill(numbers, 9, &building.builder);
  }
  expect_filled(numbers, 9);
}

// Taken out from the front, items leave a gap, which is used again.
TEST(XmlArrayTest, LosesItsFirstItemsAndGoesOn) {
  Numbers numbers;
  fill(numbers, 64, nullptr);
  for (std::size_t lost = 0; lost < 40; ++lost) {
    ASSERT_EQ(numbers[0], lost);
    numbers.remove(numbers.begin());
  }
  const long before = live_allocations();
  for (std::size_t added = 64; added < 100; ++added) {
    numbers.reserve(1, nullptr);
    numbers.append(added);
  }
  EXPECT_EQ(live_allocations(), before);
  ASSERT_EQ(numbers.count(), 60U);
  for (std::size_t at = 0; at < 60; ++at) {
    EXPECT_EQ(numbers[at], at + 40);
  }
}

// A full array moved all its items each time one was taken out in front and another added.
TEST(XmlArrayTest, TakesItemsInTurnsWithoutGrowingOn) {
  Numbers numbers;
  fill(numbers, 64, nullptr);
  const unsigned long before = oxa_test::made_allocations();
  for (std::size_t added = 64; added < 10000; ++added) {
    ASSERT_EQ(numbers[0], added - 64);
    numbers.remove(numbers.begin());
    numbers.reserve(1, nullptr);
    numbers.append(added);
  }
  EXPECT_EQ(oxa_test::made_allocations(), before + 1);
  EXPECT_EQ(numbers.count(), 64U);
}

TEST(XmlArrayTest, GrowsOutOfAGap) {
  Numbers numbers;
  fill(numbers, 8, nullptr);
  numbers.remove(numbers.begin());
  for (std::size_t added = 8; added < 40; ++added) {
    numbers.reserve(1, nullptr);
    numbers.append(added);
  }
  ASSERT_EQ(numbers.count(), 39U);
  for (std::size_t at = 0; at < 39; ++at) {
    EXPECT_EQ(numbers[at], at + 1);
  }
}

TEST(XmlArrayTest, OwnsItsItems) {
  Owners owned;
  for (std::size_t i = 0; i < 9; ++i) {
    owned.reserve(1, nullptr);
    EXPECT_EQ(*owned.append(std::make_unique<std::size_t>(i)), i);
  }
  owned.remove(&owned[0]);
  owned.remove(&owned[7]);
  owned.remove(&owned[3]);
  ASSERT_EQ(owned.count(), 6U);
  const std::size_t left[] = {1, 2, 3, 5, 6, 7};
  for (std::size_t i = 0; i < owned.count(); ++i) {
    EXPECT_EQ(*owned[i], left[i]);
  }
}

TEST(XmlArrayTest, IsClearedAndFilledAgain) {
  Owners owned;
  const long before = live_allocations();
  for (int round = 0; round < 2; ++round) {
    owned.reserve(1, nullptr);
    owned.append(std::make_unique<std::size_t>(1));
    EXPECT_EQ(live_allocations(), before + 2);
    owned.clear();
    EXPECT_EQ(live_allocations(), before);
    EXPECT_EQ(owned.count() + owned.capacity(), 0U);
  }
}

TEST(XmlArrayTest, HasATailBehindItsItems) {
  Owners owned;
  for (std::size_t i = 0; i < 100; ++i) {
    if (owned.reserve(1, nullptr)) {
      std::memset(owned.tail(), 0x7F, owned.capacity());
    }
    owned.append(std::make_unique<std::size_t>(i));
  }
  EXPECT_EQ(owned.tail(), owned.begin() + owned.capacity());
  EXPECT_EQ(static_cast<char*>(owned.tail())[owned.capacity() - 1], 0x7F);
  EXPECT_EQ(*owned[99], 99U);
}

TEST(XmlArrayTest, WithoutMemoryItIsAsBefore) {
  Numbers numbers;
  fill(numbers, 4, nullptr);
  const std::size_t* const block = numbers.begin();
  {
    const oxa_test::FailingAllocation failing(0);
    EXPECT_THROW(numbers.reserve(1, nullptr), std::bad_alloc);
  }
  EXPECT_EQ(numbers.begin(), block);
  EXPECT_EQ(numbers.capacity(), 4U);
  expect_filled(numbers, 4);
}

}  // namespace
