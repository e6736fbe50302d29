// The progress sink: how long work tells its user how far it is.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

// Shows the progress of long work. The library's own ignores everything and is always active; a
// host files its own in the context under IID_IOXAProgressIndicator. Texts are UTF-8, borrowed for
// the call.
class IOXAProgressIndicator : public IOXAReference {
 public:
  // Begins a piece of work. S_OK from the library's own.
  virtual OXAResult Begin() = 0;

  // Ends it. S_OK from the library's own.
  virtual OXAResult End() = 0;

  // Says what is being done now. S_OK from the library's own.
  virtual OXAResult UpdateMessage(const char* text) = 0;

  // Names the work. S_OK from the library's own.
  virtual OXAResult UpdateTitle(const char* text) = 0;

  // Says how often the worker will report; the unit is between host and plug-in. S_OK from the
  // library's own.
  virtual OXAResult SetHeartbeatFrequency(int frequency) = 0;

  // Tells whether the work should go on; a worker that sees false stops.
  virtual bool IsActive() = 0;

 protected:
  ~IOXAProgressIndicator() = default;
};

template <>
struct OXAInterfaceId<IOXAProgressIndicator> {
  static const _GUID& value() { return IID_IOXAProgressIndicator; }
};
