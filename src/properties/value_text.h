// Values of properties as text.
#pragma once

#include <oxa/OXAVariant.h>
#include <oxa/data_type.h>
#include <oxa/result.h>

#include <string>
#include <string_view>

// Tells whether a text may be stored: whether it has a character besides blanks, tabs, ends of
// lines and zero bytes.
bool test_string(std::string_view text);

// Parses a text by a data type and stores it in `value`, whose text a scalar leaves as it is.
// S_OK; E_INVALIDARG for a text that the data type does not take; E_UNEXPECTED for what is no data
// type; E_OUTOFMEMORY. After a failure `value` is as it was.
OXAResult parse_value(OXA::Property::DataType type, const char* text, OXAVariant& value);

// Writes a value, which is of the data type's kind, in place of `text`. Throws std::bad_alloc.
void format_value(OXA::Property::DataType type, const OXAVariant& value, std::string& text);
