// What host and plug-in of this project agree on.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/sdk/guid_text.h>

// [snippet: contract]
inline constexpr _GUID IID_IGreeter = oxa::guid("{6F1D8A52-93C4-4E0B-A7D6-2C518E94B03F}");

// Greets. Implemented by plug-ins.
class IGreeter : public IOXAReference {
 public:
  // Returns a greeting that lives as long as the plug-in.
  virtual const char* Greeting() = 0;

 protected:
  ~IGreeter() = default;
};

template <>
struct OXAInterfaceId<IGreeter> {
  static const _GUID& value() { return IID_IGreeter; }
};
// [snippet end]
