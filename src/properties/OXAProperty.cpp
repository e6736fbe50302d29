#include "properties/OXAProperty.h"

#include <oxa/IOXAUserDefinedDataTypeManager.h>
#include <oxa/sdk/guard.h>
#include <oxa/sdk/ref.h>
#include <oxa/sdk/result_text.h>

#include <cstring>
#include <string>
#include <utility>

#include "core/set_text.h"

namespace {

// The number of the widget that edits a yes or no.
constexpr int editor_of_bool = 4;

// Gives the characters of a text that belongs to the property; `without` when there is none.
OXAResult give(char** out, const std::string* text, OXAResult without) {
  if (text == nullptr) {
    return without;
  }
  *out = const_cast<char*>(text->c_str());
  return S_OK;
}

const std::string* name_of(const property_attributes::pair* attribute) {
  return attribute == nullptr ? nullptr : &attribute->first;
}

const std::string* value_of(const property_attributes::pair* attribute) {
  return attribute == nullptr ? nullptr : &attribute->second;
}

// Runs an operation of which any failure is E_UNEXPECTED.
template <class Operation>
OXAResult guard_unexpected(Operation operation) {
  return oxa::succeeded(oxa::guard(operation)) ? S_OK : E_UNEXPECTED;
}

// Asks the type manager of the process. S_OK; E_INVALIDARG for a type that is not defined; the
// result of the factory when there is no manager.
OXAResult check_type_string(const char* name) {
  oxa::Ref<IOXAUserDefinedDataTypeManager> types;
  const OXAResult result = OXACreateUserDefinedDataTypeManager(
      nullptr, IID_IOXAUserDefinedDataTypeManager, oxa::adopt_into(types));
  if (oxa::failed(result)) {
    return result;
  }
  return types->TypeDefined(name) ? S_OK : E_INVALIDARG;
}

}  // namespace

OXAProperty::OXAProperty(oxa::thin_string full_namespace, oxa::thin_string name_space,
                         std::size_t name_size) noexcept
    : full_namespace_(std::move(full_namespace)),
      namespace_size_(std::strlen(name_space.c_str())),
      name_size_(name_size),
      namespace_(std::move(name_space)) {}

OXAResult OXAProperty::Clone(IOXAProperty** out) {
  if (out == nullptr) {
    return E_INVALIDARG;
  }
  *out = nullptr;
  return guard_unexpected([&] {
    auto clone = oxa::make<OXAProperty>(oxa::thin_string(full_namespace_.c_str()),
                                        oxa::thin_string(namespace_.c_str()), name_size_);
    clone->id_ = id_;
    clone->data_type_ = data_type_;
    clone->range_ = range_;
    clone->user_defined_type_ = oxa::thin_string(user_defined_type_.c_str());
    clone->default_value_ = oxa::thin_string(default_value_.c_str());
    if (attributes_) {
      clone->attributes_ = std::make_unique<property_attributes>(*attributes_);
    }
    if (supports_) {
      clone->supports_ = std::make_unique<property_supports>(*supports_);
    }
    clone->view_hints_.copy(view_hints_);
    clone->property_type_ = property_type_;
    clone->default_set_ = default_set_;
    clone->range_set_ = range_set_;
    clone->dependency_ = dependency_;
    clone->mutable_ = mutable_;
    clone->supports_all_ = supports_all_;
    *out = clone.detach();
    return S_OK;
  });
}

OXAResult OXAProperty::SetRange(double minimum, double maximum) {
  const OXAResult result = check_range(data_type_, range_, {minimum, maximum});
  if (oxa::succeeded(result)) {
    range_ = {minimum, maximum};
    range_set_ = true;
  }
  return result;
}

OXAResult OXAProperty::SetUserDefinedDataType(const char* name) {
  if (name == nullptr) {
    return E_INVALIDARG;
  }
  if (data_type_ != OXA::Property::DataType::UserDefined) {
    return E_UNEXPECTED;
  }
  return oxa::guard([&] {
    const OXAResult result = check_type_string(name);
    if (oxa::failed(result)) {
      return result;
    }
    const property_range range = range_of_type_string(name);  // the name may be the present one
    user_defined_type_ = oxa::thin_string(name);
    range_ = range_set_ ? range_ : range;
    return S_OK;
  });
}

OXAResult OXAProperty::SetDefaultValue(const char* text) {
  const OXAResult result = oxa::set_text(default_value_, text);
  default_set_ = default_set_ || oxa::succeeded(result);
  return result;
}

void OXAProperty::SetDataType(OXA::Property::DataType type) {
  data_type_ = type;
  range_ = natural_range(type);
  if (type == OXA::Property::DataType::Bool) {
    view_hints_.SetEditor(editor_of_bool);
  }
}

unsigned long OXAProperty::GetAttributeCount() { return attributes_ ? attributes_->size() : 0; }

void OXAProperty::ClearAttributes() { attributes_.reset(); }

OXAResult OXAProperty::AddAttribute(const char* name, const char* value) {
  if (name == nullptr || value == nullptr) {
    return E_INVALIDARG;
  }
  if (attributes_ && attributes_->find(name) != nullptr) {
    return E_ALREADYEXISTS;
  }
  return guard_unexpected([&] {
    if (!attributes_) {
      attributes_ = std::make_unique<property_attributes>();
    }
    attributes_->add(name, value);
    return S_OK;
  });
}

OXAResult OXAProperty::GetFirstAttribute(char** name) {
  if (name == nullptr) {
    return E_INVALIDARG;
  }
  *name = nullptr;
  return give(name, attributes_ ? name_of(attributes_->first()) : nullptr, S_FALSE);
}

OXAResult OXAProperty::GetNextAttribute(char** name) {
  if (name == nullptr) {
    return E_INVALIDARG;
  }
  *name = nullptr;
  return give(name, attributes_ ? name_of(attributes_->next()) : nullptr, S_FALSE);
}

OXAResult OXAProperty::GetAttributeValue(const char* name, char** value) {
  if (name == nullptr || value == nullptr) {
    return E_INVALIDARG;
  }
  *value = nullptr;
  const auto* const found = attributes_ ? attributes_->find(name) : nullptr;
  return give(value, value_of(found), E_NOTFOUND);
}

OXAResult OXAProperty::GetAttributeFromValue(const char* value, char** name) {
  if (value == nullptr || name == nullptr) {
    return E_INVALIDARG;
  }
  *name = nullptr;
  const auto* const found = attributes_ ? attributes_->find_value(value) : nullptr;
  return give(name, name_of(found), E_NOTFOUND);
}

bool OXAProperty::Supports(const char* category, const char* name) {
  if (category == nullptr || *category == '\0' || name == nullptr || *name == '\0') {
    return false;
  }
  if (supports_all_) {
    return true;
  }
  if (!supports_) {
    return false;
  }
  const auto names = supports_->find(std::string_view(category));
  return names != supports_->end() && names->second.contains(std::string_view(name));
}

OXAResult OXAProperty::AddSupport(const char* category, const char* name) {
  if (category == nullptr || name == nullptr) {
    return E_INVALIDARG;
  }
  return oxa::guard([&] {
    if (!supports_) {
      supports_ = std::make_unique<property_supports>();
    }
    (*supports_)[category].emplace(name);
    return S_OK;
  });
}
