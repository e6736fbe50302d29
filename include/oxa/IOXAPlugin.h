// What a plug-in shared object shows to the loader.
#pragma once

#include <oxa/IOXAContext.h>
#include <oxa/IOXAInterfaceEnum.h>
#include <oxa/IOXAReference.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

// The object behind a plug-in. Implemented by plug-ins, made by their entry point, held by the
// loader until the plug-in is unloaded. Called on the host's thread. <oxa/sdk/plugin.h> implements
// it from a table.
class IOXAPlugin : public IOXAReference {
 public:
  // Returns the plug-in's name for people, UTF-8, valid while the plug-in object lives; or null.
  // The library never calls it.
  virtual const char* GetName() = 0;

  // Returns the plug-in's version for people, UTF-8, valid while the plug-in object lives; or null.
  // The library never calls it.
  virtual const char* GetVersion() = 0;

  // Lists what the plug-in offers: pairs of interface id and interface pointer. The caller owns one
  // reference to `*out`. The objects are borrowed and stay alive as long as the plug-in object.
  // Any negative result makes the loader refuse the plug-in, and so does an empty enumerator.
  virtual OXAResult GetInterfaceEnum(IOXAInterfaceEnum** out) = 0;

 protected:
  ~IOXAPlugin() = default;
};

template <>
struct OXAInterfaceId<IOXAPlugin> {
  static const _GUID& value() { return IID_IOXAPlugin; }
};

// The entry point that every plug-in shared object defines; the library itself has none. Export
// nothing else: an object that exports "unique" symbols, which templates and inline functions of
// the standard library bring along, is never unmapped again. `context` outlives the plug-in and is
// not to be referenced: a plug-in that holds its context keeps both alive for good. The loader asks
// for IID_IOXAPlugin and owns one reference to `*out`. S_OK; E_NOINTERFACE for any other id. Any
// negative result makes the loader refuse the plug-in.
extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext* context, const _GUID& iid,
                                                         void** out);
