// Its list of interfaces succeeds without an enumerator.
#include "plugins/miniature/plugin_object.h"

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext* context, const _GUID&,
                                                         void** out) {
  return create_plugin_object(context, out, [](IOXAInterfaceEnum** list) {
    *list = nullptr;
    return S_OK;
  });
}
