#include "progress.h"

#include <oxa/sdk/guard.h>
#include <oxa/sdk/implements.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "interrupt.h"

namespace {

constexpr int bar_width = 24;

class Progress final : public oxa::Implements<IOXAProgressIndicator> {
 public:
  explicit Progress(ProgressStyle style) : style_(style) {}

  OXAResult Begin() override;
  OXAResult End() override;
  OXAResult UpdateMessage(const char* text) override;
  OXAResult UpdateTitle(const char* text) override;
  OXAResult SetHeartbeatFrequency(int frequency) override;
  bool IsActive() override { return interrupt_signal() == 0; }

 private:
  void draw();

  ProgressStyle style_;
  std::string title_;
  int expected_ = 0;
  int reported_ = 0;
};

OXAResult Progress::UpdateTitle(const char* text) {
  return oxa::guard([&] {
    title_ = text != nullptr ? text : "";
    return S_OK;
  });
}

OXAResult Progress::Begin() {
  expected_ = reported_ = 0;
  if (style_ == ProgressStyle::lines) {
    std::fprintf(stderr, "oxa-graph: %s\n", title_.c_str());
  }
  draw();
  return S_OK;
}

OXAResult Progress::SetHeartbeatFrequency(int frequency) {
  expected_ = std::max(frequency, 0);
  reported_ = 0;
  return S_OK;
}

OXAResult Progress::UpdateMessage(const char*) {
  ++reported_;
  draw();
  return S_OK;
}

OXAResult Progress::End() {
  if (style_ == ProgressStyle::bar) {
    std::fputs("\r\x1b[K", stderr);
  }
  return S_OK;
}

void Progress::draw() {
  if (style_ != ProgressStyle::bar) {
    return;
  }
  const int filled = expected_ > 0 ? std::min(bar_width, bar_width * reported_ / expected_) : 0;
  std::string bar(static_cast<std::size_t>(filled), '#');
  bar.append(static_cast<std::size_t>(bar_width - filled), '.');
  std::fprintf(stderr, "\r\x1b[K[%s] %s", bar.c_str(), title_.c_str());
}

}  // namespace

ProgressStyle suitable_progress_style() {
  return isatty(STDERR_FILENO) != 0 ? ProgressStyle::bar : ProgressStyle::lines;
}

oxa::Ref<IOXAProgressIndicator> make_progress(ProgressStyle style) {
  return oxa::make<Progress>(style);
}
