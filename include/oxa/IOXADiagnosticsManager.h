// The table of findings.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/export.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

#include <cstdint>

class IOXADiagnosticCategory;
class IOXADiagnosticCategoryEnum;

// Findings that algorithms and checks report, as a table to show to the user: rows are diagnostics
// in a tree of categories, columns are typed values. The manager has the columns, the diagnostic
// types and the top-level categories. Implemented by the library; every context holds one under
// IID_IOXADiagnosticsManager, and OXACreateDiagnosticsManager makes others. Used by one thread at a
// time. Its categories and their diagnostics refer to it: of those that outlive it, nothing may be
// used but their references.
//
// A new manager has two columns with empty headers.
class IOXADiagnosticsManager : public IOXAReference {
 public:
  // What is done with a column. The application gives the numbers their meaning; the library stores
  // them. 0 for a new column; `Operation{1}` makes one.
  enum class Operation : std::int32_t {};

  // Changes the number of columns, of the headers, and of the cells of the diagnostics in the
  // top-level categories; those in subcategories keep theirs. It walks these diagnostics by the
  // GetFirst and GetNext of their categories. New columns have an empty header and the operation 0;
  // but behind the first two columns wait the headers "Severity" and "Diagnostics", until a call
  // drops them, as it does all beyond its count.
  // S_OK; E_INVALIDARG for a negative count; E_OUTOFMEMORY with nothing changed. A diagnostic for
  // whose cells memory is wanting keeps those it has, and the result is S_OK all the same.
  virtual OXAResult SetColumnCount(int count) = 0;

  // Sets the header and the operation of a column.
  // S_OK; E_INVALIDARG for a column that is not there and for a null header; E_OUTOFMEMORY with
  // nothing changed.
  virtual OXAResult SetColumnHeader(int column, const char* header, Operation operation) = 0;

  // Returns the number of columns.
  virtual int GetColumnCount() = 0;

  // Gives the header of a column, an empty text until it is set; it lives until the header is
  // set again or its column is gone.
  // S_OK; E_INVALIDARG for a null `header`, and for a column that is not there, with `*header`
  // null.
  virtual OXAResult GetColumnHeader(int column, char** header) = 0;

  // Gives the operation of a column.
  // S_OK; E_INVALIDARG for a column that is not there, with `operation` as it was.
  virtual OXAResult GetColumnOperation(int column, Operation& operation) = 0;

  // Makes a top-level category and stores it, borrowed: the manager owns the one reference, until
  // Clear. Names are compared byte by byte, as they were given here.
  // S_OK; E_ALREADYEXISTS when there is one, with it in `*category`; E_INVALIDARG for a null
  // argument; E_OUTOFMEMORY with `*category` null.
  virtual OXAResult CreateCategory(const char* name, IOXADiagnosticCategory** category) = 0;

  // Enumerates the top-level categories in the order of their creation; the caller owns one
  // reference to `*categories`. The enumerator walks the manager's own list: it sees categories
  // that are created later, and is not to be used after Clear or the end of the manager, but for
  // being released.
  // S_OK; E_INVALIDARG for a null `categories`; E_OUTOFMEMORY with `*categories` null.
  virtual OXAResult GetDiagnosticCategoryEnum(IOXADiagnosticCategoryEnum** categories) = 0;

  // Registers a diagnostic type by a short and a long text, and stores its id: 0, 1, 2 and so on,
  // never one that was in use before. Null counts as an empty text. The same texts again are
  // another type.
  // S_OK; E_INVALIDARG for a null `id`; E_OUTOFMEMORY with nothing changed.
  virtual OXAResult RegisterDiagnosticType(const char* toolTip, const char* statusTip, int* id) = 0;

  // Removes a diagnostic type, if there is one of this id. The result is E_INVALIDARG even so:
  // GetDiagnosticToolTip tells whether it is gone.
  virtual OXAResult UnregisterDiagnosticType(int id) = 0;

  // Gives the short and the long text of a diagnostic type; they live until it is removed.
  // S_OK; S_FALSE for an id that is not registered, with `*text` null; E_INVALIDARG for a null
  // `text`.
  virtual OXAResult GetDiagnosticToolTip(int id, char** text) = 0;
  virtual OXAResult GetDiagnosticStatusTip(int id, char** text) = 0;

  // Drops all top-level categories, so that the table is empty. Columns and diagnostic types stay.
  // Subcategories are not released: see IOXADiagnosticCategory. A category that others hold
  // survives with its subcategories, which must then not be released before it.
  virtual void Clear() = 0;

 protected:
  ~IOXADiagnosticsManager() = default;
};

template <>
struct OXAInterfaceId<IOXADiagnosticsManager> {
  static const _GUID& value() { return IID_IOXADiagnosticsManager; }
};

// Makes an empty manager, at each call another one; the caller owns one reference to `*out`, which
// is an IOXADiagnosticsManager*.
// S_OK; E_INVALIDARG for a null `out`; E_OUTOFMEMORY with `*out` null.
extern "C" OXA_EXPORT OXAResult OXACreateDiagnosticsManager(void** out);
