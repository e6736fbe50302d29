#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <locale>
#include <string>
#include <string_view>

#include "properties/model/program.h"
#include "properties/model/value_text_program.h"
#include "xml/model/random_documents.h"

namespace oxa_test::model {
namespace {

std::string random_text(Random& random) {
  static constexpr std::string_view tokens[] = {"1",
                                                "9",
                                                "0",
                                                "-",
                                                "+",
                                                ".",
                                                "e",
                                                "E",
                                                "0x",
                                                "x",
                                                "p",
                                                " ",
                                                "\t",
                                                "\v",
                                                "\n",
                                                "inf",
                                                "nan",
                                                "true",
                                                "false",
                                                ",",
                                                "00000",
                                                "99999999",
                                                "1234567",
                                                "e-30",
                                                "e+30",
                                                "(",
                                                ")",
                                                "a",
                                                "2147483647",
                                                "4294967295",
                                                "9223372036854775807",
                                                "18446744073709551615"};
  std::string text;
  for (std::size_t left = random.below(6); left > 0; --left) {
    text += random.of(tokens);
  }
  return text;
}

// Few bits make small numbers and many make any; the ones of doubles near one are in between.
std::uint64_t random_bits(Random& random) {
  const std::uint64_t bits = (random.below(1U << 31U) << 33U) | random.below(1ULL << 33U);
  return random.one_in(2) ? bits >> random.below(64) : bits << random.below(64);
}

void compare_random(unsigned seed) {
  Random random(seed);
  for (int run = 0; run < runs(2000); ++run) {
    const std::string text = random_text(random);
    const std::uint64_t bits = random_bits(random);
    ASSERT_EQ(difference([&] { compare_value_text(text, bits); }), "")
        << "'" << printable(text) << "' " << bits;
  }
}

TEST(ValueTextModelTest, TheTextsOfTheTableStandForWhatTheyDoInTheModel) {
  for (const char* text : value_texts) {
    if (text != nullptr) {
      EXPECT_EQ(difference([&] { compare_value_text(text, 0); }), "") << text;
    }
  }
}

TEST(ValueTextModelTest, RandomTextsAndNumbersAreConvertedAsByTheStandardFunctions) {
  compare_random(1);
}

// Numbers of all sizes, with few bits or few digits, or right beside such a number: what lies
// between two texts is rounded to one of them.
double random_real(Random& random) {
  const auto whole = static_cast<double>(random_bits(random) >> 11U);
  const int exponent = static_cast<int>(random.below(36)) - 20;
  double number = random.one_in(2) ? std::ldexp(whole, static_cast<int>(random.below(140)) - 100)
                                   : whole * std::pow(10.0, exponent);
  if (random.one_in(3)) {
    number = std::strtod(
        (std::to_string(random.below(100000)) + "5e" + std::to_string(exponent)).c_str(), nullptr);
  }
  const double beside = std::nextafter(number, random.one_in(2) ? 0 : 1e300);
  return (random.one_in(2) ? -1 : 1) * (random.one_in(4) ? beside : number);
}

TEST(ValueTextModelTest, RandomRealsAreWrittenAsByAStream) {
  Random random(3);
  for (int run = 0; run < runs(40000); ++run) {
    const double real = random_real(random);
    ASSERT_EQ(difference([&] { compare_real(real); }), "") << std::hexfloat << real;
  }
}

// A comma in numbers, and a mark between thousands.
class Commas : public std::numpunct<char> {
 protected:
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '\''; }
  std::string do_grouping() const override { return "\3"; }
};

class GlobalLocale {
 public:
  explicit GlobalLocale(const std::locale& locale) : before_(std::locale::global(locale)) {}
  GlobalLocale(const GlobalLocale&) = delete;
  GlobalLocale& operator=(const GlobalLocale&) = delete;
  ~GlobalLocale() { std::locale::global(before_); }

 private:
  std::locale before_;
};

TEST(ValueTextModelTest, UnderAGlobalLocaleWithCommasTheyAreConvertedAsByTheStandardFunctions) {
  const GlobalLocale locale(std::locale(std::locale::classic(), new Commas));
  compare_random(2);
}

}  // namespace
}  // namespace oxa_test::model
