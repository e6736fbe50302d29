// A plug-in like any other, but for a library that is not there when it is loaded.
#include "plugins/miniature/plugin_object.h"

extern "C" int from_missing_library();

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext*, const _GUID&, void**) {
  return from_missing_library();
}
