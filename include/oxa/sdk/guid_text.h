// Interface ids as text.
#pragma once

#include <oxa/guid.h>

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace oxa {
inline namespace sdk1 {

// Returns an id as "{0154AC61-6A91-4795-9CA3-E7B6092FA95F}". A first group beyond 32 bits takes as
// many digits as it needs.
inline std::string to_string(const _GUID& id) {
  constexpr char digits[] = "0123456789ABCDEF";
  std::string text = "{";
  const auto append = [&](unsigned long value, int width) {
    for (int digit = width; digit-- > 0;) {
      text += digits[(value >> (4 * digit)) & 0xFU];
    }
  };
  int width = 8;
  while (width < 16 && (id.Data1 >> (4 * width)) != 0) {
    ++width;
  }
  append(id.Data1, width);
  text += '-';
  append(id.Data2, 4);
  text += '-';
  append(id.Data3, 4);
  for (int byte = 0; byte < 8; ++byte) {
    if (byte == 0 || byte == 2) {
      text += '-';
    }
    append(id.Data4[byte], 2);
  }
  return text += '}';
}

// Reads an id from the form that to_string writes, in either case. Empty for anything else.
constexpr std::optional<_GUID> parse_guid(std::string_view text) {
  std::size_t position = 0;
  const auto skip = [&](char expected) {
    return position < text.size() && text[position++] == expected;
  };
  const auto number = [&](int least, int most, unsigned long& value) {
    value = 0;
    int digits = 0;
    for (; digits < most && position < text.size(); ++digits, ++position) {
      const char c = text[position];
      unsigned digit = 0;
      if (c >= '0' && c <= '9') {
        digit = static_cast<unsigned>(c - '0');
      } else if (c >= 'A' && c <= 'F') {
        digit = static_cast<unsigned>(c - 'A') + 10;
      } else if (c >= 'a' && c <= 'f') {
        digit = static_cast<unsigned>(c - 'a') + 10;
      } else {
        break;
      }
      value = value << 4 | digit;
    }
    return digits >= least;
  };

  _GUID id{};
  unsigned long group = 0;
  if (!skip('{') || !number(8, 16, id.Data1) || !skip('-') || !number(4, 4, group)) {
    return std::nullopt;
  }
  id.Data2 = static_cast<unsigned short>(group);
  if (!skip('-') || !number(4, 4, group)) {
    return std::nullopt;
  }
  id.Data3 = static_cast<unsigned short>(group);
  for (int byte = 0; byte < 8; ++byte) {
    if (((byte == 0 || byte == 2) && !skip('-')) || !number(2, 2, group)) {
      return std::nullopt;
    }
    id.Data4[byte] = static_cast<unsigned char>(group);
  }
  if (!skip('}') || position != text.size()) {
    return std::nullopt;
  }
  return id;
}

// Returns the id written in `text`; made for constants: `constexpr _GUID IID_IMine = oxa::guid(
// "{...}");` does not compile when the text is malformed. Throws std::invalid_argument at run time.
constexpr _GUID guid(std::string_view text) {
  const std::optional<_GUID> id = parse_guid(text);
  return id ? *id : throw std::invalid_argument("not an interface id");
}

}  // namespace sdk1
}  // namespace oxa
