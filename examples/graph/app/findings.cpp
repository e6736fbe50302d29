#include "findings.h"

#include <graph_findings.h>
#include <graph_values.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <utility>

#include "cells.h"
#include "checks.h"
#include "interrupt.h"
#include "problem.h"
#include "setting_value.h"
#include "text.h"

namespace {

namespace operation = graph::finding_operation;
using Operation = IOXADiagnosticsManager::Operation;
using Rows = std::vector<std::vector<std::string>>;

// A category with the names of those around it.
struct Category {
  IOXADiagnosticCategory* diagnostics;
  std::string name;
};

// Puts the categories of a holder on top of a stack, the first one uppermost.
template <class Holder>
void push_categories(Holder& holder, const std::string& prefix, std::vector<Category>& stack) {
  const auto bottom = static_cast<std::ptrdiff_t>(stack.size());
  for (IOXADiagnosticCategory* category : oxa::categories(holder)) {
    stack.push_back({category, prefix + text_of(category->GetName())});
  }
  std::reverse(stack.begin() + bottom, stack.end());
}

// All categories, each before those in it.
std::vector<Category> all_categories(IOXADiagnosticsManager& manager) {
  std::vector<Category> found;
  std::vector<Category> stack;
  push_categories(manager, "", stack);
  while (!stack.empty()) {
    found.push_back(std::move(stack.back()));
    stack.pop_back();
    push_categories(*found.back().diagnostics, found.back().name + ": ", stack);
  }
  return found;
}

// The columns, and the settings that say what is to be shown.
class View {
 public:
  View(IOXADiagnosticsManager& manager, const Settings& settings)
      : severities_(settings.property(setting::least_severity)),
        least_(settings.number(setting::least_severity)) {
    for (int column = 0; column < manager.GetColumnCount(); ++column) {
      Operation found{};
      char* header = nullptr;
      manager.GetColumnOperation(column, found);
      manager.GetColumnHeader(column, &header);
      operations_.push_back(found);
      headers_.push_back(in_capital_letters(text_of(header)));
    }
  }

  bool shows(IOXADiagnostic& row) const { return static_cast<int>(row.GetSeverity()) >= least_; }
  const std::vector<std::string>& headers() const { return headers_; }

  std::vector<std::string> cells(IOXADiagnostic& row) const {
    std::vector<std::string> texts;
    texts.reserve(operations_.size());
    for (int column = 0; column < static_cast<int>(operations_.size()); ++column) {
      texts.push_back(cell(row, column));
    }
    return texts;
  }

  // How often a row counts.
  unsigned long long count(IOXADiagnostic& row) const {
    for (int column = 0; column < static_cast<int>(operations_.size()); ++column) {
      if (operations_[static_cast<std::size_t>(column)] == operation::count) {
        return cell_count(row.GetValue(column));
      }
    }
    return 1;
  }

 private:
  std::string cell(IOXADiagnostic& row, int column) const {
    const Operation what = operations_[static_cast<std::size_t>(column)];
    if (what == operation::severity) {
      return severity_name(row.GetSeverity());
    }
    return what == operation::finding ? text_of(row.GetTerseString())
                                      : one_line(graph::value_text(row.GetValue(column)));
  }

  std::string severity_name(OXA::Diagnostics::Severity severity) const {
    return typed_value(severities_, std::to_string(static_cast<int>(severity)));
  }

