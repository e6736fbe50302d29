// The values of properties.
#pragma once

#include <oxa/IOXAPropertyManager.h>
#include <oxa/IOXAPropertyModel.h>
#include <oxa/data_type.h>
#include <oxa/sdk/ref.h>

#include <string>

#include "properties/value_store.h"

// Not counted: its owner ends it.
class OXAPropertyModel final : public IOXAPropertyModel {
 public:
  // Shares `manager`. Without one, no operation by path succeeds.
  explicit OXAPropertyModel(IOXAPropertyManager* manager);
  OXAPropertyModel(const OXAPropertyModel&) = delete;
  OXAPropertyModel& operator=(const OXAPropertyModel&) = delete;

  OXAResult SetProperty(const char* ns, const char* name, const char* text) override;
  OXAResult SetProperty(IOXAProperty* property, const OXAVariant& value) override;
  OXAResult GetProperty(const char* ns, const char* name, char** text) override;
  OXAResult GetProperty(IOXAProperty* property, OXAVariant& value) override;
  OXAResult RemoveProperty(const char* ns, const char* name) override;
  OXAResult RemoveProperty(IOXAProperty* property) override;
  OXAResult GetPropertyEnum(IOXAPropertyEnum** out) override;

  virtual ~OXAPropertyModel() = default;

 private:
  // Gives the property's stored value as text; the third argument is not read.
  virtual OXAResult convert_to_string(IOXAProperty* property, char** text, OXAVariant& value);
  // Parses a text into `value`, with the results of parse_value.
  virtual OXAResult convert_from_string(IOXAProperty* property, const char* text,
                                        OXAVariant& value);

  OXAResult give_text(const OXAVariant& value, OXA::Property::DataType type, char** text);
  OXAResult find_property(const char* ns, const char* name, IOXAProperty*& property);

  oxa::Ref<IOXAPropertyManager> manager_;
  value_store values_;
  std::string text_;  // what the last conversion gave
};
