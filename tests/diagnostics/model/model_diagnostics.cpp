#include "diagnostics/model/model_diagnostics.h"

namespace oxa_test::model {

void Diagnostic::Resize(int count) {
  if (count >= 0) {
    cells.resize(static_cast<std::size_t>(count));
  }
}

OXAVariant Diagnostic::GetValue(int column) const {
  if (has(column)) {
    return cells[static_cast<std::size_t>(column)];
  }
  OXAVariant unset;
  unset.text = "unset";
  return unset;
}

OXAResult Diagnostic::SetValue(int column, const OXAVariant& value) {
  if (!has(column)) {
    return E_INVALIDARG;
  }
  cells[static_cast<std::size_t>(column)] = value;
  return S_OK;
}

OXAResult Diagnostic::SetDiagnostic(Diagnostics& manager, const char* terse, const char* verbose) {
  if (terse == nullptr || verbose == nullptr) {
    return E_INVALIDARG;
  }
  type = manager.RegisterDiagnosticType(terse, verbose);
  return S_OK;
}

std::pair<OXAResult, Category*> Categories::CreateCategory(Diagnostics& manager, const char* name) {
  if (name == nullptr) {
    return {E_INVALIDARG, nullptr};
  }
  if (by_name.count(name) == 1) {
    return {E_ALREADYEXISTS, by_name.at(name)};
  }
  Category* const category = &manager.all_categories.emplace_back();
  category->name = name;
  by_name[name] = category;
  list.push_back(category);
  return {S_OK, category};
}

OXAResult Category::SetName(const char* new_name) {
  if (new_name == nullptr) {
    return E_INVALIDARG;
  }
  name = new_name;
  return S_OK;
}

void Category::AddDiagnostic(Diagnostic* diagnostic) { diagnostics.push_back(diagnostic); }

Diagnostic* Category::GetFirst() {
  cursor = diagnostics.begin();
  return *cursor == diagnostics.end() ? nullptr : **cursor;
}

Diagnostic* Category::GetNext() {
  cursor = *cursor == diagnostics.end() ? diagnostics.begin() : std::next(*cursor);
  return *cursor == diagnostics.end() ? nullptr : **cursor;
}

OXAResult Diagnostics::SetColumnCount(int count) {
  if (count < 0) {
    return E_INVALIDARG;
  }
  column_count = count;
  headers.resize(static_cast<std::size_t>(count));
  operations.resize(static_cast<std::size_t>(count));
  for (Category* category : categories.list) {
    for (Diagnostic* each = category->GetFirst(); each != nullptr; each = category->GetNext()) {
      each->Resize(count);
    }
  }
  return S_OK;
}

OXAResult Diagnostics::SetColumnHeader(int column, const char* header, Operation operation) {
  if (!has(column) || header == nullptr) {
    return E_INVALIDARG;
  }
  headers[static_cast<std::size_t>(column)] = header;
  operations[static_cast<std::size_t>(column)] = operation;
  return S_OK;
}

int Diagnostics::RegisterDiagnosticType(const char* tool_tip, const char* status_tip) {
  types[next_type] = {tool_tip == nullptr ? "" : tool_tip, status_tip == nullptr ? "" : status_tip};
  return next_type++;
}

const Diagnostics::Tips* Diagnostics::tips(int id) const {
  const auto found = types.find(id);
  return found == types.end() ? nullptr : &found->second;
}

Diagnostic* Diagnostics::CreateDiagnostic() {
  Diagnostic* const diagnostic = &all_diagnostics.emplace_back();
  diagnostic->Resize(column_count);
  return diagnostic;
}

void Diagnostics::Clear() {
  for (Category* category : categories.list) {
    release(*category);
  }
  categories.list.clear();
  categories.by_name.clear();
}

void Diagnostics::release(Diagnostic& diagnostic) { --diagnostic.references; }

void Diagnostics::release(Category& category) {
  if (--category.references > 0) {
    return;
  }
  for (Diagnostic* diagnostic : category.diagnostics) {
    release(*diagnostic);
  }
  for (Category* subcategory : category.subcategories.list) {
    ++subcategory->held;
  }
}

}  // namespace oxa_test::model
