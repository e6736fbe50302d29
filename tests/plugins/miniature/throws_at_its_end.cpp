// It offers nothing, and its plug-in object throws when it is released for that.
#include <oxa/IOXAPlugin.h>

#include "plugins/miniature/plugin_object.h"

namespace {

// Its code ends with the plug-in's.
struct OwnError {
  OwnError() = default;
  OwnError(const OwnError&) {}
  ~OwnError() {}
};

class Plugin final : public IOXAPlugin {
 public:
  std::int64_t AddReference() override { return 1; }
  std::int64_t ReleaseReference() override { throw OwnError(); }
  std::int64_t CheckReference() override { return 1; }
  const char* GetName() override { return nullptr; }
  const char* GetVersion() override { return nullptr; }
  OXAResult GetInterfaceEnum(IOXAInterfaceEnum** out) override { return list_pairs({}, out); }
};

}  // namespace

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext*, const _GUID&, void** out) {
  static Plugin plugin;
  *out = static_cast<IOXAPlugin*>(&plugin);
  return S_OK;
}
