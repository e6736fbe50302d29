// What the tests of diagnostics share.
#pragma once

#include <gtest/gtest.h>
#include <oxa/IOXADiagnosticsManager.h>
#include <oxa/sdk/diagnostics.h>
#include <oxa/sdk/implements.h>
#include <oxa/sdk/variant.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "diagnostics/OXADiagnosticCategory.h"
#include "diagnostics/OXADiagnosticsManager.h"

namespace oxa_test {

using Lines = std::vector<std::string>;
using Rows = std::vector<IOXADiagnostic*>;

// Columns that a table of two has not.
inline const int no_columns[] = {-1, 2, 3, std::numeric_limits<int>::min(),
                                 std::numeric_limits<int>::max()};

// A row that a client implements.
class ForeignRow final : public oxa::Implements<IOXADiagnostic> {
 public:
  const char* GetVerboseString() override { return nullptr; }
  const char* GetTerseString() override { return nullptr; }
  int GetDiagnostic() override { return 0; }
  OXAVariant GetValue(int) override { return {}; }
  OXA::Diagnostics::Type GetDiagnosticKeyType() override { return {}; }
  void* GetDiagnosticKey() override { return nullptr; }
  OXA::Diagnostics::Severity GetSeverity() override { return {}; }
  OXAResult SetDiagnostic(int) override { return E_FAIL; }
  OXAResult SetDiagnostic(const char*, const char*) override { return E_FAIL; }
  OXAResult SetValue(int, OXAVariant&) override { return E_FAIL; }
  OXAResult SetDiagnosticKeyType(OXA::Diagnostics::Type) override { return E_FAIL; }
  OXAResult SetDiagnosticKey(void*) override { return E_FAIL; }
  OXAResult SetSeverity(OXA::Diagnostics::Severity) override { return E_FAIL; }
  void Resize(int count) override {
    sizes.push_back(count);
    on_resize();
  }
  std::int64_t ReleaseReference() override {
    on_release();
    return Implements::ReleaseReference();
  }
  ~ForeignRow() override { on_end(); }

  std::vector<int> sizes;  // that it was told to have
  std::function<void()> on_resize = [] {};
  std::function<void()> on_release = [] {};
  std::function<void()> on_end = [] {};
};

// Adds a category to a manager or to another category.
template <class Holder>
IOXADiagnosticCategory* create(Holder& holder, const char* name) {
  IOXADiagnosticCategory* category = nullptr;
  EXPECT_EQ(holder.CreateCategory(name, &category), S_OK);
  return category;
}

// Adds a row of the library's own; borrowed.
inline IOXADiagnostic* add_row(IOXADiagnosticCategory& category) {
  IOXADiagnostic* row = nullptr;
  EXPECT_EQ(category.CreateDiagnostic(&row), S_OK);
  EXPECT_EQ(category.AddDiagnostic(row), S_OK);
  return row;
}

// Adds a row of the test's own, which belongs to the category.
inline ForeignRow* add_foreign_row(IOXADiagnosticCategory& category) {
  ForeignRow* row = oxa::make<ForeignRow>().detach();
  EXPECT_EQ(category.AddDiagnostic(row), S_OK);
  return row;
}

inline Rows rows(IOXADiagnosticCategory& category) {
  Rows found;
  for (IOXADiagnostic* row : oxa::diagnostics(category)) {
    found.push_back(row);
  }
  return found;
}

// Returns the row at the next position of a category, null at its end.
inline IOXADiagnostic* next(IOXADiagnosticCategory& category) {
  IOXADiagnostic* row = nullptr;
  category.GetNext(&row);
  return row;
}

template <class Holder>
Lines names(Holder& holder) {
  Lines found;
  for (IOXADiagnosticCategory* category : oxa::categories(holder)) {
    found.emplace_back(category->GetName());
  }
  return found;
}

inline int cells(IOXADiagnostic& row) {
  int count = 0;
  while (row.GetValue(count).text != "unset") {
    ++count;
  }
  return count;
}

class DiagnosticsManagerTest : public testing::Test {
 protected:
  oxa::Ref<IOXADiagnosticsManager> manager_ = oxa::make<OXADiagnosticsManager>();
};

// A category that is in no list.
class CategoryFixture : public testing::Test {
 protected:
  // Adds a subcategory, whose only reference belongs to nobody.
  IOXADiagnosticCategory* create_below(IOXADiagnosticCategory& category, const char* name) {
    orphans_.push_back(oxa::Ref<IOXADiagnosticCategory>::adopt(create(category, name)));
    return orphans_.back().get();
  }

 private:
  std::vector<oxa::Ref<IOXADiagnosticCategory>> orphans_;  // which outlive what is around them

 protected:
  OXAResult result_ = E_FAIL;
  oxa::Ref<IOXADiagnosticsManager> manager_ = oxa::make<OXADiagnosticsManager>();
  oxa::Ref<IOXADiagnosticCategory> category_ =
      oxa::make<OXADiagnosticCategory>(manager_.get(), result_);
};

}  // namespace oxa_test
