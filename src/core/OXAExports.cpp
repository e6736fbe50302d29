// The exported factories of the core.
#include <oxa/IOXAContext.h>
#include <oxa/IOXAInterfaceEnum.h>

#include "core/OXAContext.h"
#include "core/OXAInterfaceEnum.h"
#include "core/factory.h"

OXAResult OXACreateContext(const _GUID& iid, void** out) {
  return run_factory(out, [&] {
    if (iid != IID_IOXAContext) {
      return E_NOINTERFACE;
    }
    OXAResult result = S_OK;
    auto context = oxa::make<OXAContext>(result);
    if (result >= 0) {
      *out = static_cast<IOXAContext*>(context.detach());
    }
    return result;
  });
}

OXAResult OXACreateInterfaceEnum(OXAInterfaceList* list, bool owns, const _GUID& iid, void** out) {
  return run_factory(out, [&] {
    if (iid != IID_IOXAInterfaceEnum) {
      return E_NOINTERFACE;
    }
    if (list == nullptr) {
      return E_POINTER;
    }
    *out = static_cast<IOXAInterfaceEnum*>(new OXAInterfaceEnum(list, owns));
    return S_OK;
  });
}
