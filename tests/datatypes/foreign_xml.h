// XML parsers, documents, elements and enumerators as a host may make them: they pass on to those
// of the library what they are not told to do otherwise.
#pragma once

#include <oxa/oxa.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "support/stubs.h"

namespace oxa_test {

// Walks the elements of another enumerator, the last of which is followed by what it is told.
class ForeignXMLElementEnum final : public oxa::Implements<IOXAXMLElementEnum> {
 public:
  OXAResult GetFirst(IOXAXMLElement** out) override {
    at_null_ = begins_with_null;
    if (at_null_) {
      *out = nullptr;
      return S_OK;
    }
    return ended(inner->GetFirst(out));
  }
  OXAResult GetNext(IOXAXMLElement** out) override {
    const bool first = std::exchange(at_null_, false);
    return ended(first ? inner->GetFirst(out) : inner->GetNext(out));
  }
  unsigned long Count() override { return inner->Count(); }

  oxa::Ref<IOXAXMLElementEnum> inner;
  OXAResult at_end = S_FALSE;
  bool begins_with_null = false;

 private:
  OXAResult ended(OXAResult result) const { return result == S_OK ? result : at_end; }

  bool at_null_ = false;
};

// An element of which queries and attributes can be told to fail.
class ForeignXMLElement final : public StubXMLElement {
 public:
  const char* Name() override { return told_name.has_value() ? *told_name : inner->Name(); }
  bool HasChildren() override { return inner->HasChildren(); }
  bool hasText() override { return inner->hasText(); }
  OXAResult GetText(char*& out) override { return inner->GetText(out); }
  OXAResult GetHTMLEscapedText(char*& out) override { return inner->GetHTMLEscapedText(out); }
  OXAResult GetPlainText(char*& out) override { return inner->GetPlainText(out); }
  OXAResult GetAttribute(const char* key, char** out) override {
    if (key == told_key) {
      *out = nullptr;
      return told_attribute;
    }
    return inner->GetAttribute(key, out);
  }
  OXAResult GetAttributes(IOXAXMLAttributeEnum** out) override { return inner->GetAttributes(out); }
  OXAResult GetChild(const char* id, IOXAXMLElement** out) override {
    return inner->GetChild(id, out);
  }
  OXAResult GetChildren(const char* name, const char* key, const char* value,
                        IOXAXMLElementEnum** out) override {
    return inner->GetChildren(name, key, value, out);
  }
  OXAResult GetImmediateChildren(const char* name, const char* key, const char* value,
                                 IOXAXMLElementEnum** out) override {
    asked = {name != nullptr ? name : "null", key != nullptr ? key : "null",
             value != nullptr ? value : "null"};
    *out = nullptr;
    if (told_children.has_value()) {
      return *told_children;
    }
    auto children = oxa::make<ForeignXMLElementEnum>();
    children->at_end = at_end;
    children->begins_with_null = begins_with_null;
    const OXAResult result =
        inner->GetImmediateChildren(name, key, value, oxa::adopt_into(children->inner));
    if (result >= 0) {
      *out = children.detach();
    }
    return result;
  }
  OXAResult FirstChild(IOXAXMLElement** out) override { return inner->FirstChild(out); }
  OXAResult FirstChild(const char* name, const char* key, const char* value,
                       IOXAXMLElement** out) override {
    return inner->FirstChild(name, key, value, out);
  }

  IOXAXMLElement* inner = nullptr;  // borrowed
  std::optional<const char*> told_name;
  std::string told_key;
  OXAResult told_attribute = S_OK;         // without a value
  std::optional<OXAResult> told_children;  // without an enumerator
  OXAResult at_end = S_FALSE;
  bool begins_with_null = false;
  std::vector<std::string> asked;  // by the last GetImmediateChildren
};

// A document that passes on to one of the library's.
class ForeignXMLDocument final : public StubDocument {
 public:
  explicit ForeignXMLDocument(const char* content) : content_(content) {
    oxa::Ref<IOXAXMLParser> parser;
    OXACreateXMLParser(IID_IOXAXMLParser, oxa::adopt_into(parser));
    parser->CreateDocumentFromBuffer(content_.c_str(), oxa::adopt_into(inner_));
  }

  OXAResult Parse() override {
    ++parsed;
    on_parse();
    return parse_result.has_value() ? *parse_result : inner_->Parse();
  }
  OXAResult GetRoot(IOXAXMLElement** out) override {
    *out = nullptr;
    if (root_result.has_value()) {
      return *root_result;
    }
    const OXAResult result = inner_->GetRoot(&root->inner);
    *out = result >= 0 ? root.get() : nullptr;
    return result;
  }

  ~ForeignXMLDocument() override { on_end(); }

  oxa::Ref<ForeignXMLElement> root = oxa::make<ForeignXMLElement>();
  std::optional<OXAResult> parse_result;
  std::optional<OXAResult> root_result;  // without a root
  std::function<void()> on_parse = [] {};
  std::function<void()> on_end = [] {};
  int parsed = 0;

 private:
  std::string content_;
  oxa::XMLDocument inner_;
};

// A parser that gives one document, or none, and the result that it is told.
class ForeignXMLParser final : public oxa::Implements<IOXAXMLParser> {
 public:
  OXAResult CreateDocument(const wchar_t* path, IOXAXMLDocument** out) override {
    paths.emplace_back(path);
    *out = (gives_away ? std::move(document) : document).detach();
    return result;
  }
  OXAResult CreateDocumentFromBuffer(const char*, IOXAXMLDocument**) override { return E_FAIL; }
  OXAResult CreateEmptyDocument(IOXAXMLDocument**) override { return E_FAIL; }

  oxa::Ref<ForeignXMLDocument> document;
  bool gives_away = false;
  OXAResult result = S_OK;
  std::vector<std::wstring> paths;
};

}  // namespace oxa_test
