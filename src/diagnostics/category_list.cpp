#include "diagnostics/category_list.h"

#include <oxa/sdk/guard.h>
#include <oxa/sdk/ref.h>
#include <oxa/sdk/result_text.h>

#include <string_view>

#include "core/OXAListEnum.h"
#include "diagnostics/OXADiagnosticCategory.h"

// Kept: a category that is there is handed out together with the failure
// (DiagnosticsManagerTest.TheSameNameGivesTheSameCategoryAndAFailure).
OXAResult category_list::create(IOXADiagnosticsManager* manager, const char* name,
                                IOXADiagnosticCategory** category) {
  if (name == nullptr || category == nullptr) {
    return E_INVALIDARG;
  }
  *category = nullptr;
  const auto known = by_name_.find(std::string_view(name));
  if (known != by_name_.end()) {
    *category = known->second;
    return E_ALREADYEXISTS;
  }
  return oxa::guard([&] {
    OXAResult result = S_OK;
    auto made = oxa::make<OXADiagnosticCategory>(manager, result);
    if (oxa::succeeded(result)) {
      result = made->SetName(name);
    }
    if (oxa::failed(result)) {
      return result;
    }
    std::list<IOXADiagnosticCategory*> last{made.get()};
    by_name_.emplace(name, made.get());
    in_order_.splice(in_order_.end(), last);
    *category = made.detach();
    return S_OK;
  });
}

OXAResult category_list::enumerate(IOXADiagnosticCategoryEnum** categories) {
  if (categories == nullptr) {
    return E_INVALIDARG;
  }
  *categories = nullptr;
  return oxa::guard([&] {
    *categories =
        new OXAListEnum<IOXADiagnosticCategoryEnum, IOXADiagnosticCategory>(&in_order_, false);
    return S_OK;
  });
}

void category_list::release_all() {
  ++times_cleared_;
  by_name_.clear();
  std::list<IOXADiagnosticCategory*> released;
  released.swap(in_order_);
  for (IOXADiagnosticCategory* category : released) {
    category->ReleaseReference();
  }
}
