#include "properties/model/model_property.h"

#include <oxa/IOXAPropertyViewHints.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <tuple>

#include "properties/model/program.h"

namespace oxa_test::model {

using OXA::Property::DataType;
using Range = std::pair<double, double>;

namespace {

const std::map<DataType, Range> natural_ranges = {
    {DataType::Bool, {0, 1}},
    {DataType::Char, {-128, 127}},
    {DataType::UnsignedChar, {0, 255}},
    {DataType::Short, {-32768, 32767}},
    {DataType::UnsignedShort, {0, 65535}},
    {DataType::Int, {-2147483648.0, 2147483647.0}},
    {DataType::UnsignedInt, {0, 4294967295.0}},
    {DataType::LongLong, {-std::pow(2, 63), std::pow(2, 63)}},
    {DataType::UnsignedLongLong, {0, std::pow(2, 64)}},
    {DataType::Float, {-FLT_MAX, FLT_MAX}},
    {DataType::Double, {-DBL_MAX, DBL_MAX}}};

Range natural_range(DataType type) {
  const auto found = natural_ranges.find(type);
  return found == natural_ranges.end() ? Range(0, 1) : found->second;
}

bool is_unsigned(DataType type) {
  return type == DataType::UnsignedChar || type == DataType::UnsignedShort ||
         type == DataType::UnsignedInt || type == DataType::UnsignedLongLong;
}

bool is_number(DataType type) { return type != DataType::Bool && natural_ranges.count(type) == 1; }

// char and short, with and without a sign, are like any other name.
Range range_of_record_type(const std::string& type_string) {
  const std::size_t mark = type_string.find('$');
  const std::string base = mark == std::string::npos ? type_string : type_string.substr(mark + 1);
  if (base == "unsigned int") {
    return natural_range(DataType::UnsignedInt);
  }
  if (base == "int") {
    return natural_range(DataType::Int);
  }
  if (base == "unsigned long" || base == "unsigned long long") {
    return natural_range(DataType::UnsignedLongLong);
  }
  if (base == "long" || base == "long long") {
    return natural_range(DataType::LongLong);
  }
  if (base == "double") {
    return natural_range(DataType::Double);
  }
  if (base == "float") {
    return natural_range(DataType::Float);
  }
  return {0, 1};
}

std::string bits_of(double value) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  return std::to_string(bits);
}

}  // namespace

OXAResult Property::SetRange(double new_minimum, double new_maximum) {
  if (data_type == OXA::Property::NoDataType) {
    return E_UNEXPECTED;
  }
  if (is_unsigned(data_type) && (new_minimum < 0 || new_maximum < 0 || new_minimum > new_maximum)) {
    return E_FAIL;
  }
  if (is_number(data_type) &&
      (minimum > new_minimum || minimum > new_maximum || new_minimum > maximum ||
       new_maximum > maximum || new_minimum > new_maximum)) {
    return E_FAIL;
  }
  minimum = new_minimum;
  maximum = new_maximum;
  is_range_set = true;
  return S_OK;
}

void Property::SetDataType(DataType new_type) {
  data_type = new_type;
  std::tie(minimum, maximum) = natural_range(new_type);
  if (new_type == DataType::Bool) {
    editor = 4;
  }
}

OXAResult Property::SetUserDefinedDataType(
    const char* type_string, const std::function<OXAResult(const std::string&)>& resolves) {
  if (type_string == nullptr) {
    return E_INVALIDARG;
  }
  if (data_type != DataType::UserDefined) {
    return E_UNEXPECTED;
  }
  const OXAResult result = resolves(type_string);
  if (result < 0) {
    return result;
  }
  user_defined_type = type_string;
  if (!is_range_set) {
    std::tie(minimum, maximum) = range_of_record_type(type_string);
  }
  return S_OK;
}

OXAResult Property::SetDefaultValue(const char* text) {
  if (text == nullptr) {
    return E_INVALIDARG;
  }
  default_value = text;
  return S_OK;
}

