#include "type_names.h"

#include <graph_plugin.h>

#include <algorithm>
#include <string_view>

using OXA::Property::DataType;

namespace graph {
namespace {

bool in_graphml(std::string_view name) {
  constexpr std::string_view names[] = {"boolean", "int", "long", "float", "double", "string"};
  return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

DataType wider(DataType type) {
  switch (type) {
    case DataType::Char:
    case DataType::UnsignedChar:
    case DataType::Short:
    case DataType::UnsignedShort:
      return DataType::Int;
    case DataType::UnsignedInt:
    case DataType::UnsignedLongLong:
      return DataType::LongLong;
    default:
      return type;
  }
}

}  // namespace

TypeNames::TypeNames(IOXAContext* context)
    : translator_(oxa::service<IOXAPropertyDataTypeTranslator>(context)) {
  if (!translator_) {
    throw Failure(E_FAIL, "the program has no names of data types; restart it");
  }
  const OXAResult result = translator_->Register(DataType::LongLong, "int64", "long");
  if (result != E_ALREADYEXISTS) {
    check(result);
  }
}

DataType TypeNames::type(const std::string& name) const {
  return translator_->ToType(name.c_str());
}

std::string TypeNames::name(DataType type) const {
  const char* name = translator_->ToString(type);
  return name != nullptr ? name : "unknown";
}

std::string TypeNames::in_files(DataType type) const {
  for (const DataType candidate : {type, wider(type)}) {
    const char* name = translator_->ToGraphml(candidate);
    if (name != nullptr && in_graphml(name)) {
      return name;
    }
  }
  throw Failure(E_INVALIDDATA, "GraphML has no data type for values of the type " + name(type) +
                                   "; leave them out");
}

}  // namespace graph
