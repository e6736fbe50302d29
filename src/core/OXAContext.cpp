#include "core/OXAContext.h"

#include <oxa/sdk/guard.h>

#include <algorithm>

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
  IOXAReference* service = find(iid);
  if (service == nullptr) {
    return E_NOTFOUND;
  }
  return oxa::guard([&] {
    service->AddReference();
    *out = service;
    return S_OK;
  });
}

// Finds a service. While the context ends, one that it has released is no longer there.
IOXAReference* OXAContext::find(const _GUID& iid) const {
  IOXAReference* service = services_.find(iid);
  if (released_ == 0 || service == nullptr) {
    return service;
  }
  const auto held = ids_.begin() + static_cast<std::ptrdiff_t>(released_);
  return std::find(held, ids_.end(), iid) == ids_.end() ? nullptr : service;
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
    IOXAReference* previous = find(iid);
    services_.set(iid, service);
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

// A service that ends may still call the context.
OXAContext::~OXAContext() {
  while (released_ < ids_.size()) {
    IOXAReference* service = services_.find(ids_[released_++]);
    oxa::guard([&] {
      service->ReleaseReference();
      return S_OK;
    });
  }
}
