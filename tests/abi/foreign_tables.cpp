// Compiled by each compiler, without type information.
#include "abi/foreign_tables.h"

#include <oxa/IOXAProperty.h>
#include <oxa/IOXAPropertyEnum.h>
#include <oxa/sdk/implements.h>
#include <oxa/sdk/variant.h>

namespace {

class Row final : public oxa::Implements<IOXADiagnostic> {
 public:
  const char* GetVerboseString() override { return "verbose"; }
  const char* GetTerseString() override { return "terse"; }
  int GetDiagnostic() override { return 9; }
  OXAVariant GetValue(int column) override {
    return column < count_ ? oxa::make_variant("of " + std::to_string(count_)) : OXAVariant();
  }
  OXA::Diagnostics::Type GetDiagnosticKeyType() override { return {}; }
  void* GetDiagnosticKey() override { return this; }
  OXA::Diagnostics::Severity GetSeverity() override { return OXA::Diagnostics::Severity{3}; }
  OXAResult SetDiagnostic(int) override { return E_FAIL; }
  OXAResult SetDiagnostic(const char*, const char*) override { return E_FAIL; }
  OXAResult SetValue(int, OXAVariant&) override { return E_FAIL; }
  OXAResult SetDiagnosticKeyType(OXA::Diagnostics::Type) override { return E_FAIL; }
  OXAResult SetDiagnosticKey(void*) override { return E_FAIL; }
  OXAResult SetSeverity(OXA::Diagnostics::Severity) override { return E_FAIL; }
  void Resize(int count) override { count_ = count; }

 private:
  int count_ = 0;
};

class Property final : public oxa::Implements<IOXAProperty> {
 public:
  OXAResult Clone(IOXAProperty**) override { return E_FAIL; }
  int ID() override { return 7; }
  const char* Name() override { return "x"; }
  const char* Namespace() override { return ""; }
  OXA::Property::Type Type() override { return {}; }
  OXA::Property::DataType DataType() override { return OXA::Property::DataType::Int; }
  const char* UserDefinedDataType() override { return nullptr; }
  const char* DefaultValue() override { return nullptr; }
  bool HasDependency() override { return false; }
  bool IsRangeSet() override { return false; }
  double MinimumValue() override { return 0; }
  double MaximumValue() override { return 0; }
  const char* FullNamespace() override { return "::x"; }
  bool IsMutable() override { return false; }
  void SetID(int) override {}
  OXAResult SetRange(double, double) override { return E_FAIL; }
  OXAResult SetUserDefinedDataType(const char*) override { return E_FAIL; }
  OXAResult SetDefaultValue(const char*) override { return E_FAIL; }
  void SetDependency(bool) override {}
  void SetPropertyType(OXA::Property::Type) override {}
  void SetDataType(OXA::Property::DataType) override {}
  void SetSupportAllNodes(bool) override {}
  void SetMutable(bool) override {}
  IOXAPropertyViewHints* ViewHints() override { return nullptr; }
  unsigned long GetAttributeCount() override { return 0; }
  void ClearAttributes() override {}
  OXAResult AddAttribute(const char*, const char*) override { return E_FAIL; }
  OXAResult GetFirstAttribute(char**) override { return E_FAIL; }
  OXAResult GetNextAttribute(char**) override { return E_FAIL; }
  OXAResult GetAttributeValue(const char*, char**) override { return E_FAIL; }
  OXAResult GetAttributeFromValue(const char*, char**) override { return E_FAIL; }
  bool Supports(const char*, const char*) override { return false; }
  OXAResult AddSupport(const char*, const char*) override { return E_FAIL; }
  bool SupportsAllNodes() override { return false; }
};

class Manager final : public oxa::Implements<IOXAPropertyManager> {
 public:
  OXAResult Register(const char*, const char*, IOXAProperty** out) override {
    *out = only_.get();
    return S_ALREADYEXISTS;
  }
  OXAResult Unregister(const char*, const char*) override { return E_FAIL; }
  OXAResult Unregister(IOXAProperty*) override { return E_FAIL; }
  OXAResult GetPropertyEnum(IOXAPropertyEnum**) override { return E_FAIL; }
  OXAResult GetPropertyEnum(const char*, bool, IOXAPropertyEnum**) override { return E_FAIL; }
  OXAResult FindProperty(unsigned long id, IOXAProperty** out) override {
    *out = id == 7 ? only_.get() : nullptr;
    return id == 7 ? S_OK : E_NOTFOUND;
  }
  OXAResult FindProperty(const char*, const char*, IOXAProperty**) override { return E_FAIL; }

 private:
  oxa::Ref<Property> only_ = oxa::make<Property>();
};

const ForeignTables tables = {
    []() -> IOXADiagnostic* { return oxa::make<Row>().detach(); },
    []() -> IOXAPropertyManager* { return oxa::make<Manager>().detach(); }};

}  // namespace

extern "C" OXA_EXPORT const ForeignTables* GetForeignTables() { return &tables; }
