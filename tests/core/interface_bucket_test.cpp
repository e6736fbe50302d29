#include "core/interface_bucket.h"

#include <gtest/gtest.h>

#include <array>

#include "support/allocations.h"

namespace {

class InterfaceBucketTest : public testing::Test {
 protected:
  // Enough entries that they are indexed rather than searched.
  InterfaceBucketTest() {
    for (char& object : objects_) {
      bucket_.add({}, &object);
    }
  }

  std::array<char, 100> objects_{};
  interface_bucket bucket_;
};

// For want of memory a removal used to fail, and a registration to stay behind.
TEST_F(InterfaceBucketTest, ARemovalNeedsNoMemory) {
  for (unsigned long passing = 0; passing < objects_.size(); ++passing) {
    const oxa_test::FailingAllocation failing(passing);
    EXPECT_TRUE(bucket_.remove(&objects_[passing]));
    EXPECT_FALSE(bucket_.remove(&objects_[passing]));
    EXPECT_EQ(bucket_.size(), objects_.size() - passing - 1);
  }
}

TEST_F(InterfaceBucketTest, AnAdditionThatRunsOutOfMemoryAddsAllOrNothing) {
  bucket_.remove(&objects_[0]);  // builds the index
  std::size_t expected = bucket_.size();
  for (unsigned long passing = 0; passing < 3; ++passing) {
    const oxa_test::FailingAllocation failing(passing);
    try {
      bucket_.add({}, &objects_[0]);
      ++expected;
    } catch (const std::bad_alloc&) {
    }
    EXPECT_EQ(bucket_.size(), expected);
  }
  for (char& object : objects_) {
    while (bucket_.remove(&object)) {
      --expected;
    }
  }
  EXPECT_EQ(expected, 0U);
  EXPECT_TRUE(bucket_.empty());
}

}  // namespace
