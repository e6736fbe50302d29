// Its list of interfaces throws.
#include <stdexcept>

#include "plugins/miniature/plugin_object.h"

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext* context, const _GUID&,
                                                         void** out) {
  return create_plugin_object(
      context, out, [](IOXAInterfaceEnum**) -> OXAResult { throw std::runtime_error("no list"); });
}
