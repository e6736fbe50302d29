// The data types of properties and of the members of record types.
#pragma once

#include <cstdint>

namespace OXA {
namespace Property {

// What a value is. The numbers cross the binary interface; operations that distinguish data types
// treat all others as unknown. Include this before the headers of X11, where `Bool` is a macro.
enum class DataType : std::int32_t {
  Bool = 0,
  String = 1,
  Char = 2,
  UnsignedChar = 3,
  Int = 4,
  UnsignedInt = 5,
  Short = 6,
  UnsignedShort = 7,
  LongLong = 8,
  UnsignedLongLong = 9,
  Float = 10,
  Double = 11,
  Enum = 12,
  Code = 13,
  Hexadecimal = 14,
  File = 15,
  UserDefined = 16,  // a record type, named by a type string: see IOXAUserDefinedDataTypeManager
};

// What an unknown name stands for, and what a member is before its data type is set.
inline constexpr DataType NoDataType = static_cast<DataType>(-1);

}  // namespace Property
}  // namespace OXA
