// The enumerator over XML elements.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/result.h>

class IOXAXMLElement;

// Walks the elements that a query found. Implemented by the library; made by the queries of
// elements and documents. It takes no references to the elements: after their tree is gone it may
// be released, but not used. Used by one thread at a time. Begin with GetFirst: the cursor starts
// on the first element, so a first GetNext gives the second.
class IOXAXMLElementEnum : public IOXAReference {
 public:
  // Moves to the first element and stores it, borrowed.
  // S_OK; E_POINTER for a null `out`; E_UNEXPECTED when there is none, with `*out` untouched.
  virtual OXAResult GetFirst(IOXAXMLElement** out) = 0;

  // Moves to the next element and stores it, borrowed.
  // S_OK; E_POINTER for a null `out`; S_FALSE at the end, with `*out` untouched.
  virtual OXAResult GetNext(IOXAXMLElement** out) = 0;

  // Returns the number of elements.
  virtual unsigned long Count() = 0;

 protected:
  ~IOXAXMLElementEnum() = default;
};
