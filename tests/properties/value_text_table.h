// Parsing and formatting as tests of them see it.
#pragma once

#include <cmath>
#include <cstdio>
#include <cstring>
#include <sstream>
#include <stdexcept>
#include <string>

#include "properties/value_text.h"
#include "support.h"
#include "support/random.h"

namespace oxa_test {

inline std::string formatted(DataType type, const OXAVariant& value) {
  std::string text = "what was there before, longer than any number that there is";
  format_value(type, value, text);
  return text;
}

// Parses a text and formats the value; "-" for a text that is refused.
inline std::string converted(DataType type, const char* text) {
  OXAVariant value;
  const OXAResult result = parse_value(type, text, value);
  EXPECT_TRUE(result == S_OK || result == E_INVALIDARG) << result;
  EXPECT_EQ(value.kind, result == S_OK ? oxa::kind_of(type) : Kind::Nothing);
  return result == S_OK ? formatted(type, value) : "-";
}

struct Conversion {
  DataType type;
  const char* text;
  std::string result;  // as `converted` gives it
};

template <class Table>
void expect_conversions(const Table& table) {
  for (const Conversion& each : table) {
    EXPECT_EQ(converted(each.type, each.text), each.result)
        << "from '" << each.text << "' as " << static_cast<int>(each.type);
  }
}

// What a stream writes that is made on the spot.
inline std::string streamed(double number, int precision) {
  std::ostringstream stream;
  stream.precision(precision);
  stream << number;
  return stream.str();
}

// Reals of several sorts: any bits, those of infinite values and of what is no number included; of
// a usual size; few binary digits, so that many lie halfway between two of as many decimal digits;
// few decimal digits; and next to powers of ten.
inline double any_real(Random& random) {
  const std::uint64_t bits = random.bits();
  const auto digits = static_cast<double>(bits >> 11U);
  const double sign = random.one_in(2) ? 1 : -1;
  switch (random.below(5)) {
    case 0: {
      double number = 0;
      std::memcpy(&number, &bits, sizeof number);
      return number;
    }
    case 1:
      return sign * std::ldexp(digits, -static_cast<int>(random.below(75)));
    case 2:
      return sign * std::ldexp(static_cast<double>(bits >> (11U + random.below(50))),
                               -static_cast<int>(random.below(40)));
    case 3:
      return sign * static_cast<double>(random.below(100000)) /
             std::pow(10.0, static_cast<double>(random.below(25)) - 12);
    default: {
      const double power = std::pow(10.0, static_cast<double>(random.below(26)) - 7);
      return sign * power * (1 + (static_cast<double>(random.below(9)) - 4) * 1.1e-16);
    }
  }
}

// Compares reals with what a stream writes, under whatever locale is the global one.
inline void expect_reals_as_streamed(int count) {
  Random random(3);
  for (int number = 0; number < count && !testing::Test::HasFailure(); ++number) {
    const double wide = any_real(random);
    ASSERT_EQ(formatted(DataType::Double, oxa::make_variant(wide)), streamed(wide, 16));
    const auto narrow = static_cast<float>(any_real(random));
    ASSERT_EQ(formatted(DataType::Float, oxa::make_variant(narrow)),
              streamed(static_cast<double>(narrow), 8));
  }
}

// Texts of which many are numbers, or nearly.
inline std::string any_text(Random& random) {
  static const char* const starts[] = {"",   "",   "",   "",   " ",  "\t",
                                       "\n", "\v", "\f", "\r", "  ", "x"};
  static const char* const signs[] = {"", "", "", "-", "+", "--", "+-", "- "};
  static const char* const pieces[] = {"0",
                                       "1",
                                       "7",
                                       "42",
                                       "127",
                                       "128",
                                       "255",
                                       "256",
                                       "32767",
                                       "32768",
                                       "65535",
                                       "65536",
                                       "2147483647",
                                       "2147483648",
                                       "2147483649",
                                       "4294967295",
                                       "4294967296",
                                       "9223372036854775807",
                                       "9223372036854775808",
                                       "9223372036854775809",
                                       "18446744073709551615",
                                       "18446744073709551616",
                                       "99999999999999999999999999",
                                       "0x",
                                       "0X1F",
                                       "0x1p-3",
                                       "1e5",
                                       "1E+5",
                                       "e",
                                       "e-400",
                                       "e400",
                                       "1e-310",
                                       "2.2250738585072014e-308",
                                       "4.9e-324",
                                       "1e-45",
                                       "1.1754944e-38",
                                       "3.4028235e38",
                                       "3.4028236e38",
                                       "1.7976931348623157e308",
                                       "1.7976931348623159e308",
                                       ".",
                                       ",",
                                       ".5",
                                       "0.1",
                                       "000",
                                       "inf",
                                       "INFINITY",
                                       "nan",
                                       "nan(7)",
                                       "NaN(",
                                       "true",
                                       "'",
                                       "1'000",
                                       "\xA0",
                                       "\xE2\x88\x92"};
  static const char* const ends[] = {"",  "",  "",   " ", "x", ".", ",5",
                                     "e", "1", "\n", "f", "L", "u"};
  std::string text = std::string(random.of(starts)) + random.of(signs);
  do {
    text += random.one_in(4) ? random.of(pieces) : std::to_string(random.below(1000));
  } while (random.one_in(3));
  return text + random.of(ends);
}

template <class Number>
std::string printed(const char* format, Number number) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, format, number);
  return buffer;
}

