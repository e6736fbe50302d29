// Escaping into a string that is already there.
#pragma once

#include <string>
#include <string_view>

namespace oxa {

// Appends what ConvertToHTMLEscapedText returns for `text`. Throws std::bad_alloc.
void append_escaped(std::string_view text, std::string& to);

}  // namespace oxa
