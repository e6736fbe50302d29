// A node of an XML tree.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/result.h>

class IOXAXMLAttributeEnum;
class IOXAXMLElementEnum;

// A name, a text, attributes in the order in which they were written, and child elements in order.
// There are no parents, no namespaces, and no text between children: an element that has a text is
// written without its children. Implemented by the library, and by a host for documents of its own;
// made by the parser and by IOXAXMLDocument::CreateElement. A tree is used by one thread at a time.
//
// An element owns its children: when it ends, it releases one reference of each. A child that
// somebody else references goes on living, but not one that RemoveChild takes out; the root ends
// with its document (see oxa::end_document), whoever references it. Elements that a parse has made
// share their memory, which is freed when the last of them is gone.
//
// Text crosses as bytes without a terminator inside, UTF-8 by convention. Names, keys and values
// are not checked: what a file cannot hold can be set, and is not read back. Pointers that come out
// belong to the element. The helpers of sdk/xml.h spare most of the traps that are told here.
class IOXAXMLElement : public IOXAReference {
 public:
  // Returns the name, null when it is empty. It lives until the name changes or the element ends.
  virtual const char* Name() = 0;

  // Replaces the name. S_OK; E_INVALIDARG for null; E_OUTOFMEMORY with nothing changed.
  virtual OXAResult SetName(const char* name) = 0;

  // Replaces the text, which is kept as it is given. A file shows it escaped, so an entity "&lt;"
  // in it cannot be told from `<` there; reading a file decodes nothing.
  // S_OK; E_INVALIDARG for null; E_OUTOFMEMORY with nothing changed.
  virtual OXAResult SetText(const char* text) = 0;

  // Tells whether there is a child.
  virtual bool HasChildren() = 0;

  // Tells whether the text is not empty.
  virtual bool hasText() = 0;

  // Stores the text as it was read or set, null when it is empty. It lives until the text changes
  // or the element ends. Always S_OK.
  virtual OXAResult GetText(char*& out) = 0;

  // Stores the text with `<`, `>` and `&` escaped, null when it is empty (see xml_text.h). It lives
  // until the next call of this or of GetPlainText on the element. Always S_OK; throws
  // std::bad_alloc.
  virtual OXAResult GetHTMLEscapedText(char*& out) = 0;

  // Stores the text with the same three characters decoded, otherwise like GetHTMLEscapedText.
  virtual OXAResult GetPlainText(char*& out) = 0;

  // Sets an attribute, replacing its value when it is there. Values are written to files and read
  // from them as they are. Escape what other readers need, and keep out double quotes.
  // S_OK; E_UNEXPECTED for a null argument and for want of memory, with nothing changed.
  virtual OXAResult AddAttribute(const char* key, const char* value) = 0;

  // Stores the value of an attribute, which lives until the value changes or the element ends.
  // S_OK; E_POINTER for a null `out`; E_NOTFOUND when it is absent, and the failure E_INVALIDARG
  // when its value is empty, both with `*out` null. Throws std::logic_error for a null key.
  virtual OXAResult GetAttribute(const char* key, char** out) = 0;

  // Makes an enumerator over a copy of the attributes; the caller owns one reference to it.
  // S_OK, even when there are none; E_POINTER for a null `out`; E_OUTOFMEMORY with `*out` null.
  virtual OXAResult GetAttributes(IOXAXMLAttributeEnum** out) = 0;

  // Appends a child and takes over the caller's reference to it. It must be an element of this
  // library that is in no other place: neither that nor a cycle is checked.
  // S_OK; E_INVALIDARG for null; E_OUTOFMEMORY with the reference still the caller's.
  virtual OXAResult AddChild(IOXAXMLElement* child) = 0;

  // Takes a child out and destroys it at once, whoever else references it.
  // S_OK; E_INVALIDARG for null; S_FALSE when it is not a direct child.
  virtual OXAResult RemoveChild(IOXAXMLElement* child) = 0;

  // Searches for an "id" by a rule that looks at last children only: stores the last child if that
  // has this id, else what the same search gives on the last child, null when that has no children.
  // Every element that is visited gains an empty "id" if it lacks one. `*out` is borrowed. Use
  // oxa::find (sdk/xml.h) to find an element wherever it is.
  // S_OK, found or not; E_POINTER for a null `out`. Throws std::logic_error for a null id and
  // std::bad_alloc.
  virtual OXAResult GetChild(const char* id, IOXAXMLElement** out) = 0;

  // Makes an enumerator over the descendants that match, parents first; the caller owns one
  // reference to it. A null name matches all. With a key, not null or empty, every element that is
  // visited gains that attribute, empty, if it lacks it; it must equal the value if that is not
  // null. A value without a key is ignored.
  // S_OK; E_POINTER for a null `out`; E_NOTFOUND when nothing matches and E_OUTOFMEMORY, both with
  // `*out` untouched. Throws std::bad_alloc.
  virtual OXAResult GetChildren(const char* name, const char* key, const char* value,
                                IOXAXMLElementEnum** out) = 0;

  // The same over direct children only.
  virtual OXAResult GetImmediateChildren(const char* name, const char* key, const char* value,
                                         IOXAXMLElementEnum** out) = 0;

  // Stores the first child, borrowed, null when there is none. S_OK; E_POINTER for a null `out`.
  virtual OXAResult FirstChild(IOXAXMLElement** out) = 0;

  // Stores the first descendant that GetChildren would enumerate, borrowed, null when there is
  // none. Visits the elements up to that one, which gain the key if they lack it.
  // S_OK; E_POINTER for a null `out`. Throws std::bad_alloc.
  virtual OXAResult FirstChild(const char* name, const char* key, const char* value,
                               IOXAXMLElement** out) = 0;

 protected:
  ~IOXAXMLElement() = default;
};
