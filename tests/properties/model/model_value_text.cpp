#include "properties/model/model_value_text.h"

#include <cstdio>
#include <iomanip>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>

namespace oxa_test::model {

using Kind = OXAVariant::Kind;
using OXA::Property::DataType;

namespace {

const std::map<DataType, Kind> kinds = {
    {DataType::Bool, Kind::Bool},         {DataType::String, Kind::Text},
    {DataType::Char, Kind::Char},         {DataType::UnsignedChar, Kind::UnsignedChar},
    {DataType::Int, Kind::Int},           {DataType::UnsignedInt, Kind::UnsignedInt},
    {DataType::Short, Kind::Short},       {DataType::UnsignedShort, Kind::UnsignedShort},
    {DataType::LongLong, Kind::LongLong}, {DataType::UnsignedLongLong, Kind::UnsignedLongLong},
    {DataType::Float, Kind::Float},       {DataType::Double, Kind::Double},
    {DataType::Enum, Kind::Text},         {DataType::Code, Kind::Text},
    {DataType::Hexadecimal, Kind::Text},  {DataType::File, Kind::Text},
    {DataType::UserDefined, Kind::Text}};

const std::set<char> blanks = {' ', '\t', '\n', '\r', '\0'};

}  // namespace

std::optional<Kind> stored_kind(DataType type) {
  const auto found = kinds.find(type);
  return found == kinds.end() ? std::nullopt : std::optional<Kind>(found->second);
}

bool is_storable(const std::string& text) {
  for (const char character : text) {
    if (blanks.count(character) == 0) {
      return true;
    }
  }
  return false;
}

namespace {

bool parse_bool(const std::string& text) {
  if (text == "true" || text == "1") {
    return true;
  }
  if (text == "false" || text == "0") {
    return false;
  }
  throw std::invalid_argument(text);
}

// Throws what the standard functions throw.
void parse_as(Kind kind, const std::string& text, OXAVariant& value) {
  switch (kind) {
    case Kind::Bool:
      value.bool_value = parse_bool(text);
      break;
    case Kind::Char:
      value.char_value = static_cast<char>(std::stoi(text));
      break;
    case Kind::UnsignedChar:
      value.unsigned_char_value = static_cast<unsigned char>(std::stoi(text));
      break;
    case Kind::Short:
      value.short_value = static_cast<short>(std::stoi(text));
      break;
    case Kind::UnsignedShort:
      value.unsigned_short_value = static_cast<unsigned short>(std::stoi(text));
      break;
    case Kind::Int:
      value.int_value = static_cast<int>(std::stol(text));
      break;
    case Kind::UnsignedInt:
      value.unsigned_int_value = static_cast<unsigned int>(std::stoul(text));
      break;
    case Kind::LongLong:
      value.long_long_value = std::stoll(text);
      break;
    case Kind::UnsignedLongLong:
      value.unsigned_long_long_value = std::stoull(text);
      break;
    case Kind::Float:
      value.float_value = std::stof(text);
      break;
    case Kind::Double:
      value.double_value = std::stod(text);
      break;
    default:
      value.text = text;
      break;
  }
  value.kind = kind;
}

template <class Value>
std::string printed(const char* format, Value value) {
  char text[32];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

std::string streamed(double value, int precision) {
  std::ostringstream stream;
  stream << std::setprecision(precision) << value;
  return stream.str();
}

}  // namespace

OXAResult parse_value(DataType type, const std::string& text, OXAVariant& value) {
  const std::optional<Kind> kind = stored_kind(type);
  if (!kind) {
    return E_UNEXPECTED;
  }
  try {
    parse_as(*kind, text, value);
  } catch (const std::logic_error&) {
    return E_INVALIDARG;  // invalid_argument or out_of_range
  }
  return S_OK;
}

std::optional<std::string> format_value(DataType type, const OXAVariant& value) {
  if (stored_kind(type) != value.kind) {
    return std::nullopt;
  }
  switch (value.kind) {
    case Kind::Bool:
      return value.bool_value ? "true" : "false";
    case Kind::Char:
      return printed("%d", value.char_value);
    case Kind::UnsignedChar:
      return printed("%d", value.unsigned_char_value);
    case Kind::Short:
      return printed("%d", value.short_value);
    case Kind::UnsignedShort:
      return printed("%d", value.unsigned_short_value);
    case Kind::Int:
      return printed("%d", value.int_value);
    case Kind::UnsignedInt:
      return printed("%u", value.unsigned_int_value);
    case Kind::LongLong:
      return printed("%lld", value.long_long_value);
    case Kind::UnsignedLongLong:
      return printed("%llu", value.unsigned_long_long_value);
    case Kind::Float:
      return streamed(static_cast<double>(value.float_value), 8);
    case Kind::Double:
      return streamed(value.double_value, 16);
    default:
      return value.text;
  }
}

}  // namespace oxa_test::model
