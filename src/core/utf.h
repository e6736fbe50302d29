// Conversion between wide strings, in which paths cross interfaces, and UTF-8.
#pragma once

#include <string>

namespace oxa {

// Both skip what they cannot convert: surrogates and values that are no code points one way,
// malformed sequences the other. Throw std::bad_alloc.
std::string to_utf8(const wchar_t* wide);
std::wstring from_utf8(const char* utf8);

}  // namespace oxa
