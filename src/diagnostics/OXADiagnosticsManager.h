// The table of diagnostics.
#pragma once

#include <oxa/IOXADiagnosticsManager.h>
#include <oxa/sdk/implements.h>

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "diagnostics/category_list.h"

class OXADiagnosticsManager final : public oxa::Implements<IOXADiagnosticsManager> {
 public:
  OXADiagnosticsManager();

  OXAResult SetColumnCount(int count) override;
  OXAResult SetColumnHeader(int column, const char* header, Operation operation) override;
  int GetColumnCount() override { return column_count_; }
  OXAResult GetColumnHeader(int column, char** header) override;
  OXAResult GetColumnOperation(int column, Operation& operation) override;
  OXAResult CreateCategory(const char* name, IOXADiagnosticCategory** category) override;
  OXAResult GetDiagnosticCategoryEnum(IOXADiagnosticCategoryEnum** categories) override;
  OXAResult RegisterDiagnosticType(const char* toolTip, const char* statusTip, int* id) override;
  OXAResult UnregisterDiagnosticType(int id) override;
  OXAResult GetDiagnosticToolTip(int id, char** text) override;
  OXAResult GetDiagnosticStatusTip(int id, char** text) override;
  void Clear() override;

  ~OXADiagnosticsManager() override;

 private:
  // The tool tip and the status tip one after the other, both terminated; null once it is removed.
  using diagnostic_type = std::unique_ptr<char[]>;

  bool has_column(int column) const { return column >= 0 && column < column_count_; }
  void resize_categories();
  char* tool_tip(int id) const;
  OXAResult give_tip(int id, char** text, char* (*tip)(char* tool_tip));

  category_list categories_;
  std::vector<diagnostic_type> types_;  // by id
  std::deque<std::string> headers_;     // which stay where they are as columns come and go
  std::vector<Operation> operations_;
  int column_count_ = 2;
};
