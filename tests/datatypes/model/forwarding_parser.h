// XML documents of a host's own, as far as the library can tell.
#pragma once

#include <oxa/IOXAXMLParser.h>
#include <oxa/sdk/implements.h>
#include <oxa/sdk/xml.h>

#include <utility>

#include "support/stubs.h"

namespace oxa_test::model {

// A document that passes on to one of the library's.
class ForwardingDocument final : public StubDocument {
 public:
  explicit ForwardingDocument(oxa::XMLDocument inner) : inner_(std::move(inner)) {}

  OXAResult Parse() override { return inner_->Parse(); }
  OXAResult GetRoot(IOXAXMLElement** out) override { return inner_->GetRoot(out); }

 private:
  oxa::XMLDocument inner_;
};

// A parser that makes such documents.
class ForwardingParser final : public oxa::Implements<IOXAXMLParser> {
 public:
  explicit ForwardingParser(oxa::Ref<IOXAXMLParser> inner) : inner_(std::move(inner)) {}

  OXAResult CreateDocument(const wchar_t* path, IOXAXMLDocument** out) override {
    oxa::XMLDocument document;
    const OXAResult result = inner_->CreateDocument(path, oxa::adopt_into(document));
    *out = oxa::make<ForwardingDocument>(std::move(document)).detach();
    return result;
  }
  OXAResult CreateDocumentFromBuffer(const char*, IOXAXMLDocument**) override { return E_FAIL; }
  OXAResult CreateEmptyDocument(IOXAXMLDocument**) override { return E_FAIL; }

 private:
  oxa::Ref<IOXAXMLParser> inner_;
};

}  // namespace oxa_test::model