// A real as it is commonly written, with as many digits as there may be.
inline std::string real_text(Random& random) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, random.one_in(4) ? "%.*e" : "%.*g",
                static_cast<int>(random.below(22)), any_real(random));
  return buffer;
}

// Makes a value with one of the functions of the standard library, of no kind when it throws.
template <class Number, class Parse>
OXAVariant made(Parse parse) {
  try {
    return oxa::make_variant(static_cast<Number>(parse()));
  } catch (const std::logic_error&) {  // std::invalid_argument or std::out_of_range
    return OXAVariant();
  }
}

// What a text becomes by the functions of the standard library that stand for a data type.
inline OXAVariant expected_value(DataType type, const std::string& text) {
  const auto parse_int = [&text] { return std::stoi(text); };
  switch (type) {
    case DataType::Char:
      return made<char>(parse_int);
    case DataType::UnsignedChar:
      return made<unsigned char>(parse_int);
    case DataType::Short:
      return made<short>(parse_int);
    case DataType::UnsignedShort:
      return made<unsigned short>(parse_int);
    case DataType::Int:
      return made<int>([&] { return std::stol(text); });
    case DataType::UnsignedInt:
      return made<unsigned int>([&] { return std::stoul(text); });
    case DataType::LongLong:
      return made<long long>([&] { return std::stoll(text); });
    case DataType::UnsignedLongLong:
      return made<unsigned long long>([&] { return std::stoull(text); });
    case DataType::Float:
      return made<float>([&] { return std::stof(text); });
    default:
      return made<double>([&] { return std::stod(text); });
  }
}

inline const DataType numbers[] = {
    DataType::Char,  DataType::UnsignedChar, DataType::Short,    DataType::UnsignedShort,
    DataType::Int,   DataType::UnsignedInt,  DataType::LongLong, DataType::UnsignedLongLong,
    DataType::Float, DataType::Double};

// Compares what random texts are read as, bit by bit, with what the standard library reads, under
// whatever locale and rounding mode there is.
inline void expect_to_read_as_the_standard(int count) {
  Random random(4);
  int refused = 0;
  for (int number = 0; number < count && !testing::Test::HasFailure(); ++number) {
    const std::string text = random.one_in(2) ? any_text(random) : real_text(random);
    const DataType type = random.of(numbers);
    const OXAVariant expected = expected_value(type, text);
    OXAVariant value;
    const OXAResult result = parse_value(type, text.c_str(), value);
    ASSERT_EQ(result, expected.kind == Kind::Nothing ? E_INVALIDARG : S_OK) << text;
    ASSERT_EQ(value.kind, expected.kind);
    ASSERT_EQ(value.bits, expected.bits) << text << " as " << static_cast<int>(type);
    refused += result == S_OK ? 0 : 1;
  }
  EXPECT_GT(refused, count / 10);
  EXPECT_GT(count - refused, count / 2);
}

}  // namespace oxa_test
