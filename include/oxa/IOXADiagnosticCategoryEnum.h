// The enumerator over diagnostic categories.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

class IOXADiagnosticCategory;

// Walks the categories of a diagnostics manager or the subcategories of a category. Implemented by
// the library; used by one thread at a time. oxa::categories (sdk/diagnostics.h) walks them in a
// range-for.
// Items are borrowed: the enumerator neither holds nor hands out references. Begin with GetFirst:
// the cursor starts on the first item, so a first GetNext skips it.
class IOXADiagnosticCategoryEnum : public IOXAReference {
 public:
  // Moves to the first item and stores it.
  // S_OK; S_FALSE for an empty list, with `*out` null; E_POINTER for a null `out` or an enumerator
  // without a list.
  virtual OXAResult GetFirst(IOXADiagnosticCategory** out) = 0;

  // Moves to the next item and stores it, with the results of GetFirst. The list is a ring through
  // its end: after S_FALSE the next call gives the first item again.
  virtual OXAResult GetNext(IOXADiagnosticCategory** out) = 0;

  // Makes a second enumerator over the same items; the caller owns one reference to `*out`. Begin
  // with its GetFirst.
  // S_OK; E_POINTER for a null `out`, and also, with `*out` stored, for an enumerator without a
  // list; E_OUTOFMEMORY with `*out` null.
  virtual OXAResult Clone(IOXADiagnosticCategoryEnum** out) = 0;

  // Returns the number of items.
  virtual unsigned long Count() = 0;

 protected:
  ~IOXADiagnosticCategoryEnum() = default;
};

template <>
struct OXAInterfaceId<IOXADiagnosticCategoryEnum> {
  static const _GUID& value() { return IID_IOXADiagnosticCategoryEnum; }
};
