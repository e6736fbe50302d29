#include "core/OXAInterfaceEnum.h"

#include <cstring>

OXAResult OXAInterfaceEnum::GetFirst(_GUID& iid, void** out) {
  cursor_ = out != nullptr ? 0 : cursor_;
  return take(iid, out);
}

OXAResult OXAInterfaceEnum::GetNext(_GUID& iid, void** out) {
  if (out != nullptr && cursor_ < list_->size()) {
    ++cursor_;
  }
  return take(iid, out);
}

OXAResult OXAInterfaceEnum::take(_GUID& iid, void** out) const {
  if (out == nullptr) {
    return E_POINTER;
  }
  *out = nullptr;
  if (cursor_ >= list_->size()) {
    return S_FALSE;
  }
  const auto& [id, object] = (*list_)[cursor_];
  std::memcpy(&iid, &id, sizeof iid);  // the padding is part of what was registered
  *out = object;
  return S_OK;
}

OXAInterfaceEnum::~OXAInterfaceEnum() {
  if (owns_) {
    delete list_;
  }
}
