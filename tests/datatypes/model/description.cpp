#include "datatypes/model/description.h"

#include <oxa/sdk/data_types.h>

#include <cstdio>
#include <map>

namespace oxa_test::model {

namespace {

using Descriptions = std::map<std::string, std::string>;

std::string concatenated(const Descriptions& descriptions) {
  std::string all;
  for (const auto& [name, description] : descriptions) {
    all += description;
  }
  return all;
}

// Null is what the library gives for an empty text.
std::string quoted(const char* text) {
  return text == nullptr ? "-" : "'" + std::string(text) + "'";
}
std::string quoted(const std::string& text) { return text.empty() ? "-" : "'" + text + "'"; }

std::string or_empty(const char* text) { return text == nullptr ? "" : text; }

// Every bit of the number.
std::string exactly(double number) {
  char text[40];
  std::snprintf(text, sizeof text, "%a", number);
  return text;
}

std::string range(bool is_set, double minimum, double maximum) {
  return (is_set ? " range " : " no range ") + exactly(minimum) + " to " + exactly(maximum);
}

std::string describe_member(IOXAUserDefinedDataTypeManager& manager, IOXADataElement& member) {
  std::string line = "    " + quoted(member.Name()) + " of " + quoted(member.Namespace()) +
                     " type " + std::to_string(static_cast<int>(member.Type())) + " " +
                     quoted(member.UserDefinedType());
  if (member.UserDefinedType() != nullptr) {
    line += manager.TypeDefined(member.UserDefinedType()) ? " known" : " unknown";
  }
  return line + " default " + quoted(member.DefaultValue()) + " tooltip " +
         quoted(member.Tooltip()) +
         range(member.IsRangeSet(), member.MinimumValue(), member.MaximumValue()) + "\n";
}

std::string describe_member(const Declarations& declarations, const DeclaredNamespace& owner,
                            const DeclaredMember& member) {
  std::string line = "    " + quoted(member.name) + " of " + quoted(owner.name) + " type " +
                     std::to_string(static_cast<int>(member.type)) + " " +
                     quoted(member.type_string);
  if (!member.type_string.empty()) {
    const Resolution resolution =
        resolve(member.type_string, default_data_type_names(), declarations.type_names());
    line += resolution.result >= 0 ? " known" : " unknown";
  }
  return line + " default " + quoted(member.default_value) + " tooltip " + quoted(member.tooltip) +
         range(member.is_range_set, member.minimum, member.maximum) + "\n";
}

std::string describe_type(IOXAUserDefinedDataTypeManager& manager, IOXAUserDefinedDataType& type) {
  std::string lines = "  " + quoted(type.Name()) + " of " + quoted(type.Namespace()) + " is " +
                      quoted(type.Type()) + ", members: " + std::to_string(type.ElementCount()) +
                      "\n";
  for (IOXADataElement* member : oxa::elements(type)) {
    lines += describe_member(manager, *member);
  }
  return lines;
}

std::string describe_namespace(IOXAUserDefinedDataTypeManager& manager,
                               IOXAPluginDataTypeNamespace& owner) {
  Descriptions types;
  for (IOXAUserDefinedDataType* type : oxa::types(owner)) {
    IOXAUserDefinedDataType* found = nullptr;
    const std::string name = or_empty(type->Name());
    const bool is_found = owner.FindUserDefinedType(name.c_str(), &found) == S_OK && found == type;
    types[name] += describe_type(manager, *type) + (is_found ? "" : "  which is not found\n");
  }
  return quoted(owner.Name()) + "\n" + concatenated(types);
}

}  // namespace

std::string describe(IOXAUserDefinedDataTypeManager& manager) {
  Descriptions namespaces;
  for (IOXAPluginDataTypeNamespace* owner : oxa::namespaces(manager)) {
    IOXAPluginDataTypeNamespace* found = nullptr;
    const std::string name = or_empty(owner->Name());
    const bool is_found = manager.FindNamespace(name.c_str(), &found) == S_OK && found == owner;
    namespaces[name] +=
        describe_namespace(manager, *owner) + (is_found ? "" : "which is not found\n");
  }
  return concatenated(namespaces);
}

std::string describe(const Declarations& declarations) {
  Descriptions namespaces;
  for (const DeclaredNamespace& owner : declarations.namespaces) {
    Descriptions types;
    for (const DeclaredType& type : owner.types) {
      std::string lines = "  " + quoted(type.name) + " of " + quoted(owner.name) + " is " +
                          quoted(type.type_string) +
                          ", members: " + std::to_string(type.members.size()) + "\n";
      for (const DeclaredMember& member : type.members) {
        lines += describe_member(declarations, owner, member);
      }
      types[type.name] += lines;
    }
    namespaces[owner.name] += quoted(owner.name) + "\n" + concatenated(types);
  }
  return concatenated(namespaces);
}

}  // namespace oxa_test::model
