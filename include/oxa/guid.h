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
  unsigned long middle[2];
  unsigned int tail[2];
  std::memcpy(&middle[0], &left.Data2, sizeof middle[0]);
  std::memcpy(&middle[1], &right.Data2, sizeof middle[1]);
  std::memcpy(&tail[0], &left.Data4[4], sizeof tail[0]);
  std::memcpy(&tail[1], &right.Data4[4], sizeof tail[1]);
  return left.Data1 == right.Data1 && middle[0] == middle[1] && tail[0] == tail[1];
}

inline bool operator!=(const _GUID& left, const _GUID& right) { return !(left == right); }

// Names the id of an interface: each interface's header specialises it right below the interface,
// and a plug-in's own contract does the same for interfaces of its own.
template <class Interface>
struct OXAInterfaceId;
