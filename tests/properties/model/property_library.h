// The library's side of a program on properties.
#pragma once

#include <oxa/IOXAPropertyEnum.h>
#include <oxa/sdk/ref.h>

#include <memory>

#include "properties/OXAPreferences.h"
#include "properties/OXAPropertyManager.h"
#include "properties/OXAPropertyModel.h"

namespace oxa_test::model {

// Preferences, or a manager and the values of its properties. What both can do has one name here.
struct LibraryProperties {
  explicit LibraryProperties(bool as_preferences) {
    if (as_preferences) {
      OXAResult result = E_FAIL;
      preferences = oxa::make<OXAPreferences>(result);
    } else {
      manager = oxa::make<OXAPropertyManager>();
      values = std::make_unique<OXAPropertyModel>(manager.get());
    }
  }

  OXAResult add(const char* ns, const char* name, IOXAProperty** out) const {
    return preferences ? preferences->Add(ns, name, out) : manager->Register(ns, name, out);
  }
  OXAResult set(const char* ns, const char* name, const char* text) const {
    return preferences ? preferences->Set(ns, name, text) : values->SetProperty(ns, name, text);
  }
  OXAResult get(const char* ns, const char* name, char** text) const {
    return preferences ? preferences->Get(ns, name, text) : values->GetProperty(ns, name, text);
  }
  OXAResult with_value(IOXAPropertyEnum** out) const {
    return preferences ? preferences->GetPreferencePropertiesEnum(out)
                       : values->GetPropertyEnum(out);
  }

  oxa::Ref<OXAPreferences> preferences;
  oxa::Ref<OXAPropertyManager> manager;
  std::unique_ptr<OXAPropertyModel> values;
};

}  // namespace oxa_test::model
