// Its entry point throws a type of its own, whose destructor is in the plug-in too.
#include <oxa/IOXAPlugin.h>
#include <oxa/sdk/ref.h>

#include "plugins/miniature/journal.h"

namespace {

struct Trouble {
  explicit Trouble(IOXAContext* context) : journal(oxa::service<IJournal>(context)) {}
  Trouble(const Trouble&) = default;
  Trouble& operator=(const Trouble&) = default;
  virtual ~Trouble() { journal.reset(); }

  oxa::Ref<IJournal> journal;
};

}  // namespace

extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext* context, const _GUID&,
                                                         void**) {
  throw Trouble(context);
}
