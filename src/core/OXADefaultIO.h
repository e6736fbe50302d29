// The message and progress sinks that a context begins with.
#pragma once

#include <oxa/IOXADebugMessage.h>
#include <oxa/IOXAProgressIndicator.h>
#include <oxa/sdk/implements.h>

// Writes errors to standard error, messages and warnings to standard output. Each emit formats into
// a buffer of its own call, so emits may come from several threads.
class OXADefaultIOMessage final : public oxa::Implements<IOXADebugMessage> {
 public:
  OXA_PRINTF(2, 3) void EmitError(const char* format, ...) override;
  OXA_PRINTF(2, 3) void EmitMessage(const char* format, ...) override;
  OXA_PRINTF(2, 3) void EmitWarning(const char* format, ...) override;
  void Clear() override {}
  // Kept: the two setters are crossed (OXADefaultIOMessageTest.TheSettersAreCrossed).
  void SetDefaultWarningLevel(int level) override { message_threshold_ = level; }
  void SetDefaultMessageLevel(int level) override { warning_threshold_ = level; }
  OXA_PRINTF(3, 4) void EmitMessage(int level, const char* format, ...) override;
  OXA_PRINTF(3, 4) void EmitWarning(int level, const char* format, ...) override;

 private:
  int message_threshold_ = 0;
  int warning_threshold_ = 0;
};

// Ignores progress and is always active.
class OXADefaultIOProgress final : public oxa::Implements<IOXAProgressIndicator> {
 public:
  OXAResult Begin() override { return S_OK; }
  OXAResult End() override { return S_OK; }
  OXAResult UpdateMessage(const char*) override { return S_OK; }
  OXAResult UpdateTitle(const char*) override { return S_OK; }
  OXAResult SetHeartbeatFrequency(int) override { return S_OK; }
  bool IsActive() override { return true; }
};
