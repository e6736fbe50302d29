#include "diagnostics/OXADiagnosticsManager.h"

#include <oxa/IOXADiagnostic.h>
#include <oxa/sdk/guard.h>
#include <oxa/sdk/ref.h>

#include <cstddef>
#include <cstring>
#include <string_view>
#include <utility>

#include "core/factory.h"
#include "core/thin_string.h"

namespace {

// Gives the diagnostics of a category as many cells. One that a client implements may throw: it is
// passed over. `count` may change meanwhile, since it may also call the manager.
void resize_rows(IOXADiagnosticCategory& category, const int& count) {
  IOXADiagnostic* row = nullptr;
  for (OXAResult result = category.GetFirst(&row); result == S_OK;
       result = category.GetNext(&row)) {
    oxa::guard([&] {
      row->Resize(count);
      return S_OK;
    });
  }
}

}  // namespace

// Kept: the two named headers lie behind the columns, so they show when there are four
// (DiagnosticsManagerTest.TheNamedHeadersComeWithColumnsTwoAndThree).
OXADiagnosticsManager::OXADiagnosticsManager()
    : headers_{"", "", "Severity", "Diagnostics"}, operations_(2) {}

// A row that ends may still make categories.
OXADiagnosticsManager::~OXADiagnosticsManager() {
  while (!categories_.all().empty()) {
    Clear();
  }
}

// Kept: rows of subcategories keep their cells, and the walk moves the positions of the categories
// (DiagnosticsManagerTest.RowsOfSubcategoriesKeepTheirCells,
// DiagnosticsManagerTest.ResizingMovesThePositions).
OXAResult OXADiagnosticsManager::SetColumnCount(int count) {
  if (count < 0) {
    return E_INVALIDARG;
  }
  const OXAResult result = oxa::guard([&] {
    const auto size = static_cast<std::size_t>(count);
    operations_.reserve(size);
    headers_.resize(size);
    operations_.resize(size);
    column_count_ = count;
    return S_OK;
  });
  if (result == S_OK) {
    resize_categories();
  }
  return result;
}

// A row may clear the table from within its Resize.
void OXADiagnosticsManager::resize_categories() {
  const unsigned long cleared = categories_.times_cleared();
  for (auto at = categories_.all().begin(); at != categories_.all().end(); ++at) {
    const auto category = oxa::Ref<IOXADiagnosticCategory>::share(*at);
    resize_rows(*category, column_count_);
    if (categories_.times_cleared() != cleared) {
      return;
    }
  }
}

OXAResult OXADiagnosticsManager::SetColumnHeader(int column, const char* header,
                                                 Operation operation) {
  if (!has_column(column) || header == nullptr) {
    return E_INVALIDARG;
  }
  return oxa::guard([&] {
    const auto at = static_cast<std::size_t>(column);
    headers_[at] = header;
    operations_[at] = operation;
    return S_OK;
  });
}

OXAResult OXADiagnosticsManager::GetColumnHeader(int column, char** header) {
  if (header == nullptr) {
    return E_INVALIDARG;
  }
  *header = nullptr;
  if (!has_column(column)) {
    return E_INVALIDARG;
  }
  *header = headers_[static_cast<std::size_t>(column)].data();
  return S_OK;
}

OXAResult OXADiagnosticsManager::GetColumnOperation(int column, Operation& operation) {
  if (!has_column(column)) {
    return E_INVALIDARG;
  }
  operation = operations_[static_cast<std::size_t>(column)];
  return S_OK;
}

OXAResult OXADiagnosticsManager::CreateCategory(const char* name,
                                                IOXADiagnosticCategory** category) {
  return categories_.create(this, name, category);
}

OXAResult OXADiagnosticsManager::GetDiagnosticCategoryEnum(
    IOXADiagnosticCategoryEnum** categories) {
  return categories_.enumerate(categories);
}

OXAResult OXADiagnosticsManager::RegisterDiagnosticType(const char* toolTip, const char* statusTip,
                                                        int* id) {
  if (id == nullptr) {
    return E_INVALIDARG;
  }
  return oxa::guard([&] {
    const std::string_view tool_tip = toolTip == nullptr ? "" : toolTip;
    const std::string_view status_tip = statusTip == nullptr ? "" : statusTip;
    diagnostic_type type(new char[tool_tip.size() + status_tip.size() + 2]);
    oxa::copy_terminated(tool_tip, type.get());
    oxa::copy_terminated(status_tip, type.get() + tool_tip.size() + 1);
    const auto next = static_cast<int>(types_.size());
    types_.push_back(std::move(type));
    *id = next;
    return S_OK;
  });
}

// Kept: the result is a failure also where the type was there and is removed
// (DiagnosticsManagerTest.UnregisteringFailsAndRemovesTheType).
OXAResult OXADiagnosticsManager::UnregisterDiagnosticType(int id) {
  if (tool_tip(id) != nullptr) {
    types_[static_cast<std::size_t>(id)].reset();
  }
  return E_INVALIDARG;
}

// Null when no such type is registered.
char* OXADiagnosticsManager::tool_tip(int id) const {
  const auto at = static_cast<std::size_t>(id);  // a negative one is beyond all others
  return at < types_.size() ? types_[at].get() : nullptr;
}

OXAResult OXADiagnosticsManager::GetDiagnosticToolTip(int id, char** text) {
  return give_tip(id, text, [](char* tool_tip) { return tool_tip; });
}

OXAResult OXADiagnosticsManager::GetDiagnosticStatusTip(int id, char** text) {
  return give_tip(id, text, [](char* tool_tip) { return tool_tip + std::strlen(tool_tip) + 1; });
}

OXAResult OXADiagnosticsManager::give_tip(int id, char** text, char* (*tip)(char* tool_tip)) {
  if (text == nullptr) {
    return E_INVALIDARG;
  }
  char* known = tool_tip(id);
  *text = known == nullptr ? nullptr : tip(known);
  return known == nullptr ? S_FALSE : S_OK;
}

void OXADiagnosticsManager::Clear() { categories_.release_all(); }

OXAResult OXACreateDiagnosticsManager(void** out) {
  return run_factory(out, [&] {
    *out = static_cast<IOXADiagnosticsManager*>(new OXADiagnosticsManager());
    return S_OK;
  });
}
