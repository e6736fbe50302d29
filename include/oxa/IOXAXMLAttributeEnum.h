// The enumerator over the attributes of an XML element.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/result.h>

// Walks a copy of the attributes, made when the enumerator was, in the order in which they were
// added. Implemented by the library; made by IOXAXMLElement::GetAttributes. What it hands out
// points into its copy and lives as long as the enumerator. Used by one thread at a time. Begin
// with GetFirst: the cursor starts on the first attribute, so a first GetNext gives the second.
// oxa::attributes (sdk/xml.h) loops over it without its traps.
class IOXAXMLAttributeEnum : public IOXAReference {
 public:
  // Moves to the first attribute. Both outputs are null where key or value is empty.
  // S_OK; E_POINTER for a null argument; E_UNEXPECTED when there is none, with both outputs null.
  virtual OXAResult GetFirst(char** key, char** value) = 0;

  // Moves to the next attribute. Outputs are stored only where key or value is not empty, so set
  // them to null before each call.
  // S_OK; E_POINTER for a null argument; S_FALSE at the end, with the outputs untouched.
  virtual OXAResult GetNext(char** key, char** value) = 0;

 protected:
  ~IOXAXMLAttributeEnum() = default;
};
