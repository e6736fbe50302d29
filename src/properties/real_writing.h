// Floating-point numbers as text.
#pragma once

#include <string>

// Writes a number in place of `text`, with at most so many digits, as a fresh stream does. Throws
// std::bad_alloc.
void write_real(double number, int precision, std::string& text);
