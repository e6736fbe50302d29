// Offers one interface under each id that the library knows of plug-ins.
#include <oxa/sdk/plugin.h>

#include "plugins/miniature/journal.h"

namespace {

class Offered final : public oxa::Implements<IOffered> {};

}  // namespace

OXA_PLUGIN("All kinds", "1.0", oxa::offer<Offered>(IID_IOXAFileReader),
           oxa::offer<Offered>(IID_IOXAFileWriter), oxa::offer<Offered>(IID_IOXAAlgorithm),
           oxa::offer<Offered>(IID_IOXALayout), oxa::offer<Offered>(IID_IOXALayoutCompute))
