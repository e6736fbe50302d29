// The settings of the application.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

class IOXAProperty;
class IOXAPropertyEnum;

// Keeps settings, in memory, by the path of a namespace and a name: "::" stands between the parts
// of a path, and all is compared byte by byte. Implemented by the library; every context holds one
// under IID_IOXAPreferences. It starts empty. Used by one thread at a time.
//
// To offer a setting, Add it and describe it: set at least its data type, without which no value
// can be stored. docs/properties.md shows how.
class IOXAPreferences : public IOXAReference {
 public:
  // Adds a setting and stores what describes it, borrowed: whoever keeps that keeps a reference to
  // the preferences, which a context ends before its plug-ins. The setting is listed only once it
  // has a value: Set its default.
  // S_OK; S_ALREADYEXISTS when it was there, with its present description; E_INVALIDARG for a null
  // argument; E_OUTOFMEMORY with `*out` null.
  virtual OXAResult Add(const char* ns, const char* name, IOXAProperty** out) = 0;

  // Stores a value given as text. docs/properties.md tells which texts each data type takes; range
  // and enumeration are not consulted. A setting that was not added is added, without a data type.
  // Nothing removes a value, nor is an empty text taken for one.
  // S_OK; E_INVALIDARG for a null argument, for a text that is empty or made of blanks, tabs and
  // ends of lines only, and for one that the data type does not take; E_UNEXPECTED for a setting
  // without a data type, and for one that cannot be added for want of memory; E_OUTOFMEMORY.
  // After a failure the value is what it was; if there was none, Get may then give E_UNEXPECTED
  // instead of E_NOTFOUND, and GetPreferencePropertiesEnum lists the setting.
  virtual OXAResult Set(const char* ns, const char* name, const char* value) = 0;

  // Gives the value as text. `*value` points into the preferences and lives until the next Set or
  // Get, of any setting. A default value is not applied. A setting that was not added is added,
  // without a data type. Values are read as texts alone.
  // S_OK; E_INVALIDARG for a null argument; E_NOTFOUND when none was set; E_UNEXPECTED when what is
  // stored does not fit the data type, which it had to when it was set, or the setting cannot be
  // added; E_OUTOFMEMORY. `*value` is null after a failure.
  virtual OXAResult Get(const char* ns, const char* name, char** value) = 0;

  // Enumerates the settings that have a value, not all that were added, in no specified order; the
  // caller owns one reference to `*out`.
  // S_OK; E_INVALIDARG for a null `out`; E_OUTOFMEMORY with `*out` null.
  virtual OXAResult GetPreferencePropertiesEnum(IOXAPropertyEnum** out) = 0;

 protected:
  ~IOXAPreferences() = default;
};

template <>
struct OXAInterfaceId<IOXAPreferences> {
  static const _GUID& value() { return IID_IOXAPreferences; }
};
