#include "setting_value.h"

#include <oxa/sdk/properties.h>

#include <charconv>
#include <cstdint>
#include <vector>

#include "problem.h"
#include "text.h"

using OXA::Property::DataType;

namespace {

bool is_real(DataType type) { return type == DataType::Float || type == DataType::Double; }

bool is_whole(DataType type) {
  return type >= DataType::Char && type <= DataType::UnsignedLongLong;
}

bool is_unsigned(DataType type) {
  return type == DataType::UnsignedChar || type == DataType::UnsignedShort ||
         type == DataType::UnsignedInt || type == DataType::UnsignedLongLong;
}

std::vector<std::string> entry_names(IOXAProperty& property) {
  const auto names = oxa::attribute_names(property);
  return {names.begin(), names.end()};
}

std::string bound(double value, bool whole) {
  char text[400];  // the largest double has 309 digits before its point
  const auto end = whole ? std::to_chars(text, text + sizeof text, value, std::chars_format::fixed)
                         : std::to_chars(text, text + sizeof text, value);
  return {text, end.ptr};
}

// The bounds of a number, or nothing when they are those of a data type that is as good as endless.
std::string bounds(IOXAProperty& property) {
  const DataType type = property.DataType();
  const bool wide =
      is_real(type) || type == DataType::LongLong || type == DataType::UnsignedLongLong;
  if (wide && !property.IsRangeSet()) {
    return type == DataType::UnsignedLongLong ? "from 0 on" : "";
  }
  return "from " + bound(property.MinimumValue(), is_whole(type)) + " to " +
         bound(property.MaximumValue(), is_whole(type));
}

// Reads all of the text as a number within the bounds.
template <class Number>
bool is_within_bounds(const std::string& text, IOXAProperty& property) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  const auto value = static_cast<double>(number);
  return error == std::errc() && stop == end && value >= property.MinimumValue() &&
         value <= property.MaximumValue();
}

bool is_taken(IOXAProperty& property, const std::string& text) {
  const DataType type = property.DataType();
  if (type == DataType::Bool) {
    return text == "true" || text == "false" || text == "1" || text == "0";
  }
  if (is_real(type)) {
    return is_within_bounds<double>(text, property);
  }
  if (is_whole(type)) {
    return is_unsigned(type) ? is_within_bounds<std::uint64_t>(text, property)
                             : is_within_bounds<std::int64_t>(text, property);
  }
  return true;
}

std::string advice(IOXAProperty& property, const std::string& text) {
  const DataType type = property.DataType();
  if (type == DataType::Enum) {
    const std::vector<std::string> names = entry_names(property);
    const std::string like = closest(text, names);
    return "use one of " + join(names, ", ") +
           (like.empty() ? "" : " (perhaps " + in_quotes(like) + ")");
  }
  if (type == DataType::Bool) {
    return "use true or false";
  }
  if (!is_whole(type) && !is_real(type)) {
    return "use another value";
  }
  const std::string limits = bounds(property);
  return std::string("use a ") + (is_whole(type) ? "whole " : "") + "number" +
         (limits.empty() ? "" : " ") + limits;
}

}  // namespace

std::string stored_value(IOXAProperty& property, const std::string& text,
                         const std::string& source) {
  if (property.DataType() == DataType::Enum && property.GetAttributeCount() > 0) {
    if (const char* value = oxa::attribute(property, text.c_str())) {
      return value;
    }
    refuse_value(property, text, source);
  }
  if (!is_taken(property, text)) {
    refuse_value(property, text, source);
  }
  return text;
}

void refuse_value(IOXAProperty& property, const std::string& text, const std::string& source) {
  throw Problem(source + " cannot be " + in_quotes(text) + "; " + advice(property, text),
                exit_usage);
}

std::string allowed_values(IOXAProperty& property) {
  const DataType type = property.DataType();
  if (type == DataType::Enum) {
    return join(entry_names(property), ", ");
  }
  if (type == DataType::Bool) {
    return "true, false";
  }
  return is_real(type) || is_whole(type) ? bounds(property) : "";
}

std::string typed_value(IOXAProperty& property, const std::string& stored) {
  char* name = nullptr;
  if (property.DataType() == DataType::Enum &&
      oxa::succeeded(property.GetAttributeFromValue(stored.c_str(), &name))) {
    return name;
  }
  return stored;
}
