#include "plugins/plugin_record.h"

#include <oxa/shared_objects.h>

OXAResult unload_plugin(_plugin& plugin) {
  if (plugin.handle == nullptr) {
    return E_UNEXPECTED;
  }
  if (plugin.object->ReleaseReference() == 0) {
    UnloadPlugin(plugin.handle);
  }
  return S_OK;
}
