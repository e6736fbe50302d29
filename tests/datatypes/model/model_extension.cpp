#include "datatypes/model/model_extension.h"

#include <cstdlib>

#include "xml/model/model_document.h"

namespace oxa_test::model {

using OXA::Property::DataType;

namespace {

// The recording sink cuts a text there.
constexpr std::size_t longest_text = 999;

std::string trimmed(std::string text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) {
    text.erase(0, 1);
  }
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) {
    text.pop_back();
  }
  return text;
}

double number(const std::string& text) { return std::strtof(text.c_str(), nullptr); }

}  // namespace

void DeclaredMember::set_range(double new_minimum, double new_maximum) {
  if (new_minimum > new_maximum) {
    return;
  }
  minimum = new_minimum;
  maximum = new_maximum;
  is_range_set = true;
}

void DeclaredMember::set_data_type(DataType new_type) {
  type = new_type;
  if (is_range_set) {
    return;
  }
  switch (new_type) {
    case DataType::Char:
      return set_range(-128.0, 127.0);
    case DataType::UnsignedChar:
      return set_range(0.0, 255.0);
    case DataType::Int:
      return set_range(-2147483648.0, 2147483647.0);
    case DataType::UnsignedInt:
      return set_range(0.0, 4294967295.0);
    case DataType::Short:
      return set_range(-32768.0, 32767.0);
    case DataType::UnsignedShort:
      return set_range(0.0, 65535.0);
    case DataType::LongLong:
      return set_range(-9223372036854775808.0, 9223372036854775808.0);
    case DataType::UnsignedLongLong:
      return set_range(0.0, 18446744073709551616.0);
    case DataType::Float:
      return set_range(1.1754943508222875e-38, 3.4028234663852886e+38);
    case DataType::Double:
      return set_range(2.2250738585072014e-308, 1.7976931348623157e+308);
    default:
      return set_range(0.0, 1.0);
  }
}

void DeclaredType::add(const DeclaredMember& member) {
  for (const DeclaredMember& other : members) {
    if (other.name == member.name) {
      return;
    }
  }
  members.push_back(member);
}

void Declarations::error(const std::string& text) {
  messages.add("error: " + text.substr(0, longest_text));
}

std::set<QualifiedName> Declarations::type_names() const {
  std::set<QualifiedName> names;
  for (const DeclaredNamespace& owner : namespaces) {
    for (const DeclaredType& type : owner.types) {
      names.emplace(owner.name, type.name);
    }
  }
  return names;
}

DeclaredNamespace& Declarations::namespace_of(const std::string& name) {
  for (DeclaredNamespace& known : namespaces) {
    if (known.name == name) {
      return known;
    }
  }
  namespaces.push_back({name, {}});
  return namespaces.back();
}

OXAResult Declarations::load(const std::string& content) {
  Document document;
  document.messages.on_message = [&] { messages.add(document.messages.lines.back()); };
  document.set_source(content);
  const OXAResult result = document.parse();
  if (result < 0) {
    return result;
  }
  if (document.root == nullptr) {
    return E_INVALIDDATA;
  }
  return read_extension(*document.root);
}

OXAResult Declarations::read_extension(Element& root) {
  if (root.name != "extension") {
    error("Unrecognized XML format - not an extension file!");
    return E_INVALIDDATA;
  }
  const Answer type = root.GetAttribute("type");
  if (type.result < 0) {
    return type.result;
  }
  if (*type.text != "data") {
    error("Not a data type extension file!");
    return E_INVALIDDATA;
  }
  const Answer plugin = root.GetAttribute("plugin");
  if (plugin.result < 0) {
    error("'plugin' attribute missing!");
    return plugin.result;
  }
  DeclaredNamespace& owner = namespace_of(*plugin.text);
  const auto children = root.immediate_children("data_type", nullptr, nullptr);
  if (children.empty()) {
    return E_NOTFOUND;
  }
  for (Element* child : children) {
    read_data_type(*child, owner);
  }
  return S_FALSE;
}

void Declarations::read_data_type(Element& element, DeclaredNamespace& owner) {
  const Answer name = element.GetAttribute("name");
  if (name.result < 0) {
    return error("'name' attribute missing for <data_type> element!");
  }
  const Answer type_string = element.GetAttribute("type");
  if (type_string.result < 0) {
    return error("'type' attribute missing for <data_type> element!");
  }
  for (const DeclaredType& known : owner.types) {
    if (known.name == *name.text) {
      return;
    }
  }
  owner.types.push_back({*name.text, *type_string.text, {}});
  DeclaredType& type = owner.types.back();
  for (const Element* child : element.immediate_children("member", nullptr, nullptr)) {
    if (!read_member(*child, type)) {
      return;
    }
  }
}

bool Declarations::read_member(const Element& element, DeclaredType& type) {
  DeclaredMember member;
  const Answer name = element.GetAttribute("name");
  if (name.result < 0) {
    error("'name' attribute missing for <member> element in <data_type name=\"" + type.name +
          "\"...>!");
    return false;
  }
  member.name = *name.text;
  const Answer type_text = element.GetAttribute("type");
  if (type_text.result < 0) {
    error("'type' attribute missing for <member name=\"" + member.name + "\"> element (" +
          type.name + ")!");
    return false;
  }
  const std::string type_name = trimmed(*type_text.text);
  const DataType data_type = to_data_type(names_, type_name);
  if (data_type == DataType::UserDefined) {
    member.type_string = type_name;
  }
  member.set_data_type(data_type);
  const Answer range_min = element.GetAttribute("range_min");
  if (range_min.result >= 0) {
    const Answer range_max = element.GetAttribute("range_max");
    if (range_max.result < 0) {
      return false;
    }
    member.set_range(number(*range_min.text), number(*range_max.text));
  }
  const Answer tooltip = element.GetAttribute("tooltip");
  if (tooltip.result >= 0) {
    member.tooltip = *tooltip.text;
  }
  const Answer default_value = element.GetAttribute("default");
  if (default_value.result >= 0) {
    member.default_value = *default_value.text;
  }
  type.add(member);
  return true;
}

}  // namespace oxa_test::model
