// Findings about a graph, in the diagnostics of the context: what oxa-graph shows with --check.
//
// oxa-graph sets up the columns below and shows every category that it finds, whoever made it, so
// readers and algorithms may report as its own checks do.
#pragma once

#include <oxa/sdk/diagnostics.h>
#include <oxa/sdk/variant.h>

#include <cstdint>
#include <new>
#include <optional>
#include <string>
#include <utility>

namespace graph {

// How grave a finding is. A row that does not say is a note.
namespace severity {
inline constexpr OXA::Diagnostics::Severity note{0};
inline constexpr OXA::Diagnostics::Severity warning{1};
inline constexpr OXA::Diagnostics::Severity error{2};
}  // namespace severity

// The columns. The first two stand for what a row has anyway, so their cells stay empty.
namespace finding_column {
enum : int { severity, finding, where, count, value, total };
}

// What a column shows.
namespace finding_operation {
using Operation = IOXADiagnosticsManager::Operation;
inline constexpr Operation cell{0};
inline constexpr Operation severity{1};
// The short text of the diagnostic type.
inline constexpr Operation finding{2};
// The cell, a whole number, which says how often the row counts; once without one.
inline constexpr Operation count{3};
}  // namespace finding_operation

// What findings of a kind have in common. `terse` names one of them, "self loop", and takes an "s"
// for more; `verbose` explains it.
struct FindingKind {
  const char* category;
  const char* terse;
  const char* verbose;
  OXA::Diagnostics::Severity severity;
};

// Reports findings of one kind, in a category that is made with the object. It must not outlive the
// manager. All throw std::bad_alloc.
class FindingReport {
 public:
  FindingReport(IOXADiagnosticsManager& manager, const FindingKind& kind)
      : category_(&oxa::category(manager, kind.category)), severity_(kind.severity) {
    need(manager.RegisterDiagnosticType(kind.terse, kind.verbose, &type_));
  }

  // Adds a row about the part of the graph that `where` names.
  void add(std::string where, std::optional<unsigned long long> count = {}, OXAVariant value = {}) {
    oxa::Ref<IOXADiagnostic> row = oxa::create_diagnostic(*category_);
    row->SetDiagnostic(type_);
    row->SetSeverity(severity_);
    need(oxa::set_value(*row, finding_column::where, oxa::make_variant(std::move(where))));
    if (count) {
      need(oxa::set_value(*row, finding_column::count, oxa::make_variant(*count)));
    }
    if (value.kind != OXAVariant::Kind::Nothing) {
      need(row->SetValue(finding_column::value, value));
    }
    need(oxa::add_diagnostic(*category_, std::move(row)));
  }

 private:
  // A host may have other columns: what has no place there is left out.
  static void need(OXAResult result) {
    if (result == E_OUTOFMEMORY) {
      throw std::bad_alloc();
    }
  }

  IOXADiagnosticCategory* category_;
  OXA::Diagnostics::Severity severity_;
  int type_ = -1;
};

}  // namespace graph
