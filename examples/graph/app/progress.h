// Progress on standard error: a bar on a terminal, plain lines elsewhere.
#pragma once

#include <oxa/IOXAProgressIndicator.h>
#include <oxa/sdk/ref.h>

#include <string>

enum class ProgressStyle { quiet, lines, bar };

// Returns the style that suits standard error.
ProgressStyle suitable_progress_style();

// Makes a progress indicator that is active until a signal asks to stop.
oxa::Ref<IOXAProgressIndicator> make_progress(ProgressStyle style);

// Names a piece of work to a progress indicator for as long as it lasts.
class Step {
 public:
  Step(IOXAProgressIndicator& progress, const std::string& title) : progress_(progress) {
    progress_.UpdateTitle(title.c_str());
    progress_.Begin();
  }
  ~Step() { progress_.End(); }
  Step(const Step&) = delete;
  Step& operator=(const Step&) = delete;

 private:
  IOXAProgressIndicator& progress_;
};
