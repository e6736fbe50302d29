// Its plug-in object throws when it is released.
#include <oxa/IOXAPlugin.h>

#include <new>

#include "plugins/miniature/plugin_object.h"

namespace {

class Plugin final : public IOXAPlugin {
 public:
  std::int64_t AddReference() override { return 1; }
  std::int64_t ReleaseReference() override { throw std::bad_alloc(); }
  std::int64_t CheckReference() override { return 1; }
  const char* GetName() override { return nullptr; }
  const char* GetVersion() override { return nullptr; }
  OXAResult GetInterfaceEnum(IOXAInterfaceEnum** out) override {
    return list_pairs({{IID_IGauge, this}}, out);
  }
};

}  // namespace

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext*, const _GUID&, void** out) {
  static Plugin plugin;
  *out = static_cast<IOXAPlugin*>(&plugin);
  return S_OK;
}
