#include "datatypes/extension_file.h"

#include <oxa/IOXAXMLDocument.h>
#include <oxa/IOXAXMLElement.h>
#include <oxa/IOXAXMLElementEnum.h>
#include <oxa/sdk/guard.h>
#include <oxa/sdk/ref.h>

#include <array>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "datatypes/OXAPluginDataTypeNamespace.h"
#include "datatypes/OXAUserDefinedDataType.h"
#include "xml/oxa_xml_element.h"
#include "xml/oxa_xml_parser.h"

namespace {

// A document of ours leaves its tree behind when it is released, which is then nobody's. A host's
// own looks after itself, and one of ours that a host's parser keeps is the host's.
struct document_end {
  void operator()(IOXAXMLDocument* document) const {
    oxa_xml_parser* const ours = oxa_xml_parser::own(document);
    if (ours != nullptr && ours->CheckReference() == 1) {
      ours->Destroy();
    } else {
      document->ReleaseReference();
    }
  }
};

// Success without an object counts as failure.
OXAResult with_object(OXAResult result, const void* object) {
  return result >= 0 && object == nullptr ? E_POINTER : result;
}

// Stores the value, null after a failure. In the library's own elements an empty value fails.
OXAResult get_attribute(IOXAXMLElement& element, const char* key, const char*& out) {
  char* value = nullptr;
  OXAResult result = element.GetAttribute(key, &value);
  result = with_object(result, value);
  out = result < 0 ? nullptr : value;
  return result;
}

// What `<data_type>` and `<member>` say, in the order in which it is asked for.
enum attribute_key : std::size_t {
  name_key,
  type_key,
  minimum_key,
  maximum_key,
  tooltip_key,
  default_key,
};
constexpr std::array keys = {"name", "type", "range_min", "range_max", "tooltip", "default"};

// An element of a host.
class foreign_element {
 public:
  explicit foreign_element(IOXAXMLElement& element) : element_(element) {}

  // Returns null when it is missing or empty.
  const char* attribute(attribute_key key) const {
    const char* value = nullptr;
    get_attribute(element_, keys[key], value);
    return value;
  }

  // Walks the children of that name as long as `visit` says so. The result of the last step.
  template <class Visit>
  OXAResult visit_children(const char* child_name, Visit visit) const {
    oxa::Ref<IOXAXMLElementEnum> children;
    OXAResult result =
        element_.GetImmediateChildren(child_name, nullptr, nullptr, oxa::adopt_into(children));
    result = with_object(result, children.get());
    if (result < 0) {
      return result;
    }
    IOXAXMLElement* child = nullptr;
    for (result = children->GetFirst(&child); result == S_OK; result = children->GetNext(&child)) {
      if (child != nullptr && !visit(foreign_element(*child))) {
        break;
      }
    }
    return result;
  }

 private:
  IOXAXMLElement& element_;
};

// An element of ours: the same without an enumerator and with one look at all attributes. Asking
// for them one by one took a good part of the time of a load.
class own_element {
 public:
  explicit own_element(oxa_xml_element& element) : element_(element) {
    std::size_t expected = 0;
    for (const oxa::xml_attribute& each : element.attributes()) {
      for (std::size_t tried = 0; tried < keys.size(); ++tried) {
        const std::size_t key = (expected + tried) % keys.size();
        if (oxa::same_text(each.key.c_str(), keys[key])) {
          values_[key] = each.value.data();
          expected = key + 1;
          break;
        }
      }
    }
  }

  const char* attribute(attribute_key key) const { return values_[key]; }

  template <class Visit>
  OXAResult visit_children(const char* child_name, Visit visit) const {
    OXAResult result = E_NOTFOUND;
    for (std::size_t position = 0; position < element_.child_count(); ++position) {
      oxa_xml_element& child = *element_.child(position);
      if (oxa::same_text(child.name(), child_name)) {
        result = S_FALSE;
        if (!visit(own_element(child))) {
          return S_OK;
        }
      }
    }
    return result;
  }

 private:
  oxa_xml_element& element_;
  std::array<const char*, keys.size()> values_{};
};

std::string trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) {
    return "";
  }
  return std::string(text.substr(first, text.find_last_not_of(" \t") - first + 1));
}

class extension_reader {
 public:
  explicit extension_reader(const extension_services& services) : services_(services) {}

  // Checks the root and stores the namespace that it names.
  OXAResult read_root(IOXAXMLElement& root, OXAPluginDataTypeNamespace*& name_space);

  template <class Element>
  OXAResult read_data_types(const Element& root, OXAPluginDataTypeNamespace& name_space);

 private:
  template <class Element>
  void read_data_type(const Element& source, OXAPluginDataTypeNamespace& name_space);
  template <class Element>
  bool read_member(const Element& source, const char* type_name, OXAUserDefinedDataType& data_type);

  void tell(const char* format, const char* first = "", const char* second = "");

  const extension_services& services_;
};

