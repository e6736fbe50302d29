// Settings, and walking them and what describes them.
#pragma once

#include <oxa/IOXAPreferences.h>
#include <oxa/IOXAProperty.h>
#include <oxa/IOXAPropertyEnum.h>
#include <oxa/IOXAPropertyViewHints.h>
#include <oxa/data_type.h>
#include <oxa/result.h>
#include <oxa/sdk/ranges.h>
#include <oxa/sdk/ref.h>
#include <oxa/sdk/result_text.h>

#include <new>
#include <optional>
#include <string>

namespace oxa {
inline namespace sdk1 {

// Adds a setting of a data type and returns its description, borrowed; one that has a data type
// already is left as it is. It is listed only once it has a value: Set its default. The names must
// not be null. Throws std::bad_alloc.
inline IOXAProperty& add_setting(IOXAPreferences& preferences, const char* ns, const char* name,
                                 OXA::Property::DataType type) {
  IOXAProperty* property = nullptr;
  if (failed(preferences.Add(ns, name, &property))) {
    throw std::bad_alloc();
  }
  if (property->DataType() == OXA::Property::NoDataType) {
    property->SetDataType(type);
  }
  return *property;
}

// Returns the value of a setting as text: the one that was set, or if there is none that fits the
// data type, its default, otherwise nothing. Throws std::bad_alloc.
inline std::optional<std::string> setting(IOXAPreferences& preferences, IOXAProperty& property) {
  char* value = nullptr;
  const OXAResult result = preferences.Get(property.Namespace(), property.Name(), &value);
  if (succeeded(result)) {
    return value;
  }
  if (result == E_OUTOFMEMORY) {
    throw std::bad_alloc();
  }
  const char* otherwise = property.DefaultValue();
  return otherwise == nullptr ? std::nullopt : std::optional<std::string>(otherwise);
}

// Range over the settings that have a value, as they are at the moment of the call, in no specified
// order; they are borrowed. Throws std::bad_alloc.
inline auto settings(IOXAPreferences& preferences) {
  Ref<IOXAPropertyEnum> found;
  if (failed(preferences.GetPreferencePropertiesEnum(adopt_into(found)))) {
    throw std::bad_alloc();
  }
  return items(*found);
}

using AttributeNameSource = PointerSource<IOXAProperty, char, &IOXAProperty::GetFirstAttribute,
                                          &IOXAProperty::GetNextAttribute>;

// Range over the names of the attributes of a property, in the order in which they were added; of
// an Enum property these are its entries. Not to be nested over the same property, which keeps the
// position.
inline EnumeratorRange<AttributeNameSource> attribute_names(IOXAProperty& property) {
  return EnumeratorRange<AttributeNameSource>(
      AttributeNameSource{Ref<IOXAProperty>::share(&property)});
}

// Returns the value of an attribute, null when there is none of this name; borrowed.
inline const char* attribute(IOXAProperty& property, const char* name) {
  char* value = nullptr;
  property.GetAttributeValue(name, &value);
  return value;
}

}  // namespace sdk1
}  // namespace oxa
