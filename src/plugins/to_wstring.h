// Wide text from short narrow pieces.
#pragma once

#include <sstream>
#include <string>

namespace oxa {

// Writes `value` into a wide stream and returns its text. Narrow characters are widened one by one
// by the stream's locale: this does not decode UTF-8.
template <class Value>
std::wstring to_wstring(const Value& value) {
  std::wostringstream stream;
  stream << value;
  return stream.str();
}

}  // namespace oxa