OXAResult Property::AddAttribute(const char* attribute, const char* value) {
  if (attribute == nullptr || value == nullptr) {
    return E_INVALIDARG;
  }
  if (GetAttributeValue(attribute)) {
    return E_ALREADYEXISTS;
  }
  if (cursor_ == attributes_.size()) {
    cursor_.reset();
  }
  attributes_.emplace_back(attribute, value);
  return S_OK;
}

void Property::ClearAttributes() {
  attributes_.clear();
  cursor_.reset();
}

std::optional<std::string> Property::GetFirstAttribute() {
  cursor_ = 0;
  return attribute_at_cursor();
}

std::optional<std::string> Property::GetNextAttribute() {
  cursor_ = std::min(*cursor_ + 1, attributes_.size());
  return attribute_at_cursor();
}

std::optional<std::string> Property::attribute_at_cursor() const {
  if (*cursor_ == attributes_.size()) {
    return std::nullopt;
  }
  return attributes_[*cursor_].first;
}

std::optional<std::string> Property::GetAttributeValue(const std::string& attribute) const {
  for (const auto& [each, value] : attributes_) {
    if (each == attribute) {
      return value;
    }
  }
  return std::nullopt;
}

std::set<std::string> Property::GetAttributesFromValue(const std::string& value) const {
  std::set<std::string> found;
  for (const auto& [attribute, each] : attributes_) {
    if (each == value) {
      found.insert(attribute);
    }
  }
  return found;
}

OXAResult Property::AddSupport(const char* category, const char* supported) {
  if (category == nullptr || supported == nullptr) {
    return E_INVALIDARG;
  }
  supports_[category].insert(supported);
  return S_OK;
}

bool Property::Supports(const char* category, const char* supported) const {
  if (category == nullptr || supported == nullptr || std::string(category).empty() ||
      std::string(supported).empty()) {
    return false;
  }
  const auto found = supports_.find(category);
  return supports_all || (found != supports_.end() && found->second.count(supported) == 1);
}

Property Property::Clone() const {
  Property clone = *this;
  clone.cursor_.reset();
  clone.references = 1;
  clone.held = 1;
  return clone;
}

namespace {

const char* unless_empty(const std::string& text) { return text.empty() ? nullptr : text.c_str(); }

std::string hints(const char* alias, const char* tooltip, const char* group, bool display,
                  int editor) {
  return shown(alias) + shown(tooltip) + shown(group) + std::to_string(display) +
         std::to_string(editor);
}

template <class... Numbers>
std::string numbers(Numbers... all) {
  return ((std::to_string(all) + " ") + ...);
}

}  // namespace

std::string describe(IOXAProperty& property) {
  IOXAPropertyViewHints& shows = *property.ViewHints();
  return shown(property.Namespace()) + shown(property.Name()) + shown(property.FullNamespace()) +
         shown(property.UserDefinedDataType()) + shown(property.DefaultValue()) +
         numbers(property.ID(), static_cast<int>(property.Type()),
                 static_cast<int>(property.DataType()), property.HasDependency(),
                 property.IsRangeSet(), property.IsMutable(), property.SupportsAllNodes(),
                 property.GetAttributeCount(), property.CheckReference()) +
         bits_of(property.MinimumValue()) + " " + bits_of(property.MaximumValue()) +
         hints(shows.Alias(), shows.Tooltip(), shows.Group(), shows.Display(), shows.Editor());
}

std::string describe(const Property& property) {
  return shown(property.ns.c_str()) + shown(property.name.c_str()) +
         shown((property.ns + "::" + property.name).c_str()) +
         shown(unless_empty(property.user_defined_type)) +
         shown(property.default_value ? property.default_value->c_str() : nullptr) +
         numbers(property.id, static_cast<int>(property.type), static_cast<int>(property.data_type),
                 property.dependency, property.is_range_set, property.is_mutable,
                 property.supports_all, property.attribute_count(), property.references) +
         bits_of(property.minimum) + " " + bits_of(property.maximum) +
         hints(unless_empty(property.alias), unless_empty(property.tooltip),
               unless_empty(property.group), property.display, property.editor);
}

}  // namespace oxa_test::model
