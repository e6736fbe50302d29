// Values of attributes as text and back.
//
// The library converts as well, but behind settings alone, which take and give text and keep one
// value each: reading a file through a scratch setting would look up a path and copy twice for each
// value, and still leave the variant to be made. It also takes "12 apples" for 12 and 300 for 44,
// by rules meant for settings, and its real numbers follow the locale. What stands in a file of
// data is taken as a whole or not at all.
#pragma once

#include <oxa/OXAVariant.h>
#include <oxa/data_type.h>
#include <oxa/sdk/variant.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace graph {

// Whether `text` is `word`, which is in small letters; letters of ASCII stand for both cases.
inline bool is_word(std::string_view text, std::string_view word) {
  std::string small(text);
  for (char& letter : small) {
    letter = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  }
  return small == word;
}

// Returns `text` without the blanks, tabs and ends of lines around it.
inline std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  return text.substr(0, text.find_last_not_of(blanks) + 1);
}

// Reads a whole text as a number; nothing for one that `Number` cannot hold.
template <class Number>
std::optional<Number> parse_number(std::string_view text) {
  text = trimmed(text);
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') {
    text.remove_prefix(1);
  }
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end ? std::optional<Number>(number) : std::nullopt;
}

// Reads "true" or "1", "false" or "0"; the words in either case, since some programs write "True".
inline std::optional<bool> parse_bool(std::string_view text) {
  text = trimmed(text);
  const bool yes = text == "1" || is_word(text, "true");
  return yes || text == "0" || is_word(text, "false") ? std::optional<bool>(yes) : std::nullopt;
}

template <class Value>
std::optional<OXAVariant> variant_if(std::optional<Value> value) {
  return value ? std::optional<OXAVariant>(oxa::make_variant(*value)) : std::nullopt;
}

// Reads a value of a data type; nothing when the text is none. Numbers and truth values may have
// blanks around them. Throws std::bad_alloc.
inline std::optional<OXAVariant> parse_value(OXA::Property::DataType type, std::string_view text) {
  switch (oxa::kind_of(type)) {
    case OXAVariant::Kind::Bool:
      return variant_if(parse_bool(text));
    case OXAVariant::Kind::Char:
      return variant_if(parse_number<char>(text));
    case OXAVariant::Kind::UnsignedChar:
      return variant_if(parse_number<unsigned char>(text));
    case OXAVariant::Kind::Short:
      return variant_if(parse_number<short>(text));
    case OXAVariant::Kind::UnsignedShort:
      return variant_if(parse_number<unsigned short>(text));
    case OXAVariant::Kind::Int:
      return variant_if(parse_number<int>(text));
    case OXAVariant::Kind::UnsignedInt:
      return variant_if(parse_number<unsigned int>(text));
    case OXAVariant::Kind::LongLong:
      return variant_if(parse_number<long long>(text));
    case OXAVariant::Kind::UnsignedLongLong:
      return variant_if(parse_number<unsigned long long>(text));
    case OXAVariant::Kind::Float:
      return variant_if(parse_number<float>(text));
    case OXAVariant::Kind::Double:
      return variant_if(parse_number<double>(text));
    case OXAVariant::Kind::Text:
      return oxa::make_variant(std::string(text));
    default:
      return std::nullopt;
  }
}

// Writes a number with as few digits as read back equal, whatever the locale; those without digits
// as XML spells them.
template <class Number>
std::string number_as_text(Number number) {
  if constexpr (!std::numeric_limits<Number>::is_integer) {
    if (!std::isfinite(number)) {
      return std::isnan(number) ? "NaN" : number < 0 ? "-INF" : "INF";
    }
  }
  std::array<char, 32> digits{};
  return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr};
}

// Calls `use` with the number that a variant holds; not for truth values, texts and nothing.
template <class Use>
void with_number(const OXAVariant& value, Use&& use) {
  switch (value.kind) {
    case OXAVariant::Kind::Char:
      return use(static_cast<int>(value.char_value));
    case OXAVariant::Kind::UnsignedChar:
      return use(static_cast<int>(value.unsigned_char_value));
    case OXAVariant::Kind::Short:
      return use(value.short_value);
    case OXAVariant::Kind::UnsignedShort:
      return use(value.unsigned_short_value);
    case OXAVariant::Kind::Int:
      return use(value.int_value);
    case OXAVariant::Kind::UnsignedInt:
      return use(value.unsigned_int_value);
    case OXAVariant::Kind::LongLong:
      return use(value.long_long_value);
    case OXAVariant::Kind::UnsignedLongLong:
      return use(value.unsigned_long_long_value);
    case OXAVariant::Kind::Float:
      return use(value.float_value);
    case OXAVariant::Kind::Double:
      return use(value.double_value);
    default:
      return;
  }
}

// Returns a value as text that parse_value reads as the same value; empty for the kind Nothing.
// Throws std::bad_alloc.
inline std::string value_text(const OXAVariant& value) {
  if (value.kind == OXAVariant::Kind::Bool) {
    return value.bool_value ? "true" : "false";
  }
  std::string text = value.kind == OXAVariant::Kind::Text ? value.text : std::string();
  with_number(value, [&](auto number) { text = number_as_text(number); });
  return text;
}

}  // namespace graph
