// Diagnostics without their traps.
#include <oxa/sdk/diagnostics.h>

#include <gtest/gtest.h>
#include <oxa/oxa.h>
#include <oxa/sdk/variant.h>

#include <new>
#include <string>
#include <utility>
#include <vector>

#include "support/allocations.h"

using oxa_test::fail_each_allocation;
using oxa_test::FailingAllocation;

namespace {

using Names = std::vector<std::string>;
using Rows = std::vector<IOXADiagnostic*>;

const char* const long_name = "a name that is longer than short ones";

class DiagnosticsTest : public testing::Test {
 protected:
  DiagnosticsTest() { OXACreateDiagnosticsManager(oxa::adopt_into(manager_)); }

  static IOXADiagnostic* add_row(IOXADiagnosticCategory& category) {
    auto row = oxa::create_diagnostic(category);
    IOXADiagnostic* const borrowed = row.get();
    EXPECT_EQ(oxa::add_diagnostic(category, std::move(row)), S_OK);
    return borrowed;
  }

  // Adds a subcategory, whose only reference belongs to nobody.
  IOXADiagnosticCategory& add_below(IOXADiagnosticCategory& category, const char* name) {
    IOXADiagnosticCategory& made = oxa::category(category, name);
    orphans_.push_back(oxa::Ref<IOXADiagnosticCategory>::adopt(&made));
    return made;
  }

 private:
  std::vector<oxa::Ref<IOXADiagnosticCategory>> orphans_;  // which outlive what is around them

