#include <graph_values.h>
#include <gtest/gtest.h>

using OXA::Property::DataType;

namespace {

// What is read of a text, as value_text writes it; "-" for nothing.
std::string read_as(DataType type, const char* text) {
  const auto value = graph::parse_value(type, text);
  if (value) {
    EXPECT_EQ(value->kind, oxa::kind_of(type)) << text;
  }
  return value ? graph::value_text(*value) : "-";
}

TEST(GraphValuesTest, AWholeTextIsAValueOrNone) {
  const struct {
    DataType type;
    const char* text;
    const char* value;
  } table[] = {
      {DataType::Bool, "true", "true"},
      {DataType::Bool, " False\n", "false"},
      {DataType::Bool, "1", "true"},
      {DataType::Bool, "0", "false"},
      {DataType::Bool, "yes", "-"},
      {DataType::Bool, "", "-"},
      {DataType::Int, "\t-12 ", "-12"},
      {DataType::Int, "+12", "12"},
      {DataType::Int, "+-12", "-"},
      {DataType::Int, "+", "-"},
      {DataType::Int, "12 apples", "-"},
      {DataType::Int, "1.0", "-"},
      {DataType::Int, "", "-"},
      {DataType::Int, "2147483647", "2147483647"},
      {DataType::Int, "2147483648", "-"},
      {DataType::Char, "-128", "-128"},
      {DataType::Char, "128", "-"},
      {DataType::UnsignedChar, "255", "255"},
      {DataType::UnsignedChar, "256", "-"},
      {DataType::Short, "-32768", "-32768"},
      {DataType::UnsignedShort, "65535", "65535"},
      {DataType::UnsignedShort, "-1", "-"},
      {DataType::UnsignedInt, "4294967295", "4294967295"},
      {DataType::LongLong, "-9223372036854775808", "-9223372036854775808"},
      {DataType::UnsignedLongLong, "18446744073709551615", "18446744073709551615"},
      {DataType::Float, "0.1", "0.1"},
      {DataType::Double, "0.1", "0.1"},
      {DataType::Double, "0.30000000000000004", "0.30000000000000004"},
      {DataType::Double, "1e20", "1e+20"},
      {DataType::Double, "-INF", "-INF"},
      {DataType::Double, "inf", "INF"},
      {DataType::Double, "NaN", "NaN"},
      {DataType::Double, "1e999", "-"},
      {DataType::Double, "1,5", "-"},
      {DataType::String, " as it is ", " as it is "},
      {DataType::Enum, "", ""},
      {OXA::Property::NoDataType, "1", "-"},
  };
  for (const auto& row : table) {
    EXPECT_EQ(read_as(row.type, row.text), row.value) << row.text;
  }
}

}  // namespace
