// Its list of interfaces fails.
#include "plugins/miniature/plugin_object.h"

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext* context, const _GUID&,
                                                         void** out) {
  return create_plugin_object(context, out, [](IOXAInterfaceEnum**) { return E_UNEXPECTED; });
}
