// Members of record types.
#include <cmath>
#include <limits>

#include "support.h"

using namespace oxa_test;

namespace {

class DataElementTest : public testing::Test {
 protected:
  DataElementTest() {
    host_.name_space("p")->AddUserDefinedType("point", "struct", &type_);
    EXPECT_EQ(type_->CreateElement(oxa::adopt_into(element_)), S_OK);
  }

  oxa::Ref<IOXADataElement> make_element() const {
    oxa::Ref<IOXADataElement> made;
    EXPECT_EQ(type_->CreateElement(oxa::adopt_into(made)), S_OK);
    return made;
  }

  Host host_;
  IOXAUserDefinedDataType* type_ = nullptr;
  oxa::Ref<IOXADataElement> element_;
};

void expect_range(IOXADataElement& element, double minimum, double maximum) {
  EXPECT_TRUE(element.IsRangeSet());
  EXPECT_EQ(element.MinimumValue(), minimum);
  EXPECT_EQ(element.MaximumValue(), maximum);
}

TEST_F(DataElementTest, BeginsEmpty) {
  EXPECT_EQ(element_->CheckReference(), 1);
  EXPECT_EQ(element_->Name(), nullptr);
  EXPECT_EQ(element_->Tooltip(), nullptr);
  EXPECT_EQ(element_->UserDefinedType(), nullptr);
  EXPECT_STREQ(element_->DefaultValue(), "0");
  EXPECT_EQ(element_->Type(), NoDataType);
  EXPECT_FALSE(element_->IsRangeSet());
  EXPECT_EQ(element_->MinimumValue(), 0.0);
  EXPECT_EQ(element_->MaximumValue(), 0.0);
}

class DataElementTextTest : public DataElementTest,
                            public testing::WithParamInterface<ElementText> {
 protected:
  OXAResult set(const char* text) { return (element_.get()->*GetParam().set)(text); }
  const char* get() { return (element_.get()->*GetParam().get)(); }
};

TEST_P(DataElementTextTest, IsWhatWasSetLast) {
  for (const char* text : {"a", "a text that is longer than short ones", " b\t", "\xC3\xA9", "0"}) {
    EXPECT_EQ(set(text), S_OK);
    EXPECT_STREQ(get(), text);
  }
}

TEST_P(DataElementTextTest, IsACopy) {
  std::string text = "a text that is longer than short ones";
  set(text.c_str());
  text[0] = '?';
  EXPECT_STREQ(get(), "a text that is longer than short ones");
}

TEST_P(DataElementTextTest, IsNullWhenItIsEmpty) {
  EXPECT_EQ(set("a"), S_OK);
  EXPECT_EQ(set(""), S_OK);
  EXPECT_EQ(get(), nullptr);
}

TEST_P(DataElementTextTest, IsNotReplacedByNull) {
  set("a");
  EXPECT_EQ(set(nullptr), E_INVALIDARG);
  EXPECT_STREQ(get(), "a");
}

TEST_P(DataElementTextTest, LeavesTheOthersAlone) {
  set("a");
  for (const ElementText& other : element_texts) {
    if (other.set != GetParam().set) {
      const bool is_default = other.set == &IOXADataElement::SetDefaultValue;
      EXPECT_STREQ((element_.get()->*other.get)(), is_default ? "0" : nullptr);
    }
  }
  EXPECT_EQ(element_->Type(), NoDataType);
  EXPECT_FALSE(element_->IsRangeSet());
}

TEST_P(DataElementTextTest, CanBeSetFromItself) {
  for (const std::string text : {"short", "a text that is longer than short ones"}) {
    set(text.c_str());
    EXPECT_EQ(set(get()), S_OK);
    EXPECT_STREQ(get(), text.c_str());
    EXPECT_EQ(set(get() + 2), S_OK);
    EXPECT_STREQ(get(), text.substr(2).c_str());
  }
}

TEST_P(DataElementTextTest, StaysWhereItIsUntilItIsSet) {
  set("a text that is longer than short ones");
  const char* const before = get();
  for (const ElementText& other : element_texts) {
    if (other.set != GetParam().set) {
      (element_.get()->*other.set)("another text that is longer than short ones");
    }
  }
  element_->SetDataType(DataType::Int);
  EXPECT_EQ(get(), before);
  EXPECT_STREQ(before, "a text that is longer than short ones");
}

INSTANTIATE_TEST_SUITE_P(Texts, DataElementTextTest, testing::ValuesIn(element_texts));

TEST_F(DataElementTest, TheFirstDataTypeSetsItsRange) {
  struct Range {
    int type;
    double minimum;
    double maximum;
  };
  const Range ranges[] = {
      {0, 0, 1},
      {1, 0, 1},
      {2, -128, 127},
      {3, 0, 255},
      {4, -2147483648.0, 2147483647.0},
      {5, 0, 4294967295.0},
      {6, -32768, 32767},
      {7, 0, 65535},
      {8, -9223372036854775808.0, 9223372036854775808.0},
      {9, 0, 18446744073709551616.0},
      {10, 1.1754943508222875e-38, 3.4028234663852886e+38},
      {11, 2.2250738585072014e-308, 1.7976931348623157e+308},
      {12, 0, 1},
      {13, 0, 1},
      {14, 0, 1},
      {15, 0, 1},
      {16, 0, 1},
      {17, 0, 1},
      {-1, 0, 1},
      {1000, 0, 1},
      {std::numeric_limits<int>::min(), 0, 1},
  };
  for (const Range& each : ranges) {
    const auto element = make_element();
    EXPECT_EQ(element->SetDataType(DataType{each.type}), S_OK);
    EXPECT_EQ(element->Type(), DataType{each.type});
    EXPECT_EQ(element->MinimumValue(), each.minimum) << each.type;
    EXPECT_EQ(element->MaximumValue(), each.maximum) << each.type;
    EXPECT_TRUE(element->IsRangeSet());
  }
}

TEST_F(DataElementTest, ALaterDataTypeKeepsTheRange) {
  element_->SetDataType(DataType::Int);
  EXPECT_EQ(element_->SetDataType(DataType::Char), S_OK);
  EXPECT_EQ(element_->Type(), DataType::Char);
  expect_range(*element_, -2147483648.0, 2147483647.0);
}

TEST_F(DataElementTest, NoDataTypeSetsARangeToo) {
  element_->SetDataType(NoDataType);
  EXPECT_EQ(element_->SetDataType(DataType::Char), S_OK);
  expect_range(*element_, 0, 1);
}

TEST_F(DataElementTest, ADataTypeKeepsARangeThatWasSet) {
  element_->SetRange(-5, 5);
  EXPECT_EQ(element_->Type(), NoDataType);
  EXPECT_EQ(element_->SetDataType(DataType::Char), S_OK);
  EXPECT_EQ(element_->Type(), DataType::Char);
  expect_range(*element_, -5, 5);
}

TEST_F(DataElementTest, ARangeReplacesThatOfTheDataType) {
  element_->SetDataType(DataType::Char);
  EXPECT_EQ(element_->SetRange(-1000, 1000), S_OK);
  EXPECT_EQ(element_->Type(), DataType::Char);
  expect_range(*element_, -1000, 1000);
}

TEST_F(DataElementTest, RangesMayBeSmallAndLarge) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const auto& [minimum, maximum] :
       {std::pair{3.0, 3.0}, {0.0, 0.0}, {-0.1, 0.1}, {-infinity, infinity}, {0.0, -0.0}}) {
    EXPECT_EQ(element_->SetRange(minimum, maximum), S_OK);
    expect_range(*element_, minimum, maximum);
  }
}

