// Escaping of the three characters.
#include <oxa/xml_text.h>

#include <algorithm>
#include <bit>
#include <stdexcept>
#include <string_view>

#include "xml/xml_characters.h"
#include "xml/xml_escape.h"

namespace oxa {
namespace {

bool begins_entity(std::string_view text) {
  return text.starts_with("&amp;") || text.starts_with("&lt;") || text.starts_with("&gt;");
}

std::string_view checked(const char* text) {
  if (text == nullptr) {
    throw std::logic_error("the text is null");
  }
  return text;
}

// Returns how many characters are in front of the first one to be escaped.
std::size_t plain_length(std::string_view text) {
  std::size_t at = 0;
  for (; text.size() - at >= vector_bytes; at += vector_bytes) {
    const character_vector part = load(text.data() + at);
    const unsigned found = positions(either(equal(part, '<'), equal(part, '>'), equal(part, '&')));
    if (found != 0) {
      return at + static_cast<std::size_t>(std::countr_zero(found));
    }
  }
  return std::min(text.find_first_of("<>&", at), text.size());
}

}  // namespace

void append_escaped(std::string_view text, std::string& to) {
  for (;;) {
    const std::size_t plain = plain_length(text);
    to.append(text.substr(0, plain));
    text.remove_prefix(plain);
    if (text.empty()) {
      return;
    }
    if (text.front() == '<') {
      to += "&lt;";
    } else if (text.front() == '>') {
      to += "&gt;";
    } else {
      to += begins_entity(text) ? "&" : "&amp;";
    }
    text.remove_prefix(1);
  }
}

}  // namespace oxa

std::string ConvertToHTMLEscapedText(const char* text) {
  const std::string_view source = oxa::checked(text);
  std::string escaped;
  escaped.reserve(source.size());
  oxa::append_escaped(source, escaped);
  return escaped;
}

// Kept: "&amp;" is looked for until there is none, so that each run of "amp;" behind an ampersand
// goes; the angle brackets are decoded once, before that, so "&amp;lt;" ends as "&lt;"
// (EscapingTest.DecodesTheTableOfTexts).
std::string ConvertFromHTMLEscapedText(const char* text) {
  using namespace std::string_view_literals;
  std::string_view rest = oxa::checked(text);
  std::string plain;
  plain.reserve(rest.size());
  for (;;) {
    const std::size_t before = rest.find('&');
    plain.append(rest.substr(0, before));
    if (before == std::string_view::npos) {
      return plain;
    }
    rest.remove_prefix(before + 1);
    if (rest.starts_with("lt;") || rest.starts_with("gt;")) {
      plain += rest.front() == 'l' ? '<' : '>';
      rest.remove_prefix(3);
      continue;
    }
    plain += '&';
    while (rest.starts_with("amp;")) {
      rest.remove_prefix("amp;"sv.size());
    }
  }
}
