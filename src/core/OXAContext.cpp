#include "core/OXAContext.h"

#include <oxa/sdk/guard.h>

#include "core/default_services.h"

// The wall stands in here: an exception that left the constructor would leave the services that are
// already filed without their destructor.
OXAContext::OXAContext(OXAResult& result) {
  result = oxa::guard([this] { return add_default_services(*this); });
}

OXAResult OXAContext::GetInterface(const _GUID& iid, void** out) {
  if (out == nullptr) {
    return E_INVALIDARG;
  }
  *out = nullptr;
  IOXAReference* service = services_.find(iid);
  if (service == nullptr) {
    return E_NOTFOUND;
  }
  service->AddReference();
  *out = service;
  return S_OK;
}

OXAResult OXAContext::AddToContext(const _GUID& iid, void* object) {
  if (object == nullptr) {
    return E_INVALIDARG;
  }
  return oxa::guard([&] {
    // Room first: a service must not be filed that the destructor would not find.
    if (ids_.size() == ids_.capacity()) {
      ids_.reserve(ids_.size() * 2 + 16);
    }
    auto* service = static_cast<IOXAReference*>(object);
    IOXAReference* previous = services_.set(iid, service);
    if (previous == nullptr) {
      ids_.push_back(iid);
    }
    service->AddReference();
    if (previous != nullptr) {
      previous->ReleaseReference();
    }
    return S_FALSE;
  });
}

OXAContext::~OXAContext() {
  for (const _GUID& id : ids_) {
    services_.find(id)->ReleaseReference();
  }
}
