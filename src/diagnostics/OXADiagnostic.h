// A row of the table of diagnostics.
#pragma once

#include <oxa/IOXADiagnostic.h>
#include <oxa/sdk/implements.h>

#include <vector>

class IOXADiagnosticsManager;

class OXADiagnostic final : public oxa::Implements<IOXADiagnostic> {
 public:
  // Does not reference `manager`; `result` receives E_INVALIDARG for null. Throws std::bad_alloc.
  OXADiagnostic(IOXADiagnosticsManager* manager, OXAResult& result);

  const char* GetVerboseString() override;
  const char* GetTerseString() override;
  int GetDiagnostic() override { return type_; }
  OXAVariant GetValue(int column) override;
  OXA::Diagnostics::Type GetDiagnosticKeyType() override { return key_type_; }
  void* GetDiagnosticKey() override { return key_; }
  OXA::Diagnostics::Severity GetSeverity() override { return severity_; }
  OXAResult SetDiagnostic(int id) override;
  OXAResult SetDiagnostic(const char* terse, const char* verbose) override;
  OXAResult SetValue(int column, OXAVariant& value) override;
  OXAResult SetDiagnosticKeyType(OXA::Diagnostics::Type type) override;
  OXAResult SetDiagnosticKey(void* key) override;
  OXAResult SetSeverity(OXA::Diagnostics::Severity severity) override;
  void Resize(int count) override;

  ~OXADiagnostic() override = default;

 private:
  // Null when there is none.
  OXAVariant* cell(int column);

  IOXADiagnosticsManager* manager_;
  void* key_ = nullptr;
  std::vector<OXAVariant> values_;
  int type_ = -1;
  OXA::Diagnostics::Severity severity_{};
  OXA::Diagnostics::Type key_type_{};
};
