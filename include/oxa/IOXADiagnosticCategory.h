// A group of findings.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/diagnostic_types.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

class IOXADiagnostic;
class IOXADiagnosticCategoryEnum;

// A named group in the tree of diagnostics, which holds diagnostics and further categories.
// Implemented by the library; made by CreateCategory of the manager or of another category. Used by
// one thread at a time. It owns a reference to each of its diagnostics.
//
// When a category ends, its subcategories do not: each keeps the one reference that it was made
// with, which belongs to nobody. Agree in the application on who releases them, once the category
// around them is gone and not before: whoever clears the table can find them all first, see
// docs/diagnostics.md.
class IOXADiagnosticCategory : public IOXAReference {
 public:
  // Changes the name. The category is still found by the one it was created with.
  // S_OK; E_INVALIDARG for null; E_OUTOFMEMORY with nothing changed.
  virtual OXAResult SetName(const char* name) = 0;

  // Returns the name, null when it is empty; it lives until it is set again.
  virtual const char* GetName() = 0;

  // Makes a diagnostic with as many cells as the manager has columns; the caller owns one reference
  // to `*diagnostic`. It is in no category yet: fill it and call AddDiagnostic.
  // S_OK; E_INVALIDARG for a null `diagnostic`; E_OUTOFMEMORY with `*diagnostic` null.
  virtual OXAResult CreateDiagnostic(IOXADiagnostic** diagnostic) = 0;

  // Appends a diagnostic and takes over the caller's reference to it. One that is added twice is
  // there twice, and needs a reference for each. It may be implemented elsewhere: then its Resize
  // must not move the position of its category.
  // S_OK; E_INVALIDARG for null; E_OUTOFMEMORY with nothing changed and the reference still the
  // caller's.
  virtual OXAResult AddDiagnostic(IOXADiagnostic* diagnostic) = 0;

  // Makes a subcategory and stores it, borrowed, with the results of the manager's CreateCategory.
  virtual OXAResult CreateCategory(const char* name, IOXADiagnosticCategory** category) = 0;

  // Enumerates the subcategories in the order of their creation; the caller owns one reference to
  // `*categories`. The enumerator walks the category's own list: it sees subcategories that are
  // created later, and must not be used once the category is gone, but for being released.
  // S_OK; E_INVALIDARG for a null `categories`; E_OUTOFMEMORY with `*categories` null.
  virtual OXAResult GetDiagnosticCategoryEnum(IOXADiagnosticCategoryEnum** categories) = 0;

  // Moves to the first diagnostic, in the order in which they were added, and stores it, borrowed.
  // S_OK; S_FALSE when there is none, with `*diagnostic` null; E_INVALIDARG for a null
  // `diagnostic`.
  virtual OXAResult GetFirst(IOXADiagnostic** diagnostic) = 0;

  // Moves to the next diagnostic, with the results of GetFirst. After S_FALSE it starts over with
  // the first one. Call GetFirst before. SetColumnCount of the manager moves this position too.
  virtual OXAResult GetNext(IOXADiagnostic** diagnostic) = 0;

  // Returns what kind of object the key points at; 0 at first.
  virtual OXA::Diagnostics::Type GetCategoryKeyType() = 0;

  // Gives the key, which tells what the category is about; null at first. The library never looks
  // behind it.
  // S_OK; E_INVALIDARG for a null `key`.
  virtual OXAResult GetCategoryKey(void** key) = 0;

  // Stores what kind of object the key points at. S_OK.
  virtual OXAResult SetCategoryKeyType(OXA::Diagnostics::Type type) = 0;

  // Stores the key. S_OK; E_INVALIDARG for null: a key that is set stays until the next one.
  virtual OXAResult SetCategoryKey(void* key) = 0;

 protected:
  ~IOXADiagnosticCategory() = default;
};

template <>
struct OXAInterfaceId<IOXADiagnosticCategory> {
  static const _GUID& value() { return IID_IOXADiagnosticCategory; }
};
