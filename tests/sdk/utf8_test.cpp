#include <oxa/sdk/utf8.h>

#include <gtest/gtest.h>

namespace {

TEST(Utf8Test, EveryCodePointSurvivesTheRoundTrip) {
  for (wchar_t point = 0; point <= 0x10FFFF; ++point) {
    if (oxa::is_code_point(static_cast<char32_t>(point))) {
      const std::wstring wide(1, point);
      ASSERT_EQ(oxa::widen(oxa::narrow(wide)), wide) << static_cast<long>(point);
    }
  }
}

TEST(Utf8Test, WritesOneToFourBytes) {
  EXPECT_EQ(oxa::narrow(L"a\u007F"), "a\x7F");
  EXPECT_EQ(oxa::narrow(L"\u0080\u07FF"), "\xC2\x80\xDF\xBF");
  EXPECT_EQ(oxa::narrow(L"\u0800\uFFFF"), "\xE0\xA0\x80\xEF\xBF\xBF");
  EXPECT_EQ(oxa::narrow(L"\U00010000\U0010FFFF"), "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
}

TEST(Utf8Test, WhatIsNoCodePointIsDropped) {
  const std::wstring wide{L'a',
                          static_cast<wchar_t>(0xD800),
                          static_cast<wchar_t>(0xDFFF),
                          static_cast<wchar_t>(0x110000),
                          static_cast<wchar_t>(-1),
                          L'b'};
  EXPECT_EQ(oxa::narrow(wide), "ab");
}

TEST(Utf8Test, AppendingWhatIsNoCodePointChangesNothing) {
  std::string text = "a";
  oxa::append_utf8(text, oxa::not_utf8);
  oxa::append_utf8(text, 0xD800);
  EXPECT_EQ(text, "a");
}

struct Malformed {
  const char* text;
  const wchar_t* kept;
};

class Utf8MalformedTest : public testing::TestWithParam<Malformed> {};

TEST_P(Utf8MalformedTest, IsDroppedByteByByte) {
  EXPECT_FALSE(oxa::is_utf8(GetParam().text));
  EXPECT_EQ(oxa::widen(GetParam().text), GetParam().kept);
}

INSTANTIATE_TEST_SUITE_P(
    Table, Utf8MalformedTest,
    testing::Values(Malformed{"a\x80z", L"az"}, Malformed{"a\xC0\xAFz", L"az"},
                    Malformed{"a\xC1\xBFz", L"az"}, Malformed{"a\xE0\x9F\xBFz", L"az"},
                    Malformed{"a\xED\xA0\x80z", L"az"}, Malformed{"a\xF0\x8F\xBF\xBFz", L"az"},
                    Malformed{"a\xF4\x90\x80\x80z", L"az"}, Malformed{"a\xF5z", L"az"},
                    Malformed{"a\xFFz", L"az"}, Malformed{"a\xC3z", L"az"},
                    Malformed{"a\xE2\x82z", L"az"}, Malformed{"a\xC3", L"a"},
                    Malformed{"a\xE2\x82", L"a"}, Malformed{"a\xF0\x9F\x98", L"a"}));

TEST(Utf8Test, WellFormedTextIsRecognised) {
  EXPECT_TRUE(oxa::is_utf8(""));
  EXPECT_TRUE(oxa::is_utf8("plain"));
  EXPECT_TRUE(oxa::is_utf8("\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"));
}

}  // namespace
