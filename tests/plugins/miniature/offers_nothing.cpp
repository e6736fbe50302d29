// Its list of interfaces is empty.
#include "plugins/miniature/plugin_object.h"

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext* context, const _GUID&,
                                                         void** out) {
  return create_plugin_object(context, out,
                              [](IOXAInterfaceEnum** list) { return list_pairs({}, list); });
}
