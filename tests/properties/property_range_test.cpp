// The bounds of a property: natural ones, narrower ones, and those of a record type.
#include <cmath>
#include <limits>

#include "datatypes/support.h"
#include "support.h"

using namespace oxa_test;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double largest_double = 1.7976931348623157e308;
constexpr double largest_float = 340282346638528859811704183484516925440.0;

struct Bounds {
  DataType type;
  double minimum;
  double maximum;
};

const Bounds natural_bounds[] = {
    {DataType::Bool, 0, 1},
    {DataType::String, 0, 1},
    {DataType::Char, -128, 127},
    {DataType::UnsignedChar, 0, 255},
    {DataType::Int, -2147483648.0, 2147483647.0},
    {DataType::UnsignedInt, 0, 4294967295.0},
    {DataType::Short, -32768, 32767},
    {DataType::UnsignedShort, 0, 65535},
    {DataType::LongLong, -9223372036854775808.0, 9223372036854775808.0},
    {DataType::UnsignedLongLong, 0, 18446744073709551616.0},
    {DataType::Float, -largest_float, largest_float},
    {DataType::Double, -largest_double, largest_double},
    {DataType::Enum, 0, 1},
    {DataType::Code, 0, 1},
    {DataType::Hexadecimal, 0, 1},
    {DataType::File, 0, 1},
    {DataType::UserDefined, 0, 1},
    {NoDataType, 0, 1},
    {DataType{-2}, 0, 1},
    {DataType{17}, 0, 1},
    {DataType{1000}, 0, 1},
};

void expect_range(IOXAProperty& property, double minimum, double maximum) {
  EXPECT_EQ(property.MinimumValue(), minimum) << described(property);
  EXPECT_EQ(property.MaximumValue(), maximum) << described(property);
}

TEST_F(PropertyTest, ADataTypeHasItsNaturalBounds) {
  for (const Bounds& each : natural_bounds) {
    property_.SetDataType(each.type);
    EXPECT_EQ(property_.DataType(), each.type);
    expect_range(property_, each.minimum, each.maximum);
    EXPECT_FALSE(property_.IsRangeSet());
  }
}

TEST_F(PropertyTest, OnlyBoolsAreGivenAnEditor) {
  for (const DataType type : data_types) {
    IOXAProperty& property = add(std::to_string(static_cast<int>(type)).c_str(), type);
    EXPECT_EQ(property.ViewHints()->Editor(), type == DataType::Bool ? 4 : 0);
  }
}

TEST_F(PropertyTest, TheEditorOfABoolStays) {
  hints_.SetEditor(7);
  property_.SetDataType(DataType::Int);
  EXPECT_EQ(hints_.Editor(), 7);
  property_.SetDataType(DataType::Bool);
  EXPECT_EQ(hints_.Editor(), 4);
  property_.SetDataType(DataType::Int);
  EXPECT_EQ(hints_.Editor(), 4);
}

struct Narrowing {
  DataType type;
  double minimum;
  double maximum;
  OXAResult result;
};

const Narrowing narrowings[] = {
    {NoDataType, 0, 1, E_UNEXPECTED},
    {NoDataType, 0.5, 0.25, E_UNEXPECTED},
    {DataType::UnsignedChar, 10, 20, S_OK},
    {DataType::UnsignedChar, -1, 10, E_FAIL},
    {DataType::UnsignedChar, -2, -1, E_FAIL},
    {DataType::UnsignedChar, 10, -1, E_FAIL},
    {DataType::UnsignedChar, 10, 300, E_FAIL},
    {DataType::UnsignedChar, 300, 10, E_FAIL},
    {DataType::UnsignedChar, 256, 257, E_FAIL},
    {DataType::UnsignedChar, 20, 10, E_FAIL},
    {DataType::UnsignedChar, 7, 7, S_OK},
    {DataType::UnsignedChar, -0.0, 0.5, S_OK},
    {DataType::Char, -129, 0, E_FAIL},
    {DataType::Char, -130, -129, E_FAIL},
    {DataType::Char, 0, 127.5, E_FAIL},
    {DataType::Char, 128, 129, E_FAIL},
    {DataType::Char, 5, -5, E_FAIL},
    {DataType::Char, -5, 5, S_OK},
    {DataType::LongLong, -1e18, 1e18, S_OK},
    {DataType::LongLong, -1e19, 0, E_FAIL},
    {DataType::UnsignedLongLong, 0, 1e19, S_OK},
    {DataType::UnsignedLongLong, 0, 1e20, E_FAIL},
    {DataType::Float, -1.5, 1e38, S_OK},
    {DataType::Float, 0, 1e39, E_FAIL},
    {DataType::Float, 1, 0, E_FAIL},
    {DataType::Double, -1e300, 1e300, S_OK},
    {DataType::Double, -infinity, 0, E_FAIL},
    {DataType::Double, 0, infinity, E_FAIL},
    {DataType::Double, 1, 0, E_FAIL},
    {DataType::Bool, 5, -5, S_OK},
    {DataType::String, 5, -5, S_OK},
    {DataType::Enum, 5, -5, S_OK},
    {DataType::Code, 5, -5, S_OK},
    {DataType::Hexadecimal, 5, -5, S_OK},
    {DataType::File, 5, -5, S_OK},
    {DataType::UserDefined, 5, -5, S_OK},
    {DataType::String, -infinity, infinity, S_OK},
};

