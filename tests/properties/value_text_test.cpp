// Values of properties as text, in both directions.
#include "properties/real_writing.h"
#include "value_text_table.h"

#include <cerrno>
#include <cfenv>
#include <cmath>
#include <limits>

using namespace oxa_test;

namespace {

TEST(ValueTextTest, BoolsAreWrittenInFourWays) {
  const Conversion conversions[] = {
      {DataType::Bool, "true", "true"},   {DataType::Bool, "1", "true"},
      {DataType::Bool, "false", "false"}, {DataType::Bool, "0", "false"},
      {DataType::Bool, "TRUE", "-"},      {DataType::Bool, "True", "-"},
      {DataType::Bool, "False", "-"},     {DataType::Bool, " true", "-"},
      {DataType::Bool, "true ", "-"},     {DataType::Bool, "tru", "-"},
      {DataType::Bool, "truee", "-"},     {DataType::Bool, "01", "-"},
      {DataType::Bool, "10", "-"},        {DataType::Bool, "00", "-"},
      {DataType::Bool, "2", "-"},         {DataType::Bool, "-1", "-"},
      {DataType::Bool, "+1", "-"},        {DataType::Bool, "1.0", "-"},
      {DataType::Bool, "yes", "-"},       {DataType::Bool, "", "-"},
  };
  expect_conversions(conversions);
}

TEST(ValueTextTest, TextsAreCopied) {
  for (const DataType type : data_types) {
    if (oxa::kind_of(type) == Kind::Text) {
      for (const char* text :
           {"", " ", "red", " 12x", "0x1F", "true", "\t\n", "\xC3\xA4\xFF", "a::b$c", long_text}) {
        EXPECT_EQ(converted(type, text), text);
      }
    }
  }
}

// What all integers have in common.
TEST(ValueTextTest, IntegersAreReadFromTheStartOfTheText) {
  const std::pair<const char*, const char*> conversions[] = {
      {"0", "0"},
      {"42", "42"},
      {"+42", "42"},
      {"007", "7"},
      {"  42", "42"},
      {"\t\n\v\f\r 42", "42"},
      {"42 ", "42"},
      {"42x", "42"},
      {"42 43", "42"},
      {"4,2", "4"},
      {"4.9", "4"},
      {"1e3", "1"},
      {"0x1F", "0"},
      {"-0", "0"},
      {"12\n", "12"},
      {"", "-"},
      {" ", "-"},
      {"x42", "-"},
      {"-", "-"},
      {"+", "-"},
      {"--1", "-"},
      {"+-1", "-"},
      {"- 1", "-"},
      {".5", "-"},
      {"inf", "-"},
      {"nan", "-"},
      {"true", "-"},
      {"\xA0"
       "1",
       "-"},
      {"e5", "-"},
      {"$1", "-"},
      {"(1)", "-"},
      {"99999999999999999999", "-"},
      {"-99999999999999999999", "-"},
      {"000000000000000000000000000000000000000000000000000000000000000000000042", "42"},
  };
  for (const DataType type : numbers) {
    if (type < DataType::Float) {
      for (const auto& [text, result] : conversions) {
        EXPECT_EQ(converted(type, text), result) << text << " " << static_cast<int>(type);
      }
    }
  }
}

TEST(ValueTextTest, NarrowIntegersAreCutShort) {
  const Conversion conversions[] = {
      {DataType::Char, "300", "44"},
      {DataType::Char, "127", "127"},
      {DataType::Char, "128", "-128"},
      {DataType::Char, "255", "-1"},
      {DataType::Char, "-128", "-128"},
      {DataType::Char, "-129", "127"},
      {DataType::UnsignedChar, "255", "255"},
      {DataType::UnsignedChar, "256", "0"},
      {DataType::UnsignedChar, "-1", "255"},
      {DataType::Short, "32767", "32767"},
      {DataType::Short, "32768", "-32768"},
      {DataType::Short, "65536", "0"},
      {DataType::Short, "-32769", "32767"},
      {DataType::UnsignedShort, "65535", "65535"},
      {DataType::UnsignedShort, "65536", "0"},
      {DataType::UnsignedShort, "-1", "65535"},
      {DataType::Int, "2147483647", "2147483647"},
      {DataType::Int, "2147483648", "-2147483648"},
      {DataType::Int, "4294967297", "1"},
      {DataType::Int, "-2147483649", "2147483647"},
      {DataType::UnsignedInt, "4294967295", "4294967295"},
      {DataType::UnsignedInt, "4294967296", "0"},
      {DataType::UnsignedInt, "4294967338", "42"},
      {DataType::UnsignedInt, "-1", "4294967295"},
  };
  expect_conversions(conversions);
}

// The limits are those of what is parsed: an int for the small ones, 64 bits for the others.
TEST(ValueTextTest, IntegersHaveTheLimitsOfWhatTheyAreParsedAs) {
  for (const DataType type :
       {DataType::Char, DataType::UnsignedChar, DataType::Short, DataType::UnsignedShort}) {
    EXPECT_NE(converted(type, "2147483647"), "-");
    EXPECT_EQ(converted(type, "2147483648"), "-");
    EXPECT_NE(converted(type, "-2147483648"), "-");
    EXPECT_EQ(converted(type, "-2147483649"), "-");
  }
  const Conversion conversions[] = {
      {DataType::Int, "9223372036854775807", "-1"},
      {DataType::Int, "9223372036854775808", "-"},
      {DataType::Int, "-9223372036854775808", "0"},
      {DataType::Int, "-9223372036854775809", "-"},
      {DataType::UnsignedInt, "18446744073709551615", "4294967295"},
      {DataType::UnsignedInt, "18446744073709551616", "-"},
      {DataType::UnsignedInt, "-18446744073709551615", "1"},
      {DataType::UnsignedInt, "-18446744073709551616", "-"},
      {DataType::LongLong, "9223372036854775807", "9223372036854775807"},
      {DataType::LongLong, "9223372036854775808", "-"},
      {DataType::LongLong, "-9223372036854775808", "-9223372036854775808"},
      {DataType::LongLong, "-9223372036854775809", "-"},
      {DataType::UnsignedLongLong, "18446744073709551615", "18446744073709551615"},
      {DataType::UnsignedLongLong, "18446744073709551616", "-"},
      {DataType::UnsignedLongLong, "-1", "18446744073709551615"},
      {DataType::UnsignedLongLong, "-18446744073709551615", "1"},
      {DataType::UnsignedLongLong, "-18446744073709551616", "-"},
  };
  expect_conversions(conversions);
}

// What both kinds of reals have in common.
TEST(ValueTextTest, RealsAreReadFromTheStartOfTheText) {
  const std::pair<const char*, const char*> conversions[] = {
      {"0", "0"},
      {"-0", "-0"},
      {"0.1", "0.1"},
      {".5", "0.5"},
      {"5.", "5"},
      {"+1.5", "1.5"},
      {" \t\n\v\f\r1.5", "1.5"},
      {"1.5x", "1.5"},
      {"1.5 2", "1.5"},
      {"1,5", "1"},
      {"1e3", "1000"},
      {"25E-2", "0.25"},
      {"1e", "1"},
      {"1e+", "1"},
      {"1e20", "1e+20"},
      {"0.5e+1", "5"},
      {"0x1F", "31"},
      {"0x1.8p1", "3"},
      {"0x", "0"},
      {"0xg", "0"},
      {"inf", "inf"},
      {"-inf", "-inf"},
      {"INFINITY", "inf"},
      {"infinit", "inf"},
      {"nan", "nan"},
      {"NAN", "nan"},
      {"-nan", "-nan"},
      {"nan(12)x", "nan"},
      {"nan(", "nan"},
      {"1.2.3", "1.2"},
      {"100000000", "1e+08"},
      {"12345678", "12345678"},
      {"", "-"},
      {" ", "-"},
      {".", "-"},
      {"-", "-"},
      {"--1", "-"},
      {"- 1", "-"},
      {"x", "-"},
      {"e5", "-"},
      {"in", "-"},
      {"na", "-"},
      {",5", "-"},
      {"true", "-"},
      {"1e400", "-"},
      {"-1e400", "-"},
      {"1e-400", "-"},
      {"0e400", "0"},
      {"1f", "1"},
  };
  for (const auto& [text, result] : conversions) {
    EXPECT_EQ(converted(DataType::Float, text), result) << text;
    const std::string wide = text == std::string("100000000") ? text : result;
    EXPECT_EQ(converted(DataType::Double, text), wide) << text;
  }
}

TEST(ValueTextTest, RealsHaveLimitsAndDigits) {
  const Conversion conversions[] = {
      {DataType::Float, "3.4028235e38", "3.4028235e+38"},
      {DataType::Float, "3.4028236e38", "-"},
      {DataType::Float, "-3.4028236e38", "-"},
      {DataType::Float, "1.17549435e-38", "1.1754944e-38"},
      {DataType::Float, "1.1e-39", "-"},
      {DataType::Float, "1e-45", "-"},
      {DataType::Float, "0.123456789", "0.12345679"},
      {DataType::Float, "0.01", "0.0099999998"},
      {DataType::Double, "0.01", "0.01"},
      {DataType::Double, "1e-5", "1e-05"},
      {DataType::Float, "16777217", "16777216"},
      {DataType::Float, "123456789", "1.2345679e+08"},
      {DataType::Double, "1.7976931348623157e308", "1.797693134862316e+308"},
      {DataType::Double, "1.7976931348623159e308", "-"},
      {DataType::Double, "-1.7976931348623159e308", "-"},
      {DataType::Double, "2.2250738585072014e-308", "2.225073858507201e-308"},
      {DataType::Double, "2.2250738585072011e-308", "-"},
      {DataType::Double, "4.9e-324", "-"},
      {DataType::Double, "1e-310", "-"},
      {DataType::Double, "0.12345678901234567", "0.1234567890123457"},
      {DataType::Double, "1234567890123456", "1234567890123456"},
      {DataType::Double, "12345678901234567", "1.234567890123457e+16"},
      {DataType::Double, "3.14159265358979323846264338327950288419716939937510582097494459230781",
       "3.141592653589793"},
  };
  expect_conversions(conversions);
}

// A denormal that is hit exactly has lost no digits.
TEST(ValueTextTest, AnExactDenormalIsInRange) {
  EXPECT_EQ(converted(DataType::Double, "0x1p-1074"), "4.940656458412465e-324");
  EXPECT_EQ(converted(DataType::Float, "0x1p-149"), "1.4012985e-45");
  EXPECT_EQ(converted(DataType::Double, "0x1.8p-1074"), "-");
}

TEST(ValueTextTest, DigitsHaveNoLimit) {
  const std::string zeros(100000, '0');
  const std::string nines(100000, '9');
  EXPECT_EQ(converted(DataType::Int, (zeros + "7").c_str()), "7");
  EXPECT_EQ(converted(DataType::Int, nines.c_str()), "-");
  EXPECT_EQ(converted(DataType::Double, nines.c_str()), "-");
  EXPECT_EQ(converted(DataType::Double, ("0." + nines).c_str()), "1");
  EXPECT_EQ(converted(DataType::Double, (zeros + "." + zeros + "x").c_str()), "0");
  EXPECT_EQ(converted(DataType::Float, ("0." + zeros + "1e100001").c_str()), "1");
}

TEST(ValueTextTest, NumbersAreReadAsTheStandardLibraryDoes) {
  expect_to_read_as_the_standard(runs(200000));
}

TEST(ValueTextTest, RealsAreWrittenAsStreamsDo) { expect_reals_as_streamed(runs(50000)); }

class RoundingMode {
 public:
  explicit RoundingMode(int mode) { std::fesetround(mode); }
  RoundingMode(const RoundingMode&) = delete;
  RoundingMode& operator=(const RoundingMode&) = delete;
  ~RoundingMode() { std::fesetround(FE_TONEAREST); }
};

TEST(ValueTextTest, TheRoundingModeHolds) {
  for (const int mode : {FE_DOWNWARD, FE_UPWARD, FE_TOWARDZERO}) {
    const RoundingMode rounding(mode);
    expect_to_read_as_the_standard(runs(10000));
    expect_reals_as_streamed(runs(5000));
  }
}

template <class Number>
void expect_printed(DataType type, const char* format) {
  Random random(5);
  const Number ends[] = {0, 1, std::numeric_limits<Number>::min(),
                         std::numeric_limits<Number>::max()};
  for (std::size_t count = 0; count < 2000; ++count) {
    const Number number =
        count < std::size(ends) ? ends[count] : static_cast<Number>(random.bits() >> (count % 64));
    ASSERT_EQ(formatted(type, oxa::make_variant(number)), printed(format, number));
  }
}

TEST(ValueTextTest, IntegersAreWrittenInDecimal) {
  expect_printed<char>(DataType::Char, "%d");
  expect_printed<unsigned char>(DataType::UnsignedChar, "%d");
  expect_printed<short>(DataType::Short, "%d");
  expect_printed<unsigned short>(DataType::UnsignedShort, "%d");
  expect_printed<int>(DataType::Int, "%d");
  expect_printed<unsigned int>(DataType::UnsignedInt, "%u");
  expect_printed<long long>(DataType::LongLong, "%lld");
  expect_printed<unsigned long long>(DataType::UnsignedLongLong, "%llu");
}

TEST(ValueTextTest, RealsAtTheEdgesAreWrittenAsStreamsDo) {
  const double edges[] = {0.0,
                          -0.0,
                          1e15,
                          1e16,
                          1e17,
                          1e-4,
                          1e-5,
                          0.1,
                          1e20,
                          1e7,
                          1e8,
                          123456.75,
                          HUGE_VAL,
                          -HUGE_VAL,
                          5e-324,
                          1.7976931348623157e308,
                          0.99999999999999989,
                          9999999999999998.0,
                          99999999.5,
                          999999995.0};
  for (const double number : edges) {
    EXPECT_EQ(formatted(DataType::Double, oxa::make_variant(number)), streamed(number, 16));
    const auto narrow = static_cast<float>(number);
    EXPECT_EQ(formatted(DataType::Float, oxa::make_variant(narrow)),
              streamed(static_cast<double>(narrow), 8));
  }
  EXPECT_EQ(formatted(DataType::Double, oxa::make_variant(0.1)), "0.1");
  EXPECT_EQ(formatted(DataType::Float, oxa::make_variant(0.1F)), "0.1");
  EXPECT_EQ(formatted(DataType::Double, oxa::make_variant(1e20)), "1e+20");
}

TEST(ValueTextTest, ATextIsWrittenWithItsZeroBytes) {
  const std::string text("a\0b\0", 4);
  EXPECT_EQ(formatted(DataType::Code, oxa::make_variant(text)), text);
}

TEST(ValueTextTest, OnlyItsMemberIsWritten) {
  for (const DataType type : numbers) {
    OXAVariant value;
    value.bits = ~std::uint64_t{0};
    value.text = "kept";
    EXPECT_EQ(parse_value(type, "0", value), S_OK);
    EXPECT_EQ(formatted(type, value), "0");
    EXPECT_EQ(value.text, "kept");
  }
}

TEST(ValueTextTest, WhatIsRefusedLeavesTheValue) {
  for (const DataType type : data_types) {
    if (oxa::kind_of(type) != Kind::Text) {
      for (const char* text : {"", "x", "1e9999999", "99999999999999999999999x", "2 "}) {
        OXAVariant value = oxa::make_variant("kept");
        value.bits = 0x0123456789ABCDEF;
        if (parse_value(type, text, value) != S_OK) {
          EXPECT_EQ(value.bits, 0x0123456789ABCDEF);
          EXPECT_EQ(value.kind, Kind::Text);
        }
        EXPECT_EQ(value.text, "kept");
      }
    }
  }
}

TEST(ValueTextTest, ANullTextLeavesTheValue) {
  for (const DataType type : data_types) {
    OXAVariant value = oxa::make_variant(0x12345678);
    EXPECT_EQ(parse_value(type, nullptr, value),
              oxa::kind_of(type) == Kind::Text ? S_OK : E_INVALIDARG);
    EXPECT_EQ(value.kind, Kind::Int);
    EXPECT_EQ(value.bits, 0x12345678);
  }
}

TEST(ValueTextTest, WhatIsNoDataTypeTakesNoText) {
  for (const DataType type : no_data_types) {
    OXAVariant value = oxa::make_variant(5);
    EXPECT_EQ(parse_value(type, "1", value), E_UNEXPECTED);
    EXPECT_EQ(parse_value(type, nullptr, value), E_UNEXPECTED);
    EXPECT_EQ(value.int_value, 5);
  }
}

TEST(ValueTextTest, AnErrorNumberFromBeforeIsNoConcern) {
  OXAVariant value;
  errno = ERANGE;
  EXPECT_EQ(parse_value(DataType::Int, "5", value), S_OK);
  EXPECT_EQ(errno, ERANGE);
  errno = 0;
  EXPECT_EQ(parse_value(DataType::Double, "1.5", value), S_OK);
  EXPECT_EQ(errno, 0);
}

struct Tested {
  std::string_view text;
  bool storable;
};

TEST(ValueTextTest, ATextNeedsACharacterThatIsNotBlank) {
  using namespace std::string_view_literals;
  const Tested texts[] = {{"", false},    {" \t\n\r\0"sv, false}, {"\0"sv, false}, {"   ", false},
                          {" \ta", true}, {"\0a"sv, true},        {"\v", true},    {"\f", true},
                          {"\x7F", true}, {"\x80", true},         {"0", true},     {"\r\n.", true}};
  for (const Tested& each : texts) {
    EXPECT_EQ(test_string(each.text), each.storable) << each.text;
  }
}

// Digits that are all nines give one digit more.
TEST(ValueTextTest, RoundingMayCarryIntoAnotherDigit) {
  const struct {
    double number;
    const char* text;
  } cases[] = {
      {9.999999999, "10"},         {99.999999999, "100"},          {0.9999999999, "1"},
      {0.00099999999999, "0.001"}, {-999999.99999999, "-1000000"}, {9999999.9999999, "10000000"}};
  std::string text;
  for (const auto& each : cases) {
    write_real(each.number, 8, text);
    EXPECT_EQ(text, each.text);
  }
}

}  // namespace
