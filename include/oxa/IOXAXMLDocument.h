// An XML document: a source, the tree that is read from it, and the file it is written to.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/result.h>

class IOXAXMLElement;
class IOXAXMLElementEnum;

// Implemented by the library, and by a host that files its own IOXAXMLParser; made by that. Used by
// one thread at a time.
//
// What it reads: one top-level element; names and double-quoted attribute values of up to 4095
// bytes; either child elements or a text of up to 99998 bytes; comments between tags; a
// declaration. What is longer is cut, with a message for each byte. Entities stay as they are;
// there are no processing instructions, no DOCTYPE and no CDATA. A text may hold markup, which is
// part of it. The content of elements named "data" and "text" is always text; write one without
// content as <data/>, since <data></data> is not seen as empty. Any other text loses the blanks and
// the bytes outside of ASCII that it begins with. docs/xml.md has the rest.
//
// Some malformed sources stop the process: those where a `/` or `?` between or in tags has no `>`
// behind it, such as <a / b>, or where `<!` begins no comment, such as <!DOCTYPE a>. Read files
// that you trust.
//
// While it is parsed, a message sink may use the part of the tree that is there, but must not give
// the document another source or root, parse on, or end it.
//
// The last ReleaseReference leaves the tree and the source behind. Hold a document of this library
// by an oxa::XMLDocument, or give it up with oxa::end_document (sdk/xml.h).
class IOXAXMLDocument : public IOXAReference {
 public:
  // Makes an element that is in no tree yet; the caller owns one reference to `*out`. A null name
  // gives a nameless one. One named "xml" has the attribute version="1.0".
  // S_OK; E_POINTER for a null `out`; E_OUTOFMEMORY with `*out` null.
  virtual OXAResult CreateElement(const char* name, IOXAXMLElement** out) = 0;

  // Opens a file as the source, in place of the one before; Parse reads it. Null leaves the
  // document without a source.
  // S_OK, also for a folder, in which there is nothing to read; E_OPENFAILED, with a message of
  // level 5; E_OUTOFMEMORY. There is no source after a failure.
  virtual OXAResult Open(const wchar_t* path) = 0;

  // Takes a copy of `buffer`, up to its terminator, as the source. The rest is as with Open.
  virtual OXAResult SetBuffer(const char* buffer) = 0;

  // Writes the tree to a file, replacing that, behind two lines that are the same in every file.
  // Texts are escaped (see xml_text.h); names, keys and values are written as they are. `path` must
  // not be null.
  // S_OK, also for a file that cannot be opened or written; S_FALSE when there is no root, with the
  // two lines written; E_OUTOFMEMORY. docs/xml.md shows how to tell that a file is complete.
  virtual OXAResult Serialize(const wchar_t* path) = 0;

  // Reads the source up to its end. Once an element begins, it becomes the root, and the root
  // before it is the caller's, with the document's references; if none begins, the root stays. A
  // root that was read to its end carries two references, one that failed carries one and is there
  // in part.
  // S_OK, also when no element begins: look for the root; E_UNEXPECTED for a malformed source and
  // for want of memory, as a rule with an error in the message sink, and without a source.
  virtual OXAResult Parse() = 0;

  // Searches from the root by the rule of IOXAXMLElement::GetChild, with its results; the root
  // itself is not compared. S_FALSE when there is no root, with `*out` untouched: initialise it.
  virtual OXAResult GetElementByID(const char* id, IOXAXMLElement** out) = 0;

  // Enumerate the descendants of the root as IOXAXMLElement::GetChildren does, with its results and
  // with its effect on elements that lack the key. S_FALSE when there is no root, even for a null
  // `out`, with `*out` untouched: initialise it.
  virtual OXAResult GetElementEnumByName(const char* name, IOXAXMLElementEnum** out) = 0;
  virtual OXAResult GetElementEnumByKeyValue(const char* key, const char* value,
                                             IOXAXMLElementEnum** out) = 0;
  virtual OXAResult GetElementEnumByNameKeyValue(const char* name, const char* key,
                                                 const char* value, IOXAXMLElementEnum** out) = 0;

  // Makes an element of this library the root and takes over the caller's reference to it. It must
  // be in no other place. The root before it is destroyed at once, whoever else references it; the
  // present root may be set again, which changes nothing. S_OK; E_INVALIDARG for null.
  virtual OXAResult SetRoot(IOXAXMLElement* root) = 0;

  // Stores the root, borrowed.
  // S_OK; E_POINTER for a null `out`; E_INVALIDDATA when there is none, with `*out` null.
  virtual OXAResult GetRoot(IOXAXMLElement** out) = 0;

 protected:
  ~IOXAXMLDocument() = default;
};
