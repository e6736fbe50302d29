// Offers a reader and an interface that the library does not know.
#include <oxa/sdk/plugin.h>

#include "plugins/miniature/journal.h"

namespace {

class Reader final : public oxa::Implements<IOffered> {
 public:
  explicit Reader(IOXAContext* context) : end_(context, "good ends") {
    note(context, "good begins");
  }

 private:
  EndNote end_;
};

class Gauge final : public oxa::Implements<IGauge> {
 public:
  int Read() override { return 42; }
};

}  // namespace

OXA_PLUGIN("Good", "1.0", oxa::offer<Reader>(IID_IOXAFileReader), oxa::offer<Gauge>(IID_IGauge))
