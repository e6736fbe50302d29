// What the plug-in that is made by several compilers agrees on with its test.
#pragma once

#include <oxa/IOXAInterfaceEnum.h>
#include <oxa/sdk/guid_text.h>

inline constexpr _GUID IID_ICompiled = oxa::guid("{C3D0B7A4-2F11-4B59-A0D6-7B1D5E90F3A2}");

class ICompiled : public IOXAReference {
 public:
  // Tells who compiled the plug-in.
  virtual const char* Compiler() = 0;

  // Returns how many objects an enumerator of the host gives; adds a reference to each.
  virtual int Take(IOXAInterfaceEnum* enumerator) = 0;

  // Drops those references.
  virtual void Drop() = 0;

 protected:
  ~ICompiled() = default;
};
