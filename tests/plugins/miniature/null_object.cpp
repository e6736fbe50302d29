// Offers a pair without an object, and then a writer.
#include "plugins/miniature/plugin_object.h"

namespace {

class Offered final : public oxa::Implements<IOffered> {};

}  // namespace

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext* context, const _GUID&,
                                                         void** out) {
  return create_plugin_object(
      context, out, [writer = oxa::make<Offered>()](IOXAInterfaceEnum** list) {
        return list_pairs({{IID_IOXAFileReader, nullptr}, {IID_IOXAFileWriter, writer.get()}},
                          list);
      });
}
