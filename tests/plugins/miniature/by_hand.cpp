// A plug-in without the SDK, whose plug-in object is its own enumerator's only item.
#include <oxa/IOXAPlugin.h>

#include "plugins/miniature/journal.h"

namespace {

class Enumerator final : public IOXAInterfaceEnum {
 public:
  explicit Enumerator(void* item) : item_(item) {}
  std::int64_t AddReference() override { return ++count_; }
  std::int64_t ReleaseReference() override {
    const std::int64_t left = --count_;
    if (left == 0) {
      delete this;
    }
    return left;
  }
  std::int64_t CheckReference() override { return count_; }
  OXAResult GetFirst(_GUID& iid, void** out) override {
    iid = IID_IOXAAlgorithm;
    *out = item_;
    return S_OK;
  }
  OXAResult GetNext(_GUID&, void** out) override {
    *out = nullptr;
    return S_FALSE;
  }

 private:
  std::int64_t count_ = 1;
  void* item_;
};

class Plugin final : public IOXAPlugin {
 public:
  explicit Plugin(IOXAContext* context) : end_(context, "by hand ends") {}
  std::int64_t AddReference() override { return ++count_; }
  std::int64_t ReleaseReference() override {
    const std::int64_t left = --count_;
    if (left == 0) {
      delete this;
    }
    return left;
  }
  std::int64_t CheckReference() override { return count_; }
  const char* GetName() override { return "By hand"; }
  const char* GetVersion() override { return "1.0"; }
  OXAResult GetInterfaceEnum(IOXAInterfaceEnum** out) override {
    *out = new Enumerator(this);
    return S_OK;
  }

 private:
  std::int64_t count_ = 1;
  EndNote end_;
};

}  // namespace

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext* context, const _GUID& iid,
                                                         void** out) {
  note(context, *out == nullptr ? "an empty output" : "a filled output");
  note(context, oxa::to_string(iid).c_str());
  *out = static_cast<IOXAPlugin*>(new Plugin(context));
  return S_OK;
}
