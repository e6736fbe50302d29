// A plug-in that is built outside the library's tree.
#include <oxa/sdk/plugin.h>

#include <memory>
#include <regex>
#include <string>

#include "IGreeter.h"

namespace {

class Greeter final : public oxa::Implements<IGreeter> {
 public:
  const char* Greeting() override { return greeting_->c_str(); }

 private:
  // Templates of the standard library, which show unless the linker is told what to show.
  std::shared_ptr<std::string> greeting_ = std::make_shared<std::string>(
      std::regex_replace("Hello from inside", std::regex("[a-z]+$"), "outside"));
};

}  // namespace

OXA_PLUGIN("Outside", "1.0", oxa::offer<Greeter>(IID_IGreeter))
