// The table of diagnostics, over plain containers.
#pragma once

#include <oxa/IOXADiagnostic.h>
#include <oxa/IOXADiagnosticCategory.h>
#include <oxa/IOXADiagnosticsManager.h>

#include <deque>
#include <list>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace oxa_test::model {

struct Diagnostics;

struct Diagnostic {
  void Resize(int count);
  bool has(int column) const { return column >= 0 && column < static_cast<int>(cells.size()); }
  OXAVariant GetValue(int column) const;
  OXAResult SetValue(int column, const OXAVariant& value);
  OXAResult SetDiagnostic(Diagnostics& manager, const char* terse, const char* verbose);

  std::vector<OXAVariant> cells;
  int type = -1;
  OXA::Diagnostics::Severity severity{};
  OXA::Diagnostics::Type key_type{};
  void* key = nullptr;

  // Who has it: categories, and those who run the program. None are left when it is gone.
  int references = 1;
  int held = 1;
  IOXADiagnostic* twin = nullptr;
};

struct Category;

// Categories in the order of their creation, and by the names that they were created with.
struct Categories {
  std::pair<OXAResult, Category*> CreateCategory(Diagnostics& manager, const char* name);

  std::list<Category*> list;
  std::map<std::string, Category*> by_name;
};

struct Category {
  OXAResult SetName(const char* new_name);
  void AddDiagnostic(Diagnostic* diagnostic);
  // Give null at the end, which the cursor passes to begin again.
  Diagnostic* GetFirst();
  Diagnostic* GetNext();
  bool can_go_on() const { return cursor.has_value(); }

  std::string name = "Category name not set!";
  std::list<Diagnostic*> diagnostics;
  std::optional<std::list<Diagnostic*>::iterator> cursor;
  Categories subcategories;
  OXA::Diagnostics::Type key_type{};
  void* key = nullptr;

  int references = 1;
  int held = 0;
  IOXADiagnosticCategory* twin = nullptr;
};

struct Diagnostics {
  using Operation = IOXADiagnosticsManager::Operation;
  using Tips = std::pair<std::string, std::string>;

  OXAResult SetColumnCount(int count);
  OXAResult SetColumnHeader(int column, const char* header, Operation operation);
  bool has(int column) const { return column >= 0 && column < column_count; }
  int RegisterDiagnosticType(const char* tool_tip, const char* status_tip);
  const Tips* tips(int id) const;
  Diagnostic* CreateDiagnostic();
  void Clear();

  // Drop a reference. Of a category that ends, the subcategories are left to whoever runs the
  // program.
  static void release(Diagnostic& diagnostic);
  static void release(Category& category);

  int column_count = 2;
  std::vector<std::string> headers = {"", "", "Severity", "Diagnostics"};
  std::vector<Operation> operations = {Operation{0}, Operation{0}};
  std::map<int, Tips> types;
  int next_type = 0;
  Categories categories;

  // Those that are gone as well.
  std::deque<Category> all_categories;
  std::deque<Diagnostic> all_diagnostics;
};

}  // namespace oxa_test::model
