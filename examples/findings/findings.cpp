// Checks edges, given as arguments such as "a-b", and prints a table of what it finds.
#include <oxa/oxa.h>

#include <cstdio>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

// The application's own numbers.
constexpr OXA::Diagnostics::Severity warning{1};
constexpr OXA::Diagnostics::Severity error{2};

// [snippet: columns]
// Gives the table its columns, before there are rows.
void set_columns(IOXADiagnosticsManager& table) {
  table.SetColumnCount(4);  // 2 and 3 are "Severity" and "Diagnostics" now
  table.SetColumnHeader(0, "Edge", {});
  table.SetColumnHeader(1, "Place", {});
}
// [snippet end]

// [snippet: report]
class Check {
 public:
  explicit Check(IOXADiagnosticsManager& table) : edges_(oxa::category(table, "edges")) {
    table.RegisterDiagnosticType("self-loop", "The edge joins a node with itself.", &self_loop_);
    table.RegisterDiagnosticType("parallel edge", "These two nodes are joined already.",
                                 &parallel_);
  }

  void look_at(const std::string& edge, int place) {
    const std::size_t dash = edge.find('-');
    if (edge.substr(0, dash) == edge.substr(dash + 1)) {
      report("of one node", self_loop_, error, edge, place);
    } else if (!seen_.insert(edge).second) {
      report("of two nodes", parallel_, warning, edge, place);
    }
  }

 private:
  void report(const char* group, int type, OXA::Diagnostics::Severity severity,
              const std::string& edge, int place) {
    IOXADiagnosticCategory& category = oxa::category(edges_, group);
    oxa::Ref<IOXADiagnostic> row = oxa::create_diagnostic(category);
    row->SetDiagnostic(type);
    row->SetSeverity(severity);
    oxa::set_value(*row, 0, oxa::make_variant(edge));
    oxa::set_value(*row, 1, oxa::make_variant(place));
    oxa::set_value(*row, 2, oxa::make_variant(severity == error ? "error" : "warning"));
    if (const char* text = row->GetVerboseString()) {
      oxa::set_value(*row, 3, oxa::make_variant(text));
    }
    oxa::add_diagnostic(category, std::move(row));
  }

  IOXADiagnosticCategory& edges_;
  std::set<std::string> seen_;
  int self_loop_ = -1;
  int parallel_ = -1;
};
// [snippet end]

// [snippet: view]
std::string text_of(const OXAVariant& cell) {
  if (const auto number = oxa::value_of<int>(cell)) {
    return std::to_string(*number);
  }
  return oxa::value_of<std::string>(cell).value_or("");
}

// Prints what a category holds: rows, then subcategories.
void print(IOXADiagnosticCategory& category, int columns, int depth) {
  const char* name = category.GetName();
  std::printf("%*s%s\n", 2 * depth, "", name != nullptr ? name : "");
  for (IOXADiagnostic* row : oxa::diagnostics(category)) {
    std::printf("%*s", 2 * depth + 2, "");
    for (int column = 0; column < columns; ++column) {
      std::printf(column == 0 ? "%s" : " | %s", text_of(row->GetValue(column)).c_str());
    }
    std::printf("\n");
  }
  for (IOXADiagnosticCategory* each : oxa::categories(category)) {
    print(*each, columns, depth + 1);
  }
}

void print(IOXADiagnosticsManager& table) {
  for (int column = 0; column < table.GetColumnCount(); ++column) {
    char* header = nullptr;
    table.GetColumnHeader(column, &header);
    std::printf(column == 0 ? "%s" : " | %s", header);
  }
  std::printf("\n");
  for (IOXADiagnosticCategory* each : oxa::categories(table)) {
    print(*each, table.GetColumnCount(), 0);
  }
}
// [snippet end]

// [snippet: clear]
// Empties the table, of which nobody else holds a category. Subcategories outlive it with a
// reference that belongs to nobody.
void clear(IOXADiagnosticsManager& table) {
  std::vector<IOXADiagnosticCategory*> left;
  for (IOXADiagnosticCategory* each : oxa::categories(table)) {
    for (IOXADiagnosticCategory* sub : oxa::categories(*each)) {
      left.push_back(sub);
    }
  }
  for (std::size_t index = 0; index < left.size(); ++index) {  // and what is in them, as it grows
    for (IOXADiagnosticCategory* sub : oxa::categories(*left[index])) {
      left.push_back(sub);
    }
  }
  table.Clear();
  for (IOXADiagnosticCategory* each : left) {
    each->ReleaseReference();
  }
}
// [snippet end]

}  // namespace

int main(int count, char** arguments) {
  oxa::Ref<IOXAContext> context;
  if (oxa::failed(OXACreateContext(IID_IOXAContext, oxa::adopt_into(context)))) {
    return 2;
  }
  const auto table = oxa::service<IOXADiagnosticsManager>(context);
  set_columns(*table);
  Check check(*table);
  for (int index = 1; index < count; ++index) {
    check.look_at(arguments[index], index);
  }
  print(*table);
  clear(*table);
  return 0;
}
