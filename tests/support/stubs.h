// Implementations in which every operation fails, or does nothing, for others to derive from.
#pragma once

#include <oxa/IOXADataElement.h>
#include <oxa/IOXADebugMessage.h>
#include <oxa/IOXAXMLDocument.h>
#include <oxa/IOXAXMLElement.h>
#include <oxa/sdk/implements.h>

namespace oxa_test {

class StubSink : public oxa::Implements<IOXADebugMessage> {
 public:
  void EmitError(const char*, ...) override {}
  void EmitMessage(const char*, ...) override {}
  void EmitWarning(const char*, ...) override {}
  void Clear() override {}
  void SetDefaultWarningLevel(int) override {}
  void SetDefaultMessageLevel(int) override {}
  void EmitMessage(int, const char*, ...) override {}
  void EmitWarning(int, const char*, ...) override {}
};

class StubElement : public oxa::Implements<IOXADataElement> {
 public:
  const char* Name() override { return nullptr; }
  const char* Namespace() override { return nullptr; }
  OXA::Property::DataType Type() override { return OXA::Property::NoDataType; }
  const char* Tooltip() override { return nullptr; }
  const char* UserDefinedType() override { return nullptr; }
  const char* DefaultValue() override { return nullptr; }
  double MinimumValue() override { return 0; }
  double MaximumValue() override { return 0; }
  bool IsRangeSet() override { return false; }
  OXAResult SetName(const char*) override { return E_FAIL; }
  OXAResult SetDataType(OXA::Property::DataType) override { return E_FAIL; }
  OXAResult SetTooltip(const char*) override { return E_FAIL; }
  OXAResult SetRange(double, double) override { return E_FAIL; }
  OXAResult SetDefaultValue(const char*) override { return E_FAIL; }
  OXAResult SetUserDefinedTypeString(const char*) override { return E_FAIL; }
};

class StubDocument : public oxa::Implements<IOXAXMLDocument> {
 public:
  OXAResult CreateElement(const char*, IOXAXMLElement**) override { return E_FAIL; }
  OXAResult Open(const wchar_t*) override { return E_FAIL; }
  OXAResult SetBuffer(const char*) override { return E_FAIL; }
  OXAResult Serialize(const wchar_t*) override { return E_FAIL; }
  OXAResult Parse() override { return E_FAIL; }
  OXAResult GetElementByID(const char*, IOXAXMLElement**) override { return E_FAIL; }
  OXAResult GetElementEnumByName(const char*, IOXAXMLElementEnum**) override { return E_FAIL; }
  OXAResult GetElementEnumByKeyValue(const char*, const char*, IOXAXMLElementEnum**) override {
    return E_FAIL;
  }
  OXAResult GetElementEnumByNameKeyValue(const char*, const char*, const char*,
                                         IOXAXMLElementEnum**) override {
    return E_FAIL;
  }
  OXAResult SetRoot(IOXAXMLElement*) override { return E_FAIL; }
  OXAResult GetRoot(IOXAXMLElement**) override { return E_FAIL; }
};

class StubXMLElement : public oxa::Implements<IOXAXMLElement> {
 public:
  const char* Name() override { return nullptr; }
  OXAResult SetName(const char*) override { return E_FAIL; }
  OXAResult SetText(const char*) override { return E_FAIL; }
  bool HasChildren() override { return false; }
  bool hasText() override { return false; }
  OXAResult GetText(char*&) override { return E_FAIL; }
  OXAResult GetHTMLEscapedText(char*&) override { return E_FAIL; }
  OXAResult GetPlainText(char*&) override { return E_FAIL; }
  OXAResult AddAttribute(const char*, const char*) override { return E_FAIL; }
  OXAResult GetAttribute(const char*, char**) override { return E_FAIL; }
  OXAResult GetAttributes(IOXAXMLAttributeEnum**) override { return E_FAIL; }
  OXAResult AddChild(IOXAXMLElement*) override { return E_FAIL; }
  OXAResult RemoveChild(IOXAXMLElement*) override { return E_FAIL; }
  OXAResult GetChild(const char*, IOXAXMLElement**) override { return E_FAIL; }
  OXAResult GetChildren(const char*, const char*, const char*, IOXAXMLElementEnum**) override {
    return E_FAIL;
  }
  OXAResult GetImmediateChildren(const char*, const char*, const char*,
                                 IOXAXMLElementEnum**) override {
    return E_FAIL;
  }
  OXAResult FirstChild(IOXAXMLElement**) override { return E_FAIL; }
  OXAResult FirstChild(const char*, const char*, const char*, IOXAXMLElement**) override {
    return E_FAIL;
  }
};

}  // namespace oxa_test
