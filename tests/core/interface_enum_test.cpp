#include <gtest/gtest.h>
#include <oxa/oxa.h>

#include <cstring>
#include <memory>

#include "support/allocations.h"

namespace {

class InterfaceEnumTest : public testing::Test {
 protected:
  oxa::Ref<IOXAInterfaceEnum> over(OXAInterfaceList& list) {
    oxa::Ref<IOXAInterfaceEnum> enumerator;
    OXACreateInterfaceEnum(&list, false, IID_IOXAInterfaceEnum, oxa::adopt_into(enumerator));
    return enumerator;
  }

  int objects_[3] = {};
  OXAInterfaceList list_{{IID_IOXAFileReader, &objects_[0]},
                         {IID_IOXAFileWriter, &objects_[1]},
                         {IID_IOXAFileReader, &objects_[2]}};
  _GUID iid_ = IID_IOXAContext;
  void* object_ = this;
};

TEST_F(InterfaceEnumTest, GivesPairsInListOrder) {
  const auto enumerator = over(list_);
  EXPECT_EQ(enumerator->CheckReference(), 1);
  EXPECT_EQ(enumerator->GetFirst(iid_, &object_), S_OK);
  EXPECT_EQ(iid_, IID_IOXAFileReader);
  EXPECT_EQ(object_, &objects_[0]);
  EXPECT_EQ(enumerator->GetNext(iid_, &object_), S_OK);
  EXPECT_EQ(iid_, IID_IOXAFileWriter);
  EXPECT_EQ(object_, &objects_[1]);
}

TEST_F(InterfaceEnumTest, AFirstGetNextSkipsTheFirstPair) {
  const auto enumerator = over(list_);
  EXPECT_EQ(enumerator->GetNext(iid_, &object_), S_OK);
  EXPECT_EQ(object_, &objects_[1]);
}

TEST_F(InterfaceEnumTest, TheEndLeavesTheIdAloneAndGetFirstRestarts) {
  const auto enumerator = over(list_);
  enumerator->GetNext(iid_, &object_);
  enumerator->GetNext(iid_, &object_);
  iid_ = IID_IOXAContext;
  EXPECT_EQ(enumerator->GetNext(iid_, &object_), S_FALSE);
  EXPECT_EQ(object_, nullptr);
  EXPECT_EQ(iid_, IID_IOXAContext);
  EXPECT_EQ(enumerator->GetFirst(iid_, &object_), S_OK);
  EXPECT_EQ(object_, &objects_[0]);
}

TEST_F(InterfaceEnumTest, AnEmptyListGivesNothing) {
  OXAInterfaceList empty;
  const auto enumerator = over(empty);
  EXPECT_EQ(enumerator->GetFirst(iid_, &object_), S_FALSE);
  EXPECT_EQ(object_, nullptr);
  EXPECT_EQ(iid_, IID_IOXAContext);
  object_ = this;
  EXPECT_EQ(enumerator->GetNext(iid_, &object_), S_FALSE);
  EXPECT_EQ(object_, nullptr);
}

TEST_F(InterfaceEnumTest, NullOutputsAreRefused) {
  const auto enumerator = over(list_);
  EXPECT_EQ(enumerator->GetFirst(iid_, nullptr), E_POINTER);
  EXPECT_EQ(enumerator->GetNext(iid_, nullptr), E_POINTER);
  EXPECT_EQ(iid_, IID_IOXAContext);
  EXPECT_EQ(enumerator->GetNext(iid_, &object_), S_OK);
  EXPECT_EQ(object_, &objects_[1]);
}

TEST_F(InterfaceEnumTest, CopiesThePaddingOfTheId) {
  std::memset(reinterpret_cast<unsigned char*>(&list_[0].first) + 20, 0xAB, 4);
  const auto enumerator = over(list_);
  enumerator->GetFirst(iid_, &object_);
  for (unsigned byte = 20; byte < sizeof iid_; ++byte) {
    EXPECT_EQ(reinterpret_cast<const unsigned char*>(&iid_)[byte], 0xAB);
  }
}

TEST_F(InterfaceEnumTest, AnOwningEnumeratorDeletesItsList) {
  auto list = std::make_unique<OXAInterfaceList>(list_);
  oxa::Ref<IOXAInterfaceEnum> enumerator;
  EXPECT_EQ(
      OXACreateInterfaceEnum(list.get(), true, IID_IOXAInterfaceEnum, oxa::adopt_into(enumerator)),
      S_OK);
  static_cast<void>(list.release());  // accounted for: what is not deleted fails the test
}

TEST_F(InterfaceEnumTest, TheFactoryChecksItsArgumentsInOrder) {
  EXPECT_EQ(OXACreateInterfaceEnum(nullptr, true, IID_IOXAContext, nullptr), E_INVALIDARG);
  EXPECT_EQ(OXACreateInterfaceEnum(nullptr, true, IID_IOXAContext, &object_), E_NOINTERFACE);
  EXPECT_EQ(object_, nullptr);
  object_ = this;
  EXPECT_EQ(OXACreateInterfaceEnum(nullptr, true, IID_IOXAInterfaceEnum, &object_), E_POINTER);
  EXPECT_EQ(object_, nullptr);
}

TEST_F(InterfaceEnumTest, TheFactoryReportsThatMemoryIsShort) {
  const oxa_test::FailingAllocation failing(0);
  EXPECT_EQ(OXACreateInterfaceEnum(&list_, true, IID_IOXAInterfaceEnum, &object_), E_OUTOFMEMORY);
  EXPECT_EQ(object_, nullptr);
}

}  // namespace
