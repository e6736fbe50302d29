#include "properties/model/program.h"

#include <cstddef>
#include <limits>
#include <stdexcept>

namespace oxa_test::model {

using Kind = OXAVariant::Kind;

namespace {

constexpr Kind kinds[] = {Kind::Nothing,
                          Kind::Char,
                          Kind::UnsignedChar,
                          Kind::Short,
                          Kind::UnsignedShort,
                          Kind::Int,
                          Kind::LongLong,
                          Kind::UnsignedInt,
                          Kind::UnsignedLongLong,
                          Kind::Float,
                          Kind::Double,
                          Kind::Bool,
                          Kind::Text,
                          static_cast<Kind>(0x800),
                          static_cast<Kind>(0x1400)};

// Small numbers, those at the ends of types, and floating-point numbers of both widths.
constexpr std::uint64_t scalars[] = {0,
                                     1,
                                     42,
                                     0x7F,
                                     0x80,
                                     0xFF,
                                     0x8000,
                                     0xFFFF,
                                     0x7FFFFFFF,
                                     0x80000000,
                                     0xFFFFFFFF,
                                     0x8000000000000000,
                                     0xFFFFFFFFFFFFFFFF,
                                     0x3DCCCCCD,
                                     0x7F800000,
                                     0x3FB999999999999A,
                                     0x4415AF1D78B58C40,
                                     0x7FF0000000000000,
                                     0x0000000000000001,
                                     0x123456789ABCDEF0};

[[noreturn]] void differ(const std::string& what, const std::string& library,
                         const std::string& model) {
  throw std::runtime_error(what + ": " + library + ", but " + model + " in the model");
}

}  // namespace

const std::vector<const char*> value_texts = {
    "1", "0", "true", "false", "42", "-1", "300", "0.1", "word", "", " \t\r\n", nullptr, "\t +7x",
    "TRUE", "1e20", "-2147483649", "4294967296", "9223372036854775808", "18446744073709551616",
    "3.5e38", "1e309", "0x1p4", "inf", "-nan", "1e-320", "- 1",
    // These round up to the smallest normal numbers.
    "1.1754943e-38", "-2.2250738585072012e-308"};

Kind Program::any_kind() { return of(kinds); }

OXAVariant Program::variant(Kind kind) {
  OXAVariant value;
  value.kind = kind;
  if (value.kind == Kind::Text) {
    const char* const given = text(value_texts);
    value.text = given == nullptr ? std::string("\0 ", 2) : given;
    return value;
  }
  value.bits = of(scalars);
  if (value.kind == Kind::Bool) {
    value.bits &= ~std::uint64_t{0xFE};  // a bool is a byte of 0 or 1
  }
  return value;
}

void Account::result(const char* operation, OXAResult library, OXAResult model) {
  results[operation].insert(library);
  number(operation, library, model);
}

void Account::number(const char* what, long long library, long long model) {
  if (library != model) {
    differ(what, std::to_string(library), std::to_string(model));
  }
}

void Account::text(const char* what, const std::string& library, const std::string& model) {
  if (library != model) {
    differ(what, library, model);
  }
}

void Account::same(const char* what, const void* library, const void* model) {
  if (library != model) {
    differ(what, "an object", "another one");
  }
}

std::string shown(const char* text) {
  return text == nullptr ? "null" : "'" + std::string(text) + "'";
}

std::string whole(const OXAVariant& value) {
  return std::to_string(static_cast<std::uint32_t>(value.kind)) + " " + std::to_string(value.bits) +
         " '" + value.text + "'";
}

namespace {

template <class Value>
std::string bytes_of(const Value& value) {
  const auto* const bytes = reinterpret_cast<const char*>(&value);
  return std::string(bytes, sizeof value);
}

std::string member_of(const OXAVariant& value) {
  switch (value.kind) {
    case Kind::Char:
      return std::to_string(value.char_value);
    case Kind::UnsignedChar:
      return std::to_string(value.unsigned_char_value);
    case Kind::Short:
      return std::to_string(value.short_value);
    case Kind::UnsignedShort:
      return std::to_string(value.unsigned_short_value);
    case Kind::Int:
      return std::to_string(value.int_value);
    case Kind::UnsignedInt:
      return std::to_string(value.unsigned_int_value);
    case Kind::LongLong:
      return std::to_string(value.long_long_value);
    case Kind::UnsignedLongLong:
      return std::to_string(value.unsigned_long_long_value);
    case Kind::Float:
      return bytes_of(value.float_value);
    case Kind::Double:
      return bytes_of(value.double_value);
    case Kind::Bool:
      return value.bool_value ? "true" : "false";
    case Kind::Text:
      return value.text;
    case Kind::Nothing:
      break;
  }
  return "";
}

}  // namespace

std::string meaning(const OXAVariant& value) {
  return std::to_string(static_cast<std::uint32_t>(value.kind)) + " " + member_of(value);
}

}  // namespace oxa_test::model
