#include "entities.h"

#include <oxa/sdk/utf8.h>

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace graph {
namespace {

struct Named {
  std::string_view name;
  char code;
};

constexpr Named named[] = {{"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"quot", '"'}, {"apos", '\''}};

// Reads "10" or "xA".
std::optional<char32_t> numbered(std::string_view digits) {
  const bool hexadecimal = !digits.empty() && digits[0] == 'x';
  digits.remove_prefix(hexadecimal ? 1 : 0);
  std::uint32_t code = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, code, hexadecimal ? 16 : 10);
  if (error != std::errc() || stop != end || !allowed_in_xml(code)) {
    return std::nullopt;
  }
  return code;
}

}  // namespace

bool allowed_in_xml(char32_t code) {
  return oxa::is_code_point(code) && code != 0xFFFE && code != 0xFFFF &&
         (code >= 0x20 || code == '\t' || code == '\n' || code == '\r');
}

std::optional<char32_t> decode_reference(std::string_view text, std::size_t& position) {
  const std::string_view rest = text.substr(position + 1, longest_reference - 1);
  const std::string_view name = rest.substr(0, rest.find(';'));
  if (name.size() == rest.size()) {
    return std::nullopt;
  }
  std::optional<char32_t> code;
  if (name.substr(0, 1) == "#") {
    code = numbered(name.substr(1));
  }
  for (const Named& each : named) {
    if (name == each.name) {
      code = each.code;
    }
  }
  position += code ? name.size() + 2 : 0;
  return code;
}

std::string decoded(std::string_view text) {
  std::string plain;
  plain.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t reference = std::min(text.find('&', position), text.size());
    plain += text.substr(position, reference - position);
    position = reference;
    if (position < text.size()) {
      if (const auto code = decode_reference(text, position)) {
        oxa::append_utf8(plain, *code);
      } else {
        plain += text[position++];
      }
    }
  }
  return plain;
}

void append_reference(std::string& text, char32_t code) {
  text += "&#" + std::to_string(static_cast<std::uint32_t>(code)) + ";";
}

std::string as_text(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

// A backslash would make a quote behind it part of the value for the library's reader.
std::string as_attribute(std::string_view text) {
  std::string escaped;
  for (const char c : as_text(text)) {
    if (c == '"' || c == '\\' || c == '\t' || c == '\n') {
      append_reference(escaped, static_cast<unsigned char>(c));
    } else {
      escaped += c;
    }
  }
  return escaped;
}

}  // namespace graph
