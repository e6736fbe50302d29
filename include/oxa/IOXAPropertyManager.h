// The registry of properties.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

class IOXAProperty;
class IOXAPropertyEnum;

// Registers properties by name in a tree of namespaces, and finds them again. Implemented by the
// library, for the preferences, which do not hand theirs out. Used by one thread at a time.
//
// A namespace is named by its path, whose parts stand between "::"; parts may be empty, and the
// empty path is that of a namespace with an empty name. Names and paths are compared byte by byte.
// Every operation that is given a path makes the namespaces on it, even if it fails afterwards, and
// none is ever removed. Properties that it hands out are borrowed: the manager owns a reference to
// each until it is unregistered or the manager ends.
class IOXAPropertyManager : public IOXAReference {
 public:
  // Registers a property and stores it: without a data type, under the next id, of which the first
  // is 0.
  // S_OK; S_ALREADYEXISTS when it was there, which leaves it as it is; E_INVALIDARG for a null
  // argument; E_OUTOFMEMORY with `*out` null.
  virtual OXAResult Register(const char* ns, const char* name, IOXAProperty** out) = 0;

  // Removes a property and drops the manager's reference to it.
  // S_OK when that destroyed it; S_FALSE when others still reference it; E_INVALIDARG for a null
  // argument and for an empty name; E_UNEXPECTED when there is none; E_OUTOFMEMORY.
  // Its id still leads to it afterwards, destroyed or not: do not ask for that id again.
  virtual OXAResult Unregister(const char* ns, const char* name) = 0;

  // Removes the property that has the namespace and name of this one, with the results of the
  // other Unregister.
  virtual OXAResult Unregister(IOXAProperty* property) = 0;

  // Enumerates all properties: those of a namespace before those of the namespaces in it, otherwise
  // in no specified order. The enumerator is a copy of the list; the caller owns one reference to
  // `*out`.
  // S_OK; E_INVALIDARG for a null `out`; E_OUTOFMEMORY with `*out` null.
  virtual OXAResult GetPropertyEnum(IOXAPropertyEnum** out) = 0;

  // Enumerates the properties of a namespace, and if `recursive` those of all namespaces in it, in
  // the same order. The caller owns one reference to `*out`.
  // S_OK; E_INVALIDARG for a null `out`; E_UNEXPECTED for a null `ns`, and when a namespace cannot
  // be made; E_OUTOFMEMORY. `*out` is null after a failure.
  virtual OXAResult GetPropertyEnum(const char* ns, bool recursive, IOXAPropertyEnum** out) = 0;

  // Finds the property that was registered under an id. One that was unregistered since may be
  // gone, and must not be used.
  // S_OK; E_INVALIDARG for a null `out`; E_NOTFOUND with `*out` null.
  virtual OXAResult FindProperty(unsigned long id, IOXAProperty** out) = 0;

  // Finds a property by its path and name.
  // S_ALREADYEXISTS, not S_OK, when it is there; E_INVALIDARG for a null argument; E_NOTFOUND and
  // E_OUTOFMEMORY with `*out` null.
  virtual OXAResult FindProperty(const char* ns, const char* name, IOXAProperty** out) = 0;

 protected:
  ~IOXAPropertyManager() = default;
};

template <>
struct OXAInterfaceId<IOXAPropertyManager> {
  static const _GUID& value() { return IID_IOXAPropertyManager; }
};
