#include "diagnostics/OXADiagnosticCategory.h"

#include <oxa/sdk/guard.h>
#include <oxa/sdk/ref.h>

#include "core/set_text.h"
#include "diagnostics/OXADiagnostic.h"

namespace {

oxa::thin_string first_name() {
  alignas(oxa::thin_string::alignment) static char text[] = "Category name not set!";
  return oxa::thin_string::borrow(text);
}

}  // namespace

OXADiagnosticCategory::OXADiagnosticCategory(IOXADiagnosticsManager* manager, OXAResult& result)
    : name_(first_name()), manager_(manager) {
  result = manager == nullptr ? E_INVALIDARG : S_OK;
}

// Kept: subcategories are not released (DiagnosticCategoryTest.SubcategoriesLiveOn).
// A row that ends may still call the category, which holds none of them by then.
OXADiagnosticCategory::~OXADiagnosticCategory() {
  while (!diagnostics_.empty()) {
    std::vector<IOXADiagnostic*> released;
    released.swap(diagnostics_);
    position_ = at_end;
    for (IOXADiagnostic* diagnostic : released) {
      oxa::guard([diagnostic] {
        diagnostic->ReleaseReference();
        return S_OK;
      });
    }
  }
}

// Kept: the list around the category goes on finding it by the name it was created with
// (DiagnosticCategoryTest.ARenamedCategoryIsFoundByItsFirstName).
OXAResult OXADiagnosticCategory::SetName(const char* name) { return oxa::set_text(name_, name); }

const char* OXADiagnosticCategory::GetName() { return name_.data(); }

OXAResult OXADiagnosticCategory::CreateDiagnostic(IOXADiagnostic** diagnostic) {
  if (diagnostic == nullptr) {
    return E_INVALIDARG;
  }
  *diagnostic = nullptr;
  return oxa::guard([&] {
    OXAResult result = S_OK;
    auto made = oxa::make<OXADiagnostic>(manager_, result);
    if (result >= 0) {
      *diagnostic = made.detach();
    }
    return result;
  });
}

OXAResult OXADiagnosticCategory::AddDiagnostic(IOXADiagnostic* diagnostic) {
  if (diagnostic == nullptr) {
    return E_INVALIDARG;
  }
  return oxa::guard([&] {
    diagnostics_.push_back(diagnostic);
    return S_OK;
  });
}

OXAResult OXADiagnosticCategory::CreateCategory(const char* name,
                                                IOXADiagnosticCategory** category) {
  return subcategories_.create(manager_, name, category);
}

OXAResult OXADiagnosticCategory::GetDiagnosticCategoryEnum(
    IOXADiagnosticCategoryEnum** categories) {
  return subcategories_.enumerate(categories);
}

OXAResult OXADiagnosticCategory::GetFirst(IOXADiagnostic** diagnostic) {
  return move(diagnostic, 0);
}

// Kept: the list is a ring through its end (DiagnosticCategoryTest.GoesRoundThroughItsEnd).
OXAResult OXADiagnosticCategory::GetNext(IOXADiagnostic** diagnostic) {
  return move(diagnostic, position_ == at_end ? 0 : position_ + 1);
}

OXAResult OXADiagnosticCategory::move(IOXADiagnostic** diagnostic, std::size_t target) {
  if (diagnostic == nullptr) {
    return E_INVALIDARG;
  }
  position_ = target < diagnostics_.size() ? target : at_end;
  *diagnostic = position_ == at_end ? nullptr : diagnostics_[position_];
  return position_ == at_end ? S_FALSE : S_OK;
}

OXAResult OXADiagnosticCategory::GetCategoryKey(void** key) {
  if (key == nullptr) {
    return E_INVALIDARG;
  }
  *key = key_;
  return S_OK;
}

OXAResult OXADiagnosticCategory::SetCategoryKeyType(OXA::Diagnostics::Type type) {
  key_type_ = type;
  return S_OK;
}

OXAResult OXADiagnosticCategory::SetCategoryKey(void* key) {
  if (key == nullptr) {
    return E_INVALIDARG;
  }
  key_ = key;
  return S_OK;
}
