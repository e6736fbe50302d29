// How a property is shown.
#pragma once

#include <oxa/IOXAPropertyViewHints.h>

#include "core/thin_string.h"

// A part of its property; not counted.
class OXAPropertyViewHints final : public IOXAPropertyViewHints {
 public:
  OXAPropertyViewHints() = default;
  OXAPropertyViewHints(const OXAPropertyViewHints&) = delete;
  OXAPropertyViewHints& operator=(const OXAPropertyViewHints&) = delete;

  const char* Alias() override { return alias_.data(); }
  OXAResult SetAlias(const char* text) override;
  const char* Tooltip() override { return tooltip_.data(); }
  OXAResult SetTooltip(const char* text) override;
  int Editor() override { return editor_; }
  void SetEditor(int editor) override { editor_ = editor; }
  bool Display() override { return display_; }
  void SetDisplayFlag(bool display) override { display_ = display; }
  const char* Group() override { return group_.data(); }
  OXAResult SetGroup(const char* text) override;

  virtual ~OXAPropertyViewHints() = default;

  // Takes over all that another one says. Throws std::bad_alloc.
  void copy(const OXAPropertyViewHints& other);

 private:
  oxa::thin_string alias_;
  oxa::thin_string tooltip_;
  oxa::thin_string group_;
  int editor_ = 0;
  bool display_ = false;
};
