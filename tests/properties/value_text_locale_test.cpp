// Values as text under locales other than the classic one: numbers are read by the C locale, reals
// are written by the C++ locale, and integers are written by neither.
#include <locale>

#include "properties/OXAPropertyModel.h"
#include "support/comma_locale.h"
#include "value_text_table.h"

using namespace oxa_test;

namespace {

const Conversion by_comma[] = {
    {DataType::Double, "1,5", "1.5"},    {DataType::Double, "1.5", "1"},
    {DataType::Double, ",5", "0.5"},     {DataType::Double, ".5", "-"},
    {DataType::Double, "1e-3", "0.001"}, {DataType::Double, "1.234,5", "1"},
    {DataType::Float, "1,5", "1.5"},     {DataType::Float, "1.5", "1"},
    {DataType::Int, "1.234", "1"},       {DataType::Int, "1234567", "1234567"},
    {DataType::LongLong, "1,5", "1"},    {DataType::UnsignedInt, "4000000000", "4000000000"},
    {DataType::String, "1,5", "1,5"},    {DataType::Bool, "true", "true"},
};

TEST(ValueTextTest, NumbersAreReadByTheCLocale) {
  const CommaCLocale locale;
  expect_conversions(by_comma);
  EXPECT_EQ(std::stod("1,5"), 1.5);
  EXPECT_EQ(std::stod("1.5"), 1.0);
}

TEST(ValueTextTest, NumbersAreReadAsTheStandardLibraryDoesInAnyCLocale) {
  const CommaCLocale locale;
  expect_to_read_as_the_standard(runs(20000));
}

TEST(ValueTextTest, RealsAreWrittenWithAPointInAnyCLocale) {
  const CommaCLocale locale;
  EXPECT_EQ(formatted(DataType::Double, oxa::make_variant(1234567.5)), "1234567.5");
  EXPECT_EQ(formatted(DataType::Float, oxa::make_variant(1234.5F)), "1234.5");
  expect_reals_as_streamed(runs(5000));
}

TEST(ValueTextTest, RealsAreWrittenByTheGlobalLocale) {
  const GlobalLocale locale(make_comma_locale());
  EXPECT_EQ(formatted(DataType::Double, oxa::make_variant(1234567.5)), "1.234.567,5");
  EXPECT_EQ(formatted(DataType::Float, oxa::make_variant(-1234.5F)), "-1.234,5");
  EXPECT_EQ(formatted(DataType::Double, oxa::make_variant(0.5)), "0,5");
  EXPECT_EQ(formatted(DataType::Double, oxa::make_variant(1e20)), streamed(1e20, 16));
  expect_reals_as_streamed(runs(5000));
}

TEST(ValueTextTest, IntegersAreWrittenPlainlyInAnyLocale) {
  const GlobalLocale locale(make_comma_locale());
  EXPECT_EQ(formatted(DataType::Int, oxa::make_variant(-1234567)), "-1234567");
  EXPECT_EQ(formatted(DataType::Short, oxa::make_variant<short>(12345)), "12345");
  EXPECT_EQ(formatted(DataType::LongLong, oxa::make_variant(1234567890123LL)), "1234567890123");
  EXPECT_EQ(formatted(DataType::UnsignedLongLong, oxa::make_variant(12345678ULL)), "12345678");
}

// A named C++ locale is the C locale as well: what was written under it can be read again, up to
// the first separator of thousands.
TEST(ValueTextTest, ANamedGlobalLocaleIsTheCLocaleToo) {
  const GlobalLocale locale(make_comma_locale());
  EXPECT_EQ(converted(DataType::Double, "0,5"), "0,5");
  EXPECT_EQ(converted(DataType::Double, "0.5"), "0");
  EXPECT_EQ(converted(DataType::Double, "1.234,5"), "1");
}

class Semicolon final : public std::numpunct<char> {
  char do_decimal_point() const override { return ';'; }
  char do_thousands_sep() const override { return '_'; }
  std::string do_grouping() const override { return "\2"; }
};

TEST(ValueTextTest, ALocaleOfTheProgramIsForWritingOnly) {
  const GlobalLocale locale(std::locale(std::locale::classic(), new Semicolon));
  EXPECT_EQ(formatted(DataType::Double, oxa::make_variant(12345.5)), "1_23_45;5");
  EXPECT_EQ(formatted(DataType::Int, oxa::make_variant(12345)), "12345");
  EXPECT_EQ(converted(DataType::Double, "1.5"), "1;5");
  EXPECT_EQ(converted(DataType::Double, "1;5"), "1");
}

TEST(ValueTextTest, TheClassicLocaleIsBackAfterwards) {
  { const GlobalLocale locale(make_comma_locale()); }
  { const CommaCLocale locale; }
  EXPECT_EQ(converted(DataType::Double, "1234.5"), "1234.5");
}

TEST(PropertyModelLocaleTest, AModelReadsByOneAndWritesByTheOther) {
  const Properties properties;
  OXAPropertyModel model(properties.manager.get());
  properties.add("a", "x", DataType::Double);
  char* text = nullptr;
  {
    const CommaCLocale locale;
    EXPECT_EQ(model.SetProperty("a", "x", "1234,5"), S_OK);
    EXPECT_EQ(model.GetProperty("a", "x", &text), S_OK);
    EXPECT_STREQ(text, "1234.5");
  }
  const GlobalLocale locale(make_comma_locale());
  EXPECT_EQ(model.GetProperty("a", "x", &text), S_OK);
  EXPECT_STREQ(text, "1.234,5");
}

}  // namespace
