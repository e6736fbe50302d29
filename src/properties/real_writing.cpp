#include "properties/real_writing.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cfenv>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <locale>
#include <sstream>
#include <utility>

namespace {

// In general notation with 16 digits a double has 23 characters.
constexpr std::size_t longest_number = 32;

__extension__ using uint128 = unsigned __int128;

// A number in decimal: digits[0] . digits[1] ... * 10^exponent.
struct decimal {
  std::uint64_t digits;
  int exponent;
};

constexpr std::uint64_t power_of_ten(int exponent) {
  std::uint64_t power = 1;
  for (; exponent > 0; --exponent) {
    power *= 10;
  }
  return power;
}

// Returns the exponent of the first digit of a number from 1e-4 to below 1e16.
int decimal_exponent(double size, int binary_exponent) {
  static constexpr double powers[] = {1e-4, 1e-3, 1e-2, 1e-1, 1e0,  1e1,  1e2,
                                      1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,
                                      1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16};
  // log10(2) is 0.30103; the estimate may be one too low.
  const int estimate = std::max(binary_exponent * 30103 / 100000 - (binary_exponent < 0), -4);
  return size >= powers[estimate + 5] ? estimate + 1 : estimate;
}

// Rounds a number from 1e-4 to below 10^(precision - 1) to so many digits, half to even. Its bits
// times a power of ten fit into 128 bits, so nothing is lost on the way.
decimal round_to_digits(double size, int precision) {
  static constexpr auto powers = [] {
    std::array<std::uint64_t, 20> all{};
    for (std::size_t at = 0; at < all.size(); ++at) {
      all[at] = power_of_ten(static_cast<int>(at));
    }
    return all;
  }();
  const auto bits = std::bit_cast<std::uint64_t>(size);
  const std::uint64_t mantissa = (bits & ((1ULL << 52U) - 1)) | 1ULL << 52U;
  const int binary_exponent = static_cast<int>(bits >> 52U) - 1023;
  const int exponent = decimal_exponent(size, binary_exponent);
  const uint128 scaled =
      uint128{mantissa} * powers[static_cast<std::size_t>(precision - 1 - exponent)];
  const auto shift = static_cast<unsigned>(52 - binary_exponent);
  const uint128 half = uint128{1} << shift >> 1U;
  auto digits = static_cast<std::uint64_t>(scaled >> shift);
  const uint128 rest = scaled - (uint128{digits} << shift);
  digits += rest > half || (rest == half && rest != 0 && digits % 2 != 0) ? 1 : 0;
  if (digits == powers[static_cast<std::size_t>(precision)]) {
    return {digits / 10, exponent + 1};
  }
  return {digits, exponent};
}

// Writes what "%.*g" writes for a number that needs no exponent and has digits behind the point
// left, in a third of the time that std::to_chars takes with a precision; null for any other
// number.
char* write_plain(double number, int precision, char* to) {
  const double size = std::fabs(number);
  if (!(size >= 1e-4 && size < static_cast<double>(power_of_ten(precision - 1)))) {
    return nullptr;
  }
  const decimal rounded = round_to_digits(size, precision);
  char digits[longest_number];
  char* end = std::to_chars(digits, digits + sizeof digits, rounded.digits).ptr;
  const char* const first_fraction = digits + std::max(rounded.exponent + 1, 0);
  while (end > first_fraction && end[-1] == '0') {
    --end;
  }
  if (number < 0) {
    *to++ = '-';
  }
  if (rounded.exponent < 0) {
    to = std::copy_n("0.000", 1 - rounded.exponent, to);
    return std::copy(digits, end, to);
  }
  to = std::copy(static_cast<const char*>(digits), first_fraction, to);
  if (end > first_fraction) {
    *to++ = '.';
    to = std::copy(first_fraction, static_cast<const char*>(end), to);
  }
  return to;
}

}  // namespace

// Writes what a fresh stream writes. Kept: that is up to the global C++ locale, unlike all other
// numbers (ValueTextTest.RealsAreWrittenByTheGlobalLocale). In the classic one, the functions of
// <charconv> give the same characters in less time.
void write_real(double number, int precision, std::string& text) {
  const std::locale global;
  if (global == std::locale::classic() && std::fegetround() == FE_TONEAREST) {
    char buffer[longest_number];
    char* end = write_plain(number, precision, buffer);
    if (end == nullptr) {
      end = std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::general,
                          precision)
                .ptr;
    }
    text.assign(buffer, end);
    return;
  }
  std::ostringstream stream;
  stream.exceptions(std::ios::badbit);
  stream.precision(precision);
  stream << number;
  text = std::move(stream).str();
}
