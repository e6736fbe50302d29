#include "xml/oxa_xml_container.h"

#include <oxa/IOXADebugMessage.h>
#include <oxa/sdk/guard.h>

#include "core/factory.h"
#include "xml/oxa_xml_parser.h"

oxa_xml_container::oxa_xml_container(IOXAContext* context) : context_(context) {}

template <class SetSource>
OXAResult oxa_xml_container::create_document(IOXAXMLDocument** out, SetSource set_source) {
  if (out == nullptr) {
    return E_POINTER;
  }
  *out = nullptr;
  return oxa::guard([&] {
    const auto sink = oxa::service<IOXADebugMessage>(context_);
    int result = S_OK;
    auto document = oxa::make<oxa_xml_parser>(sink.get(), result);
    if (result < 0) {
      return result;
    }
    result = set_source(*document);
    *out = document.detach();
    return result;
  });
}

// Kept: the document is stored even when the file cannot be opened
// (ContainerTest.AMissingFileStillGivesADocument).
OXAResult oxa_xml_container::CreateDocument(const wchar_t* path, IOXAXMLDocument** out) {
  return create_document(out, [path](oxa_xml_parser& document) { return document.Open(path); });
}

OXAResult oxa_xml_container::CreateDocumentFromBuffer(const char* buffer, IOXAXMLDocument** out) {
  return create_document(out,
                         [buffer](oxa_xml_parser& document) { return document.SetBuffer(buffer); });
}

OXAResult oxa_xml_container::CreateEmptyDocument(IOXAXMLDocument** out) {
  return create_document(out, [](oxa_xml_parser&) { return S_OK; });
}

OXAResult oxa_xml_container::DestroyDocument(IOXAXMLDocument* document) {
  if (document == nullptr) {
    return E_POINTER;
  }
  return document->ReleaseReference() == 0 ? S_OK : E_HANDLE;
}

OXAResult OXACreateXMLParser(const _GUID& iid, void** out) {
  return run_factory(out, [&] {
    if (iid != IID_IOXAXMLParser) {
      return E_NOINTERFACE;
    }
    *out = static_cast<IOXAXMLParser*>(new oxa_xml_container(nullptr));
    return S_OK;
  });
}
