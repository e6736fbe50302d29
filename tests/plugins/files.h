// Files of plug-ins.
#pragma once

#include <dlfcn.h>

#include <filesystem>
#include <string>

#include "support/files.h"

namespace oxa_test {

// Returns the path of a miniature plug-in.
inline std::filesystem::path miniature(const std::string& name) {
  return std::filesystem::path(OXA_MINIATURE_DIRECTORY) / (name + ".so");
}

// Copies a miniature plug-in to a folder under another name and returns its path.
inline std::filesystem::path copy_plugin(const TemporaryFolder& folder, const std::string& plugin,
                                         const std::string& name) {
  std::filesystem::copy_file(miniature(plugin), folder / name);
  return folder / name;
}

// Tells whether the process has a shared object open.
inline bool is_open(const std::filesystem::path& path) {
  void* handle = dlopen(path.c_str(), RTLD_LAZY | RTLD_NOLOAD);
  if (handle != nullptr) {
    dlclose(handle);
  }
  return handle != nullptr;
}

// Closes a shared object that the loader has left open.
inline void close_for_good(const std::filesystem::path& path) {
  void* handle = dlopen(path.c_str(), RTLD_LAZY | RTLD_NOLOAD);
  dlclose(handle);
  dlclose(handle);
}

}  // namespace oxa_test
