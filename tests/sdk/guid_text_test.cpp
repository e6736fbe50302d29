#include <oxa/sdk/guid_text.h>

#include <gtest/gtest.h>
#include <oxa/interface_ids.h>

#include <random>

namespace {

TEST(GuidTextTest, WritesFiveGroupsInUpperCase) {
  EXPECT_EQ(oxa::to_string(IID_IOXAContext), "{0154AC61-6A91-4795-9CA3-E7B6092FA95F}");
  EXPECT_EQ(oxa::to_string(_GUID{}), "{00000000-0000-0000-0000-000000000000}");
}

TEST(GuidTextTest, AFirstGroupBeyond32BitsTakesMoreDigits) {
  const _GUID id{0x123456789UL, 1, 2, {3, 4, 5, 6, 7, 8, 9, 10}};
  EXPECT_EQ(oxa::to_string(id), "{123456789-0001-0002-0304-05060708090A}");
}

TEST(GuidTextTest, ReadsEitherCase) {
  EXPECT_EQ(oxa::parse_guid("{0154ac61-6a91-4795-9ca3-e7b6092fa95f}"), IID_IOXAContext);
  EXPECT_EQ(oxa::parse_guid("{0154AC61-6A91-4795-9CA3-E7B6092FA95F}"), IID_IOXAContext);
}

TEST(GuidTextTest, EveryIdSurvivesTheRoundTrip) {
  std::mt19937_64 random(1);
  for (int round = 0; round < 10000; ++round) {
    _GUID id{random() >> (round % 64),
             static_cast<unsigned short>(random()),
             static_cast<unsigned short>(random()),
             {}};
    for (unsigned char& byte : id.Data4) {
      byte = static_cast<unsigned char>(random());
    }
    ASSERT_EQ(oxa::parse_guid(oxa::to_string(id)), id) << oxa::to_string(id);
  }
}

TEST(GuidTextTest, EveryPrefixIsRefused) {
  const std::string whole = oxa::to_string(IID_IOXAContext);
  for (std::size_t length = 0; length < whole.size(); ++length) {
    EXPECT_FALSE(oxa::parse_guid(whole.substr(0, length))) << length;
  }
}

TEST(GuidTextTest, EveryWrongCharacterIsRefused) {
  const std::string whole = oxa::to_string(IID_IOXAContext);
  for (std::size_t position = 0; position < whole.size(); ++position) {
    for (const char wrong : {'G', ' ', '_', '\0'}) {
      std::string text = whole;
      text[position] = wrong;
      EXPECT_FALSE(oxa::parse_guid(text)) << text;
    }
  }
}

TEST(GuidTextTest, WhatFollowsTheBraceIsRefused) {
  EXPECT_FALSE(oxa::parse_guid(oxa::to_string(IID_IOXAContext) + " "));
  EXPECT_FALSE(oxa::parse_guid("{00000000000000000-0000-0000-0000-000000000000}"));
}

TEST(GuidTextTest, MakesConstants) {
  constexpr _GUID id = oxa::guid("{00000001-0002-0003-0405-060708090A0B}");
  static_assert(id.Data1 == 1 && id.Data2 == 2 && id.Data3 == 3 && id.Data4[7] == 11);
  EXPECT_THROW(static_cast<void>(oxa::guid("{}")), std::invalid_argument);
}

}  // namespace
