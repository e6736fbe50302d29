// The context: where host and plug-ins find the services they share.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

// Hands out one object per interface id. Implemented by the library; made with OXACreateContext and
// handed to every plug-in's entry point. Make one per process, see docs/behaviours.md. Concurrent
// GetInterface calls are safe while nobody calls AddToContext, which must not overlap with any
// other operation.
class IOXAContext : public IOXAReference {
 public:
  // Fetches the object filed under `iid`; the caller owns one reference to `*out`.
  // S_OK; E_INVALIDARG for a null `out`; E_NOTFOUND when nothing is filed under `iid`, with `*out`
  // null.
  virtual OXAResult GetInterface(const _GUID& iid, void** out) = 0;

  // Files `object`, an interface pointer, under `iid` and takes one reference to it. An object
  // already filed there is replaced and loses the context's reference.
  // S_FALSE on success; E_INVALIDARG for a null `object`; E_OUTOFMEMORY with nothing changed.
  virtual OXAResult AddToContext(const _GUID& iid, void* object) = 0;

 protected:
  ~IOXAContext() = default;
};

template <>
struct OXAInterfaceId<IOXAContext> {
  static const _GUID& value() { return IID_IOXAContext; }
};

// Makes a context that already holds the default services: message sink, progress sink, directory
// scanner, diagnostics manager, XML parser, data type translator, interface manager, preferences
// and plug-in loader. The caller owns one reference to `*out`. S_FALSE on success; E_INVALIDARG for
// a null `out`; E_NOINTERFACE for an id other than IID_IOXAContext; E_OUTOFMEMORY, or the result of
// the service that could not be added. `*out` is null after a failure.
extern "C" OXA_EXPORT OXAResult OXACreateContext(const _GUID& iid, void** out);
