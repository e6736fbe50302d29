// Tests in which a process ends.
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace oxa_test {

// GoogleTest keeps the last message of a death; its memory is taken before any test is judged.
class EndingProcessTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    testing::internal::DeathTest::set_last_death_test_message(std::string(1000, ' '));
  }
  void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

}  // namespace oxa_test
