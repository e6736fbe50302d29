// Reading UTF-8, and converting between it and the wide strings in which paths cross interfaces.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace oxa {
inline namespace sdk1 {

// What decode_utf8 returns for a byte that begins no well-formed character.
inline constexpr char32_t not_utf8 = 0xFFFFFFFF;

constexpr bool is_code_point(char32_t code) {
  return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

// Returns the code point at `position`, which must be inside `text`, and moves past it; past one
// byte when it is malformed.
constexpr char32_t decode_utf8(std::string_view text, std::size_t& position) {
  constexpr char32_t least[] = {0, 0x80, 0x800, 0x10000};
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  const unsigned char lead = byte(position++);
  if (lead < 0x80) {
    return lead;
  }
  const std::size_t more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
  if (lead < 0xC2 || lead > 0xF4 || text.size() - position < more) {
    return not_utf8;
  }
  char32_t code = lead & (0x3FU >> more);
  for (std::size_t index = 0; index < more; ++index) {
    const unsigned char next = byte(position + index);
    if ((next & 0xC0U) != 0x80) {
      return not_utf8;
    }
    code = code << 6 | (next & 0x3FU);
  }
  if (code < least[more] || !is_code_point(code)) {
    return not_utf8;
  }
  position += more;
  return code;
}

constexpr bool is_utf8(std::string_view text) {
  for (std::size_t position = 0; position < text.size();) {
    if (decode_utf8(text, position) == not_utf8) {
      return false;
    }
  }
  return true;
}

// Appends a code point; anything else is dropped.
inline void append_utf8(std::string& text, char32_t code) {
  if (!is_code_point(code)) {
    return;
  }
  const auto tail = [&](int shift) {
    text += static_cast<char>(0x80U | ((code >> shift) & 0x3FU));
  };
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0U | (code >> 6));
    tail(0);
  } else if (code < 0x10000) {
    text += static_cast<char>(0xE0U | (code >> 12));
    tail(6);
    tail(0);
  } else {
    text += static_cast<char>(0xF0U | (code >> 18));
    tail(12);
    tail(6);
    tail(0);
  }
}

// Returns UTF-8 as a wide string, as the library takes paths. Malformed bytes are dropped one by
// one; the directory scanner, which gives names for what it finds, drops a sequence with the byte
// that breaks it.
inline std::wstring widen(std::string_view text) {
  std::wstring wide;
  for (std::size_t position = 0; position < text.size();) {
    const char32_t code = decode_utf8(text, position);
    if (code != not_utf8) {
      wide += static_cast<wchar_t>(code);
    }
  }
  return wide;
}

// Returns a wide string, as the library gives file names, as UTF-8; what is no code point is
// dropped.
inline std::string narrow(std::wstring_view wide) {
  std::string text;
  for (const wchar_t code : wide) {
    append_utf8(text, static_cast<char32_t>(code));
  }
  return text;
}

}  // namespace sdk1
}  // namespace oxa