void extension_reader::tell(const char* format, const char* first, const char* second) {
  if (services_.sink != nullptr) {
    services_.sink->EmitError(format, first, second);
  }
}

OXAResult extension_reader::read_root(IOXAXMLElement& root,
                                      OXAPluginDataTypeNamespace*& name_space) {
  const char* root_name = root.Name();
  if (root_name == nullptr || std::strcmp(root_name, "extension") != 0) {
    tell("Unrecognized XML format - not an extension file!");
    return E_INVALIDDATA;
  }
  const char* value = nullptr;
  OXAResult result = get_attribute(root, "type", value);
  if (result < 0) {
    return result;
  }
  if (std::strcmp(value, "data") != 0) {
    tell("Not a data type extension file!");
    return E_INVALIDDATA;
  }
  result = get_attribute(root, "plugin", value);
  if (result < 0) {
    tell("'plugin' attribute missing!");
    return result;
  }
  IOXAPluginDataTypeNamespace* found = nullptr;
  result = services_.manager.FindNamespace(value, &found);
  if (result < 0) {
    result = services_.manager.NewNamespace(value, &found);
  }
  // Only the manager makes namespaces, and of one class.
  name_space = static_cast<OXAPluginDataTypeNamespace*>(found);
  return result;
}

// Kept: a type that cannot be read is skipped, whatever stops it
// (ExtensionFileTest.ABadTypeIsSkipped).
template <class Element>
OXAResult extension_reader::read_data_types(const Element& root,
                                            OXAPluginDataTypeNamespace& name_space) {
  return root.visit_children("data_type", [&](const Element& child) {
    oxa::guard([&] {
      read_data_type(child, name_space);
      return S_OK;
    });
    return true;
  });
}

// A type that is cut short keeps the members before.
template <class Element>
void extension_reader::read_data_type(const Element& source,
                                      OXAPluginDataTypeNamespace& name_space) {
  const char* const type_name = source.attribute(name_key);
  if (type_name == nullptr) {
    tell("'name' attribute missing for <data_type> element!");
    return;
  }
  const char* const kind = source.attribute(type_key);
  if (kind == nullptr) {
    tell("'type' attribute missing for <data_type> element!");
    return;
  }
  OXAUserDefinedDataType* const added = name_space.add(services_.builder, type_name, kind);
  if (added != nullptr) {
    source.visit_children(
        "member", [&](const Element& child) { return read_member(child, type_name, *added); });
  }
}

// Tells whether the type goes on.
// Kept: bounds go through single precision and the locale of the process
// (ExtensionFileTest.Ranges).
template <class Element>
bool extension_reader::read_member(const Element& source, const char* type_name,
                                   OXAUserDefinedDataType& data_type) {
  OXAUserDefinedDataType::declared_member member;
  member.name = source.attribute(name_key);
  if (member.name == nullptr) {
    tell("'name' attribute missing for <member> element in <data_type name=\"%s\"...>!", type_name);
    return false;
  }
  const char* const written_type = source.attribute(type_key);
  if (written_type == nullptr) {
    tell("'type' attribute missing for <member name=\"%s\"> element (%s)!", member.name, type_name);
    return false;
  }
  const std::string type_string = trimmed(written_type);
  if (services_.translator != nullptr) {
    member.type = services_.translator->ToType(type_string.c_str());
  }
  if (member.type == OXA::Property::DataType::UserDefined) {
    member.user_defined_type = type_string.c_str();
  }
  if (const char* const minimum = source.attribute(minimum_key)) {
    const char* const maximum = source.attribute(maximum_key);
    if (maximum == nullptr) {
      return false;
    }
    member.range.emplace(std::strtof(minimum, nullptr), std::strtof(maximum, nullptr));
  }
  member.tooltip = source.attribute(tooltip_key);
  member.default_value = source.attribute(default_key);
  data_type.add(services_.builder, member);
  return true;
}

}  // namespace

OXAResult read_extension_file(const wchar_t* path, const extension_services& services) {
  IOXAXMLDocument* made = nullptr;
  OXAResult result = services.parser.CreateDocument(path, &made);
  const std::unique_ptr<IOXAXMLDocument, document_end> document(made);
  result = with_object(result, made);
  if (result < 0) {
    return result;
  }
  result = document->Parse();
  if (result < 0) {
    return result;
  }
  IOXAXMLElement* root = nullptr;
  result = document->GetRoot(&root);
  result = with_object(result, root);
  if (result < 0) {
    return result;
  }
  extension_reader reader(services);
  OXAPluginDataTypeNamespace* name_space = nullptr;
  result = reader.read_root(*root, name_space);
  if (result < 0) {
    return result;
  }
  return oxa_xml_parser::own(made) != nullptr
             ? reader.read_data_types(own_element(static_cast<oxa_xml_element&>(*root)),
                                      *name_space)
             : reader.read_data_types(foreign_element(*root), *name_space);
}
