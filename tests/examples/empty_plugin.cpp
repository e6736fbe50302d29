// A plug-in that offers nothing: the loader refuses it, but leaves its entry in the registry.
#include <oxa/sdk/plugin.h>

OXAResult OXACreatePluginInterface(IOXAContext* context, const _GUID& iid, void** out) {
  return oxa::create_plugin(context, iid, out, {"Empty", "1.0", nullptr, 0});
}
