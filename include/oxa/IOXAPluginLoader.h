// The plug-in loader.
#pragma once

#include <oxa/IOXAContext.h>
#include <oxa/IOXAReference.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

// Opens plug-in shared objects and files what they offer in the interface manager: the plug-in
// object under "plugins", offered interfaces under "readers", "writers", "algorithms", "layouts" or
// "misc" by their id. Implemented by the library, one per process; every context holds it under
// IID_IOXAPluginLoader. Used on one thread only, on which plug-ins are called too. It works with
// the context, and the registry, that it was made for.
//
// Paths are compared as written; oxa::widen in <oxa/sdk/utf8.h> makes them of UTF-8. As everywhere
// on this system, one without "/" is not looked for in the current folder.
class IOXAPluginLoader : public IOXAReference {
 public:
  // Loads one shared object.
  // S_OK; S_ALREADYEXISTS when this path is loaded already; E_INVALIDARG for a null path and,
  // with a message, for an object without the entry point, with a failing one, or whose list of
  // interfaces fails; E_NOINTERFACE for a plug-in that offers nothing; E_FAIL when the object
  // cannot be opened, without a message; E_OUTOFMEMORY; E_UNEXPECTED when the plug-in throws
  // elsewhere, or the loader is ending. After a failure the object is closed again; after
  // E_NOINTERFACE and after a failing list its entry in "plugins" stays behind and must not be
  // used.
  virtual OXAResult Load(const wchar_t* path) = 0;

  // Loads every entry of `folder` whose name contains ".so", by the path made of `folder`, "/" and
  // the name, and reports each through the message sink. One that fails does not stop the others.
  // S_OK, also for a folder that cannot be read; E_INVALIDARG for a null folder; E_OUTOFMEMORY;
  // E_UNEXPECTED when the loader is ending.
  virtual OXAResult LoadAll(const wchar_t* folder) = 0;

  // Drops the plug-in loaded from `path`, and closes its shared object if nobody else holds the
  // plug-in object. What it registered stays in the interface manager: unregister it first.
  // Code that the system's loader cannot take out stays mapped (see IOXAPlugin.h).
  // S_OK; E_INVALIDARG for a null path; E_NOTFOUND for a path that is not loaded; E_UNEXPECTED when
  // the plug-in throws.
  virtual OXAResult Unload(const wchar_t* path) = 0;

  // Drops all plug-ins in ascending path order, as Unload does.
  // S_OK; E_UNEXPECTED when a plug-in throws. Those behind it are then still loaded, and the next
  // call goes on with them; it and those before it are gone, but their paths count as loaded for
  // Load until Unload, which returns E_UNEXPECTED for them, or an UnloadAll that succeeds.
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
