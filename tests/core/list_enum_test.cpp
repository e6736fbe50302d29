#include "core/OXAListEnum.h"

#include <gtest/gtest.h>
#include <oxa/IOXADiagnosticCategoryEnum.h>
#include <oxa/IOXAPropertyEnum.h>
#include <oxa/sdk/ranges.h>

#include <array>
#include <random>
#include <vector>

#include "support/allocations.h"

namespace {

using PropertyEnum = OXAListEnum<IOXAPropertyEnum, IOXAProperty>;
using CategoryEnum = OXAListEnum<IOXADiagnosticCategoryEnum, IOXADiagnosticCategory>;

class OXAListEnumTest : public testing::Test {
 protected:
  static oxa::Ref<PropertyEnum> over(std::initializer_list<IOXAProperty*> list) {
    return oxa::make<PropertyEnum>(new PropertyEnum::List(list), true);
  }

  static IOXAProperty* first(IOXAPropertyEnum& enumerator) {
    IOXAProperty* item = nullptr;
    return enumerator.GetFirst(&item) == S_OK ? item : nullptr;
  }

  static IOXAProperty* next(IOXAPropertyEnum& enumerator) {
    IOXAProperty* item = nullptr;
    return enumerator.GetNext(&item) == S_OK ? item : nullptr;
  }

  // An enumerator needs the addresses of its items only.
  template <class Item>
  Item* item(std::size_t number) {
    return reinterpret_cast<Item*>(&places_[number]);
  }

