// What values a setting takes. The preferences themselves check neither range nor entries, and take
// "12abc" for the number 12.
#pragma once

#include <oxa/IOXAProperty.h>

#include <string>

// Returns what to store for a value that somebody typed: of an enumeration, the value of the entry.
// Throws Problem as refuse_value does.
std::string stored_value(IOXAProperty& property, const std::string& text,
                         const std::string& source);

// Throws Problem with exit_usage, telling what was given and what is allowed. `source` begins the
// sentence: "the option --theme".
[[noreturn]] void refuse_value(IOXAProperty& property, const std::string& text,
                               const std::string& source);

// Returns the values that a setting takes, "from 1 to 20" or "auto, light, dark", or nothing when
// it takes any of its data type.
std::string allowed_values(IOXAProperty& property);

// Returns a stored value the way people type it: of an enumeration, the name of the entry.
std::string typed_value(IOXAProperty& property, const std::string& stored);
