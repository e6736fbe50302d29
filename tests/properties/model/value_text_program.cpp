#include "properties/model/value_text_program.h"

#include <oxa/IOXAProperty.h>

#include "properties/model/model_value_text.h"
#include "properties/model/program.h"
#include "properties/model/property_library.h"
#include "properties/value_text.h"

namespace oxa_test::model {
namespace {

using OXA::Property::DataType;

constexpr int first_type = -1;
constexpr int last_type = 17;

class Comparison {
 public:
  Comparison() { library_.add("", "x", &property_); }

  // Parses a text over what was there before, which stays when it fails.
  void parse(DataType type, const std::string& text) {
    property_->SetDataType(type);
    OXAVariant expected;
    OXAResult result = E_INVALIDARG;
    if (is_storable(text)) {
      has_value_ = true;
      library_.values->GetProperty(property_, expected);
      result = model::parse_value(type, text, expected);
    }
    Account::number("SetProperty", library_.set("", "x", text.c_str()), result);
    if (has_value_) {
      OXAVariant value;
      library_.values->GetProperty(property_, value);
      Account::text("a parsed value", meaning(value), meaning(expected));
      compare_text(type, expected);
    }
  }

  // Stores a value for the data types that take it and looks at it as one of every data type.
  void format(const OXAVariant& value) {
    if (!store(value)) {
      return;
    }
    for (int number = first_type; number <= last_type; ++number) {
      property_->SetDataType(static_cast<DataType>(number));
      compare_text(static_cast<DataType>(number), value);
    }
  }

 private:
  // Returns whether a data type takes it.
  bool store(const OXAVariant& value) {
    const bool is_blank = value.kind == OXAVariant::Kind::Text && !is_storable(value.text);
    bool is_stored = false;
    for (int number = first_type; number <= last_type; ++number) {
      const auto type = static_cast<DataType>(number);
      property_->SetDataType(type);
      const bool fits = type != DataType::File && stored_kind(type) == value.kind && !is_blank;
      Account::number("SetProperty", library_.values->SetProperty(property_, value) == S_OK, fits);
      is_stored = is_stored || fits;
    }
    return is_stored;
  }

  void compare_text(DataType type, const OXAVariant& value) {
    const std::optional<std::string> expected = model::format_value(type, value);
    char* text = nullptr;
    const OXAResult result = library_.get("", "x", &text);
    Account::number("GetProperty", result, expected ? S_OK : E_UNEXPECTED);
    Account::text("the text of a value", shown(text),
                  shown(expected ? expected->c_str() : nullptr));
  }

  LibraryProperties library_{false};
  IOXAProperty* property_ = nullptr;
  bool has_value_ = false;
};

}  // namespace

void compare_value_text(const std::string& text, std::uint64_t bits) {
  Comparison comparison;
  for (int number = first_type; number <= last_type; ++number) {
    comparison.parse(static_cast<DataType>(number), text.c_str());
  }
  using Kind = OXAVariant::Kind;
  for (int flag = 0; flag <= 12; ++flag) {
    OXAVariant value;
    value.kind = static_cast<Kind>(1U << static_cast<unsigned>(flag));
    value.bits = value.kind == Kind::Bool ? bits & 1U : bits;
    value.text = value.kind == Kind::Text ? text : "";
    comparison.format(value);
  }
}

namespace {

void compare_real(DataType type, const OXAVariant& value) {
  const std::string expected = model::format_value(type, value).value();
  std::string text;
  ::format_value(type, value, text);
  Account::text("the text of a number", text, expected);
  OXAVariant read;
  OXAVariant expected_read;
  const OXAResult result = ::parse_value(type, text.c_str(), read);
  Account::number("parse_value", result, model::parse_value(type, expected, expected_read));
  Account::text("a number that was read", meaning(read), meaning(expected_read));
}

}  // namespace

void compare_real(double number) {
  OXAVariant value;
  value.kind = OXAVariant::Kind::Double;
  value.double_value = number;
  compare_real(DataType::Double, value);
  value.kind = OXAVariant::Kind::Float;
  value.float_value = static_cast<float>(number);
  compare_real(DataType::Float, value);
}

}  // namespace oxa_test::model
