// Making variants, and reading them.
#include <oxa/sdk/variant.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "support/allocations.h"

using OXA::Property::DataType;
using Kind = OXAVariant::Kind;

namespace {

// A C++ type, and the data type whose values are stored as it.
template <class Value, DataType Type>
struct Stored {
  using value = Value;
  static constexpr Kind kind = oxa::kind_of(Type);
};

using AllStored =
    std::tuple<Stored<bool, DataType::Bool>, Stored<char, DataType::Char>,
               Stored<unsigned char, DataType::UnsignedChar>, Stored<short, DataType::Short>,
               Stored<unsigned short, DataType::UnsignedShort>, Stored<int, DataType::Int>,
               Stored<unsigned int, DataType::UnsignedInt>, Stored<long long, DataType::LongLong>,
               Stored<unsigned long long, DataType::UnsignedLongLong>,
               Stored<float, DataType::Float>, Stored<double, DataType::Double>,
               Stored<std::string, DataType::String>>;

// Calls `operation` with each of them.
template <class Operation>
void for_each_stored(Operation operation) {
  std::apply([&](auto... stored) { (operation(stored), ...); }, AllStored());
}

template <class Value>
Value some_value() {
  if constexpr (std::is_same_v<Value, std::string>) {
    return "a text that is longer than short ones";
  } else {
    return std::numeric_limits<Value>::max();
  }
}

TEST(MakeVariantTest, TheKindIsThatOfTheCppType) {
  for_each_stored([](auto stored) {
    using Value = typename decltype(stored)::value;
    EXPECT_EQ(oxa::make_variant(some_value<Value>()).kind, stored.kind);
    EXPECT_EQ(oxa::make_variant(Value()).kind, stored.kind);
  });
}

TEST(MakeVariantTest, TheMemberIsThatOfTheCppType) {
  EXPECT_EQ(oxa::make_variant(true).bool_value, true);
  EXPECT_EQ(oxa::make_variant('\x81').char_value, '\x81');
  EXPECT_EQ(oxa::make_variant<unsigned char>(0x82).unsigned_char_value, 0x82);
  EXPECT_EQ(oxa::make_variant<short>(-3).short_value, -3);
  EXPECT_EQ(oxa::make_variant<unsigned short>(0x8003).unsigned_short_value, 0x8003);
  EXPECT_EQ(oxa::make_variant(-4).int_value, -4);
  EXPECT_EQ(oxa::make_variant(0x80000004U).unsigned_int_value, 0x80000004U);
  EXPECT_EQ(oxa::make_variant(-5LL).long_long_value, -5);
  EXPECT_EQ(oxa::make_variant(0x8000000000000005ULL).unsigned_long_long_value,
            0x8000000000000005ULL);
  EXPECT_EQ(oxa::make_variant(-1.5F).float_value, -1.5F);
  EXPECT_EQ(oxa::make_variant(-1.1).double_value, -1.1);
  EXPECT_EQ(oxa::make_variant(std::string("a\0b", 3)).text, std::string("a\0b", 3));
  EXPECT_EQ(oxa::make_variant("a").text, "a");
}

TEST(MakeVariantTest, TheOtherMembersAreEmpty) {
  EXPECT_EQ(oxa::make_variant(-1).bits, 0xFFFFFFFF);
  EXPECT_EQ(oxa::make_variant('\xFF').bits, 0xFF);
  EXPECT_EQ(oxa::make_variant(1.5).text, "");
  EXPECT_EQ(oxa::make_variant("a").bits, 0);
}

TEST(MakeVariantTest, MovesATextIn) {
  std::string text = "a text that is longer than short ones";
  const char* const characters = text.data();
  const unsigned long before = oxa_test::made_allocations();
  EXPECT_EQ(oxa::make_variant(std::move(text)).text.data(), characters);
  EXPECT_EQ(oxa_test::made_allocations(), before);
}

TEST(MakeVariantTest, ThrowsForWantOfMemory) {
  const unsigned long failures = oxa_test::fail_each_allocation([] {
    try {
      oxa::make_variant("a text that is longer than short ones");
      EXPECT_FALSE(oxa_test::FailingAllocation::happened());
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(oxa_test::FailingAllocation::happened());
    }
  });
  EXPECT_GE(failures, 1U);
}

TEST(ValueOfTest, GivesWhatWasPutIn) {
  for_each_stored([](auto stored) {
    using Value = typename decltype(stored)::value;
    EXPECT_EQ(oxa::value_of<Value>(oxa::make_variant(some_value<Value>())), some_value<Value>());
    EXPECT_EQ(oxa::value_of<Value>(oxa::make_variant(Value())), Value());
  });
  EXPECT_EQ(oxa::value_of<std::string>(oxa::make_variant("a")), "a");
}

TEST(ValueOfTest, GivesNothingOfAnotherKind) {
  for_each_stored([](auto stored) {
    for_each_stored([&](auto other) {
      using Value = typename decltype(stored)::value;
      using Other = typename decltype(other)::value;
      const OXAVariant variant = oxa::make_variant(some_value<Other>());
      EXPECT_EQ(oxa::value_of<Value>(variant).has_value(), (std::is_same_v<Value, Other>));
    });
  });
}

TEST(ValueOfTest, GivesNothingOfAKindThatIsNone) {
  for (const Kind kind : {Kind::Nothing, Kind{0x800}, Kind{0x30}, Kind{0xFFFFFFFF}}) {
    OXAVariant variant = oxa::make_variant("a");
    variant.bits = 1;
    variant.kind = kind;
    for_each_stored([&](auto stored) {
      EXPECT_FALSE(oxa::value_of<typename decltype(stored)::value>(variant));
    });
  }
}

TEST(ValueOfTest, TheValueIsACopy) {
  OXAVariant variant = oxa::make_variant("a");
  const auto value = oxa::value_of<std::string>(variant);
  variant.text = "b";
  EXPECT_EQ(value, "a");
}

TEST(KindOfTest, IsKnownToTheCompiler) {
  static_assert(oxa::kind_of(DataType::Int) == Kind::Int);
  static_assert(oxa::kind_of(DataType::Enum) == Kind::Text);
  static_assert(oxa::kind_of(OXA::Property::NoDataType) == Kind::Nothing);
  for (const DataType type : {DataType::Enum, DataType::Code, DataType::Hexadecimal, DataType::File,
                              DataType::UserDefined}) {
    EXPECT_EQ(oxa::kind_of(type), oxa::make_variant("").kind);
  }
}

}  // namespace
