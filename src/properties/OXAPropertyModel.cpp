#include "properties/OXAPropertyModel.h"

#include <oxa/sdk/guard.h>
#include <oxa/sdk/result_text.h>
#include <oxa/sdk/variant.h>

#include <utility>

#include "core/assign_variant.h"
#include "properties/property_enum.h"
#include "properties/value_text.h"

using OXA::Property::DataType;

namespace {

unsigned long id_of(IOXAProperty& property) { return static_cast<unsigned long>(property.ID()); }

// Tells whether a value may be stored under a data type. Kept: none may under File, whose values
// come as text alone (PropertyModelTest.AFileTakesTextOnly).
OXAResult check_value(DataType type, const OXAVariant& value) {
  const OXAVariant::Kind kind = oxa::kind_of(type);
  if (kind == OXAVariant::Kind::Nothing || type == DataType::File) {
    return E_UNEXPECTED;
  }
  if (value.kind != kind) {
    return E_TYPEMISMATCH;
  }
  return kind == OXAVariant::Kind::Text && !test_string(value.text) ? E_INVALIDARG : S_OK;
}

}  // namespace

OXAPropertyModel::OXAPropertyModel(IOXAPropertyManager* manager)
    : manager_(oxa::Ref<IOXAPropertyManager>::share(manager)) {}

// Finds a property, and registers it if there is none. S_OK; E_UNEXPECTED.
OXAResult OXAPropertyModel::find_property(const char* ns, const char* name,
                                          IOXAProperty*& property) {
  const bool found = manager_ && oxa::succeeded(manager_->Register(ns, name, &property));
  return found && property != nullptr ? S_OK : E_UNEXPECTED;
}

// Kept: there is a value, of the kind Nothing, before the text is parsed, and it stays when that
// fails (PropertyModelTest.ATextThatIsRefusedLeavesAValueOfNoKind).
OXAResult OXAPropertyModel::SetProperty(const char* ns, const char* name, const char* text) {
  if (ns == nullptr || name == nullptr || text == nullptr || !test_string(text)) {
    return E_INVALIDARG;
  }
  IOXAProperty* property = nullptr;
  if (const OXAResult result = find_property(ns, name, property); oxa::failed(result)) {
    return result;
  }
  return oxa::guard(
      [&] { return convert_from_string(property, text, values_.find_or_add(id_of(*property))); });
}

OXAResult OXAPropertyModel::SetProperty(IOXAProperty* property, const OXAVariant& value) {
  if (property == nullptr || value.kind == OXAVariant::Kind::Nothing) {
    return E_INVALIDARG;
  }
  const OXAResult result = check_value(property->DataType(), value);
  if (oxa::failed(result)) {
    return result;
  }
  return oxa::guard([&] {
    const unsigned long id = id_of(*property);
    OXAVariant* const known = values_.find(id);
    if (known != nullptr) {
      oxa::assign(*known, value);
    } else {
      OXAVariant copy = value;
      values_.find_or_add(id) = std::move(copy);
    }
    return S_OK;
  });
}

OXAResult OXAPropertyModel::GetProperty(const char* ns, const char* name, char** text) {
  if (ns == nullptr || name == nullptr || text == nullptr) {
    return E_INVALIDARG;
  }
  *text = nullptr;
  IOXAProperty* property = nullptr;
  if (const OXAResult result = find_property(ns, name, property); oxa::failed(result)) {
    return result;
  }
  const OXAVariant* known = values_.find(id_of(*property));
  return known == nullptr ? E_NOTFOUND : give_text(*known, property->DataType(), text);
}

OXAResult OXAPropertyModel::GetProperty(IOXAProperty* property, OXAVariant& value) {
  if (property == nullptr) {
    return E_INVALIDARG;
  }
  const OXAVariant* known = values_.find(id_of(*property));
  if (known == nullptr) {
    return E_NOTFOUND;
  }
  return oxa::guard([&] {
    oxa::assign(value, *known);
    return S_OK;
  });
}

OXAResult OXAPropertyModel::RemoveProperty(const char* ns, const char* name) {
  if (ns == nullptr || name == nullptr) {
    return E_INVALIDARG;
  }
  IOXAProperty* property = nullptr;
  const OXAResult result = find_property(ns, name, property);
  return oxa::failed(result) ? result : RemoveProperty(property);
}

OXAResult OXAPropertyModel::RemoveProperty(IOXAProperty* property) {
  if (property == nullptr) {
    return E_INVALIDARG;
  }
  return values_.remove(id_of(*property)) ? S_OK : E_NOTFOUND;
}

// Values whose ids the manager does not know are passed over.
OXAResult OXAPropertyModel::GetPropertyEnum(IOXAPropertyEnum** out) {
  if (out == nullptr) {
    return E_INVALIDARG;
  }
  *out = nullptr;
  return oxa::guard([&] {
    *out = enumerate_properties([&](auto& list) {
      values_.for_each_id([&](unsigned long id) {
        IOXAProperty* property = nullptr;
        if (manager_ && oxa::succeeded(manager_->FindProperty(id, &property))) {
          list.push_back(property);
        }
      });
    });
    return S_OK;
  });
}

OXAResult OXAPropertyModel::convert_from_string(IOXAProperty* property, const char* text,
                                                OXAVariant& value) {
  return parse_value(property->DataType(), text, value);
}

OXAResult OXAPropertyModel::convert_to_string(IOXAProperty* property, char** text,
                                              OXAVariant& /*value*/) {
  const OXAVariant* known = values_.find(id_of(*property));
  return known == nullptr ? E_NOTFOUND : give_text(*known, property->DataType(), text);
}

OXAResult OXAPropertyModel::give_text(const OXAVariant& value, DataType type, char** text) {
  const OXAVariant::Kind kind = oxa::kind_of(type);
  if (kind == OXAVariant::Kind::Nothing) {
    return E_UNEXPECTED;
  }
  *text = nullptr;
  if (value.kind != kind) {
    return E_UNEXPECTED;
  }
  return oxa::guard([&] {
    format_value(type, value, text_);
    *text = text_.data();
    return S_OK;
  });
}
