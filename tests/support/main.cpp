// Runs the tests of one program; a test that passes but leaves an allocation alive fails.
#include <gtest/gtest.h>

#include "support/allocations.h"

namespace {

class AllocationAccounting : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo&) override { before_ = oxa_test::live_allocations(); }

  void OnTestEnd(const testing::TestInfo& test) override {
    const long left = oxa_test::live_allocations() - before_;
    if (left != 0 && test.result()->Passed() && !test.result()->Skipped()) {
      ADD_FAILURE() << left << " allocations are alive after the test";
    }
  }

  long before_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  testing::UnitTest::GetInstance()->listeners().Append(new AllocationAccounting);
  return RUN_ALL_TESTS();
}
