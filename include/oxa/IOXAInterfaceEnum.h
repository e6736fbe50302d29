// The enumerator over registered interfaces.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

#include <utility>
#include <vector>

// What an interface enumerator walks: pairs of interface id and object.
using OXAInterfaceList = std::vector<std::pair<_GUID, void*>>;

// Walks pairs of interface id and object. The library's own comes from an interface manager's query
// or from OXACreateInterfaceEnum; a plug-in may hand out an implementation of its own. Used by one
// thread at a time. Begin with GetFirst: the cursor starts on the first pair, so a first GetNext
// skips it.
class IOXAInterfaceEnum : public IOXAReference {
 public:
  // Moves to the first pair and stores it. `*out` is borrowed: it carries no reference.
  // S_OK; S_FALSE when there is none, with `*out` null and `iid` untouched; E_POINTER for a null
  // `out`.
  virtual OXAResult GetFirst(_GUID& iid, void** out) = 0;

  // Moves to the next pair and stores it, with the results of GetFirst. Not allowed again once it
  // has returned S_FALSE; GetFirst restarts.
  virtual OXAResult GetNext(_GUID& iid, void** out) = 0;

 protected:
  ~IOXAInterfaceEnum() = default;
};

template <>
struct OXAInterfaceId<IOXAInterfaceEnum> {
  static const _GUID& value() { return IID_IOXAInterfaceEnum; }
};

// Makes an enumerator over `list`; the caller owns one reference to `*out`. With `owns` set the
// enumerator deletes the list when it ends; otherwise the caller keeps the list alive that long.
// The objects in the list are not referenced.
// S_OK; E_INVALIDARG for a null `out`; E_NOINTERFACE for an id other than IID_IOXAInterfaceEnum;
// E_POINTER for a null `list`; E_OUTOFMEMORY. After a failure `*out` is null and the list is still
// the caller's.
extern "C" OXA_EXPORT OXAResult OXACreateInterfaceEnum(OXAInterfaceList* list, bool owns,
                                                       const _GUID& iid, void** out);
