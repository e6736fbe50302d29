// The exported primitives over the system's dynamic loader.
#include <dlfcn.h>

#include <oxa/sdk/guard.h>
#include <oxa/shared_objects.h>

#include <cstring>

#include "core/utf.h"
#include "plugins/shared_object_file.h"

// Opening runs the object's static constructors, which may throw.
void* LoadPlugin(const char* path) {
  const bool names_a_file = path != nullptr && std::strchr(path, '/') != nullptr;
  if (names_a_file && !oxa::is_complete_shared_object(path)) {
    return nullptr;
  }
  void* handle = nullptr;
  oxa::guard([&] {
    handle = dlopen(path, RTLD_LAZY);
    return S_OK;
  });
  return handle;
}

void* LoadPluginW(const wchar_t* path) {
  if (path == nullptr) {
    return LoadPlugin(nullptr);
  }
  void* handle = nullptr;
  oxa::guard([&] {
    handle = LoadPlugin(oxa::to_utf8(path).c_str());
    return S_OK;
  });
  return handle;
}

OXAResult UnloadPlugin(void* handle) {
  return handle != nullptr && dlclose(handle) == 0 ? S_OK : E_FAIL;
}

void* FindFunction(void* handle, const char* name) {
  return name == nullptr ? nullptr : dlsym(handle, name);
}
