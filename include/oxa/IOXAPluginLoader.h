// The plug-in loader.
#pragma once

#include <oxa/IOXAContext.h>
#include <oxa/IOXAReference.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

// Opens plug-in shared objects and files what they offer in the interface manager: the plug-in
// object under "plugins", offered interfaces under "readers", "writers", "algorithms", "layouts" or
// "misc" by their id. Implemented by the library, one per process; every context holds it under
// IID_IOXAPluginLoader. Used on the host's thread only. Paths are compared as written;
// oxa::widen in <oxa/sdk/utf8.h> makes them of UTF-8.
class IOXAPluginLoader : public IOXAReference {
 public:
  // Loads one shared object.
  // S_OK; 5 when this path is loaded already; E_INVALIDARG for a null path, or an object without
  // the entry point, with a failing one, or whose list of interfaces fails, each with a message;
  // E_NOINTERFACE for a plug-in that offers nothing; E_FAIL when the object cannot be opened;
  // E_OUTOFMEMORY. After a failure the object is closed again; after E_NOINTERFACE and after a
  // failing list its entry in "plugins" stays behind and must not be used.
  virtual OXAResult Load(const wchar_t* path) = 0;

  // Loads every entry of `folder` whose name contains ".so" and reports each through the message
  // sink. One that fails does not stop the others.
  // S_OK, also for a folder that cannot be read; E_INVALIDARG for a null folder; E_OUTOFMEMORY.
  virtual OXAResult LoadAll(const wchar_t* folder) = 0;

  // Drops the plug-in loaded from `path`, and closes its shared object if nobody else holds the
  // plug-in object. What it registered stays in the interface manager: unregister it first.
  // S_OK; E_INVALIDARG for a null path; E_NOTFOUND for a path that is not loaded.
  virtual OXAResult Unload(const wchar_t* path) = 0;

  // Drops all plug-ins in ascending path order, as Unload does.
  // S_OK; E_UNEXPECTED when a plug-in throws, with the rest still loaded.
  virtual OXAResult UnloadAll() = 0;

 protected:
  ~IOXAPluginLoader() = default;
};

template <>
struct OXAInterfaceId<IOXAPluginLoader> {
  static const _GUID& value() { return IID_IOXAPluginLoader; }
};

// Files the process's plug-in loader in `context` under IID_IOXAPluginLoader, making it if there is
// none. OXACreateContext calls this; a host has no need to. The caller owns a reference to `*out`
// only when the loader was made by this call; an existing one is handed out without.
// The result of adding it to the context, normally S_FALSE; E_INVALIDARG for a null argument;
// E_OUTOFMEMORY, or the result of fetching the message sink or the interface manager from the
// context, with `*out` null.
extern "C" OXA_EXPORT OXAResult OXACreatePluginLoader(IOXAContext* context, void** out);
