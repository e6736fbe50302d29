#include "core/OXAContext.h"

#include <oxa/sdk/guard.h>

#include <utility>

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
  const std::uint32_t number = numbers_.find(iid);
  if (number == guid_numbering::none) {
    return E_NOTFOUND;
  }
  IOXAReference* service = services_[number];
  service->AddReference();
  *out = service;
  return S_OK;
}

OXAResult OXAContext::AddToContext(const _GUID& iid, void* object) {
  if (object == nullptr) {
    return E_INVALIDARG;
  }
  return oxa::guard([&] {
    // Room first: an id must not get a number without a service behind it.
    if (services_.size() == services_.capacity()) {
      services_.reserve(services_.size() * 2 + 16);
    }
    const std::uint32_t number = numbers_.number(iid);
    if (number == services_.size()) {
      services_.push_back(nullptr);
    }
    auto* service = static_cast<IOXAReference*>(object);
    IOXAReference* previous = std::exchange(services_[number], service);
    service->AddReference();
    if (previous != nullptr) {
      previous->ReleaseReference();
    }
    return S_FALSE;
  });
}

OXAContext::~OXAContext() {
  for (IOXAReference* service : services_) {
    service->ReleaseReference();
  }
}
