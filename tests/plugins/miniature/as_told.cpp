// Its entry point does what the test has filed in the context.
#include <oxa/IOXAPlugin.h>

#include "plugins/miniature/journal.h"

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext* context, const _GUID&,
                                                         void** out) {
  return oxa::service<IEntryPoint>(context)->Create(out);
}
