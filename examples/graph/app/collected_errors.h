// What the library tells while something is done.
#pragma once

#include <oxa/oxa.h>
#include <oxa/sdk/implements.h>

#include <string>
#include <vector>

// A message sink that keeps errors and drops the rest.
class CollectingSink final : public oxa::Implements<IOXADebugMessage> {
 public:
  OXA_PRINTF(2, 3) void EmitError(const char* format, ...) override;
  OXA_PRINTF(2, 3) void EmitMessage(const char* /*format*/, ...) override {}
  OXA_PRINTF(2, 3) void EmitWarning(const char* /*format*/, ...) override {}
  void Clear() override { errors.clear(); }
  void SetDefaultWarningLevel(int /*level*/) override {}
  void SetDefaultMessageLevel(int /*level*/) override {}
  OXA_PRINTF(3, 4) void EmitMessage(int /*level*/, const char* /*format*/, ...) override {}
  OXA_PRINTF(3, 4) void EmitWarning(int /*level*/, const char* /*format*/, ...) override {}

  std::vector<std::string> errors;
};

// Collects what the sink of a context would be told while it lives. The errors of the library name
// no file; who collects them can.
class CollectedErrors {
 public:
  explicit CollectedErrors(IOXAContext* context);
  ~CollectedErrors();
  CollectedErrors(const CollectedErrors&) = delete;
  CollectedErrors& operator=(const CollectedErrors&) = delete;

  const std::vector<std::string>& texts() const { return sink_->errors; }

 private:
  IOXAContext* context_;
  oxa::Ref<IOXADebugMessage> previous_;
  oxa::Ref<CollectingSink> sink_ = oxa::make<CollectingSink>();
};
