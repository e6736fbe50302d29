// A property.
#pragma once

#include <oxa/IOXAProperty.h>
#include <oxa/sdk/implements.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

#include "core/thin_string.h"
#include "properties/OXAPropertyViewHints.h"
#include "properties/property_attributes.h"
#include "properties/property_range.h"

// There may be millions, of which most have neither attributes nor supports: both are made when
// there is one. Unlike other classes it has the reference count first and the interface second.
class OXAProperty final : public oxa::Counted<OXAReference, IOXAProperty> {
 public:
  // `full_namespace` is the namespace, "::" and the name.
  OXAProperty(oxa::thin_string full_namespace, oxa::thin_string name_space,
              std::size_t name_size) noexcept;

  // Tells whether these are its namespace and name.
  bool is(std::string_view name_space, std::string_view name) const {
    const char* const full = full_namespace_.c_str();
    return name_space.size() == namespace_size_ && name.size() == name_size_ &&
           std::memcmp(full, name_space.data(), namespace_size_) == 0 &&
           std::memcmp(full + name_at(), name.data(), name_size_) == 0;
  }

  OXAResult Clone(IOXAProperty** out) override;
  int ID() override { return id_; }
  const char* Name() override { return full_namespace_.c_str() + name_at(); }
  const char* Namespace() override { return namespace_.c_str(); }
  OXA::Property::Type Type() override { return property_type_; }
  OXA::Property::DataType DataType() override { return data_type_; }
  const char* UserDefinedDataType() override { return user_defined_type_.data(); }
  const char* DefaultValue() override { return default_set_ ? default_value_.c_str() : nullptr; }
  bool HasDependency() override { return dependency_; }
  bool IsRangeSet() override { return range_set_; }
  double MinimumValue() override { return range_.minimum; }
  double MaximumValue() override { return range_.maximum; }
  const char* FullNamespace() override { return full_namespace_.c_str(); }
  bool IsMutable() override { return mutable_; }
  void SetID(int id) override { id_ = id; }
  OXAResult SetRange(double minimum, double maximum) override;
  OXAResult SetUserDefinedDataType(const char* name) override;
  OXAResult SetDefaultValue(const char* text) override;
  void SetDependency(bool dependency) override { dependency_ = dependency; }
  void SetPropertyType(OXA::Property::Type type) override { property_type_ = type; }
  void SetDataType(OXA::Property::DataType type) override;
  void SetSupportAllNodes(bool all) override { supports_all_ = all; }
  void SetMutable(bool is_mutable) override { mutable_ = is_mutable; }
  IOXAPropertyViewHints* ViewHints() override { return &view_hints_; }
  unsigned long GetAttributeCount() override;
  void ClearAttributes() override;
  OXAResult AddAttribute(const char* name, const char* value) override;
  OXAResult GetFirstAttribute(char** name) override;
  OXAResult GetNextAttribute(char** name) override;
  OXAResult GetAttributeValue(const char* name, char** value) override;
  OXAResult GetAttributeFromValue(const char* value, char** name) override;
  bool Supports(const char* category, const char* name) override;
  OXAResult AddSupport(const char* category, const char* name) override;
  bool SupportsAllNodes() override { return supports_all_; }

  ~OXAProperty() override = default;

 private:
  friend class OXAPropertyNS;

  static constexpr std::string_view separator = "::";

  // Where the name begins in the full namespace.
  std::size_t name_at() const { return namespace_size_ + separator.size(); }

  // What a look-up by path reads stands first.
  int id_ = -1;
  OXA::Property::DataType data_type_ = OXA::Property::NoDataType;
  oxa::thin_string full_namespace_;
  std::size_t namespace_size_;
  std::size_t name_size_;
  oxa::thin_string namespace_;
  // Its neighbours in its namespace, which keeps them.
  OXAProperty* previous_ = nullptr;
  OXAProperty* next_ = nullptr;
  property_range range_;
  oxa::thin_string user_defined_type_;
  oxa::thin_string default_value_;
  std::unique_ptr<property_attributes> attributes_;
  std::unique_ptr<property_supports> supports_;
  OXAPropertyViewHints view_hints_;
  OXA::Property::Type property_type_{};
  bool default_set_ = false;
  bool range_set_ = false;
  bool dependency_ = false;
  bool mutable_ = false;
  bool supports_all_ = false;
};
