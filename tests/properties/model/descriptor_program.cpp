#include "properties/model/descriptor_program.h"

#include <oxa/IOXAPropertyViewHints.h>

#include <iterator>
#include <limits>
#include <set>

#include "datatypes/model/model_type_string.h"

namespace oxa_test::model {

using OXA::Property::DataType;

namespace {

constexpr const char* attribute_texts[] = {"red", "green", "",     "0",    "1",
                                           "Red", "blue",  "red ", nullptr};
constexpr const char* type_strings[] = {"int",           "unsigned int", "long",
                                        "unsigned long", "long long",    "unsigned long long",
                                        "double",        "float",        "char",
                                        "unsigned char", "short",        "unsigned short",
                                        "bool",          "p::point",     "p::point$int",
                                        "x$int",         "x$float%",     "int$b$long",
                                        "int$long",      "word",         "",
                                        "x$int%y",       "p::int",       nullptr};
const QualifiedName record_types[] = {{"p", "point"}, {"p", "int"}};

constexpr double bounds[] = {0,
                             1,
                             5,
                             -1,
                             127,
                             128,
                             255,
                             256,
                             65535,
                             0.5,
                             -128,
                             1e10,
                             -32768,
                             4294967295.0,
                             18446744073709551616.0,
                             9223372036854775808.0,
                             1e39,
                             -1e39,
                             std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()};

std::string shown(const std::optional<std::string>& text) {
  return model::shown(text ? text->c_str() : nullptr);
}

}  // namespace

DescriptorProgram::DescriptorProgram(Program& program, Account& account, bool has_type_manager)
    : program_(program), account_(account) {
  if (!has_type_manager) {
    return;
  }
  types_ = std::make_unique<LibraryManager>();
  for (const auto& [owner, name] : record_types) {
    IOXAPluginDataTypeNamespace* ns = nullptr;
    IOXAUserDefinedDataType* type = nullptr;
    (*types_)->NewNamespace(owner.c_str(), &ns);
    ns->AddUserDefinedType(name.c_str(), "record", &type);
  }
}

void DescriptorProgram::run(char letter, Property& property) {
  switch (letter) {
    case 'i': {
      const int id = static_cast<int>(program_.below(10)) - 1;
      property.id = id == 8 ? std::numeric_limits<int>::min() : id;
      property.twin->SetID(property.id);
      break;
    }
    case 't':
      set_type(property);
      break;
    case 'R':
      set_range(property);
      break;
    case 'D':
      describe_record_type(property);
      break;
    case 'd': {
      const char* const text = program_.text(value_texts);
      account_.result("SetDefaultValue", property.twin->SetDefaultValue(text),
                      property.SetDefaultValue(text));
      break;
    }
    case 'y':
    case 'Y':
    case 'A':
    case 'x':
      set_flag(letter, property);
      break;
    case 'h':
      set_hint(property);
      break;
    case 'o':
      use_own_texts(property);
      break;
    case 'p':
    case 'P':
      change_supports(letter, property);
      break;
    default:
      change_attributes(letter, property);
      break;
  }
}

void DescriptorProgram::change_attributes(char letter, Property& property) {
  switch (letter) {
    case 'a': {
      const char* const name = program_.text(attribute_texts);
      const char* const value = program_.text(attribute_texts);
      account_.result("AddAttribute", property.twin->AddAttribute(name, value),
                      property.AddAttribute(name, value));
      break;
    }
    case 'c':
      property.twin->ClearAttributes();
      property.ClearAttributes();
      break;
    case 'b':
      walk_attributes("GetFirstAttribute", property, &IOXAProperty::GetFirstAttribute,
                      &Property::GetFirstAttribute);
      break;
    case 'n':
      if (property.can_go_on()) {
        walk_attributes("GetNextAttribute", property, &IOXAProperty::GetNextAttribute,
                        &Property::GetNextAttribute);
      }
      break;
    case 'k':
      get_attribute_value(property);
      break;
    case 'K':
      get_attribute_from_value(property);
      break;
    default:
      break;
  }
}

void DescriptorProgram::walk_attributes(const char* operation, Property& property,
                                        OXAResult (IOXAProperty::*step)(char**),
                                        std::optional<std::string> (Property::*expected_step)()) {
  if (program_.drops_output()) {
    account_.result(operation, (property.twin->*step)(nullptr), E_INVALIDARG);
    return;
  }
  char unset[] = "unset";
  char* name = unset;
  const OXAResult result = (property.twin->*step)(&name);
  const std::optional<std::string> expected_name = (property.*expected_step)();
  account_.result(operation, result, expected_name ? S_OK : S_FALSE);
  account_.text(operation, shown(name), shown(expected_name));
}

void DescriptorProgram::get_attribute_value(Property& property) {
  const char* const name = program_.text(attribute_texts);
  if (program_.drops_output() || name == nullptr) {
    char* value = nullptr;
    account_.result("GetAttributeValue",
                    property.twin->GetAttributeValue(name, name == nullptr ? &value : nullptr),
                    E_INVALIDARG);
    return;
  }
  char* value = nullptr;
  const OXAResult result = property.twin->GetAttributeValue(name, &value);
  const std::optional<std::string> expected = property.GetAttributeValue(name);
  account_.result("GetAttributeValue", result, expected ? S_OK : E_NOTFOUND);
  account_.text("GetAttributeValue", shown(value), shown(expected));
}

void DescriptorProgram::get_attribute_from_value(Property& property) {
  const char* const value = program_.text(attribute_texts);
  char* name = nullptr;
  if (program_.drops_output() || value == nullptr) {
    account_.result("GetAttributeFromValue",
                    property.twin->GetAttributeFromValue(value, value == nullptr ? &name : nullptr),
                    E_INVALIDARG);
    return;
  }
  const OXAResult result = property.twin->GetAttributeFromValue(value, &name);
  const std::set<std::string> expected = property.GetAttributesFromValue(value);
  account_.result("GetAttributeFromValue", result, expected.empty() ? E_NOTFOUND : S_OK);
  account_.number("GetAttributeFromValue gives one", name != nullptr && expected.count(name) == 1,
                  !expected.empty());
}

// What a property has given out may be given back to it.
void DescriptorProgram::use_own_texts(Property& property) {
  IOXAProperty& twin = *property.twin;
  IOXAPropertyViewHints& hints = *twin.ViewHints();
  const char* const own = twin.DefaultValue();
  account_.result("SetDefaultValue", twin.SetDefaultValue(own), own ? S_OK : E_INVALIDARG);
  hints.SetAlias(hints.Alias());
  hints.SetTooltip(hints.Tooltip());
  hints.SetGroup(twin.Name());
  property.group = property.name;
  char* name = nullptr;
  if (twin.GetFirstAttribute(&name) == S_OK) {
    Account::text("the first attribute", name, *property.GetFirstAttribute());
    char* value = nullptr;
    twin.GetAttributeValue(name, &value);
    const std::string copy = value;
    account_.result("AddAttribute", twin.AddAttribute(value, name),
                    property.AddAttribute(copy.c_str(), property.GetFirstAttribute()->c_str()));
  } else {
    property.GetFirstAttribute();
  }
  hints.SetAlias(twin.DefaultValue());
  property.alias = property.default_value.value_or(property.alias);
}

void DescriptorProgram::change_supports(char letter, Property& property) {
  const char* const category = program_.text(attribute_texts);
  const char* const name = program_.text(attribute_texts);
  if (letter == 'p') {
    account_.result("AddSupport", property.twin->AddSupport(category, name),
                    property.AddSupport(category, name));
  } else {
    account_.number("Supports", property.twin->Supports(category, name),
                    property.Supports(category, name));
  }
}

void DescriptorProgram::set_hint(Property& property) {
  IOXAPropertyViewHints& hints = *property.twin->ViewHints();
  const unsigned which = program_.below(5);
  if (which == 3) {
    hints.SetDisplayFlag(property.display = program_.flag());
  } else if (which == 4) {
    hints.SetEditor(property.editor = static_cast<int>(program_.below(9)) - 2);
  } else {
    OXAResult (IOXAPropertyViewHints::*const setters[])(const char*) = {
        &IOXAPropertyViewHints::SetAlias, &IOXAPropertyViewHints::SetTooltip,
        &IOXAPropertyViewHints::SetGroup};
    std::string* const fields[] = {&property.alias, &property.tooltip, &property.group};
    const char* const text = program_.text(attribute_texts);
    account_.result("SetAlias, SetTooltip, SetGroup", (hints.*setters[which])(text),
                    text == nullptr ? E_INVALIDARG : S_OK);
    if (text != nullptr) {
      *fields[which] = text;
    }
  }
}

void DescriptorProgram::set_type(Property& property) {
  const auto type = static_cast<DataType>(static_cast<int>(program_.below(19)) - 1);
  property.twin->SetDataType(type);
  property.SetDataType(type);
}
void DescriptorProgram::set_range(Property& property) {
  const double minimum = program_.of(bounds);
  const double maximum = program_.of(bounds);
  account_.result("SetRange", property.twin->SetRange(minimum, maximum),
                  property.SetRange(minimum, maximum));
}

void DescriptorProgram::describe_record_type(Property& property) {
  if (program_.flag()) {
    property.SetDataType(DataType::UserDefined);
    property.twin->SetDataType(DataType::UserDefined);
  }
  const char* const name = program_.text(type_strings);
  account_.result("SetUserDefinedDataType", property.twin->SetUserDefinedDataType(name),
                  property.SetUserDefinedDataType(
                      name, [this](const std::string& text) { return resolve_type(text); }));
}

void DescriptorProgram::set_flag(char letter, Property& property) {
  if (letter == 'y') {
    property.twin->SetDependency(property.dependency = program_.flag());
  } else if (letter == 'A') {
    property.twin->SetSupportAllNodes(property.supports_all = program_.flag());
  } else if (letter == 'x') {
    property.twin->SetMutable(property.is_mutable = program_.flag());
  } else {
    property.type = static_cast<OXA::Property::Type>(program_.below(200) - 100);
    property.twin->SetPropertyType(property.type);
  }
}

OXAResult DescriptorProgram::resolve_type(const std::string& type_string) const {
  if (!types_) {
    return E_INVALIDARG;
  }
  const std::set<QualifiedName> known(std::begin(record_types), std::end(record_types));
  return resolve(type_string, default_data_type_names(), known).result < 0 ? E_INVALIDARG : S_OK;
}

}  // namespace oxa_test::model