 protected:
  oxa::Ref<IOXADiagnosticsManager> manager_;
};

template <class Holder>
Names names(Holder& holder) {
  Names found;
  for (IOXADiagnosticCategory* category : oxa::categories(holder)) {
    EXPECT_EQ(category->CheckReference(), 1);
    found.emplace_back(category->GetName());
  }
  return found;
}

Rows rows(IOXADiagnosticCategory& category) {
  Rows found;
  for (IOXADiagnostic* row : oxa::diagnostics(category)) {
    found.push_back(row);
  }
  return found;
}

// Runs an operation with each of its allocations failing in turn, for which it is to throw.
template <class Operation>
void expect_throws(Operation operation) {
  const unsigned long failures = fail_each_allocation([&] {
    try {
      operation();
      EXPECT_FALSE(FailingAllocation::happened());
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(FailingAllocation::happened());
    }
  });
  EXPECT_GE(failures, 1U);
}

TEST_F(DiagnosticsTest, CategoryMakesOneOrFindsIt) {
  IOXADiagnosticCategory& edges = oxa::category(*manager_, "Edges");
  EXPECT_STREQ(edges.GetName(), "Edges");
  EXPECT_EQ(&oxa::category(*manager_, "Edges"), &edges);
  EXPECT_NE(&oxa::category(*manager_, "Nodes"), &edges);
  EXPECT_EQ(edges.CheckReference(), 1);
}

TEST_F(DiagnosticsTest, CategoryMakesSubcategories) {
  IOXADiagnosticCategory& edges = oxa::category(*manager_, "Edges");
  IOXADiagnosticCategory& loops = add_below(edges, "Loops");
  EXPECT_EQ(&oxa::category(edges, "Loops"), &loops);
  EXPECT_EQ(names(edges), Names{"Loops"});
  EXPECT_EQ(names(*manager_), Names{"Edges"});
}

TEST_F(DiagnosticsTest, CategoryThrowsWhatItCannotMake) {
  EXPECT_THROW(oxa::category(*manager_, nullptr), std::bad_alloc);
  expect_throws([&] { oxa::category(*manager_, long_name); });
  EXPECT_EQ(names(*manager_), Names{long_name});
}

TEST_F(DiagnosticsTest, CreateDiagnosticGivesARowThatIsNotThereYet) {
  IOXADiagnosticCategory& edges = oxa::category(*manager_, "Edges");
  const auto row = oxa::create_diagnostic(edges);
  EXPECT_EQ(row->CheckReference(), 1);
  EXPECT_EQ(rows(edges), Rows{});
  expect_throws([&] { oxa::create_diagnostic(edges); });
}

TEST_F(DiagnosticsTest, AddDiagnosticGivesTheReferenceAway) {
  IOXADiagnosticCategory& edges = oxa::category(*manager_, "Edges");
  auto row = oxa::create_diagnostic(edges);
  const auto kept = row;
  EXPECT_EQ(oxa::add_diagnostic(edges, std::move(row)), S_OK);
  EXPECT_EQ(kept->CheckReference(), 2);
  EXPECT_EQ(oxa::add_diagnostic(edges, kept), S_OK);
  EXPECT_EQ(kept->CheckReference(), 3);
  EXPECT_EQ(rows(edges), (Rows{kept.get(), kept.get()}));
  manager_.reset();
  EXPECT_EQ(kept->CheckReference(), 1);
}

TEST_F(DiagnosticsTest, AddDiagnosticDropsTheReferenceAfterAFailure) {
  IOXADiagnosticCategory& edges = oxa::category(*manager_, "Edges");
  EXPECT_EQ(oxa::add_diagnostic(edges, nullptr), E_INVALIDARG);
  const auto kept = oxa::create_diagnostic(edges);
  const unsigned long failures = fail_each_allocation([&] {
    const OXAResult result = oxa::add_diagnostic(edges, kept);
    const bool failed = FailingAllocation::happened();
    EXPECT_EQ(result, failed ? E_OUTOFMEMORY : S_OK);
    EXPECT_EQ(kept->CheckReference(), failed ? 1 : 2);
  });
  EXPECT_GE(failures, 1U);
}

TEST_F(DiagnosticsTest, SetValueTakesWhatIsNoVariable) {
  const auto row = oxa::create_diagnostic(oxa::category(*manager_, "Edges"));
  EXPECT_EQ(oxa::set_value(*row, 0, oxa::make_variant(3)), S_OK);
  EXPECT_EQ(oxa::set_value(*row, 1, oxa::make_variant("a")), S_OK);
  EXPECT_EQ(oxa::set_value(*row, 2, oxa::make_variant(4)), E_INVALIDARG);
  EXPECT_EQ(oxa::set_value(*row, -1, oxa::make_variant(4)), E_INVALIDARG);
  EXPECT_EQ(oxa::value_of<int>(row->GetValue(0)), 3);
  EXPECT_EQ(oxa::value_of<std::string>(row->GetValue(1)), "a");
}

TEST_F(DiagnosticsTest, RowsComeInOrder) {
  IOXADiagnosticCategory& edges = oxa::category(*manager_, "Edges");
  EXPECT_EQ(rows(edges), Rows{});
  const Rows added{add_row(edges), add_row(edges), add_row(edges)};
  EXPECT_EQ(rows(edges), added);
  EXPECT_EQ(rows(edges), added);
  EXPECT_EQ(added[0]->CheckReference(), 1);
  EXPECT_EQ(edges.CheckReference(), 1);
}

TEST_F(DiagnosticsTest, RowsKeepTheirCategoryAlive) {
  IOXADiagnosticCategory& edges = oxa::category(*manager_, "Edges");
  const Rows added{add_row(edges), add_row(edges)};
  Rows found;
  for (IOXADiagnostic* row : oxa::diagnostics(edges)) {
    manager_->Clear();
    found.push_back(row);
  }
  EXPECT_EQ(found, added);
}

TEST_F(DiagnosticsTest, CategoriesComeInOrder) {
  EXPECT_EQ(names(*manager_), Names{});
  for (const char* name : {"b", "a", "c"}) {
    IOXADiagnosticCategory& category = oxa::category(*manager_, name);
    EXPECT_EQ(names(category), Names{});
    add_below(category, "z");
    add_below(category, "y");
    EXPECT_EQ(names(category), (Names{"z", "y"}));
  }
  EXPECT_EQ(names(*manager_), (Names{"b", "a", "c"}));
}

TEST_F(DiagnosticsTest, CategoriesCanBeNested) {
  oxa::category(*manager_, "a");
  oxa::category(*manager_, "b");
  Names pairs;
  for (IOXADiagnosticCategory* outer : oxa::categories(*manager_)) {
    for (IOXADiagnosticCategory* inner : oxa::categories(*manager_)) {
      pairs.push_back(std::string(outer->GetName()) + inner->GetName());
    }
  }
  EXPECT_EQ(pairs, (Names{"aa", "ab", "ba", "bb"}));
}

TEST_F(DiagnosticsTest, CategoriesThrowForWantOfMemory) {
  IOXADiagnosticCategory& edges = oxa::category(*manager_, "Edges");
  expect_throws([&] { oxa::categories(*manager_); });
  expect_throws([&] { oxa::categories(edges); });
}

}  // namespace
