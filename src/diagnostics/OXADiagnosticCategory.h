// A group of diagnostics.
#pragma once

#include <oxa/IOXADiagnosticCategory.h>
#include <oxa/sdk/implements.h>

#include <cstddef>
#include <vector>

#include "core/thin_string.h"
#include "diagnostics/category_list.h"

class OXADiagnosticCategory final : public oxa::Implements<IOXADiagnosticCategory> {
 public:
  // Does not reference `manager`; `result` receives E_INVALIDARG for null.
  OXADiagnosticCategory(IOXADiagnosticsManager* manager, OXAResult& result);

  OXAResult SetName(const char* name) override;
  const char* GetName() override;
  OXAResult CreateDiagnostic(IOXADiagnostic** diagnostic) override;
  OXAResult AddDiagnostic(IOXADiagnostic* diagnostic) override;
  OXAResult CreateCategory(const char* name, IOXADiagnosticCategory** category) override;
  OXAResult GetDiagnosticCategoryEnum(IOXADiagnosticCategoryEnum** categories) override;
  OXAResult GetFirst(IOXADiagnostic** diagnostic) override;
  OXAResult GetNext(IOXADiagnostic** diagnostic) override;
  OXA::Diagnostics::Type GetCategoryKeyType() override { return key_type_; }
  OXAResult GetCategoryKey(void** key) override;
  OXAResult SetCategoryKeyType(OXA::Diagnostics::Type type) override;
  OXAResult SetCategoryKey(void* key) override;

  // Releases the diagnostics in their order.
  ~OXADiagnosticCategory() override;

 private:
  static constexpr std::size_t at_end = static_cast<std::size_t>(-1);

  OXAResult move(IOXADiagnostic** diagnostic, std::size_t target);

  std::vector<IOXADiagnostic*> diagnostics_;  // a reference to each is owned
  std::size_t position_ = at_end;
  category_list subcategories_;
  oxa::thin_string name_;
  IOXADiagnosticsManager* manager_;
  void* key_ = nullptr;
  OXA::Diagnostics::Type key_type_{};
};
