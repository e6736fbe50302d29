// Compiled by each compiler at each of its extremes.
#include "abi/compiled_plugin.h"

#include <oxa/sdk/plugin.h>
#include <oxa/sdk/ranges.h>

#include <vector>

namespace {

class Compiled final : public oxa::Implements<ICompiled> {
 public:
  const char* Compiler() override { return OXA_COMPILED_BY; }

  int Take(IOXAInterfaceEnum* enumerator) override {
    const auto range = oxa::entries(*enumerator);
    for (const oxa::InterfaceEntry& entry : range) {
      taken_.push_back(oxa::Ref<IOXAReference>::share(static_cast<IOXAReference*>(entry.object)));
    }
    return static_cast<int>(taken_.size());
  }

  void Drop() override { taken_.clear(); }

 private:
  std::vector<oxa::Ref<IOXAReference>> taken_;
};

}  // namespace

OXA_PLUGIN("Compiled", OXA_COMPILED_BY, oxa::offer<Compiled>(IID_IOXAFileReader),
           oxa::offer<Compiled>(IID_ICompiled))
