// One loaded plug-in.
#pragma once

#include <oxa/IOXAPlugin.h>
#include <oxa/result.h>

#include <cstdint>
#include <string>
#include <vector>

// What the loader remembers of a plug-in: the open shared object, its entry point and path, the
// interfaces that it reported with their id numbers, and its plug-in object, with one reference.
struct _plugin {
  struct reported {
    std::int32_t number;
    _GUID iid;
    void* object;
  };

  void* handle = nullptr;
  decltype(&OXACreatePluginInterface) entry_point = nullptr;
  std::wstring path;
  std::vector<reported> interfaces;
  IOXAPlugin* object = nullptr;
};

// Releases the plug-in object, and closes the shared object if that release was the last: while
// somebody still holds the object, its code stays.
// S_OK; E_UNEXPECTED without a handle, with nothing done.
OXAResult unload_plugin(_plugin& plugin);
