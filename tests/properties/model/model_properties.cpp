#include "properties/model/model_properties.h"

#include <algorithm>

#include "datatypes/model/model_type_string.h"
#include "properties/model/model_value_text.h"

namespace oxa_test::model {

using Kind = OXAVariant::Kind;
using OXA::Property::DataType;

Path Properties::path_of(const std::string& ns) { return split(ns, "::"); }

Property* Properties::add(Property property) { return &all.emplace_back(std::move(property)); }

FoundProperty Properties::Register(const char* ns, const char* name) {
  if (ns == nullptr || name == nullptr) {
    return {E_INVALIDARG};
  }
  Property*& place = registered_[path_of(ns)][name];
  if (place != nullptr) {
    return {S_ALREADYEXISTS, place};
  }
  place = add(Property(ns, name));
  place->id = next_id_;
  by_id_[static_cast<unsigned long>(next_id_)] = place;
  ++next_id_;
  return {S_OK, place};
}

OXAResult Properties::Unregister(const char* ns, const char* name) {
  if (ns == nullptr || name == nullptr || std::string(name).empty()) {
    return E_INVALIDARG;
  }
  const auto owner = registered_.find(path_of(ns));
  if (owner == registered_.end() || owner->second.count(name) == 0) {
    return E_UNEXPECTED;
  }
  Property* const property = owner->second.at(name);
  owner->second.erase(name);
  --property->references;
  return property->references == 0 ? S_OK : S_FALSE;
}

OXAResult Properties::Unregister(Property* property) {
  return property == nullptr ? E_INVALIDARG
                             : Unregister(property->ns.c_str(), property->name.c_str());
}

FoundProperty Properties::FindProperty(unsigned long id) const {
  const auto found = by_id_.find(id);
  return found == by_id_.end() ? FoundProperty{E_NOTFOUND} : FoundProperty{S_OK, found->second};
}

FoundProperty Properties::FindProperty(const char* ns, const char* name) const {
  if (ns == nullptr || name == nullptr) {
    return {E_INVALIDARG};
  }
  const auto owner = registered_.find(path_of(ns));
  if (owner == registered_.end() || owner->second.count(name) == 0) {
    return {E_NOTFOUND};
  }
  return {S_ALREADYEXISTS, owner->second.at(name)};
}

std::vector<Property*> Properties::in(const Path& path, bool recursive) const {
  std::vector<Property*> found;
  for (const auto& [owner, properties] : registered_) {
    const bool is_below =
        owner.size() >= path.size() && std::equal(path.begin(), path.end(), owner.begin());
    if (owner == path || (recursive && is_below)) {
      for (const auto& [name, property] : properties) {
        found.push_back(property);
      }
    }
  }
  return found;
}

void Properties::end() {
  for (Property* property : in({}, true)) {
    --property->references;
  }
  registered_.clear();
}

OXAResult Values::SetProperty(const char* ns, const char* name, const char* text) {
  if (ns == nullptr || name == nullptr || text == nullptr || !is_storable(text)) {
    return E_INVALIDARG;
  }
  const Property& property = *properties_.Register(ns, name).property;
  Value& value = values_[static_cast<unsigned long>(property.id)];
  const OXAResult result = parse_value(property.data_type, text, value.variant);
  if (result == S_OK) {
    value.is_copy = false;
  }
  return result;
}

OXAResult Values::SetProperty(Property* property, const OXAVariant& value) {
  if (property == nullptr || value.kind == Kind::Nothing) {
    return E_INVALIDARG;
  }
  const std::optional<Kind> kind = stored_kind(property->data_type);
  if (!kind || property->data_type == DataType::File) {
    return E_UNEXPECTED;
  }
  if (value.kind != *kind) {
    return E_TYPEMISMATCH;
  }
  if (*kind == Kind::Text && !is_storable(value.text)) {
    return E_INVALIDARG;
  }
  values_[static_cast<unsigned long>(property->id)] = {value, true};
  return S_OK;
}

Values::Text Values::GetProperty(const char* ns, const char* name) {
  if (ns == nullptr || name == nullptr) {
    return {E_INVALIDARG, std::nullopt};
  }
  Property& property = *properties_.Register(ns, name).property;
  const Stored stored = GetProperty(&property);
  if (stored.result != S_OK) {
    return {stored.result, std::nullopt};
  }
  const std::optional<std::string> text = format_value(property.data_type, stored.value.variant);
  return {text ? S_OK : E_UNEXPECTED, text};
}

Values::Stored Values::GetProperty(Property* property) const {
  if (property == nullptr) {
    return {E_INVALIDARG, {}};
  }
  const auto found = values_.find(static_cast<unsigned long>(property->id));
  return found == values_.end() ? Stored{E_NOTFOUND, {}} : Stored{S_OK, found->second};
}

OXAResult Values::RemoveProperty(const char* ns, const char* name) {
  if (ns == nullptr || name == nullptr) {
    return E_INVALIDARG;
  }
  return RemoveProperty(properties_.Register(ns, name).property);
}

OXAResult Values::RemoveProperty(Property* property) {
  if (property == nullptr) {
    return E_INVALIDARG;
  }
  return values_.erase(static_cast<unsigned long>(property->id)) == 1 ? S_OK : E_NOTFOUND;
}

std::vector<Property*> Values::with_value() const {
  std::vector<Property*> found;
  for (const auto& [id, value] : values_) {
    const FoundProperty each = properties_.FindProperty(id);
    if (each.result == S_OK) {
      found.push_back(each.property);
    }
  }
  return found;
}

}  // namespace oxa_test::model