TEST_F(DataElementTest, AnInvertedRangeChangesNothing) {
  EXPECT_EQ(element_->SetRange(5, 1), E_INVALIDARG);
  EXPECT_FALSE(element_->IsRangeSet());
  element_->SetRange(3, 4);
  EXPECT_EQ(element_->SetRange(5, std::nextafter(5.0, 0.0)), E_INVALIDARG);
  expect_range(*element_, 3, 4);
}

TEST_F(DataElementTest, AnInvertedRangeLeavesThePlaceToTheDataType) {
  element_->SetRange(5, 1);
  element_->SetDataType(DataType::Short);
  expect_range(*element_, -32768, 32767);
}

// What is no number is not greater than anything.
TEST_F(DataElementTest, BoundsMayBeNoNumbers) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(element_->SetRange(nan, 1), S_OK);
  EXPECT_TRUE(element_->IsRangeSet());
  EXPECT_TRUE(std::isnan(element_->MinimumValue()));
  EXPECT_EQ(element_->MaximumValue(), 1.0);
  EXPECT_EQ(element_->SetRange(2, nan), S_OK);
  EXPECT_EQ(element_->MinimumValue(), 2.0);
  EXPECT_TRUE(std::isnan(element_->MaximumValue()));
}

TEST_F(DataElementTest, IsInTheNamespaceOfItsType) {
  EXPECT_STREQ(element_->Namespace(), "p");
  EXPECT_EQ(element_->Namespace(), type_->Namespace());
}

TEST_F(DataElementTest, OfANamelessNamespaceHasNone) {
  IOXAUserDefinedDataType* type = nullptr;
  host_.name_space("")->AddUserDefinedType("point", "struct", &type);
  EXPECT_EQ(type->CreateElement(oxa::adopt_into(element_)), S_OK);
  EXPECT_EQ(element_->Namespace(), nullptr);
}

TEST_F(DataElementTest, TakesNoReferenceToItsType) {
  const auto other = make_element();
  EXPECT_EQ(type_->CheckReference(), 1);
}

}  // namespace
