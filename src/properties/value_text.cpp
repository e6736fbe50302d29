#include "properties/value_text.h"

#include <oxa/sdk/guard.h>
#include <oxa/sdk/variant.h>

#include <charconv>
#include <cstdlib>

#include "properties/number_reading.h"
#include "properties/real_writing.h"

using OXA::Property::DataType;

namespace {

bool read_bool(const char* text, bool& member) {
  const std::string_view given = text == nullptr ? "" : text;
  const bool yes = given == "true" || given == "1";
  if (!yes && given != "false" && given != "0") {
    return false;
  }
  member = yes;
  return true;
}

// Reads a scalar; false for a text that the data type does not take.
bool read_scalar(DataType type, const char* text, OXAVariant& value) {
  switch (type) {
    case DataType::Bool:
      return read_bool(text, value.bool_value);
    case DataType::Char:
      return read_small_integer(text, value.char_value);
    case DataType::UnsignedChar:
      return read_small_integer(text, value.unsigned_char_value);
    case DataType::Short:
      return read_small_integer(text, value.short_value);
    case DataType::UnsignedShort:
      return read_small_integer(text, value.unsigned_short_value);
    case DataType::Int:
      return read_integer(text, std::strtol, value.int_value);
    case DataType::UnsignedInt:
      return read_integer(text, std::strtoul, value.unsigned_int_value);
    case DataType::LongLong:
      return read_integer(text, std::strtoll, value.long_long_value);
    case DataType::UnsignedLongLong:
      return read_integer(text, std::strtoull, value.unsigned_long_long_value);
    case DataType::Float:
      return read_real(text, std::strtof, value.float_value);
    case DataType::Double:
      return read_real(text, std::strtod, value.double_value);
    default:
      return false;
  }
}

// A long long has 20 characters.
constexpr std::size_t longest_integer = 24;

template <class Integer>
void write_integer(Integer number, std::string& text) {
  char buffer[longest_integer];
  text.assign(buffer, std::to_chars(buffer, buffer + sizeof buffer, number).ptr);
}

}  // namespace

bool test_string(std::string_view text) {
  return text.find_first_not_of(std::string_view(" \t\n\r\0", 5)) != std::string_view::npos;
}

OXAResult parse_value(DataType type, const char* text, OXAVariant& value) {
  const OXAVariant::Kind kind = oxa::kind_of(type);
  if (kind == OXAVariant::Kind::Nothing) {
    return E_UNEXPECTED;
  }
  if (kind == OXAVariant::Kind::Text) {
    return oxa::guard([&] {
      if (text != nullptr) {
        value.text = text;
        value.kind = kind;
      }
      return S_OK;
    });
  }
  if (!read_scalar(type, text, value)) {
    return E_INVALIDARG;
  }
  value.kind = kind;
  return S_OK;
}

void format_value(DataType type, const OXAVariant& value, std::string& text) {
  switch (type) {
    case DataType::Bool:
      text = value.unsigned_char_value != 0 ? "true" : "false";
      return;
    case DataType::Char:
      return write_integer(static_cast<int>(value.char_value), text);
    case DataType::UnsignedChar:
      return write_integer(static_cast<int>(value.unsigned_char_value), text);
    case DataType::Short:
      return write_integer(value.short_value, text);
    case DataType::UnsignedShort:
      return write_integer(value.unsigned_short_value, text);
    case DataType::Int:
      return write_integer(value.int_value, text);
    case DataType::UnsignedInt:
      return write_integer(value.unsigned_int_value, text);
    case DataType::LongLong:
      return write_integer(value.long_long_value, text);
    case DataType::UnsignedLongLong:
      return write_integer(value.unsigned_long_long_value, text);
    case DataType::Float:
      return write_real(value.float_value, 8, text);
    case DataType::Double:
      return write_real(value.double_value, 16, text);
    default:
      text = value.text;
      return;
  }
}
