#include "diagnostics/model/checks.h"

namespace oxa_test::model {

void check_category(Account& account, const Category& category) {
  IOXADiagnosticCategory& twin = *category.twin;
  Account::text("the name of a category", shown(twin.GetName()),
                shown(category.name.empty() ? nullptr : category.name.c_str()));
  Account::number("its type of key", static_cast<int>(twin.GetCategoryKeyType()),
                  static_cast<int>(category.key_type));
  void* key = &twin;
  account.result("GetCategoryKey", twin.GetCategoryKey(&key), S_OK);
  Account::same("its key", key, category.key);
  account.result("GetCategoryKey", twin.GetCategoryKey(nullptr), E_INVALIDARG);
  Account::number("its references", twin.CheckReference(), category.references);
}

void check_diagnostic(const Diagnostics& manager, const Diagnostic& diagnostic) {
  IOXADiagnostic& twin = *diagnostic.twin;
  const Diagnostics::Tips* const expected = manager.tips(diagnostic.type);
  Account::text("the terse text", shown(twin.GetTerseString()),
                shown(expected != nullptr ? expected->first.c_str() : nullptr));
  Account::text("the verbose text", shown(twin.GetVerboseString()),
                shown(expected != nullptr ? expected->second.c_str() : nullptr));
  Account::number("the type", twin.GetDiagnostic(), diagnostic.type);
  Account::number("the severity", static_cast<int>(twin.GetSeverity()),
                  static_cast<int>(diagnostic.severity));
  Account::number("the type of key", static_cast<int>(twin.GetDiagnosticKeyType()),
                  static_cast<int>(diagnostic.key_type));
  Account::same("the key", twin.GetDiagnosticKey(), diagnostic.key);
  Account::number("the references", twin.CheckReference(), diagnostic.references);
  const int cells = static_cast<int>(diagnostic.cells.size());
  for (int column = -1; column <= cells; ++column) {
    Account::text("a cell", whole(twin.GetValue(column)), whole(diagnostic.GetValue(column)));
  }
}

}  // namespace oxa_test::model