TEST_F(PropertyTest, ARangeIsWithinThePresentOne) {
  for (const Narrowing& each : narrowings) {
    const Properties properties;
    IOXAProperty& property = properties.add("a", "x", each.type);
    const std::string before = described(property);
    ASSERT_EQ(property.SetRange(each.minimum, each.maximum), each.result)
        << before << " to " << each.minimum << " " << each.maximum;
    if (each.result == S_OK) {
      expect_range(property, each.minimum, each.maximum);
      EXPECT_TRUE(property.IsRangeSet());
    } else {
      EXPECT_EQ(described(property), before);
    }
  }
}

TEST_F(PropertyTest, NaturalBoundsAreTheWidestRange) {
  for (const Bounds& each : natural_bounds) {
    if (each.type < DataType::Char || each.type > DataType::Double) {
      continue;
    }
    property_.SetDataType(each.type);
    const double below = std::nextafter(each.minimum, -infinity);
    const double above = std::nextafter(each.maximum, infinity);
    EXPECT_EQ(property_.SetRange(below, each.maximum), E_FAIL);
    EXPECT_EQ(property_.SetRange(each.minimum, above), E_FAIL);
    EXPECT_EQ(property_.SetRange(below, below), E_FAIL);
    EXPECT_EQ(property_.SetRange(above, above), E_FAIL);
    EXPECT_EQ(property_.SetRange(each.minimum, each.maximum), S_OK) << described(property_);
    EXPECT_EQ(property_.SetRange(each.minimum, each.minimum), S_OK);
  }
}

TEST_F(PropertyTest, ARangeIsNeverWidened) {
  property_.SetDataType(DataType::UnsignedChar);
  EXPECT_EQ(property_.SetRange(10, 20), S_OK);
  EXPECT_EQ(property_.SetRange(0, 30), E_FAIL);
  EXPECT_EQ(property_.SetRange(9, 20), E_FAIL);
  EXPECT_EQ(property_.SetRange(10, 21), E_FAIL);
  expect_range(property_, 10, 20);
  EXPECT_EQ(property_.SetRange(10, 20), S_OK);
  EXPECT_EQ(property_.SetRange(12, 18), S_OK);
  expect_range(property_, 12, 18);
}

TEST_F(PropertyTest, TheRangeOfATextIsFreelyReplaced) {
  property_.SetDataType(DataType::String);
  EXPECT_EQ(property_.SetRange(5, -5), S_OK);
  EXPECT_EQ(property_.SetRange(-100, 100), S_OK);
  expect_range(property_, -100, 100);
}

TEST_F(PropertyTest, ABoundThatIsNoNumberIsNotRefused) {
  property_.SetDataType(DataType::UnsignedInt);
  EXPECT_EQ(property_.SetRange(nan, 10), S_OK);
  EXPECT_TRUE(std::isnan(property_.MinimumValue()));
  EXPECT_EQ(property_.SetRange(5, nan), S_OK);
  EXPECT_EQ(property_.SetRange(nan, nan), S_OK);
  EXPECT_EQ(property_.SetRange(-1, nan), E_FAIL);
  EXPECT_EQ(property_.SetRange(3, 2), E_FAIL);
}

TEST_F(PropertyTest, ANewDataTypeTakesItsBoundsAndKeepsTheFlag) {
  property_.SetDataType(DataType::Int);
  property_.SetRange(1, 2);
  property_.SetDataType(DataType::Short);
  expect_range(property_, -32768, 32767);
  EXPECT_TRUE(property_.IsRangeSet());
}

struct BaseName {
  const char* type_string;
  double minimum;
  double maximum;
};

// Of a type string with one "$" the type manager resolves what follows it, up to a "%"; of one with
// more, what precedes the first.
const BaseName base_names[] = {
    {"char", 0, 1},
    {"unsigned char", 0, 1},
    {"short", 0, 1},
    {"unsigned short", 0, 1},
    {"int", -2147483648.0, 2147483647.0},
    {"unsigned int", 0, 4294967295.0},
    {"long", -9223372036854775808.0, 9223372036854775808.0},
    {"unsigned long", 0, 18446744073709551616.0},
    {"long long", -9223372036854775808.0, 9223372036854775808.0},
    {"unsigned long long", 0, 18446744073709551616.0},
    {"double", -largest_double, largest_double},
    {"float", -largest_float, largest_float},
    {"bool", 0, 1},
    {"string", 0, 1},
    {"p::point", 0, 1},
    {"$char", 0, 1},
    {"$short", 0, 1},
    {"any$unsigned short", 0, 1},
    {"$int", -2147483648.0, 2147483647.0},
    {"any$float", -largest_float, largest_float},
    {"any::thing$unsigned long", 0, 18446744073709551616.0},
    {"$p::point", 0, 1},
    {"$int%", 0, 1},
    {"int$float$", 0, 1},
};

