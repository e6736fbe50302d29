// Its entry point has the loader load the same path again, and accepts that as well.
#include <dlfcn.h>
#include <oxa/IOXAPluginLoader.h>
#include <oxa/sdk/utf8.h>

#include "plugins/miniature/plugin_object.h"

namespace {

bool loading = false;

void load_this_file(IOXAContext* context) {
  Dl_info info{};
  dladdr(&loading, &info);
  oxa::service<IOXAPluginLoader>(context)->Load(oxa::widen(info.dli_fname).c_str());
}

}  // namespace

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext* context, const _GUID&,
                                                         void** out) {
  if (!loading) {
    loading = true;
    load_this_file(context);
  }
  return create_plugin_object(context, out, [](IOXAInterfaceEnum** list) {
    static int offered = 0;
    return list_pairs({{IID_IGauge, &offered}}, list);
  });
}
