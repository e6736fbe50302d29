#include "properties/OXAPropertyDataTypeTranslator.h"

#include <oxa/sdk/guard.h>

#include <string_view>

using OXA::Property::DataType;

namespace {

struct built_in {
  DataType type;
  const char* name;
  const char* graphml_name;  // null for an alias
};

constexpr built_in built_ins[] = {
    {DataType::Bool, "bool", "boolean"},
    {DataType::Bool, "boolean", nullptr},
    {DataType::String, "string", "string"},
    {DataType::Char, "char", "char"},
    {DataType::UnsignedChar, "unsigned char", "unsigned char"},
    {DataType::Short, "short", "short"},
    {DataType::UnsignedShort, "unsigned short", "unsigned short"},
    {DataType::Int, "int", "int"},
    {DataType::UnsignedInt, "unsigned int", "unsigned int"},
    {DataType::LongLong, "long long", "long long"},
    {DataType::UnsignedLongLong, "unsigned long long", "unsigned long long"},
    {DataType::LongLong, "long", nullptr},
    {DataType::UnsignedLongLong, "unsigned long", nullptr},
    {DataType::Float, "float", "float"},
    {DataType::Double, "double", "double"},
    {DataType::Hexadecimal, "hexadecimal", "string"},
    {DataType::File, "file", "string"},
    {DataType::Enum, "enum", "string"},
    {DataType::Enum, "mapped-string", nullptr},
    {DataType::Code, "code", "string"},
    {DataType::UserDefined, "user-defined", "string"},
};

}  // namespace

OXAPropertyDataTypeTranslator::OXAPropertyDataTypeTranslator() {
  for (const built_in& each : built_ins) {
    add(each.type, each.name, each.graphml_name);
  }
}

const OXAPropertyDataTypeTranslator::spelling* OXAPropertyDataTypeTranslator::find(
    DataType type) const {
  const auto found = spellings_.find(type);
  return found == spellings_.end() ? nullptr : &found->second;
}

const char* OXAPropertyDataTypeTranslator::ToGraphml(DataType type) {
  const spelling* found = find(type);
  return found == nullptr ? nullptr : found->graphml.c_str();
}

const char* OXAPropertyDataTypeTranslator::ToString(DataType type) {
  const spelling* found = find(type);
  return found == nullptr ? nullptr : found->canonical.c_str();
}

DataType OXAPropertyDataTypeTranslator::ToType(const char* name) {
  const std::string_view text = name;
  const auto found = types_.find(text);
  if (found != types_.end()) {
    return found->second;
  }
  const bool qualified =
      text.find('$') != std::string_view::npos || text.find("::") != std::string_view::npos;
  return qualified ? DataType::UserDefined : OXA::Property::NoDataType;
}

OXAResult OXAPropertyDataTypeTranslator::Register(DataType type, const char* name,
                                                  const char* graphmlName) {
  if (name == nullptr || type < DataType{0}) {
    return E_INVALIDARG;
  }
  if (types_.find(std::string_view(name)) != types_.end()) {
    return E_ALREADYEXISTS;
  }
  return oxa::guard([&] {
    add(type, name, graphmlName);
    return S_OK;
  });
}

// Either adds everything or, for want of memory, nothing: the last step needs none.
void OXAPropertyDataTypeTranslator::add(DataType type, const char* name, const char* graphml_name) {
  decltype(types_) added;
  added.emplace(name, type);
  if (graphml_name != nullptr) {
    spellings_.insert_or_assign(type, spelling{name, graphml_name});
  }
  types_.merge(added);
}
