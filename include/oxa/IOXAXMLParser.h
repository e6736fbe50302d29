// Where XML documents come from.
#pragma once

#include <oxa/IOXAReference.h>
#include <oxa/export.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

class IOXAXMLDocument;

// Makes documents that report to the message sink which the context holds at that moment.
// Implemented by the library; every context holds one under IID_IOXAXMLParser, where a host may
// file its own. Does not reference its context, and must not be used once that is gone; its
// documents may. Used by one thread at a time; that of a context is shared, so other threads make
// their own with OXACreateXMLParser. Its documents are independent of one another.
class IOXAXMLParser : public IOXAReference {
 public:
  // Makes a document and opens `path`, relative to the current folder, as its source;
  // IOXAXMLDocument::Parse comes next. The caller owns one reference to `*out`, which is stored
  // even when the file cannot be opened or the source not be held; oxa::XMLDocument (sdk/xml.h)
  // receives it and ends it.
  // The results of IOXAXMLDocument::Open; E_POINTER for a null `out`; E_OUTOFMEMORY.
  virtual OXAResult CreateDocument(const wchar_t* path, IOXAXMLDocument** out) = 0;

  // The same with a copy of `buffer`, up to its terminator, as the source.
  virtual OXAResult CreateDocumentFromBuffer(const char* buffer, IOXAXMLDocument** out) = 0;

  // The same without a source.
  virtual OXAResult CreateEmptyDocument(IOXAXMLDocument** out) = 0;

 protected:
  ~IOXAXMLParser() = default;
};

template <>
struct OXAInterfaceId<IOXAXMLParser> {
  static const _GUID& value() { return IID_IOXAXMLParser; }
};

// Makes an object whose documents have no message sink; the caller owns one reference to `*out`.
// S_OK; E_INVALIDARG for a null `out`; E_NOINTERFACE for an id other than IID_IOXAXMLParser;
// E_OUTOFMEMORY. `*out` is null after a failure.
extern "C" OXA_EXPORT OXAResult OXACreateXMLParser(const _GUID& iid, void** out);
