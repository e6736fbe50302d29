// The message sink: where errors, warnings and messages for people go.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/export.h>
#include <oxa/interface_ids.h>

// Reports to people. The library's own writes errors to standard error, warnings and messages to
// standard output, a line each, cut at 999 characters; a host may file its own in the context under
// IID_IOXADebugMessage. Who fetched the previous one keeps using it: the plug-in loader takes its
// sink when it is made, and again with every LoadAll. Formats follow printf. May be called from any
// thread; lines of different threads come in no fixed order.
//
// The operations without a level speak only above a threshold that starts at 0 (see the setters).
// The operations with a level speak when the threshold is at least that level, so 0 always speaks.
class IOXADebugMessage : public IOXAReference {
 public:
  // Reports an error, prefixed "ERROR: ". Always speaks. A null format prints nothing.
  OXA_PRINTF(2, 3) virtual void EmitError(const char* format, ...) = 0;

  // Reports a message when the message threshold is above 0. Give it text without conversions: the
  // library's own formats twice over one argument list, so conversions read past the arguments
  // given. Use the operation with a level for arguments.
  OXA_PRINTF(2, 3) virtual void EmitMessage(const char* format, ...) = 0;

  // Reports a warning, prefixed "WARNING: ", when the warning threshold is above 0. A null format
  // prints nothing.
  OXA_PRINTF(2, 3) virtual void EmitWarning(const char* format, ...) = 0;

  // Forgets what is shown. The library's own keeps nothing and does nothing.
  virtual void Clear() = 0;

  // Sets the threshold of messages, whatever its name says; it starts at 0.
  virtual void SetDefaultWarningLevel(int level) = 0;

  // Sets the threshold of warnings, whatever its name says; it starts at 0.
  virtual void SetDefaultMessageLevel(int level) = 0;

  // Reports a message when the message threshold is at least `level`. A null format prints nothing.
  OXA_PRINTF(3, 4) virtual void EmitMessage(int level, const char* format, ...) = 0;

  // Reports a warning, prefixed "WARNING: ", when the warning threshold is at least `level`. A null
  // format prints the bare prefix.
  OXA_PRINTF(3, 4) virtual void EmitWarning(int level, const char* format, ...) = 0;

 protected:
  ~IOXADebugMessage() = default;
};

template <>
struct OXAInterfaceId<IOXADebugMessage> {
  static const _GUID& value() { return IID_IOXADebugMessage; }
};
