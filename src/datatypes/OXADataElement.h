// A member of a user-defined data type.
#pragma once

#include <oxa/IOXADataElement.h>
#include <oxa/sdk/implements.h>

#include "core/thin_string.h"
#include "datatypes/type_builder.h"

class IOXAUserDefinedDataType;

class OXADataElement final : public oxa::Implements<IOXADataElement>, public arena_placed {
 public:
  struct text_fields {
    oxa::thin_string name;
    oxa::thin_string tooltip;
    oxa::thin_string default_value;
    oxa::thin_string user_defined_type;
  };

  // The owner is not referenced.
  explicit OXADataElement(IOXAUserDefinedDataType& owner);
  OXADataElement(IOXAUserDefinedDataType& owner, text_fields texts) noexcept;

  // What a default value is until it is set.
  static oxa::thin_string first_default();

  const char* Name() override;
  const char* Namespace() override;
  OXA::Property::DataType Type() override;
  const char* Tooltip() override;
  const char* UserDefinedType() override;
  const char* DefaultValue() override;
  double MinimumValue() override;
  double MaximumValue() override;
  bool IsRangeSet() override;
  OXAResult SetName(const char* name) override;
  OXAResult SetDataType(OXA::Property::DataType type) override;
  OXAResult SetTooltip(const char* text) override;
  OXAResult SetRange(double minimum, double maximum) override;
  OXAResult SetDefaultValue(const char* text) override;
  OXAResult SetUserDefinedTypeString(const char* text) override;

  ~OXADataElement() override = default;

 private:
  text_fields texts_;
  IOXAUserDefinedDataType& owner_;
  double minimum_ = 0;
  double maximum_ = 0;
  OXA::Property::DataType type_ = OXA::Property::NoDataType;
  bool range_set_ = false;
};
