// A finding.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/OXAVariant.h>
#include <oxa/diagnostic_types.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

// A row of the table of diagnostics: what was found, how grave it is, the object it is about, and a
// cell for each column. Implemented by the library, and by others if they like; made by
// IOXADiagnosticCategory::CreateDiagnostic. Used by one thread at a time, and not after the manager
// has ended.
class IOXADiagnostic : public IOXAReference {
 public:
  // Return the long and the short text of the diagnostic type, which the manager keeps; null when
  // the type is not registered.
  virtual const char* GetVerboseString() = 0;
  virtual const char* GetTerseString() = 0;

  // Returns the id of the diagnostic type; -1 at first.
  virtual int GetDiagnostic() = 0;

  // Returns a copy of a cell; cells are of the kind Nothing at first. For a column that is not
  // there, and for want of memory, it returns a value of the kind Nothing with the text "unset".
  virtual OXAVariant GetValue(int column) = 0;

  // Returns what kind of object the key points at; 0 at first.
  virtual OXA::Diagnostics::Type GetDiagnosticKeyType() = 0;

  // Returns the key, which tells what the diagnostic is about; null at first. The library never
  // looks behind it.
  virtual void* GetDiagnosticKey() = 0;

  // Returns how grave it is; 0 at first.
  virtual OXA::Diagnostics::Severity GetSeverity() = 0;

  // Stores the id of the diagnostic type, which need not be registered. S_OK.
  virtual OXAResult SetDiagnostic(int id) = 0;

  // Registers a new diagnostic type with the manager, even if there is one with these texts, and
  // stores its id. Diagnostics of one type share it: register it once, with RegisterDiagnosticType.
  // S_OK, also when it could not be registered for want of memory, with the type as it was;
  // E_INVALIDARG for a null argument.
  virtual OXAResult SetDiagnostic(const char* terse, const char* verbose) = 0;

  // Stores a copy of a value, of any kind, in a cell.
  // S_OK; E_INVALIDARG for a column that is not there; E_OUTOFMEMORY with nothing changed.
  virtual OXAResult SetValue(int column, OXAVariant& value) = 0;

  // Stores what kind of object the key points at. S_OK.
  virtual OXAResult SetDiagnosticKeyType(OXA::Diagnostics::Type type) = 0;

  // Stores the key. S_OK; E_INVALIDARG for null: a key that is set stays until the next one.
  virtual OXAResult SetDiagnosticKey(void* key) = 0;

  // Stores how grave it is. S_OK.
  virtual OXAResult SetSeverity(OXA::Diagnostics::Severity severity) = 0;

  // Changes the number of cells: those beyond are dropped, new ones are of the kind Nothing. For
  // want of memory, and for a negative count, nothing is changed. The manager calls it when its
  // number of columns changes.
  virtual void Resize(int count) = 0;

 protected:
  ~IOXADiagnostic() = default;
};

template <>
struct OXAInterfaceId<IOXADiagnostic> {
  static const _GUID& value() { return IID_IOXADiagnostic; }
};
