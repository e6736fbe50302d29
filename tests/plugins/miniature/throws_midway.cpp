// Its enumerator throws after the first pair.
#include <stdexcept>

#include "plugins/miniature/plugin_object.h"

namespace {

class Offered final : public oxa::Implements<IOffered> {};

class Enumerator final : public oxa::Implements<IOXAInterfaceEnum> {
 public:
  explicit Enumerator(void* item) : item_(item) {}
  OXAResult GetFirst(_GUID& iid, void** out) override {
    iid = IID_IOXAFileReader;
    *out = item_;
    return S_OK;
  }
  OXAResult GetNext(_GUID&, void**) override { throw std::runtime_error("the list broke off"); }

 private:
  void* item_;
};

}  // namespace

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext* context, const _GUID&,
                                                         void** out) {
  return create_plugin_object(context, out,
                              [reader = oxa::make<Offered>()](IOXAInterfaceEnum** list) {
                                *list = new Enumerator(reader.get());
                                return S_OK;
                              });
}
