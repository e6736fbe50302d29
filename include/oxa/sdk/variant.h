// Making and reading variants.
#pragma once

#include <oxa/OXAVariant.h>
#include <oxa/data_type.h>

#include <optional>
#include <string>
#include <utility>

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

// The member of a variant that holds a C++ type, and the kind that says so. There is one for each
// type that a variant can hold and for no other, so that nothing is converted on the way: `long`,
// and so std::int64_t and std::size_t, is none of them.
template <class Value>
struct VariantMember {
  static_assert(sizeof(Value) == 0,
                "a variant holds no such type; cast to one that it holds, such as long long");
};

#define OXA_VARIANT_MEMBER(type, kind_name, member_name)                  \
  template <>                                                             \
  struct VariantMember<type> {                                            \
    static constexpr OXAVariant::Kind kind = OXAVariant::Kind::kind_name; \
    static constexpr type OXAVariant::*member = &OXAVariant::member_name; \
  }
OXA_VARIANT_MEMBER(bool, Bool, bool_value);
OXA_VARIANT_MEMBER(char, Char, char_value);
OXA_VARIANT_MEMBER(unsigned char, UnsignedChar, unsigned_char_value);
OXA_VARIANT_MEMBER(short, Short, short_value);
OXA_VARIANT_MEMBER(unsigned short, UnsignedShort, unsigned_short_value);
OXA_VARIANT_MEMBER(int, Int, int_value);
OXA_VARIANT_MEMBER(unsigned int, UnsignedInt, unsigned_int_value);
OXA_VARIANT_MEMBER(long long, LongLong, long_long_value);
OXA_VARIANT_MEMBER(unsigned long long, UnsignedLongLong, unsigned_long_long_value);
OXA_VARIANT_MEMBER(float, Float, float_value);
OXA_VARIANT_MEMBER(double, Double, double_value);
OXA_VARIANT_MEMBER(std::string, Text, text);
#undef OXA_VARIANT_MEMBER

// Makes a variant of the kind that belongs to the value's C++ type: `make_variant(3)` is an Int,
// `make_variant("a")` a Text. Throws std::bad_alloc.
template <class Value>
OXAVariant make_variant(Value value) {
  OXAVariant variant;
  variant.*VariantMember<Value>::member = std::move(value);
  variant.kind = VariantMember<Value>::kind;
  return variant;
}

// Null counts as an empty text.
inline OXAVariant make_variant(const char* text) {
  return make_variant(std::string(text == nullptr ? "" : text));
}
inline OXAVariant make_variant(char* text) { return make_variant(static_cast<const char*>(text)); }

// Returns the value of a variant, nothing when it is of another kind: `value_of<int>(variant)`.
// Throws std::bad_alloc.
template <class Value>
std::optional<Value> value_of(const OXAVariant& variant) {
  if (variant.kind != VariantMember<Value>::kind) {
    return std::nullopt;
  }
  return variant.*VariantMember<Value>::member;
}

}  // namespace sdk1
}  // namespace oxa
