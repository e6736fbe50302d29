// A plug-in that is built outside the library's tree.
#include <oxa/sdk/plugin.h>

#include "IGreeter.h"

namespace {

class Greeter final : public oxa::Implements<IGreeter> {
 public:
  const char* Greeting() override { return "Hello from outside"; }
};

}  // namespace

OXA_PLUGIN("Outside", "1.0", oxa::offer<Greeter>(IID_IGreeter))
