// The exported primitives over the system's dynamic loader.
#include <dlfcn.h>

#include <oxa/sdk/guard.h>
#include <oxa/shared_objects.h>

#include <cstring>

#include "core/utf.h"
#include "plugins/shared_object_file.h"

namespace {

// Opening runs the object's static constructors. One that throws ends the process, as the language
// has it: an exception that passed through the system's loader would leave it locked. Called
// through a pointer that the compiler cannot follow: dlopen is declared as never throwing, so it
// would leave out the end.
void* open_object(const char* path) noexcept {
  void* (*volatile const open)(const char*, int) = &dlopen;
  return open(path, RTLD_LAZY);
}

}  // namespace

void* LoadPlugin(const char* path) {
  const bool names_a_file = path != nullptr && std::strchr(path, '/') != nullptr;
  if (names_a_file && !oxa::is_complete_shared_object(path)) {
    return nullptr;
  }
  return open_object(path);
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
