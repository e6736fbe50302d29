// Type strings, taken apart into vectors of strings.
#pragma once

#include <oxa/data_type.h>
#include <oxa/result.h>

#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace oxa_test::model {

// The pieces between the places where `separator` stands, one more than there are such places.
std::vector<std::string> split(const std::string& text, const std::string& separator);

// The names that stand for data types, canonical ones and aliases, as a new translator has them.
using DataTypeNames = std::map<std::string, OXA::Property::DataType>;
DataTypeNames default_data_type_names();

// What the translator takes a name for.
OXA::Property::DataType to_data_type(const DataTypeNames& names, const std::string& name);

// The name of a namespace and of a type in it.
using QualifiedName = std::pair<std::string, std::string>;

struct Resolution {
  OXAResult result;
  std::optional<QualifiedName> type;  // none for a built-in data type, and after a failure
};

Resolution resolve(const std::string& type_string, const DataTypeNames& names,
                   const std::set<QualifiedName>& types);

}  // namespace oxa_test::model
