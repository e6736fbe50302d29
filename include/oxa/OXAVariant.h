// A value of any data type.
#pragma once

#include <cstdint>
#include <string>

// A scalar or a text, and which of them it is. A plain record: copying copies all of it, and
// nothing keeps member and kind together, so set both. It crosses the binary interface with the
// std::string inside, so both sides need the C++ library of GCC with its present strings
// (docs/abi.md).
struct OXAVariant {
  // Which member holds the value: exactly one of these. The order is not that of
  // OXA::Property::DataType, and 0x800 is none of them; oxa::kind_of (sdk/variant.h) maps one to
  // the other.
  enum class Kind : std::uint32_t {
    Nothing = 0,
    Char = 0x1,
    UnsignedChar = 0x2,
    Short = 0x4,
    UnsignedShort = 0x8,
    Int = 0x10,
    LongLong = 0x20,
    UnsignedInt = 0x40,
    UnsignedLongLong = 0x80,
    Float = 0x100,
    Double = 0x200,
    Bool = 0x400,
    Text = 0x1000,
  };

  // One cell of 64 bits, read as the kind says; a narrow value leaves its other bytes as they are.
  union {
    std::uint64_t bits = 0;
    bool bool_value;
    char char_value;
    unsigned char unsigned_char_value;
    short short_value;
    unsigned short unsigned_short_value;
    int int_value;
    unsigned int unsigned_int_value;
    long long long_long_value;
    unsigned long long unsigned_long_long_value;
    float float_value;
    double double_value;
  };
  std::string text;  // of the kind Text alone
  Kind kind = Kind::Nothing;
};
