// Compiled by each compiler, without type information.
#include "abi/foreign_objects.h"

#include <oxa/IOXAXMLElementEnum.h>
#include <oxa/sdk/implements.h>

#include <cstring>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "support/stubs.h"

namespace {

using namespace oxa_test;
using OXA::Property::DataType;

class Element;
using Elements = std::vector<oxa::Ref<Element>>;

class ElementEnum final : public oxa::Implements<IOXAXMLElementEnum> {
 public:
  explicit ElementEnum(Elements elements) : elements_(std::move(elements)) {}

  OXAResult GetFirst(IOXAXMLElement** out) override {
    next_ = 0;
    return GetNext(out);
  }
  OXAResult GetNext(IOXAXMLElement** out) override;
  unsigned long Count() override { return elements_.size(); }

 private:
  Elements elements_;
  std::size_t next_ = 0;
};

class Element final : public StubXMLElement {
 public:
  using Attributes = std::map<std::string, std::string>;

  Element(const char* name, Attributes attributes, Elements children = {})
      : name_(name), attributes_(std::move(attributes)), children_(std::move(children)) {}

  const char* Name() override { return name_.c_str(); }

  OXAResult GetAttribute(const char* key, char** out) override {
    const auto found = attributes_.find(key);
    *out = found == attributes_.end() ? nullptr : found->second.data();
    return found == attributes_.end() ? E_NOTFOUND : S_OK;
  }

  OXAResult GetImmediateChildren(const char* name, const char*, const char*,
                                 IOXAXMLElementEnum** out) override {
    Elements found;
    for (const auto& child : children_) {
      if (child->name_ == name) {
        found.push_back(child);
      }
    }
    *out = oxa::make<ElementEnum>(std::move(found)).detach();
    return S_OK;
  }

  bool HasChildren() override { return !children_.empty(); }

 private:
  std::string name_;
  Attributes attributes_;
  Elements children_;
};

OXAResult ElementEnum::GetNext(IOXAXMLElement** out) {
  const bool at_end = next_ == elements_.size();
  *out = at_end ? nullptr : elements_[next_++].get();
  return at_end ? S_FALSE : S_OK;
}

oxa::Ref<Element> make_tree() {
  Elements members = {
      oxa::make<Element>("member", Element::Attributes{{"name", "x"}, {"type", "a number"}}),
      oxa::make<Element>("member",
                         Element::Attributes{{"name", "next"}, {"type", "foreign::point"}})};
  Elements types = {oxa::make<Element>(
      "data_type", Element::Attributes{{"name", "point"}, {"type", "struct"}}, std::move(members))};
  return oxa::make<Element>(
      "extension", Element::Attributes{{"type", "data"}, {"plugin", "foreign"}}, std::move(types));
}

class Document final : public StubDocument {
 public:
  OXAResult Parse() override {
    root_ = make_tree();
    return S_OK;
  }
  OXAResult GetRoot(IOXAXMLElement** out) override {
    *out = root_.get();
    return S_OK;
  }

 private:
  oxa::Ref<Element> root_;
};

class Parser final : public oxa::Implements<IOXAXMLParser> {
 public:
  OXAResult CreateDocument(const wchar_t*, IOXAXMLDocument** out) override {
    *out = oxa::make<Document>().detach();
    return S_OK;
  }
  OXAResult CreateDocumentFromBuffer(const char*, IOXAXMLDocument**) override { return E_FAIL; }
  OXAResult CreateEmptyDocument(IOXAXMLDocument**) override { return E_FAIL; }
};

class Scanner final : public oxa::Implements<IOXADirectoryScanner> {
 public:
  OXAResult Scan(const wchar_t*, const char*) override { return S_OK; }
  OXAResult GetFirst(wchar_t** name) override {
    *name = name_.data();
    return S_OK;
  }
  OXAResult GetNext(wchar_t** name) override {
    *name = nullptr;
    return S_FALSE;
  }

 private:
  std::wstring name_ = L"any.xml";
};

class Translator final : public oxa::Implements<IOXAPropertyDataTypeTranslator> {
 public:
  const char* ToGraphml(DataType) override { return nullptr; }
  const char* ToString(DataType) override { return nullptr; }
  DataType ToType(const char* name) override {
    if (std::strcmp(name, "a number") == 0) {
      return DataType::Double;
    }
    return std::strstr(name, "::") != nullptr ? DataType::UserDefined : OXA::Property::NoDataType;
  }
  OXAResult Register(DataType, const char*, const char*) override { return E_FAIL; }
};

class Member final : public StubElement {
 public:
  explicit Member(const char* name) : name_(name) {}

  const char* Name() override { return name_.c_str(); }
  DataType Type() override { return DataType::Double; }

 private:
  std::string name_;
};

template <class Interface, class Object>
Interface* make() {
  return oxa::make<Object>().detach();
}

IOXAUserDefinedDataTypeManager* find_manager() {
  void* manager = nullptr;
  OXACreateUserDefinedDataTypeManager(nullptr, IID_IOXAUserDefinedDataTypeManager, &manager);
  return static_cast<IOXAUserDefinedDataTypeManager*>(manager);
}

const ForeignObjects objects = {
    make<IOXAXMLParser, Parser>, make<IOXADirectoryScanner, Scanner>,
    make<IOXAPropertyDataTypeTranslator, Translator>,
    [](const char* name) -> IOXADataElement* { return oxa::make<Member>(name).detach(); },
    find_manager};

}  // namespace

extern "C" OXA_EXPORT const ForeignObjects* GetForeignObjects() { return &objects; }
