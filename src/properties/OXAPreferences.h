// The settings of the application.
#pragma once

#include <oxa/IOXAPreferences.h>
#include <oxa/sdk/implements.h>

#include <memory>

#include "properties/OXAPropertyManager.h"
#include "properties/OXAPropertyModel.h"

// Properties of a manager of its own, and their values.
class OXAPreferences final : public oxa::Implements<IOXAPreferences> {
 public:
  // `result` receives S_OK, or E_OUTOFMEMORY: then the object is only to be released.
  explicit OXAPreferences(OXAResult& result);

  OXAResult Add(const char* ns, const char* name, IOXAProperty** out) override;
  OXAResult Set(const char* ns, const char* name, const char* value) override;
  OXAResult Get(const char* ns, const char* name, char** value) override;
  OXAResult GetPreferencePropertiesEnum(IOXAPropertyEnum** out) override;

  ~OXAPreferences() override = default;

 private:
  // The model ends before the manager, which it references; the manager ends as it stands, not by
  // its references.
  std::unique_ptr<OXAPropertyManager> manager_;
  std::unique_ptr<OXAPropertyModel> model_;
};
