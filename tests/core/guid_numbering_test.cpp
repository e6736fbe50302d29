#include "core/guid_numbering.h"

#include <gtest/gtest.h>

#include "support/allocations.h"

namespace {

_GUID id_of(unsigned long number) { return {number, 0, 0, {}}; }

TEST(GuidNumberingTest, NumbersIdsInOrderOfArrival) {
  guid_numbering numbering;
  EXPECT_EQ(numbering.number(id_of(7)), 0U);
  EXPECT_EQ(numbering.number(id_of(3)), 1U);
  EXPECT_EQ(numbering.number(id_of(7)), 0U);
  EXPECT_EQ(numbering.number(id_of(3)), 1U);
}

TEST(GuidNumberingTest, PaddingTakesNoPart) {
  guid_numbering numbering;
  _GUID padded = id_of(7);
  reinterpret_cast<unsigned char*>(&padded)[20] = 0xFF;
  numbering.number(id_of(7));
  EXPECT_EQ(numbering.number(padded), 0U);
}

TEST(GuidNumberingTest, EverySignificantByteTellsIdsApart) {
  guid_numbering numbering;
  numbering.number(id_of(0));
  for (unsigned byte = 0; byte < 20; ++byte) {
    _GUID id = id_of(0);
    reinterpret_cast<unsigned char*>(&id)[byte] = 1;
    EXPECT_EQ(numbering.number(id), byte + 1);
  }
}

TEST(GuidNumberingTest, AHitAllocatesNothing) {
  guid_numbering numbering;
  for (unsigned long number = 0; number < 1000; ++number) {
    numbering.number(id_of(number));
  }
  const unsigned long made = oxa_test::made_allocations();
  for (unsigned long number = 0; number < 1000; ++number) {
    numbering.number(id_of(number));
  }
  EXPECT_EQ(oxa_test::made_allocations(), made);
}

TEST(GuidNumberingTest, AFailedAllocationNumbersNothing) {
  guid_numbering numbering;
  {
    const oxa_test::FailingAllocation failing(0);
    EXPECT_THROW(numbering.number(id_of(1)), std::bad_alloc);
  }
  EXPECT_EQ(numbering.number(id_of(2)), 0U);
}

}  // namespace
