// The registry in which plug-ins' interfaces are filed.
#pragma once

#include <oxa/IOXAInterfaceEnum.h>
#include <oxa/IOXAReference.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

// Files objects under a namespace and an interface id. Implemented by the library; every context
// holds one under IID_IOXAInterfaceManager. The registry takes no references: whoever registers an
// object keeps it alive until it is unregistered. Calls must not overlap.
class IOXAInterfaceManager : public IOXAReference {
 public:
  // Lists what is registered under `iid`: namespaces in byte-wise name order, within one in
  // registration order. The caller owns one reference to `*out`.
  // S_OK, also with nothing to list; E_INVALIDARG for a null `out`; E_OUTOFMEMORY with `*out` null.
  virtual OXAResult GetInterfaceEnumByGUID(const _GUID& iid, IOXAInterfaceEnum** out) = 0;

  // Lists what is registered in the namespace `name`: ids in the order in which the registry first
  // met them, within one in registration order. The caller owns one reference to `*out`.
  // S_OK, also for a namespace that has been emptied; E_INVALIDARG for a null argument; E_NOTFOUND
  // for a namespace in which nothing was ever registered; E_OUTOFMEMORY. `*out` is null after a
  // failure.
  virtual OXAResult GetInterfaceEnumByNamespace(const char* name, IOXAInterfaceEnum** out) = 0;

  // Files `object`, an interface pointer, under `name` and `iid`, once more if it is there already.
  // S_OK; E_INVALIDARG for a null argument; E_OUTOFMEMORY with nothing filed.
  virtual OXAResult RegisterInterface(const char* name, const _GUID& iid, void* object) = 0;

  // Takes out the first entry of `object` under `name` and `iid`.
  // S_OK; E_INVALIDARG for a null argument; E_NOTFOUND when there is no such entry; E_OUTOFMEMORY
  // with nothing taken out.
  virtual OXAResult UnRegisterInterface(const char* name, const _GUID& iid, void* object) = 0;

 protected:
  ~IOXAInterfaceManager() = default;
};

template <>
struct OXAInterfaceId<IOXAInterfaceManager> {
  static const _GUID& value() { return IID_IOXAInterfaceManager; }
};
