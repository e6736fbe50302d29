// The least that a plug-in is: one object, which is its own list of one interface, itself.
#include <oxa/IOXAPlugin.h>

namespace {

class Plugin final : public IOXAPlugin, public IOXAInterfaceEnum {
 public:
  std::int64_t AddReference() override { return ++count_; }
  std::int64_t ReleaseReference() override { return --count_; }
  std::int64_t CheckReference() override { return count_; }
  const char* GetName() override { return "Small"; }
  const char* GetVersion() override { return "1.0"; }

  OXAResult GetInterfaceEnum(IOXAInterfaceEnum** out) override {
    AddReference();
    *out = this;
    return S_OK;
  }

  OXAResult GetFirst(_GUID& iid, void** out) override {
    iid = IID_IOXAAlgorithm;
    *out = static_cast<IOXAPlugin*>(this);
    return S_OK;
  }
  OXAResult GetNext(_GUID& /*iid*/, void** out) override {
    *out = nullptr;
    return S_FALSE;
  }

 private:
  std::int64_t count_ = 1;
};

Plugin plugin;

}  // namespace

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext* /*context*/,
                                                         const _GUID& /*iid*/, void** out) {
  *out = static_cast<IOXAPlugin*>(&plugin);
  return S_OK;
}
