// The bounds of properties.
#pragma once

#include <oxa/data_type.h>
#include <oxa/result.h>

#include <string_view>

struct property_range {
  double minimum = 0;
  double maximum = 1;
};

// Returns the natural bounds of a data type. Of 64-bit integers the maximum is the next power of
// two, which is what it rounds to.
property_range natural_range(OXA::Property::DataType type);

// Returns the bounds that a property takes from the type string of its record type.
property_range range_of_type_string(std::string_view name);

// Tells whether a property of a data type may take a range in place of the present one.
// S_OK; E_UNEXPECTED without a data type; E_FAIL.
OXAResult check_range(OXA::Property::DataType type, property_range present, property_range wanted);
