// Opening shared objects and finding what they export.
#pragma once

#include <oxa/export.h>
#include <oxa/result.h>

extern "C" {

// Opens a shared object with lazy binding, its symbols kept local. Returns a handle that the caller
// closes with UnloadPlugin, or null on failure. A path with a "/" that does not name a regular,
// complete shared object is refused before the system's loader sees it: that would end the process
// on a truncated file. A name without "/" is searched as the system's loader does, and a null path
// gives the program itself.
OXA_EXPORT void* LoadPlugin(const char* path);

// The same with a wide path, converted to UTF-8; characters that are not code points are dropped.
OXA_EXPORT void* LoadPluginW(const wchar_t* path);

// Closes a handle. S_OK; E_FAIL for a null handle or one that the system's loader rejects.
OXA_EXPORT OXAResult UnloadPlugin(void* handle);

// Returns the address of the symbol `name`, or null when it is absent. A null handle searches the
// process's global symbols.
OXA_EXPORT void* FindFunction(void* handle, const char* name);

}  // extern "C"
