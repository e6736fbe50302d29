// The record types that one plug-in declares.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/result.h>

class IOXAUserDefinedDataType;

// Holds types by name. Implemented by the library; made by
// IOXAUserDefinedDataTypeManager::NewNamespace. It owns a reference to each type; what it hands out
// is borrowed. Built by one thread; then several may read it, but only one at a time may walk the
// types, whose position the namespace keeps. oxa::types (sdk/data_types.h) walks them in a
// range-for.
class IOXAPluginDataTypeNamespace : public IOXAReference {
 public:
  // Returns the name, which lives as long as the namespace; null when it is empty.
  virtual const char* Name() = 0;

  // Adds a type without members and stores it, borrowed. `kind` is what its Type returns. Both
  // texts may be empty; type strings do not find a type whose name has "::" or "$".
  // S_OK; E_INVALIDARG for a null argument; E_ALREADYEXISTS for a name that is there, whatever its
  // kind; E_OUTOFMEMORY. After a failure `*type` is null, unless an argument was.
  virtual OXAResult AddUserDefinedType(const char* name, const char* kind,
                                       IOXAUserDefinedDataType** type) = 0;

  // Moves to the first type and stores it, borrowed. The order is not specified.
  // S_OK; S_FALSE when there is none, with `*type` null; E_INVALIDARG for a null `type`.
  virtual OXAResult GetFirstType(IOXAUserDefinedDataType** type) = 0;

  // Moves to the next type, with the results of GetFirstType. Not allowed before GetFirstType or
  // after S_FALSE.
  virtual OXAResult GetNextType(IOXAUserDefinedDataType** type) = 0;

  // Finds a type by its name, which is compared byte by byte, and stores it, borrowed.
  // S_OK; E_INVALIDARG for a null argument; E_NOTFOUND with `*type` null.
  virtual OXAResult FindUserDefinedType(const char* name, IOXAUserDefinedDataType** type) = 0;

 protected:
  ~IOXAPluginDataTypeNamespace() = default;
};
