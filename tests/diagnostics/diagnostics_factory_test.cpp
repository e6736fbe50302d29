// The factory, as a host calls it.
#include <gtest/gtest.h>
#include <oxa/oxa.h>

#include "support/allocations.h"

namespace {

oxa::Ref<IOXADiagnosticsManager> create_manager() {
  oxa::Ref<IOXADiagnosticsManager> manager;
  EXPECT_EQ(OXACreateDiagnosticsManager(oxa::adopt_into(manager)), S_OK);
  return manager;
}

TEST(DiagnosticsFactoryTest, NeedsAPlaceToGo) {
  EXPECT_EQ(OXACreateDiagnosticsManager(nullptr), E_INVALIDARG);
}

TEST(DiagnosticsFactoryTest, MakesAManagerForItsCaller) {
  const auto manager = create_manager();
  ASSERT_TRUE(manager);
  EXPECT_EQ(manager->CheckReference(), 1);
  EXPECT_EQ(manager->GetColumnCount(), 2);
  oxa::Ref<IOXADiagnosticCategoryEnum> categories;
  EXPECT_EQ(manager->GetDiagnosticCategoryEnum(oxa::adopt_into(categories)), S_OK);
  EXPECT_EQ(categories->Count(), 0U);
}

TEST(DiagnosticsFactoryTest, MakesAnotherOneEachTime) {
  const auto first = create_manager();
  const auto second = create_manager();
  EXPECT_NE(first, second);
  int id = -1;
  for (IOXADiagnosticsManager* manager : {first.get(), second.get()}) {
    EXPECT_EQ(manager->RegisterDiagnosticType("a", "b", &id), S_OK);
    EXPECT_EQ(id, 0);
  }
}

TEST(DiagnosticsFactoryTest, TakesNoServiceFromAContext) {
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  EXPECT_NE(create_manager(), oxa::service<IOXADiagnosticsManager>(context));
}

TEST(DiagnosticsFactoryTest, AFailedAllocationLeavesNothing) {
  const unsigned long failures = oxa_test::fail_each_allocation([] {
    int marker = 0;
    void* out = &marker;
    const OXAResult result = OXACreateDiagnosticsManager(&out);
    const auto manager =
        oxa::Ref<IOXADiagnosticsManager>::adopt(static_cast<IOXADiagnosticsManager*>(out));
    const bool failed = oxa_test::FailingAllocation::happened();
    EXPECT_EQ(result, failed ? E_OUTOFMEMORY : S_OK);
    EXPECT_EQ(manager == nullptr, failed);
  });
  EXPECT_GE(failures, 1U);
}

}  // namespace
