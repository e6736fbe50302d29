#include "datatypes/OXADataElement.h"

#include <oxa/IOXAUserDefinedDataType.h>

#include <limits>
#include <utility>

#include "core/set_text.h"
#include "properties/property_range.h"

using OXA::Property::DataType;

namespace {

// Kept: floating-point types begin at their smallest positive normal value, so negative values and
// 0 are below it; and what holds no number has a range too
// (DataElementTest.TheFirstDataTypeSetsItsRange).
property_range default_range(DataType type) {
  property_range range = natural_range(type);
  if (type == DataType::Float) {
    range.minimum = std::numeric_limits<float>::min();
  } else if (type == DataType::Double) {
    range.minimum = std::numeric_limits<double>::min();
  }
  return range;
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

OXAResult OXADataElement::SetName(const char* name) { return oxa::set_text(texts_.name, name); }

// Kept: only the first data type sets its range, and none does once a range is set
// (DataElementTest.ALaterDataTypeKeepsTheRange).
OXAResult OXADataElement::SetDataType(DataType type) {
  type_ = type;
  if (range_set_) {
    return S_OK;
  }
  const property_range values = default_range(type);
  return SetRange(values.minimum, values.maximum);
}

OXAResult OXADataElement::SetTooltip(const char* text) {
  return oxa::set_text(texts_.tooltip, text);
}

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
  return oxa::set_text(texts_.default_value, text);
}

OXAResult OXADataElement::SetUserDefinedTypeString(const char* text) {
  return oxa::set_text(texts_.user_defined_type, text);
}
