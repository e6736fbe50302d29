// The values of properties.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/OXAVariant.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

class IOXAProperty;
class IOXAPropertyEnum;

// Holds values of properties by their ids, and converts them to text and back. Implemented by the
// library, for the preferences, which do not hand theirs out. It has no references: its owner ends
// it. Used by one thread at a time.
//
// Operations by path and name register the property if it is not registered yet. It then has no
// data type, so that no value can be stored. They return E_UNEXPECTED when it cannot be registered.
class IOXAPropertyModel {
 public:
  // Stores a value given as text. docs/properties.md tells which texts each data type takes; range
  // and enumeration are not consulted.
  // S_OK; E_INVALIDARG for a null argument, for a text that is empty or made of blanks, tabs and
  // ends of lines only, and for one that the data type does not take; E_UNEXPECTED for a property
  // without a data type; E_OUTOFMEMORY.
  // After a failure the value is what it was; if there was none, there may be one of the kind
  // Nothing, which GetProperty cannot give as text and GetPropertyEnum lists.
  virtual OXAResult SetProperty(const char* ns, const char* name, const char* text) = 0;

  // Stores a copy of a value, whose kind must be that of the data type (oxa::kind_of).
  // S_OK; E_INVALIDARG for a null property, for the kind Nothing, and for a text that is empty or
  // made of blanks, tabs, ends of lines and zero bytes only; E_TYPEMISMATCH for another kind;
  // E_UNEXPECTED for a property without a data type, and for the data type File, whose values are
  // set by path and text alone; E_OUTOFMEMORY. After a failure nothing is changed.
  virtual OXAResult SetProperty(IOXAProperty* property, const OXAVariant& value) = 0;

  // Gives a value as text. `*text` points into the model and lives until the next conversion of any
  // value of this model.
  // S_OK; E_INVALIDARG for a null argument; E_NOTFOUND when there is no value; E_UNEXPECTED when
  // its kind is not that of the data type; E_OUTOFMEMORY. `*text` is null after a failure.
  virtual OXAResult GetProperty(const char* ns, const char* name, char** text) = 0;

  // Copies a value.
  // S_OK; E_INVALIDARG for a null property; E_NOTFOUND when there is no value; E_OUTOFMEMORY. After
  // a failure `value` is as it was.
  virtual OXAResult GetProperty(IOXAProperty* property, OXAVariant& value) = 0;

  // Removes a value; the property stays registered.
  // S_OK; E_INVALIDARG for a null argument; E_NOTFOUND when there is no value.
  virtual OXAResult RemoveProperty(const char* ns, const char* name) = 0;
  virtual OXAResult RemoveProperty(IOXAProperty* property) = 0;

  // Enumerates the registered properties that have a value, in no specified order. The caller owns
  // one reference to `*out`.
  // S_OK; E_INVALIDARG for a null `out`; E_OUTOFMEMORY with `*out` null.
  virtual OXAResult GetPropertyEnum(IOXAPropertyEnum** out) = 0;

 protected:
  ~IOXAPropertyModel() = default;
};

template <>
struct OXAInterfaceId<IOXAPropertyModel> {
  static const _GUID& value() { return IID_IOXAPropertyModel; }
};
