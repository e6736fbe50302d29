// A plug-in object whose list of interfaces is up to the plug-in.
#pragma once

#include <oxa/IOXAPlugin.h>
#include <oxa/sdk/implements.h>

#include <utility>

#include "plugins/miniature/journal.h"

// `List` is called as List(IOXAInterfaceEnum** out).
template <class List>
class PluginObject final : public oxa::Implements<IOXAPlugin> {
 public:
  PluginObject(IOXAContext* context, List list)
      : end_(context, "object ends"), list_(std::move(list)) {}

  const char* GetName() override { return nullptr; }
  const char* GetVersion() override { return nullptr; }
  OXAResult GetInterfaceEnum(IOXAInterfaceEnum** out) override { return list_(out); }

 private:
  EndNote end_;
  List list_;
};

// The body of an entry point: makes a plug-in object around `list`.
template <class List>
OXAResult create_plugin_object(IOXAContext* context, void** out, List list) {
  *out = static_cast<IOXAPlugin*>(new PluginObject<List>(context, std::move(list)));
  return S_OK;
}

// Lists `pairs` with an enumerator of the library.
inline OXAResult list_pairs(OXAInterfaceList pairs, IOXAInterfaceEnum** out) {
  void* enumerator = nullptr;
  const OXAResult result = OXACreateInterfaceEnum(new OXAInterfaceList(std::move(pairs)), true,
                                                  IID_IOXAInterfaceEnum, &enumerator);
  *out = static_cast<IOXAInterfaceEnum*>(enumerator);
  return result;
}
