// Numbers from text, by the rules of std::stoi and its kin.
#pragma once

#include <langinfo.h>

#include <cerrno>
#include <cfenv>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <system_error>
#include <type_traits>

// Tells whether the process reads and writes numbers as the functions of <charconv> do: rounding to
// nearest, and with a point.
inline bool rounds_to_nearest() { return std::fegetround() == FE_TONEAREST; }
inline bool reads_a_point() {
  const char* point = nl_langinfo(RADIXCHAR);
  return point[0] == '.' && point[1] == '\0';
}

// The short way for what numbers usually look like, which gives what the long way gives in a
// fraction of the time; false for all else, be it a number or not.
template <class Number>
bool read_plain(const char* text, Number& number) {
  const char* const end = text + std::strlen(text);
  const auto [rest, error] = std::from_chars(text, end, number);
  if (error != std::errc()) {
    return false;
  }
  if constexpr (std::is_floating_point_v<Number>) {
    // Near 0 and infinity the long way tells what is out of range.
    const bool normal =
        std::isfinite(number) && std::fabs(number) > std::numeric_limits<Number>::min();
    return rest == end && normal && rounds_to_nearest() && reads_a_point();
  }
  return true;
}

// Reads a number at the start of a text as std::stoi and its kin do, with a function of strtol's
// kin: white space before it and anything behind it are passed over. Kept: which white space and
// which decimal point is up to the process's locale, and a number so small that digits of it are
// lost is out of range (ValueTextTest.NumbersAreReadAsTheStandardLibraryDoes).
template <class Number, class Parse>
bool read_number(const char* text, Parse parse, Number& number) {
  if (text == nullptr) {
    return false;
  }
  if (read_plain(text, number)) {
    return true;
  }
  const int before = errno;
  errno = 0;
  char* end = nullptr;
  number = parse(text, &end);
  const bool in_range = errno != ERANGE;
  if (errno == 0) {
    errno = before;
  }
  return end != text && in_range;
}

// Reads an integer and stores as many of its bits as the member has. Kept: there is no check of the
// range (ValueTextTest.NarrowIntegersAreCutShort).
template <class Wide, class Narrow>
bool read_integer(const char* text, Wide (*parse)(const char*, char**, int), Narrow& member) {
  Wide number{};
  if (!read_number(
          text, [parse](const char* from, char** end) { return parse(from, end, 10); }, number)) {
    return false;
  }
  member = static_cast<Narrow>(number);
  return true;
}

// Small integers are read as an int, which they have to fit.
template <class Narrow>
bool read_small_integer(const char* text, Narrow& member) {
  long number = 0;
  if (!read_integer(text, std::strtol, number) || number < INT_MIN || number > INT_MAX) {
    return false;
  }
  member = static_cast<Narrow>(number);
  return true;
}

template <class Number>
bool read_real(const char* text, Number (*parse)(const char*, char**), Number& member) {
  Number number{};
  if (!read_number(text, parse, number)) {
    return false;
  }
  member = number;
  return true;
}
