// Values and data types as they lie in memory.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>
#include <utility>

#include <oxa/IOXADiagnosticsManager.h>
#include <oxa/IOXAProperty.h>
#include <oxa/OXAVariant.h>
#include <oxa/data_type.h>
#include <oxa/diagnostic_types.h>

namespace {

using OXA::Property::DataType;

TEST(ValueLayoutTest, Variant) {
  EXPECT_EQ(sizeof(OXAVariant), 48);
  EXPECT_EQ(alignof(OXAVariant), 8);
  EXPECT_EQ(offsetof(OXAVariant, bits), 0);
  EXPECT_EQ(offsetof(OXAVariant, text), 8);
  EXPECT_EQ(offsetof(OXAVariant, kind), 40);
  EXPECT_EQ(sizeof(OXAVariant::bits), 8);
  EXPECT_EQ(sizeof(OXAVariant::text), 32);
  EXPECT_EQ(sizeof(OXAVariant::kind), 4);
}

TEST(ValueLayoutTest, AVariantWithoutAValueIsAllZerosAroundItsText) {
  const OXAVariant variant;
  const char* const bytes = reinterpret_cast<const char*>(&variant);
  EXPECT_EQ(std::string(bytes, 8), std::string(8, '\0'));
  EXPECT_EQ(std::string(bytes + 40, 4), std::string(4, '\0'));
  EXPECT_EQ(variant.text, "");
}

// Returns the bytes of a cell in which a member was stored.
template <class Member>
std::string stored(Member OXAVariant::*member, Member value) {
  OXAVariant variant;
  variant.*member = value;
  return {reinterpret_cast<const char*>(&variant), 8};
}

// Returns what a member reads from a cell of these bytes.
template <class Member>
Member read(Member OXAVariant::*member, const std::string& bytes) {
  OXAVariant variant;
  std::memcpy(static_cast<void*>(&variant), bytes.data(), 8);
  return variant.*member;
}

template <class Member>
void expect_at_the_start(Member OXAVariant::*member, Member value, const std::string& bytes) {
  const std::string cell = bytes + std::string(8 - bytes.size(), '\0');
  EXPECT_EQ(sizeof(Member), bytes.size());
  EXPECT_EQ(stored(member, value).substr(0, bytes.size()), bytes);
  EXPECT_EQ(read(member, cell), value);
}

TEST(ValueLayoutTest, IntegersLieAtTheStartOfTheCell) {
  expect_at_the_start(&OXAVariant::bool_value, true, "\x01");
  expect_at_the_start(&OXAVariant::char_value, 'A', "A");
  expect_at_the_start<unsigned char>(&OXAVariant::unsigned_char_value, 0xFE, "\xFE");
  expect_at_the_start<short>(&OXAVariant::short_value, -2, "\xFE\xFF");
  expect_at_the_start<unsigned short>(&OXAVariant::unsigned_short_value, 0x0102, "\x02\x01");
  expect_at_the_start(&OXAVariant::int_value, -2, "\xFE\xFF\xFF\xFF");
  expect_at_the_start(&OXAVariant::unsigned_int_value, 0x01020304U, "\x04\x03\x02\x01");
  expect_at_the_start(&OXAVariant::long_long_value, -2LL, "\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF");
  expect_at_the_start(&OXAVariant::unsigned_long_long_value, 0x0102030405060708ULL,
                      "\x08\x07\x06\x05\x04\x03\x02\x01");
}

TEST(ValueLayoutTest, FloatingPointNumbersLieAtTheStartOfTheCell) {
  using namespace std::string_literals;
  expect_at_the_start(&OXAVariant::float_value, -1.5F, "\x00\x00\xC0\xBF"s);
  expect_at_the_start(&OXAVariant::double_value, -1.5, "\x00\x00\x00\x00\x00\x00\xF8\xBF"s);
}

TEST(ValueLayoutTest, TheTextIsAStringThatCopiesHaveOfTheirOwn) {
  OXAVariant variant;
  void* const middle = reinterpret_cast<char*>(&variant) + 8;
  *static_cast<std::string*>(middle) = "a text that is long enough to need memory";
  const OXAVariant copy = variant;
  variant.text = "another";
  EXPECT_EQ(copy.text, "a text that is long enough to need memory");
}

template <class Enumeration>
using Numbers = std::pair<Enumeration, std::underlying_type_t<Enumeration>>;

TEST(ValueLayoutTest, Kinds) {
  using Kind = OXAVariant::Kind;
  static_assert(std::is_same_v<std::underlying_type_t<Kind>, std::uint32_t>);
  const Numbers<Kind> kinds[] = {
      {Kind::Nothing, 0},     {Kind::Char, 0x1},          {Kind::UnsignedChar, 0x2},
      {Kind::Short, 0x4},     {Kind::UnsignedShort, 0x8}, {Kind::Int, 0x10},
      {Kind::LongLong, 0x20}, {Kind::UnsignedInt, 0x40},  {Kind::UnsignedLongLong, 0x80},
      {Kind::Float, 0x100},   {Kind::Double, 0x200},      {Kind::Bool, 0x400},
      {Kind::Text, 0x1000}};
  for (const auto& [kind, number] : kinds) {
    OXAVariant variant;
    variant.kind = kind;
    std::uint32_t held = 0;
    std::memcpy(&held, reinterpret_cast<const char*>(&variant) + 40, sizeof held);
    EXPECT_EQ(held, number);
  }
}

TEST(ValueLayoutTest, DataTypes) {
  static_assert(std::is_same_v<std::underlying_type_t<DataType>, std::int32_t>);
  const Numbers<DataType> types[] = {{OXA::Property::NoDataType, -1},
                                     {DataType::Bool, 0},
                                     {DataType::String, 1},
                                     {DataType::Char, 2},
                                     {DataType::UnsignedChar, 3},
                                     {DataType::Int, 4},
                                     {DataType::UnsignedInt, 5},
                                     {DataType::Short, 6},
                                     {DataType::UnsignedShort, 7},
                                     {DataType::LongLong, 8},
                                     {DataType::UnsignedLongLong, 9},
                                     {DataType::Float, 10},
                                     {DataType::Double, 11},
                                     {DataType::Enum, 12},
                                     {DataType::Code, 13},
                                     {DataType::Hexadecimal, 14},
                                     {DataType::File, 15},
                                     {DataType::UserDefined, 16}};
  for (const auto& [type, number] : types) {
    std::int32_t held = 0;
    std::memcpy(&held, &type, sizeof held);
    EXPECT_EQ(held, number);
  }
}

template <class Enumeration>
void expect_signed_32_bits() {
  EXPECT_EQ(sizeof(Enumeration), 4);
  EXPECT_TRUE((std::is_same_v<std::underlying_type_t<Enumeration>, std::int32_t>));
  EXPECT_EQ(static_cast<int>(Enumeration{}), 0);
}

TEST(ValueLayoutTest, EnumerationsOfTheApplicationHave32Bits) {
  expect_signed_32_bits<OXA::Property::Type>();
  expect_signed_32_bits<OXA::Diagnostics::Severity>();
  expect_signed_32_bits<OXA::Diagnostics::Type>();
  expect_signed_32_bits<IOXADiagnosticsManager::Operation>();
}

}  // namespace
