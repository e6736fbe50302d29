#include <gtest/gtest.h>

#include "support/allocations.h"
#include "support/fakes.h"

using oxa_test::Thing;

namespace {

TEST(ReferenceTest, ANewObjectHasOneReference) {
  const auto thing = oxa::make<Thing>();
  EXPECT_EQ(thing->CheckReference(), 1);
}

TEST(ReferenceTest, TheLastReleaseDestroysTheObjectAndReturnsZero) {
  const long before = oxa_test::live_allocations();
  IOXAReference* thing = oxa::make<Thing>().detach();
  EXPECT_EQ(thing->AddReference(), 2);
  EXPECT_EQ(thing->ReleaseReference(), 1);
  EXPECT_EQ(oxa_test::live_allocations(), before + 1);
  EXPECT_EQ(thing->ReleaseReference(), 0);
  EXPECT_EQ(oxa_test::live_allocations(), before);
}

TEST(ReferenceTest, EveryAllocationOfATestIsCounted) {
  const unsigned long before = oxa_test::made_allocations();
  static_cast<void>(oxa::make<Thing>());
  EXPECT_EQ(oxa_test::made_allocations(), before + 1);
  EXPECT_THROW(
      {
        const oxa_test::FailingAllocation failing(0);
        oxa::make<Thing>();
      },
      std::bad_alloc);
}

}  // namespace
