// The plug-in loader.
#pragma once

#include <oxa/IOXADebugMessage.h>
#include <oxa/IOXAInterfaceManager.h>
#include <oxa/IOXAPluginLoader.h>
#include <oxa/sdk/implements.h>
#include <oxa/sdk/ref.h>

#include <functional>
#include <map>
#include <string>

#include "core/guid_numbering.h"
#include "plugins/OXADirectoryScanner.h"
#include "plugins/plugin_record.h"

// Loads plug-ins for the context it was made for, which it does not reference. One per process: the
// factory keeps the loader in a slot that the destructor clears. Unlike other classes it has the
// reference count first and the interface second.
class OXAPluginLoader final : public oxa::Counted<OXAReference, IOXAPluginLoader> {
 public:
  // Takes the message sink and the interface manager from `context`; `result` receives the outcome.
  OXAPluginLoader(IOXAContext* context, OXAResult& result);

  OXAResult Load(const wchar_t* path) override;
  OXAResult LoadAll(const wchar_t* folder) override;
  OXAResult Unload(const wchar_t* path) override;
  OXAResult UnloadAll() override;

  ~OXAPluginLoader() override;

 private:
  OXAResult open(_plugin& plugin);
  OXAResult create_object(_plugin& plugin);
  OXAResult publish(_plugin& plugin);
  OXAResult file_interfaces(_plugin& plugin, IOXAInterfaceEnum& offered);
  void retract(_plugin& plugin);
  static void end_object(_plugin& plugin);
  void refuse(const char* format, const _plugin& plugin);

  IOXAContext* context_;
  oxa::Ref<IOXADebugMessage> sink_;
  std::map<std::wstring, _plugin, std::less<>> plugins_;  // the loaded ones, by path
  guid_numbering numbers_;
  oxa::Ref<OXADirectoryScanner> scanner_;
  oxa::Ref<IOXAInterfaceManager> registry_;
};
