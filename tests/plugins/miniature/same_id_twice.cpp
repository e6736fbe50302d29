// Offers two objects under one id.
#include "plugins/miniature/plugin_object.h"

namespace {

class Offered final : public oxa::Implements<IOffered> {};

}  // namespace

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext* context, const _GUID&,
                                                         void** out) {
  return create_plugin_object(
      context, out,
      [first = oxa::make<Offered>(), second = oxa::make<Offered>()](IOXAInterfaceEnum** list) {
        return list_pairs({{IID_IOXAFileReader, first.get()}, {IID_IOXAFileReader, second.get()}},
                          list);
      });
}
