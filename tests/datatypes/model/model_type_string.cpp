#include "datatypes/model/model_type_string.h"

namespace oxa_test::model {

using OXA::Property::DataType;

std::vector<std::string> split(const std::string& text, const std::string& separator) {
  std::vector<std::string> pieces(1);
  std::size_t at = 0;
  while (at < text.size()) {
    if (text.substr(at, separator.size()) == separator) {
      pieces.emplace_back();
      at += separator.size();
    } else {
      pieces.back() += text[at];
      ++at;
    }
  }
  return pieces;
}

DataTypeNames default_data_type_names() {
  return {{"bool", DataType::Bool},
          {"boolean", DataType::Bool},
          {"string", DataType::String},
          {"char", DataType::Char},
          {"unsigned char", DataType::UnsignedChar},
          {"short", DataType::Short},
          {"unsigned short", DataType::UnsignedShort},
          {"int", DataType::Int},
          {"unsigned int", DataType::UnsignedInt},
          {"long long", DataType::LongLong},
          {"long", DataType::LongLong},
          {"unsigned long long", DataType::UnsignedLongLong},
          {"unsigned long", DataType::UnsignedLongLong},
          {"float", DataType::Float},
          {"double", DataType::Double},
          {"hexadecimal", DataType::Hexadecimal},
          {"file", DataType::File},
          {"enum", DataType::Enum},
          {"mapped-string", DataType::Enum},
          {"code", DataType::Code},
          {"user-defined", DataType::UserDefined}};
}

DataType to_data_type(const DataTypeNames& names, const std::string& name) {
  if (names.count(name) == 1) {
    return names.at(name);
  }
  const bool is_qualified = split(name, "$").size() > 1 || split(name, "::").size() > 1;
  return is_qualified ? DataType::UserDefined : OXA::Property::NoDataType;
}

namespace {

std::string candidate_of(const std::string& type_string) {
  const std::vector<std::string> pieces = split(type_string, "$");
  if (pieces.size() != 2) {
    return pieces[0];
  }
  const std::vector<std::string> behind = split(pieces[1], "%");
  return behind.size() == 2 ? behind[0] : pieces[1];
}

}  // namespace

Resolution resolve(const std::string& type_string, const DataTypeNames& names,
                   const std::set<QualifiedName>& types) {
  const std::string candidate = candidate_of(type_string);
  if (candidate.empty()) {
    return {E_NOTFOUND, std::nullopt};
  }
  const std::vector<std::string> parts = split(candidate, "::");
  if (parts.size() == 1) {
    const bool is_built_in = to_data_type(names, parts[0]) != OXA::Property::NoDataType;
    return {is_built_in ? S_OK : E_NOTFOUND, std::nullopt};
  }
  const QualifiedName wanted(parts[0], parts[1]);
  if (types.count(wanted) == 0) {
    return {E_NOTFOUND, std::nullopt};
  }
  return {S_OK, wanted};
}

}  // namespace oxa_test::model
