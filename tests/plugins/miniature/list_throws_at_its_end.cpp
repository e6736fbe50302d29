// Its enumerator lists a reader, and throws when it is released.
#include "plugins/miniature/plugin_object.h"

namespace {

// Its code ends with the plug-in's.
struct OwnError {
  OwnError() = default;
  OwnError(const OwnError&) {}
  ~OwnError() {}
};

class Enumerator final : public IOXAInterfaceEnum {
 public:
  std::int64_t AddReference() override { return 1; }
  std::int64_t ReleaseReference() override { throw OwnError(); }
  std::int64_t CheckReference() override { return 1; }
  OXAResult GetFirst(_GUID& iid, void** out) override {
    iid = IID_IOXAFileReader;
    *out = this;
    return S_OK;
  }
  OXAResult GetNext(_GUID&, void** out) override {
    *out = nullptr;
    return S_FALSE;
  }
};

}  // namespace

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext* context, const _GUID&,
                                                         void** out) {
  return create_plugin_object(context, out, [](IOXAInterfaceEnum** list) {
    static Enumerator enumerator;
    *list = &enumerator;
    return S_OK;
  });
}
