#include "core/interface_bucket.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <new>

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

// Ids that are equal may differ in their padding, which belongs to the entry.
_GUID padded(unsigned char padding) {
  _GUID iid{};
  std::memset(&iid, 0, sizeof iid);
  reinterpret_cast<unsigned char*>(&iid)[sizeof iid - 1] = padding;
  return iid;
}

unsigned char padding_of(const _GUID& iid) {
  return reinterpret_cast<const unsigned char*>(&iid)[sizeof iid - 1];
}

TEST(PaddedInterfaceBucketTest, EachEntryKeepsThePaddingOfItsId) {
  std::array<unsigned char, 100> objects{};
  interface_bucket bucket;
  for (std::size_t at = 0; at < objects.size(); ++at) {
    bucket.add(padded(at < 50 ? 7 : static_cast<unsigned char>(at)), &objects[at]);
  }
  for (std::size_t at = 0; at < objects.size(); at += at % 3 == 0 ? 1 : 2) {
    bucket.remove(&objects[at]);  // two of three, so that the gaps are closed
  }
  OXAInterfaceList list;
  bucket.append_to(list);
  EXPECT_EQ(list.size(), bucket.size());
  EXPECT_LT(list.size(), 40U);
  for (const auto& [iid, object] : list) {
    const auto at = static_cast<std::size_t>(static_cast<unsigned char*>(object) - objects.data());
    EXPECT_EQ(padding_of(iid), at < 50 ? 7 : at);
  }
}

TEST(PaddedInterfaceBucketTest, WithoutMemoryForTheIdsNothingIsAdded) {
  int object = 0;
  interface_bucket bucket;
  bucket.add(padded(1), &object);
  const unsigned long failures = oxa_test::fail_each_allocation([&] {
    const std::size_t before = bucket.size();
    try {
      bucket.add(padded(2), &object);
      EXPECT_EQ(bucket.size(), before + 1);
    } catch (const std::bad_alloc&) {
      EXPECT_EQ(bucket.size(), before);
    }
  });
  EXPECT_GE(failures, 1U);
  OXAInterfaceList list;
  bucket.append_to(list);
  ASSERT_EQ(list.size(), 2U);
  EXPECT_EQ(padding_of(list[0].first), 1);
  EXPECT_EQ(padding_of(list[1].first), 2);
}

}  // namespace
