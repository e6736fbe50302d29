#include "svg_text.h"

#include <oxa/sdk/utf8.h>

#include <array>
#include <charconv>
#include <cmath>

namespace graph {
namespace {

bool allowed_in_xml(char32_t code) {
  return code != oxa::not_utf8 && code != 0xFFFE && code != 0xFFFF &&
         (code >= 0x20 || code == '\t' || code == '\n' || code == '\r');
}

// Widths of common sans-serif fonts, in classes.
double advance(char32_t code) {
  constexpr std::string_view narrow = "fijlrtI.,:;'|!()[]- ";
  constexpr std::string_view wide = "mwMW@%";
  const bool combining = code >= 0x300 && code < 0x370;
  if (code == oxa::not_utf8 || combining) {
    return 0;
  }
  if (code >= 0x1100 && (code < 0x1E00 || code >= 0x2E80)) {
    return 1;
  }
  if (code < 0x80) {
    const char c = static_cast<char>(code);
    if (narrow.find(c) != std::string_view::npos) {
      return 0.34;
    }
    if (wide.find(c) != std::string_view::npos) {
      return 0.9;
    }
    return c >= 'A' && c <= 'Z' ? 0.7 : 0.58;
  }
  return 0.62;
}

}  // namespace

std::string xml_escaped(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t begin = position;
    const char32_t code = oxa::decode_utf8(text, position);
    if (code == '&') {
      escaped += "&amp;";
    } else if (code == '<') {
      escaped += "&lt;";
    } else if (code == '>') {
      escaped += "&gt;";
    } else if (code == '"') {
      escaped += "&quot;";
    } else if (allowed_in_xml(code)) {
      escaped += text.substr(begin, position - begin);
    }
  }
  return escaped;
}

std::string number_text(double value) {
  if (std::isnan(value)) {
    return "none";
  }
  std::array<char, 64> digits{};
  const bool whole = std::abs(value) >= 1000 && std::abs(value) < 1e15;
  const auto [end, error] = whole ? std::to_chars(digits.data(), digits.data() + digits.size(),
                                                  value, std::chars_format::fixed, 0)
                                  : std::to_chars(digits.data(), digits.data() + digits.size(),
                                                  value, std::chars_format::general, 4);
  return {digits.data(), end};
}

std::string count_text(std::size_t count, const char* one) {
  return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

double text_width(std::string_view text) {
  double width = 0;
  for (std::size_t position = 0; position < text.size();) {
    width += advance(oxa::decode_utf8(text, position));
  }
  return width;
}

std::string shortened(std::string_view text, double width) {
  constexpr double ellipsis_width = 1;
  if (text_width(text) <= width) {
    return std::string(text);
  }
  double used = ellipsis_width;
  std::size_t kept = 0;
  for (std::size_t position = 0; position < text.size(); kept = position) {
    used += advance(oxa::decode_utf8(text, position));
    if (used > width) {
      break;
    }
  }
  return std::string(text.substr(0, kept)) + "\u2026";
}

}  // namespace graph
