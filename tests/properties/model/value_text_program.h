// Values as text and text as values, in the library and in the model.
#pragma once

#include <cstdint>
#include <string>

namespace oxa_test::model {

// Reads a text as a value of each data type and writes the values again; writes the bits and the
// text as a value of each kind. Throws std::runtime_error where library and model differ.
void compare_value_text(const std::string& text, std::uint64_t bits);

// Writes a number with the digits of both floating-point types, and reads what the model has
// written. Much faster.
void compare_real(double number);

}  // namespace oxa_test::model
