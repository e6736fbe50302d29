// Where XML documents come from.
#pragma once

#include <oxa/IOXAContext.h>
#include <oxa/IOXAXMLParser.h>
#include <oxa/sdk/implements.h>

class oxa_xml_container final : public oxa::Implements<IOXAXMLParser> {
 public:
  // The context, which may be null, is not referenced.
  explicit oxa_xml_container(IOXAContext* context);

  OXAResult CreateDocument(const wchar_t* path, IOXAXMLDocument** out) override;
  OXAResult CreateDocumentFromBuffer(const char* buffer, IOXAXMLDocument** out) override;
  OXAResult CreateEmptyDocument(IOXAXMLDocument** out) override;

  ~oxa_xml_container() override = default;

  // Releases a document of this library; kept: tree and source stay behind
  // (ContainerTest.DestroyDocumentOnlyReleases).
  // S_OK; E_POINTER for null; E_HANDLE when somebody else still references it.
  virtual OXAResult DestroyDocument(IOXAXMLDocument* document);

 private:
  template <class SetSource>
  OXAResult create_document(IOXAXMLDocument** out, SetSource set_source);

  IOXAContext* context_;
};
