// Its entry point fails.
#include <oxa/IOXAPlugin.h>

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext*, const _GUID&, void**) {
  return E_NOINTERFACE;
}
