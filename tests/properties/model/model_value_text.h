// Values as text and text as values, by the standard functions.
#pragma once

#include <oxa/OXAVariant.h>
#include <oxa/data_type.h>
#include <oxa/result.h>

#include <optional>
#include <string>

namespace oxa_test::model {

// The kind under which values of a data type are stored, none for what is no data type.
std::optional<OXAVariant::Kind> stored_kind(OXA::Property::DataType type);

// Tells whether there is anything but white space and zero bytes in a text.
bool is_storable(const std::string& text);

// Reads a text as a value of a data type; after a failure the value is as it was.
OXAResult parse_value(OXA::Property::DataType type, const std::string& text, OXAVariant& value);

// Writes a value; nothing if it is not of the kind of the data type.
std::optional<std::string> format_value(OXA::Property::DataType type, const OXAVariant& value);

}  // namespace oxa_test::model
