#include "datatypes/OXADataElement.h"

#include <oxa/IOXAUserDefinedDataType.h>
#include <oxa/sdk/guard.h>

#include <limits>
#include <utility>

using OXA::Property::DataType;

namespace {

struct range {
  double minimum;
  double maximum;
};

// Of 64-bit integers the maximum is the next power of two, which is what it rounds to.
template <class Number>
constexpr range range_of() {
  return {static_cast<double>(std::numeric_limits<Number>::min()),
          static_cast<double>(std::numeric_limits<Number>::max())};
}

// Kept: floating-point types begin at their smallest positive normal value, which is what min()
// gives for them, so negative values and 0 are below it; and what holds no number has a range too
// (DataElementTest.TheFirstDataTypeSetsItsRange).
constexpr range default_range(DataType type) {
  switch (type) {
    case DataType::Char:
      return {-128, 127};
    case DataType::UnsignedChar:
      return range_of<unsigned char>();
    case DataType::Int:
      return range_of<int>();
    case DataType::UnsignedInt:
      return range_of<unsigned int>();
    case DataType::Short:
      return range_of<short>();
    case DataType::UnsignedShort:
      return range_of<unsigned short>();
    case DataType::LongLong:
      return range_of<long long>();
    case DataType::UnsignedLongLong:
      return range_of<unsigned long long>();
    case DataType::Float:
      return range_of<float>();
    case DataType::Double:
      return range_of<double>();
    default:
      return {0, 1};
  }
}

// S_OK; E_INVALIDARG for null; E_OUTOFMEMORY with nothing changed.
OXAResult set_text(oxa::thin_string& field, const char* text) {
  if (text == nullptr) {
    return E_INVALIDARG;
  }
  return oxa::guard([&] {
    field = oxa::thin_string(text);
    return S_OK;
  });
}

}  // namespace

static_assert(alignof(OXADataElement) <= alignof(void*), "arena_placed aligns to words");

OXADataElement::OXADataElement(IOXAUserDefinedDataType& owner)
    : OXADataElement(owner, {{}, {}, first_default(), {}}) {}

OXADataElement::OXADataElement(IOXAUserDefinedDataType& owner, text_fields texts) noexcept
    : texts_(std::move(texts)), owner_(owner) {}

oxa::thin_string OXADataElement::first_default() {
  alignas(oxa::thin_string::alignment) static char zero[] = "0";
  return oxa::thin_string::borrow(zero);
}

const char* OXADataElement::Name() { return texts_.name.data(); }

const char* OXADataElement::Namespace() { return owner_.Namespace(); }

DataType OXADataElement::Type() { return type_; }

const char* OXADataElement::Tooltip() { return texts_.tooltip.data(); }

const char* OXADataElement::UserDefinedType() { return texts_.user_defined_type.data(); }

const char* OXADataElement::DefaultValue() { return texts_.default_value.data(); }

double OXADataElement::MinimumValue() { return minimum_; }

double OXADataElement::MaximumValue() { return maximum_; }

bool OXADataElement::IsRangeSet() { return range_set_; }

OXAResult OXADataElement::SetName(const char* name) { return set_text(texts_.name, name); }

// Kept: only the first data type sets its range, and none does once a range is set
// (DataElementTest.ALaterDataTypeKeepsTheRange).
OXAResult OXADataElement::SetDataType(DataType type) {
  type_ = type;
  if (range_set_) {
    return S_OK;
  }
  const range values = default_range(type);
  return SetRange(values.minimum, values.maximum);
}

OXAResult OXADataElement::SetTooltip(const char* text) { return set_text(texts_.tooltip, text); }

OXAResult OXADataElement::SetRange(double minimum, double maximum) {
  if (minimum > maximum) {
    return E_INVALIDARG;
  }
  minimum_ = minimum;
  maximum_ = maximum;
  range_set_ = true;
  return S_OK;
}

OXAResult OXADataElement::SetDefaultValue(const char* text) {
  return set_text(texts_.default_value, text);
}

OXAResult OXADataElement::SetUserDefinedTypeString(const char* text) {
  return set_text(texts_.user_defined_type, text);
}
