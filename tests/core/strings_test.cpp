#include <gtest/gtest.h>
#include <oxa/strings.h>

#include <array>
#include <string>

namespace {

TEST(StrlenSafeTest, CountsUpToTheTerminator) {
  EXPECT_EQ(strlen_safe(""), 0);
  EXPECT_EQ(strlen_safe("sixsix"), 6);
}

TEST(StrlenSafeTest, CountsBeyondSixteenBits) {
  EXPECT_EQ(strlen_safe(std::string(70000, 'x').c_str()), 70000);
}

TEST(StrnlenSafeTest, IsBoundByItsMaximum) {
  EXPECT_EQ(strnlen_safe("sixsix", 3), 3U);
  EXPECT_EQ(strnlen_safe("sixsix", 6), 6U);
  EXPECT_EQ(strnlen_safe("sixsix", 7), 6U);
  EXPECT_EQ(strnlen_safe("sixsix", 0), 0U);
}

TEST(StrnlenSafeTest, NullHasNoLength) { EXPECT_EQ(strnlen_safe(nullptr, 5), 0U); }

struct SprintfCase {
  const char* format;
  const char* arg;
  unsigned long size;
  int result;
  const char* text;  // what stands in the buffer afterwards; it begins as "untouched"
};

class SprintfSafeTest : public testing::TestWithParam<SprintfCase> {};

TEST_P(SprintfSafeTest, WritesAllOrNothing) {
  const SprintfCase& given = GetParam();
  std::array<char, 32> buffer{"untouched"};
  EXPECT_EQ(sprintf_safe(buffer.data(), given.size, given.format, given.arg), given.result);
  EXPECT_STREQ(buffer.data(), given.text);
}

INSTANTIATE_TEST_SUITE_P(
    Table, SprintfSafeTest,
    testing::Values(SprintfCase{"a%sb", "xy", 6, 1, "axyb"},
                    SprintfCase{"a%sb", "xy", 5, 0, "untouched"},
                    SprintfCase{"a%sb", nullptr, 30, 0, "untouched"},
                    SprintfCase{"a%sb", "", 4, 1, "ab"}, SprintfCase{"%s", "xy", 4, 1, "xy"},
                    SprintfCase{"abc", "xy", 5, 1, "abc"}, SprintfCase{"", "", 0, 1, ""},
                    SprintfCase{"", "xy", 2, 1, ""}, SprintfCase{"100%", "", 4, 1, "100%"},
                    SprintfCase{"%d%%s%", "z", 7, 1, "%d%z%"},
                    SprintfCase{"%s-%s", "q", 6, 1, "q-q"}));

}  // namespace