  std::array<void*, 3> places_{};
  IOXAProperty* a_ = item<IOXAProperty>(0);
  IOXAProperty* b_ = item<IOXAProperty>(1);
  IOXAProperty* c_ = item<IOXAProperty>(2);
};

TEST_F(OXAListEnumTest, AnEmptyListGivesNothing) {
  const auto enumerator = over({});
  IOXAProperty* item = a_;
  EXPECT_EQ(enumerator->GetFirst(&item), S_FALSE);
  EXPECT_EQ(item, nullptr);
  item = a_;
  EXPECT_EQ(enumerator->GetNext(&item), S_FALSE);
  EXPECT_EQ(item, nullptr);
  EXPECT_EQ(enumerator->Count(), 0U);
}

TEST_F(OXAListEnumTest, GivesItemsInListOrder) {
  const auto enumerator = over({a_, b_, c_});
  EXPECT_EQ(enumerator->Count(), 3U);
  EXPECT_EQ(first(*enumerator), a_);
  EXPECT_EQ(next(*enumerator), b_);
  EXPECT_EQ(next(*enumerator), c_);
}

TEST_F(OXAListEnumTest, GoesRoundThroughItsEnd) {
  const auto enumerator = over({a_, b_, c_});
  first(*enumerator);
  next(*enumerator);
  next(*enumerator);
  IOXAProperty* item = a_;
  EXPECT_EQ(enumerator->GetNext(&item), S_FALSE);
  EXPECT_EQ(item, nullptr);
  EXPECT_EQ(enumerator->GetNext(&item), S_OK);
  EXPECT_EQ(item, a_);
}

TEST_F(OXAListEnumTest, AFirstGetNextSkipsTheFirstItem) {
  const auto enumerator = over({a_, b_, c_});
  EXPECT_EQ(next(*enumerator), b_);
}

TEST_F(OXAListEnumTest, CountLeavesTheCursorAlone) {
  const auto enumerator = over({a_, b_, c_});
  first(*enumerator);
  EXPECT_EQ(enumerator->Count(), 3U);
  EXPECT_EQ(next(*enumerator), b_);
}

TEST_F(OXAListEnumTest, NullOutputsAreRefused) {
  const auto enumerator = over({a_});
  const unsigned long made = oxa_test::made_allocations();
  EXPECT_EQ(enumerator->GetFirst(nullptr), E_POINTER);
  EXPECT_EQ(enumerator->GetNext(nullptr), E_POINTER);
  EXPECT_EQ(enumerator->Clone(nullptr), E_POINTER);
  EXPECT_EQ(oxa_test::made_allocations(), made);
}

TEST_F(OXAListEnumTest, ANullOutputDoesNotMoveTheCursor) {
  const auto enumerator = over({a_, b_, c_});
  first(*enumerator);
  enumerator->GetNext(nullptr);
  EXPECT_EQ(next(*enumerator), b_);
  enumerator->GetFirst(nullptr);
  EXPECT_EQ(next(*enumerator), c_);
}

TEST_F(OXAListEnumTest, WithoutAListThereIsNothingToWalk) {
  const auto enumerator = oxa::make<PropertyEnum>(nullptr, true);
  IOXAProperty* item = a_;
  EXPECT_EQ(enumerator->GetFirst(&item), E_POINTER);
  EXPECT_EQ(item, nullptr);
  EXPECT_EQ(enumerator->GetNext(&item), E_POINTER);
  EXPECT_EQ(enumerator->Count(), 0U);
}

TEST_F(OXAListEnumTest, CloneWithoutAListIsStoredAndReported) {
  const auto enumerator = oxa::make<PropertyEnum>(nullptr, true);
  oxa::Ref<IOXAPropertyEnum> clone;
  EXPECT_EQ(enumerator->Clone(oxa::adopt_into(clone)), E_POINTER);
  ASSERT_TRUE(clone);
  EXPECT_EQ(clone->CheckReference(), 1);
  EXPECT_EQ(clone->Count(), 0U);
}

TEST_F(OXAListEnumTest, AnOwningCloneOutlivesItsSource) {
  auto enumerator = over({a_, b_, c_});
  oxa::Ref<IOXAPropertyEnum> clone;
  EXPECT_EQ(enumerator->Clone(oxa::adopt_into(clone)), S_OK);
  EXPECT_EQ(clone->CheckReference(), 1);
  enumerator.reset();
  EXPECT_EQ(clone->Count(), 3U);
  EXPECT_EQ(first(*clone), a_);
  EXPECT_EQ(next(*clone), b_);
}

TEST_F(OXAListEnumTest, ACloneStandsWhereItsSourceStood) {
  const auto enumerator = over({a_, b_, c_});
  first(*enumerator);
  next(*enumerator);
  oxa::Ref<IOXAPropertyEnum> clone;
  enumerator->Clone(oxa::adopt_into(clone));
  EXPECT_EQ(next(*clone), c_);
  EXPECT_EQ(next(*clone), nullptr);
  EXPECT_EQ(next(*enumerator), c_);
}

TEST_F(OXAListEnumTest, ReleasingACloneLeavesTheSourceAlone) {
  const auto enumerator = over({a_, b_});
  oxa::Ref<IOXAPropertyEnum> clone;
  enumerator->Clone(oxa::adopt_into(clone));
  clone.reset();
  EXPECT_EQ(enumerator->Count(), 2U);
  EXPECT_EQ(first(*enumerator), a_);
}

TEST_F(OXAListEnumTest, WithoutOwningItSharesTheListWithItsClone) {
  CategoryEnum::List list;
  list.push_back(item<IOXADiagnosticCategory>(0));
  const auto enumerator = oxa::make<CategoryEnum>(&list, false);
  oxa::Ref<IOXADiagnosticCategoryEnum> clone;
  EXPECT_EQ(enumerator->Clone(oxa::adopt_into(clone)), S_OK);
  list.push_back(item<IOXADiagnosticCategory>(1));
  EXPECT_EQ(enumerator->Count(), 2U);
  EXPECT_EQ(clone->Count(), 2U);
  IOXADiagnosticCategory* found = nullptr;
  EXPECT_EQ(clone->GetNext(&found), S_OK);
  EXPECT_EQ(found, item<IOXADiagnosticCategory>(1));
}

TEST_F(OXAListEnumTest, CloneReportsThatMemoryIsShort) {
  const auto enumerator = over({a_, b_});
  const unsigned long failed = oxa_test::fail_each_allocation([&] {
    IOXAPropertyEnum* clone = enumerator.get();
    if (enumerator->Clone(&clone) == S_OK) {
      clone->ReleaseReference();
    } else {
      EXPECT_EQ(clone, nullptr);
    }
  });
  EXPECT_EQ(failed, 4U);  // the list, its two nodes, the clone
}

TEST_F(OXAListEnumTest, RangeForVisitsEveryItemOnce) {
  const auto enumerator = over({a_, b_, c_});
  std::vector<IOXAProperty*> visited;
  for (IOXAProperty* item : oxa::items(*enumerator)) {
    visited.push_back(item);
  }
  EXPECT_EQ(visited, (std::vector<IOXAProperty*>{a_, b_, c_}));
}

}  // namespace
