// The plug-ins of a folder, and what each of them offers.
#pragma once

#include <oxa/oxa.h>

#include <string>
#include <vector>

#include "offered.h"

// Loads the plug-ins of a folder one by one. At its end it takes everything that they registered
// out of the registry and unloads them: the loader leaves registrations behind, and the registry
// holds no references.
class PluginFolder {
 public:
  explicit PluginFolder(IOXAContext* context);
  ~PluginFolder();
  PluginFolder(const PluginFolder&) = delete;
  PluginFolder& operator=(const PluginFolder&) = delete;

  // Loads every file of `folder` whose name ends in ".so", in the order of names. Skips
  // those that cannot be loaded or break the contract, with a sentence on standard error. Throws
  // Problem when the folder cannot be read or no plug-in is left.
  void load(const std::string& folder);

  const std::vector<Offered>& offered() const { return offered_; }

  // Returns what is registered under the id of `Interface`, of which the first offered under a name
  // is the one in use. Valid until the next load.
  template <class Interface>
  std::vector<const Offered*> all() const {
    std::vector<const Offered*> found;
    for (const Offered& entry : offered_) {
      if (entry.iid == OXAInterfaceId<Interface>::value()) {
        found.push_back(&entry);
      }
    }
    return found;
  }

 private:
  void load_file(const std::string& folder, const std::wstring& name);
  std::vector<Offered> registered();
  void unregister(const std::vector<Offered>& entries);

  oxa::Ref<IOXADirectoryScanner> scanner_;
  oxa::Ref<IOXAPluginLoader> loader_;
  oxa::Ref<IOXAInterfaceManager> registry_;
  std::vector<std::wstring> paths_;
  std::vector<Offered> offered_;
};

// Returns the folder of plug-ins that belongs to the running program: the build's or the installed.
std::string default_plugin_folder();