// A type manager that knows p::point besides the built-in types.
class RecordTypes {
 public:
  RecordTypes() {
    IOXAUserDefinedDataType* point = nullptr;
    host.name_space("p")->AddUserDefinedType("point", "struct", &point);
  }

  Host host;
};

TEST_F(PropertyTest, TheBaseNameOfARecordTypeGivesTheRange) {
  const RecordTypes types;
  property_.SetDataType(DataType::UserDefined);
  for (const BaseName& each : base_names) {
    EXPECT_EQ(property_.SetUserDefinedDataType(each.type_string), S_OK);
    EXPECT_STREQ(property_.UserDefinedDataType(), each.type_string);
    expect_range(property_, each.minimum, each.maximum);
    EXPECT_FALSE(property_.IsRangeSet());
  }
}

TEST_F(PropertyTest, ARecordTypeLeavesARangeThatWasSet) {
  const RecordTypes types;
  property_.SetDataType(DataType::UserDefined);
  property_.SetRange(5, 6);
  EXPECT_EQ(property_.SetUserDefinedDataType("int"), S_OK);
  EXPECT_STREQ(property_.UserDefinedDataType(), "int");
  expect_range(property_, 5, 6);
}

// The flag is what counts, although the range is that of the data type again.
TEST_F(PropertyTest, ARecordTypeLeavesTheRangeOfALaterDataType) {
  const RecordTypes types;
  property_.SetDataType(DataType::Int);
  property_.SetRange(5, 6);
  property_.SetDataType(DataType::UserDefined);
  EXPECT_EQ(property_.SetUserDefinedDataType("int"), S_OK);
  expect_range(property_, 0, 1);
}

TEST_F(PropertyTest, OnlyUserDefinedOnesHaveARecordType) {
  const RecordTypes types;
  for (const DataType type : data_types) {
    property_.SetDataType(type);
    const std::string before = described(property_);
    EXPECT_EQ(property_.SetUserDefinedDataType(nullptr), E_INVALIDARG);
    EXPECT_EQ(described(property_), before);
    EXPECT_EQ(property_.SetUserDefinedDataType("p::point"),
              type == DataType::UserDefined ? S_OK : E_UNEXPECTED);
  }
  for (const DataType type : no_data_types) {
    property_.SetDataType(type);
    EXPECT_EQ(property_.SetUserDefinedDataType("p::point"), E_UNEXPECTED);
  }
}

TEST_F(PropertyTest, ARecordTypeMustBeDefined) {
  const RecordTypes types;
  property_.SetDataType(DataType::UserDefined);
  property_.SetUserDefinedDataType("unsigned int");
  const std::string before = described(property_);
  for (const char* unknown :
       {"p::line", "q::point", "point", "Int", " int", "", "int$", "$p::point%%", "int64"}) {
    EXPECT_EQ(property_.SetUserDefinedDataType(unknown), E_INVALIDARG) << unknown;
    EXPECT_EQ(described(property_), before);
  }
}

// The bounds used to be read from the text that was just replaced.
TEST_F(PropertyTest, TheTypeStringMayBeSetToItself) {
  const RecordTypes types;
  property_.SetDataType(DataType::UserDefined);
  property_.SetUserDefinedDataType("a long type string, on the heap$int");
  property_.SetDataType(DataType::UserDefined);
  EXPECT_EQ(property_.SetUserDefinedDataType(property_.UserDefinedDataType()), S_OK);
  expect_range(property_, -2147483648.0, 2147483647.0);
}

TEST_F(PropertyTest, TheTypeManagerIsReleased) {
  const RecordTypes types;
  const auto before = types.host.manager->CheckReference();
  property_.SetDataType(DataType::UserDefined);
  property_.SetUserDefinedDataType("int");
  property_.SetUserDefinedDataType("no type");
  EXPECT_EQ(types.host.manager->CheckReference(), before);
}

TEST_F(PropertyTest, WithoutATypeManagerTheResultIsThatOfItsFactory) {
  property_.SetDataType(DataType::UserDefined);
  const std::string before = described(property_);
  oxa::Ref<IOXAUserDefinedDataTypeManager> manager;
  const OXAResult result = get_manager(nullptr, manager);
  EXPECT_LT(result, 0);
  EXPECT_EQ(property_.SetUserDefinedDataType("int"), result);
  EXPECT_EQ(described(property_), before);
}

TEST_F(PropertyTest, ARecordTypeStaysWithAnotherDataType) {
  const RecordTypes types;
  property_.SetDataType(DataType::UserDefined);
  property_.SetUserDefinedDataType("p::point");
  property_.SetDataType(DataType::Int);
  EXPECT_STREQ(property_.UserDefinedDataType(), "p::point");
}

}  // namespace
