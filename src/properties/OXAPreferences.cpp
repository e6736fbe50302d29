#include "properties/OXAPreferences.h"

#include <oxa/sdk/guard.h>

OXAPreferences::OXAPreferences(OXAResult& result) {
  result = oxa::guard([this] {
    manager_ = std::make_unique<OXAPropertyManager>();
    model_ = std::make_unique<OXAPropertyModel>(manager_.get());
    return S_OK;
  });
}

OXAResult OXAPreferences::Add(const char* ns, const char* name, IOXAProperty** out) {
  return manager_->Register(ns, name, out);
}

OXAResult OXAPreferences::Set(const char* ns, const char* name, const char* value) {
  return model_->SetProperty(ns, name, value);
}

OXAResult OXAPreferences::Get(const char* ns, const char* name, char** value) {
  return model_->GetProperty(ns, name, value);
}

OXAResult OXAPreferences::GetPreferencePropertiesEnum(IOXAPropertyEnum** out) {
  return model_->GetPropertyEnum(out);
}
