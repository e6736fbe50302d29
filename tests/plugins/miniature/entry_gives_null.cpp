// Its entry point succeeds without an object.
#include <oxa/IOXAPlugin.h>

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext*, const _GUID&, void** out) {
  *out = nullptr;
  return S_OK;
}
