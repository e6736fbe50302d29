#include "diagnostics/OXADiagnostic.h"

#include <oxa/IOXADiagnosticsManager.h>
#include <oxa/sdk/guard.h>

#include <cstddef>
#include <new>

#include "core/assign_variant.h"

OXADiagnostic::OXADiagnostic(IOXADiagnosticsManager* manager, OXAResult& result)
    : manager_(manager) {
  result = manager == nullptr ? E_INVALIDARG : S_OK;
  if (manager != nullptr) {
    values_.resize(static_cast<std::size_t>(manager->GetColumnCount()));
  }
}

const char* OXADiagnostic::GetVerboseString() {
  char* text = nullptr;
  manager_->GetDiagnosticStatusTip(type_, &text);
  return text;
}

const char* OXADiagnostic::GetTerseString() {
  char* text = nullptr;
  manager_->GetDiagnosticToolTip(type_, &text);
  return text;
}

OXAVariant* OXADiagnostic::cell(int column) {
  const auto at = static_cast<std::size_t>(column);
  return column < 0 || at >= values_.size() ? nullptr : &values_[at];
}

OXAVariant OXADiagnostic::GetValue(int column) {
  if (const OXAVariant* found = cell(column)) {
    try {
      return *found;
    } catch (const std::bad_alloc&) {
      // There is no better answer than that of a cell that is not there.
    }
  }
  OXAVariant unset;
  unset.text = "unset";
  return unset;
}

OXAResult OXADiagnostic::SetDiagnostic(int id) {
  type_ = id;
  return S_OK;
}

// Kept: each call registers another type, and the result is S_OK whatever came of that
// (DiagnosticTest.TextsRegisterANewTypeEachTime).
OXAResult OXADiagnostic::SetDiagnostic(const char* terse, const char* verbose) {
  if (terse == nullptr || verbose == nullptr) {
    return E_INVALIDARG;
  }
  manager_->RegisterDiagnosticType(terse, verbose, &type_);
  return S_OK;
}

OXAResult OXADiagnostic::SetValue(int column, OXAVariant& value) {
  OXAVariant* found = cell(column);
  if (found == nullptr) {
    return E_INVALIDARG;
  }
  return oxa::guard([&] {
    oxa::assign(*found, value);
    return S_OK;
  });
}

OXAResult OXADiagnostic::SetDiagnosticKeyType(OXA::Diagnostics::Type type) {
  key_type_ = type;
  return S_OK;
}

OXAResult OXADiagnostic::SetDiagnosticKey(void* key) {
  if (key == nullptr) {
    return E_INVALIDARG;
  }
  key_ = key;
  return S_OK;
}

OXAResult OXADiagnostic::SetSeverity(OXA::Diagnostics::Severity severity) {
  severity_ = severity;
  return S_OK;
}

void OXADiagnostic::Resize(int count) {
  if (count < 0) {
    return;
  }
  oxa::guard([&] {
    values_.resize(static_cast<std::size_t>(count));
    return S_OK;
  });
}
