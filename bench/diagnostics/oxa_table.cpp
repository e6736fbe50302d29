#include <oxa/oxa.h>

#include <string>

#include "diagnostics/table.h"

namespace bench {

namespace {

enum column { number, share, name, known, count };

class diagnostics final : public table {
 public:
  diagnostics() {
    OXACreateDiagnosticsManager(oxa::adopt_into(manager_));
    manager_->SetColumnCount(column::count);
    manager_->RegisterDiagnosticType(terse_text, verbose_text, &type_);
    category_ = &oxa::category(*manager_, "findings");
  }

  void build(std::size_t rows) override {
    each_finding(rows, [this](const finding& found) {
      oxa::Ref<IOXADiagnostic> row = oxa::create_diagnostic(*category_);
      row->SetDiagnostic(type_);
      row->SetSeverity(OXA::Diagnostics::Severity{found.severity});
      oxa::set_value(*row, column::number, oxa::make_variant(found.number));
      oxa::set_value(*row, column::share, oxa::make_variant(found.share));
      oxa::set_value(*row, column::name, oxa::make_variant(std::string(found.name)));
      oxa::set_value(*row, column::known, oxa::make_variant(found.known));
      oxa::add_diagnostic(*category_, std::move(row));
    });
  }

  sums read() override {
    sums all;
    for (IOXADiagnostic* row : oxa::diagnostics(*category_)) {
      all.numbers += row->GetValue(column::number).int_value;
      all.shares += row->GetValue(column::share).double_value;
      all.characters += row->GetValue(column::name).text.size();
      all.known += row->GetValue(column::known).bool_value ? 1 : 0;
      all.severities += static_cast<int>(row->GetSeverity());
      all.types += row->GetDiagnostic();
    }
    return all;
  }

  void widen() override { manager_->SetColumnCount(column::count + 2); }
  void narrow() override { manager_->SetColumnCount(column::count); }

 private:
  oxa::Ref<IOXADiagnosticsManager> manager_;
  IOXADiagnosticCategory* category_ = nullptr;
  int type_ = -1;
};

}  // namespace

table_library oxa_table() { return library_of<diagnostics>("oxa"); }

}  // namespace bench
