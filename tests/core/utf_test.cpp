#include "core/utf.h"

#include <gtest/gtest.h>

#include <random>

#include "plugins/to_wstring.h"

namespace {

TEST(UtfTest, EncodesOneToFourBytes) {
  EXPECT_EQ(oxa::to_utf8(L"a\u007F"), "a\x7F");
  EXPECT_EQ(oxa::to_utf8(L"\u0080\u07FF"), "\xC2\x80\xDF\xBF");
  EXPECT_EQ(oxa::to_utf8(L"\u0800\uFFFF"), "\xE0\xA0\x80\xEF\xBF\xBF");
  EXPECT_EQ(oxa::to_utf8(L"\U00010000\U0010FFFF"), "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
}

TEST(UtfTest, EncodingSkipsWhatIsNoCodePoint) {
  const wchar_t wide[] = {L'a',
                          static_cast<wchar_t>(0xD800),
                          static_cast<wchar_t>(0xDFFF),
                          L'b',
                          0x110000,
                          static_cast<wchar_t>(-1),
                          L'c',
                          0};
  EXPECT_EQ(oxa::to_utf8(wide), "abc");
}

struct DecodeCase {
  const char* utf8;
  const wchar_t* wide;
};

class UtfDecodeTest : public testing::TestWithParam<DecodeCase> {};

TEST_P(UtfDecodeTest, SkipsWhatIsMalformed) {
  EXPECT_EQ(oxa::from_utf8(GetParam().utf8), GetParam().wide);
}

INSTANTIATE_TEST_SUITE_P(
    Table, UtfDecodeTest,
    testing::Values(DecodeCase{"", L""}, DecodeCase{"plain", L"plain"},
                    DecodeCase{"\xC3\xA9", L"\u00E9"},
                    DecodeCase{"\xF0\x9F\x98\x80", L"\U0001F600"},
                    DecodeCase{"a\xE9"
                               "b",
                               L"a"},  // the lead byte takes the "b" along
                    DecodeCase{"a\xE9.so", L"aso"}, DecodeCase{"a\xFF.so", L"a.so"},
                    DecodeCase{"a\x80\xBF.so", L"a.so"}, DecodeCase{"a\xC0\xAF.so", L"a.so"},
                    DecodeCase{"a\xF5.so", L"a.so"}, DecodeCase{"a\xE2\x82", L"a"}));

TEST(UtfTest, EveryCodePointSurvivesTheRoundTrip) {
  for (wchar_t point = 1; point <= 0x10FFFF; ++point) {
    if (point < 0xD800 || point > 0xDFFF) {
      const wchar_t wide[] = {point, 0};
      ASSERT_EQ(oxa::from_utf8(oxa::to_utf8(wide).c_str()), wide) << static_cast<long>(point);
    }
  }
}

TEST(ToWstringTest, WidensCharacterByCharacter) {
  EXPECT_EQ(oxa::to_wstring("/"), L"/");
  EXPECT_EQ(oxa::to_wstring("a/b"), L"a/b");
}

}  // namespace
