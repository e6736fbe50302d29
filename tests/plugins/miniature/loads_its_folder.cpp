// Its entry point has the loader load the plug-in's own folder, and refuses to be loaded by that.
#include <dlfcn.h>

#include <filesystem>

#include <oxa/IOXAPluginLoader.h>

#include "plugins/miniature/plugin_object.h"

namespace {

bool loading = false;

std::wstring own_folder() {
  Dl_info info{};
  dladdr(&loading, &info);
  return std::filesystem::path(info.dli_fname).parent_path().wstring();
}

}  // namespace

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext* context, const _GUID&,
                                                         void** out) {
  if (loading) {
    return E_FAIL;
  }
  loading = true;
  oxa::service<IOXAPluginLoader>(context)->LoadAll(own_folder().c_str());
  loading = false;
  return create_plugin_object(context, out, [](IOXAInterfaceEnum** list) {
    static int offered = 0;
    return list_pairs({{IID_IGauge, &offered}}, list);
  });
}
