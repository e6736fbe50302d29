// What goes with OXAVariant.
#pragma once

#include <oxa/OXAVariant.h>
#include <oxa/data_type.h>

namespace oxa {
inline namespace sdk1 {

// Returns the kind under which values of a data type are stored; a value of any other kind is not
// valid for it. Kind::Nothing for what is no data type.
constexpr OXAVariant::Kind kind_of(OXA::Property::DataType type) {
  using OXA::Property::DataType;
  using Kind = OXAVariant::Kind;
  switch (type) {
    case DataType::Bool:
      return Kind::Bool;
    case DataType::Char:
      return Kind::Char;
    case DataType::UnsignedChar:
      return Kind::UnsignedChar;
    case DataType::Short:
      return Kind::Short;
    case DataType::UnsignedShort:
      return Kind::UnsignedShort;
    case DataType::Int:
      return Kind::Int;
    case DataType::UnsignedInt:
      return Kind::UnsignedInt;
    case DataType::LongLong:
      return Kind::LongLong;
    case DataType::UnsignedLongLong:
      return Kind::UnsignedLongLong;
    case DataType::Float:
      return Kind::Float;
    case DataType::Double:
      return Kind::Double;
    case DataType::String:
    case DataType::Enum:
    case DataType::Code:
    case DataType::Hexadecimal:
    case DataType::File:
    case DataType::UserDefined:
      return Kind::Text;
  }
  return Kind::Nothing;
}

}  // namespace sdk1
}  // namespace oxa
