#include "properties/property_range.h"

#include <limits>

using OXA::Property::DataType;

namespace {

template <class Number>
constexpr property_range range_of() {
  return {static_cast<double>(std::numeric_limits<Number>::lowest()),
          static_cast<double>(std::numeric_limits<Number>::max())};
}

bool is_unsigned(DataType type) {
  return type == DataType::UnsignedChar || type == DataType::UnsignedShort ||
         type == DataType::UnsignedInt || type == DataType::UnsignedLongLong;
}

bool is_number(DataType type) { return type >= DataType::Char && type <= DataType::Double; }

}  // namespace

property_range natural_range(DataType type) {
  switch (type) {
    case DataType::Char:
      return {-128, 127};
    case DataType::UnsignedChar:
      return range_of<unsigned char>();
    case DataType::Short:
      return range_of<short>();
    case DataType::UnsignedShort:
      return range_of<unsigned short>();
    case DataType::Int:
      return range_of<int>();
    case DataType::UnsignedInt:
      return range_of<unsigned int>();
    case DataType::LongLong:
      return range_of<long long>();
    case DataType::UnsignedLongLong:
      return range_of<unsigned long long>();
    case DataType::Float:
      return range_of<float>();
    case DataType::Double:
      return range_of<double>();
    default:
      return {};
  }
}

// Kept: "char" and "short", with or without "unsigned", have the bounds 0 and 1 as what is no
// number has, although others have those of their data type
// (PropertyTest.TheBaseNameOfARecordTypeGivesTheRange).
property_range range_of_type_string(std::string_view name) {
  const std::size_t dollar = name.find('$');
  const std::string_view base = dollar == std::string_view::npos ? name : name.substr(dollar + 1);
  if (base == "unsigned int") {
    return range_of<unsigned int>();
  }
  if (base == "int") {
    return range_of<int>();
  }
  if (base == "unsigned long" || base == "unsigned long long") {
    return range_of<unsigned long long>();
  }
  if (base == "long" || base == "long long") {
    return range_of<long long>();
  }
  if (base == "double") {
    return range_of<double>();
  }
  if (base == "float") {
    return range_of<float>();
  }
  return {};
}

// Each comparison is written so that a bound that is no number fails none of them.
OXAResult check_range(DataType type, property_range present, property_range wanted) {
  if (type == OXA::Property::NoDataType) {
    return E_UNEXPECTED;
  }
  if (!is_number(type)) {
    return S_OK;
  }
  if (is_unsigned(type) && (wanted.minimum < 0 || wanted.maximum < 0)) {
    return E_FAIL;
  }
  const bool outside = present.minimum > wanted.minimum || present.minimum > wanted.maximum ||
                       wanted.minimum > present.maximum || wanted.maximum > present.maximum;
  return outside || wanted.minimum > wanted.maximum ? E_FAIL : S_OK;
}
