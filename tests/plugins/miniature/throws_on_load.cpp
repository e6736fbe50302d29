// A static object of it throws when it is made.
#include <stdexcept>

#include "plugins/miniature/plugin_object.h"

namespace {

struct Thrower {
  Thrower() { throw std::runtime_error("not today"); }
};

const Thrower thrower;

}  // namespace

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext* context, const _GUID&,
                                                         void** out) {
  return create_plugin_object(context, out,
                              [](IOXAInterfaceEnum** list) { return list_pairs({}, list); });
}
