// Uses templates of the standard library that have static variables.
#include <oxa/sdk/plugin.h>

#include <memory>
#include <regex>

#include "plugins/miniature/journal.h"

namespace {

class Gauge final : public oxa::Implements<IGauge> {
 public:
  int Read() override { return std::regex_match("42", *digits_) ? 42 : 0; }

 private:
  std::shared_ptr<std::regex> digits_ = std::make_shared<std::regex>("[0-9]+");
};

}  // namespace

OXA_PLUGIN("Standard templates", "1.0", oxa::offer<Gauge>(IID_IGauge))
