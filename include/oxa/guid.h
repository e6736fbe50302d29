// The 128-bit id that names an interface.
#pragma once

#include <cstring>

// An interface id, written {8-4-4-4-12} in hexadecimal digits: Data1, Data2, Data3, the first two
// bytes of Data4, its last six. The record occupies 24 bytes; the 4 bytes after Data4 are padding,
// zero in every id that the library defines, copied along when an id is stored, never compared.
struct _GUID {
  unsigned long Data1;
  unsigned short Data2;
  unsigned short Data3;
  unsigned char Data4[8];
};

static_assert(sizeof(_GUID) == 24, "the interface id record crosses the binary boundary");

// Compares the 20 significant bytes.
inline bool operator==(const _GUID& left, const _GUID& right) {
  return std::memcmp(&left, &right, 20) == 0;
}

inline bool operator!=(const _GUID& left, const _GUID& right) { return !(left == right); }

// Names the id of an interface: each interface's header specialises it right below the interface,
// and a plug-in's own contract does the same for interfaces of its own.
template <class Interface>
struct OXAInterfaceId;