  IOXAProperty& severities_;
  int least_;
  std::vector<Operation> operations_;
  std::vector<std::string> headers_;
};

// Calls `visit` with every row to be shown.
template <class Visit>
void for_each_shown(IOXADiagnosticCategory& category, const View& view, Visit visit) {
  for (IOXADiagnostic* row : oxa::diagnostics(category)) {
    if (view.shows(*row)) {
      visit(*row);
    }
  }
}

// Adds the rows of a category, of which the first names it.
void add_category(const Category& category, const View& view, std::size_t most_rows, Rows& rows) {
  std::string name = category.name;
  std::size_t count = 0;
  for_each_shown(*category.diagnostics, view, [&](IOXADiagnostic& row) {
    if (++count <= most_rows) {
      rows.push_back(view.cells(row));
      rows.back().insert(rows.back().begin(), std::exchange(name, ""));
    }
  });
  if (count > most_rows) {
    rows.push_back({"and " + std::to_string(count - most_rows) + " more"});
  }
}

// Removes the columns that no row uses, and marks the empty cells of the others.
void tidy(Rows& rows) {
  std::vector<bool> used(rows.front().size());
  for (std::size_t row = 1; row < rows.size(); ++row) {
    for (std::size_t column = 0; column < rows[row].size(); ++column) {
      used[column] = used[column] || !rows[row][column].empty();
    }
  }
  for (std::vector<std::string>& row : rows) {
    std::vector<std::string> kept;
    for (std::size_t column = 0; column < row.size(); ++column) {
      if (used[column]) {
        kept.push_back(row[column].empty() && column > 0 ? "-" : row[column]);
      }
    }
    row = std::move(kept);
  }
}

// What the findings mean, in the order in which they come.
Rows meanings(const std::vector<Category>& categories, const View& view) {
  Rows rows;
  std::map<std::string, bool> told;
  for (const Category& category : categories) {
    for_each_shown(*category.diagnostics, view, [&](IOXADiagnostic& row) {
      const char* meaning = row.GetVerboseString();
      if (meaning != nullptr && !is_blank(meaning) &&
          !std::exchange(told[text_of(row.GetTerseString())], true)) {
        rows.push_back({text_of(row.GetTerseString()), one_line(meaning)});
      }
    });
  }
  return rows;
}

}  // namespace

oxa::Ref<IOXADiagnosticsManager> prepare_findings(IOXAContext* context) {
  namespace column = graph::finding_column;
  auto manager = oxa::service<IOXADiagnosticsManager>(context);
  if (!manager) {
    throw Problem("the library gives no diagnostics; reinstall it");
  }
  const struct {
    int column;
    const char* header;
    Operation operation;
  } columns[] = {{column::severity, "Severity", operation::severity},
                 {column::finding, "Finding", operation::finding},
                 {column::where, "Where", operation::cell},
                 {column::count, "Count", operation::count},
                 {column::value, "Value", operation::cell}};
  bool complete = oxa::succeeded(manager->SetColumnCount(column::total));
  for (const auto& each : columns) {
    complete = complete &&
               oxa::succeeded(manager->SetColumnHeader(each.column, each.header, each.operation));
  }
  if (!complete) {
    throw std::bad_alloc();
  }
  return manager;
}

void run_checks(IGraph& graph, const Settings& settings, IOXADiagnosticsManager& manager) {
  for (const Check& check : all_checks()) {
    stop_if_interrupted();
    if (settings.is_on(check.setting)) {
      graph::FindingReport report(manager, check.kind);
      check.look(graph, report);
    }
  }
}

std::string count_findings(IOXADiagnosticsManager& manager, const Settings& settings) {
  const View view(manager, settings);
  std::vector<std::pair<std::string, unsigned long long>> counts;
  std::map<std::string, std::size_t> places;
  for (const Category& category : all_categories(manager)) {
    for_each_shown(*category.diagnostics, view, [&](IOXADiagnostic& row) {
      const std::string terse = text_of(row.GetTerseString());
      const std::size_t place = places.try_emplace(terse, counts.size()).first->second;
      if (place == counts.size()) {
        counts.emplace_back(terse.empty() ? "other finding" : terse, 0);
      }
      counts[place].second += view.count(row);
    });
  }
  std::vector<std::string> pieces;
  pieces.reserve(counts.size());
  for (const auto& [terse, count] : counts) {
    pieces.push_back(counted(count, terse.c_str()));
  }
  return join(pieces, ", ");
}

void print_findings(IOXADiagnosticsManager& manager, const Settings& settings) {
  const View view(manager, settings);
  const std::vector<Category> categories = all_categories(manager);
  Rows rows = {view.headers()};
  rows.front().insert(rows.front().begin(), "CATEGORY");
  const auto most_rows = static_cast<std::size_t>(settings.number(setting::most_rows));
  for (const Category& category : categories) {
    add_category(category, view, most_rows, rows);
  }
  if (rows.size() == 1) {
    return;
  }
  tidy(rows);
  print_table(rows);
  std::printf("\n");
  const Rows explained = meanings(categories, view);
  if (!explained.empty()) {
    print_table(explained);
    std::printf("\n");
  }
}
