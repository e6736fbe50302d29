// What the tests of properties share.
#pragma once

#include <gtest/gtest.h>
#include <oxa/IOXAProperty.h>
#include <oxa/IOXAPropertyViewHints.h>
#include <oxa/oxa.h>
#include <oxa/sdk/properties.h>
#include <oxa/sdk/variant.h>

#include <sstream>
#include <string>
#include <vector>

#include "properties/OXAPropertyManager.h"

namespace oxa_test {

using OXA::Property::DataType;
using OXA::Property::NoDataType;
using Kind = OXAVariant::Kind;
using Lines = std::vector<std::string>;

inline const DataType data_types[] = {
    DataType::Bool,        DataType::String,
    DataType::Char,        DataType::UnsignedChar,
    DataType::Int,         DataType::UnsignedInt,
    DataType::Short,       DataType::UnsignedShort,
    DataType::LongLong,    DataType::UnsignedLongLong,
    DataType::Float,       DataType::Double,
    DataType::Enum,        DataType::Code,
    DataType::Hexadecimal, DataType::File,
    DataType::UserDefined,
};

inline const DataType no_data_types[] = {NoDataType, DataType{-2}, DataType{17}, DataType{1000}};

// A text that does not fit where short ones do.
inline const char* const long_text = "a text that is longer than short ones, by far";

// Null as "-".
inline std::string shown(const char* text) {
  return text == nullptr ? "-" : "'" + std::string(text) + "'";
}

// Shows all that a property says, but for what it supports, of which only the given pairs are asked
// for: a/1, a/2, b/1, and b/2.
inline std::string described(IOXAProperty& property) {
  std::ostringstream text;
  text.precision(17);
  IOXAPropertyViewHints& hints = *property.ViewHints();
  text << property.ID() << " " << shown(property.Name()) << " in " << shown(property.Namespace())
       << " = " << shown(property.FullNamespace()) << ", type " << static_cast<int>(property.Type())
       << " data type " << static_cast<int>(property.DataType()) << " "
       << shown(property.UserDefinedDataType()) << ", default " << shown(property.DefaultValue())
       << ", range " << property.IsRangeSet() << " " << property.MinimumValue() << " "
       << property.MaximumValue() << ", flags " << property.HasDependency() << property.IsMutable()
       << property.SupportsAllNodes() << ", hints " << shown(hints.Alias())
       << shown(hints.Tooltip()) << shown(hints.Group()) << hints.Editor() << hints.Display()
       << ", attributes " << property.GetAttributeCount();
  for (const char* name : oxa::attribute_names(property)) {
    text << " " << shown(name) << "=" << shown(oxa::attribute(property, name));
  }
  text << ", supports " << property.Supports("a", "1") << property.Supports("a", "2")
       << property.Supports("b", "1") << property.Supports("b", "2");
  return text.str();
}

// Sets all that can be set without a type manager, to what it is not at first.
inline void fill(IOXAProperty& property) {
  property.SetID(7);
  property.SetDataType(DataType::Double);
  property.SetRange(-1.5, 2.5);
  property.SetDefaultValue(long_text);
  property.SetDependency(true);
  property.SetPropertyType(OXA::Property::Type{5});
  property.SetMutable(true);
  for (const char* name : {"one", "two", "three", "four", "five and more than short ones have"}) {
    property.AddAttribute(name, long_text);
  }
  property.AddSupport("a", "1");
  property.AddSupport("a", "2");
  property.AddSupport("b", "1");
  property.ViewHints()->SetAlias("an alias");
  property.ViewHints()->SetTooltip(long_text);
  property.ViewHints()->SetGroup("a group");
  property.ViewHints()->SetEditor(3);
  property.ViewHints()->SetDisplayFlag(true);
}

// Shows the properties of an enumerator by their full namespaces, in order.
inline Lines listed(IOXAPropertyEnum& enumerator) {
  Lines names;
  for (IOXAProperty* property : oxa::items(enumerator)) {
    names.emplace_back(property->FullNamespace());
  }
  EXPECT_EQ(enumerator.Count(), names.size());
  return names;
}

// A manager and what is registered with it.
struct Properties {
  IOXAProperty& add(const char* ns, const char* name, DataType type = NoDataType) const {
    IOXAProperty* property = nullptr;
    EXPECT_EQ(manager->Register(ns, name, &property), S_OK);
    property->SetDataType(type);
    return *property;
  }

  // Returns null when there is none.
  IOXAProperty* find(const char* ns, const char* name) const {
    IOXAProperty* property = nullptr;
    manager->FindProperty(ns, name, &property);
    return property;
  }

  Lines listed() const {
    oxa::Ref<IOXAPropertyEnum> all;
    EXPECT_EQ(manager->GetPropertyEnum(oxa::adopt_into(all)), S_OK);
    return oxa_test::listed(*all);
  }

  oxa::Ref<IOXAPropertyManager> manager = oxa::make<OXAPropertyManager>();
};

// One property, without a data type at first.
class PropertyTest : public testing::Test {
 protected:
  // Another one.
  IOXAProperty& add(const char* name, DataType type) { return properties_.add("ns", name, type); }

  Properties properties_;
  IOXAProperty& property_ = properties_.add("a::b", "x");
  IOXAPropertyViewHints& hints_ = *property_.ViewHints();
};

}  // namespace oxa_test
