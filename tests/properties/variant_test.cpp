// Values of any data type, and the kinds they are stored under.
#include <gtest/gtest.h>
#include <oxa/OXAVariant.h>
#include <oxa/sdk/variant.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

using OXA::Property::DataType;
using Kind = OXAVariant::Kind;

namespace {

TEST(VariantKindTest, EveryDataTypeHasOne) {
  const std::uint32_t kinds[] = {
      0x400,   // Bool
      0x1000,  // String
      0x1,     // Char
      0x2,     // UnsignedChar
      0x10,    // Int
      0x40,    // UnsignedInt
      0x4,     // Short
      0x8,     // UnsignedShort
      0x20,    // LongLong
      0x80,    // UnsignedLongLong
      0x100,   // Float
      0x200,   // Double
      0x1000,  // Enum
      0x1000,  // Code
      0x1000,  // Hexadecimal
      0x1000,  // File
      0x1000,  // UserDefined
  };
  EXPECT_EQ(std::size(kinds), 17);
  for (std::size_t number = 0; number < std::size(kinds); ++number) {
    const auto type = static_cast<DataType>(number);
    EXPECT_EQ(static_cast<std::uint32_t>(oxa::kind_of(type)), kinds[number]) << number;
  }
}

TEST(VariantKindTest, WhatIsNoDataTypeHasNone) {
  for (const int number : {-1, 17, 18, 1000, std::numeric_limits<int>::min()}) {
    EXPECT_EQ(oxa::kind_of(DataType{number}), Kind::Nothing) << number;
  }
}

TEST(VariantKindTest, TheFlagsAreFixed) {
  EXPECT_EQ(static_cast<std::uint32_t>(Kind::Nothing), 0);
  EXPECT_EQ(static_cast<std::uint32_t>(Kind::Char), 0x1);
  EXPECT_EQ(static_cast<std::uint32_t>(Kind::UnsignedChar), 0x2);
  EXPECT_EQ(static_cast<std::uint32_t>(Kind::Short), 0x4);
  EXPECT_EQ(static_cast<std::uint32_t>(Kind::UnsignedShort), 0x8);
  EXPECT_EQ(static_cast<std::uint32_t>(Kind::Int), 0x10);
  EXPECT_EQ(static_cast<std::uint32_t>(Kind::LongLong), 0x20);
  EXPECT_EQ(static_cast<std::uint32_t>(Kind::UnsignedInt), 0x40);
  EXPECT_EQ(static_cast<std::uint32_t>(Kind::UnsignedLongLong), 0x80);
  EXPECT_EQ(static_cast<std::uint32_t>(Kind::Float), 0x100);
  EXPECT_EQ(static_cast<std::uint32_t>(Kind::Double), 0x200);
  EXPECT_EQ(static_cast<std::uint32_t>(Kind::Bool), 0x400);
  EXPECT_EQ(static_cast<std::uint32_t>(Kind::Text), 0x1000);
}

TEST(VariantTest, HoldsNothingAtFirst) {
  for (const OXAVariant& variant : std::vector<OXAVariant>(3)) {
    EXPECT_EQ(variant.kind, Kind::Nothing);
    EXPECT_EQ(variant.bits, 0);
    EXPECT_EQ(variant.text, "");
  }
}

TEST(VariantTest, ACopyHasAllMembers) {
  OXAVariant variant;
  variant.bits = 0x0123456789ABCDEF;
  variant.text = "a text that is longer than short ones";
  variant.kind = Kind::Text;
  const OXAVariant copy = variant;
  OXAVariant assigned;
  assigned = variant;
  for (const OXAVariant& each : {copy, assigned}) {
    EXPECT_EQ(each.bits, 0x0123456789ABCDEF);
    EXPECT_EQ(each.text, "a text that is longer than short ones");
    EXPECT_EQ(each.kind, Kind::Text);
  }
}

TEST(VariantTest, ACopyHasATextOfItsOwn) {
  OXAVariant variant;
  variant.text = "short";
  OXAVariant copy = variant;
  copy.text[0] = 'S';
  EXPECT_EQ(variant.text, "short");
  EXPECT_EQ(copy.text, "Short");
}

TEST(VariantTest, CanBeMoved) {
  OXAVariant variant;
  variant.double_value = 1.5;
  variant.text = "a text that is longer than short ones";
  variant.kind = Kind::Double;
  const OXAVariant moved = std::move(variant);
  EXPECT_EQ(moved.double_value, 1.5);
  EXPECT_EQ(moved.text, "a text that is longer than short ones");
  EXPECT_EQ(moved.kind, Kind::Double);
}

template <std::size_t Size>
std::string memory(const void* object) {
  return {static_cast<const char*>(object), Size};
}

// Stores a value in a member and expects it in the first bytes of the record, as it is in memory.
template <class Value>
void expect_at_the_beginning(Value OXAVariant::*member, Value value) {
  OXAVariant variant;
  variant.*member = value;
  EXPECT_EQ(memory<sizeof value>(&variant), memory<sizeof value>(&value));
}

TEST(VariantTest, TheScalarsShareOneCell) {
  expect_at_the_beginning(&OXAVariant::bool_value, true);
  expect_at_the_beginning(&OXAVariant::char_value, '\x81');
  expect_at_the_beginning<unsigned char>(&OXAVariant::unsigned_char_value, 0x82);
  expect_at_the_beginning<short>(&OXAVariant::short_value, -0x1234);
  expect_at_the_beginning<unsigned short>(&OXAVariant::unsigned_short_value, 0x8234);
  expect_at_the_beginning(&OXAVariant::int_value, -0x12345678);
  expect_at_the_beginning(&OXAVariant::unsigned_int_value, 0x82345678U);
  expect_at_the_beginning(&OXAVariant::long_long_value, -0x123456789ABCDEFLL);
  expect_at_the_beginning(&OXAVariant::unsigned_long_long_value, 0x823456789ABCDEF0ULL);
  expect_at_the_beginning(&OXAVariant::float_value, -1.5F);
  expect_at_the_beginning(&OXAVariant::double_value, -1.1);
}

}  // namespace
