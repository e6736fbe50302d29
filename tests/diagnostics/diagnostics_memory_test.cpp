// The table when memory runs out, and where it needs none.
#include "diagnostics/OXADiagnostic.h"
#include "support/allocations.h"
#include "table.h"

using namespace oxa_test;
using Operation = IOXADiagnosticsManager::Operation;

namespace {

// Each container grows meanwhile, so that all that this takes fails as well.
const int growth = 40;

const std::string long_text = " with a name that is longer than short ones";

class DiagnosticsMemoryTest : public CategoryFixture {
 protected:
  std::string header(int column) const {
    char* text = nullptr;
    EXPECT_EQ(manager_->GetColumnHeader(column, &text), S_OK);
    return text;
  }

  bool has_type(int id) const {
    char* text = nullptr;
    return manager_->GetDiagnosticToolTip(id, &text) == S_OK;
  }
};

OXAResult expected_result() { return FailingAllocation::happened() ? E_OUTOFMEMORY : S_OK; }

TEST_F(DiagnosticsMemoryTest, SetColumnCount) {
  manager_->SetColumnHeader(1, "b", Operation{1});
  const unsigned long failures = fail_each_allocation([&] {
    const OXAResult result = manager_->SetColumnCount(40);
    EXPECT_EQ(result, expected_result());
    EXPECT_EQ(manager_->GetColumnCount(), FailingAllocation::happened() ? 2 : 40);
    EXPECT_EQ(header(1), "b");
  });
  EXPECT_GE(failures, 2);
  EXPECT_EQ(header(2), "Severity");
  EXPECT_EQ(header(3), "Diagnostics");
  EXPECT_EQ(header(4), "");
}

TEST_F(DiagnosticsMemoryTest, SetColumnCountWithoutRoomForARow) {
  manager_->SetColumnCount(5);  // there is room for the columns from now on
  for (unsigned long failing = 0; failing < 3; ++failing) {
    manager_->Clear();
    manager_->SetColumnCount(2);
    IOXADiagnosticCategory* const category = create(*manager_, "a");
    const Rows added{add_row(*category), add_row(*category), add_row(*category)};
    oxa::set_value(*added[failing], 1, oxa::make_variant(3));
    const FailingAllocation failure(failing);
    EXPECT_EQ(manager_->SetColumnCount(5), S_OK);
    EXPECT_TRUE(FailingAllocation::happened());
    EXPECT_EQ(oxa::value_of<int>(added[failing]->GetValue(1)), 3);
    for (unsigned long row = 0; row < 3; ++row) {
      EXPECT_EQ(cells(*added[row]), row == failing ? 2 : 5);
    }
  }
}

TEST_F(DiagnosticsMemoryTest, SetColumnHeader) {
  manager_->SetColumnHeader(1, "before", Operation{1});
  const unsigned long failures = fail_each_allocation([&] {
    const OXAResult result = manager_->SetColumnHeader(1, long_text.c_str(), Operation{2});
    const bool failed = FailingAllocation::happened();
    Operation operation{};
    manager_->GetColumnOperation(1, operation);
    char* text = nullptr;
    manager_->GetColumnHeader(1, &text);
    EXPECT_EQ(result, expected_result());
    EXPECT_EQ(operation, Operation{failed ? 1 : 2});
    EXPECT_STREQ(text, failed ? "before" : long_text.c_str());
  });
  EXPECT_GE(failures, 1);
}

// Adds categories to a manager or to a category while each allocation fails in turn.
template <class Holder>
void add_categories(Holder& holder) {
  for (int number = 0; number < growth; ++number) {
    const std::string name = std::to_string(number) + long_text;
    int marker = 0;
    const unsigned long failures = fail_each_allocation([&] {
      auto* category = reinterpret_cast<IOXADiagnosticCategory*>(&marker);
      const OXAResult result = holder.CreateCategory(name.c_str(), &category);
      EXPECT_EQ(result, expected_result());
      EXPECT_EQ(category == nullptr, FailingAllocation::happened());
    });
    EXPECT_GE(failures, 4);
  }
  Lines expected;
  for (int number = 0; number < growth; ++number) {
    expected.push_back(std::to_string(number) + long_text);
  }
  EXPECT_EQ(names(holder), expected);
}

TEST_F(DiagnosticsMemoryTest, CreateCategory) { add_categories(*manager_); }

TEST_F(DiagnosticsMemoryTest, CreateSubcategory) {
  add_categories(*category_);
  std::vector<oxa::Ref<IOXADiagnosticCategory>> orphans;
  for (IOXADiagnosticCategory* below : oxa::categories(*category_)) {
    orphans.push_back(oxa::Ref<IOXADiagnosticCategory>::adopt(below));
  }
  category_.reset();
}

TEST_F(DiagnosticsMemoryTest, GetDiagnosticCategoryEnum) {
  int marker = 0;
  for (const bool below : {false, true}) {
    const unsigned long failures = fail_each_allocation([&] {
      auto* out = reinterpret_cast<IOXADiagnosticCategoryEnum*>(&marker);
      const OXAResult result = below ? category_->GetDiagnosticCategoryEnum(&out)
                                     : manager_->GetDiagnosticCategoryEnum(&out);
      const auto categories = oxa::Ref<IOXADiagnosticCategoryEnum>::adopt(out);
      EXPECT_EQ(result, expected_result());
      EXPECT_EQ(categories == nullptr, FailingAllocation::happened());
    });
    EXPECT_GE(failures, 1);
  }
}

TEST_F(DiagnosticsMemoryTest, RegisterDiagnosticType) {
  for (int number = 0; number < growth; ++number) {
    const unsigned long failures = fail_each_allocation([&] {
      int id = -7;
      const OXAResult result = manager_->RegisterDiagnosticType("a", "b", &id);
      const bool failed = FailingAllocation::happened();
      EXPECT_EQ(result, expected_result());
      EXPECT_EQ(id, failed ? -7 : number);
      EXPECT_EQ(has_type(number), !failed);
    });
    EXPECT_GE(failures, 1);
  }
}

TEST_F(DiagnosticsMemoryTest, CreateDiagnostic) {
  int marker = 0;
  const unsigned long failures = fail_each_allocation([&] {
    auto* out = reinterpret_cast<IOXADiagnostic*>(&marker);
    const OXAResult result = category_->CreateDiagnostic(&out);
    const auto row = oxa::Ref<IOXADiagnostic>::adopt(out);
    EXPECT_EQ(result, expected_result());
    EXPECT_EQ(row == nullptr, FailingAllocation::happened());
  });
  EXPECT_GE(failures, 2);
}

TEST_F(DiagnosticsMemoryTest, AddDiagnostic) {
  unsigned long failures = 0;
  for (int number = 0; number < growth; ++number) {
    oxa::Ref<IOXADiagnostic> row;
    category_->CreateDiagnostic(oxa::adopt_into(row));
    failures += fail_each_allocation([&] {
      const OXAResult result = category_->AddDiagnostic(row.get());
      EXPECT_EQ(result, expected_result());
      EXPECT_EQ(row->CheckReference(), 1);
    });
    static_cast<void>(row.detach());
  }
  EXPECT_GE(failures, 2);
  EXPECT_EQ(rows(*category_).size(), growth);
}

TEST_F(DiagnosticsMemoryTest, SetName) {
  category_->SetName("before");
  const unsigned long failures = fail_each_allocation([&] {
    const OXAResult result = category_->SetName(long_text.c_str());
    EXPECT_EQ(result, expected_result());
    EXPECT_STREQ(category_->GetName(),
                 FailingAllocation::happened() ? "before" : long_text.c_str());
  });
  EXPECT_GE(failures, 1);
}

TEST_F(DiagnosticsMemoryTest, SetValue) {
  IOXADiagnostic* const row = add_row(*category_);
  oxa::set_value(*row, 0, oxa::make_variant(3));
  OXAVariant value = oxa::make_variant(long_text);
  const unsigned long failures = fail_each_allocation([&] {
    const OXAResult result = row->SetValue(0, value);
    EXPECT_EQ(result, expected_result());
    if (FailingAllocation::happened()) {
      EXPECT_EQ(oxa::value_of<int>(row->GetValue(0)), 3);
      EXPECT_EQ(row->GetValue(0).text, "");
    }
  });
  EXPECT_GE(failures, 1);
  EXPECT_EQ(oxa::value_of<std::string>(row->GetValue(0)), long_text);
}

TEST_F(DiagnosticsMemoryTest, GetValue) {
  IOXADiagnostic* const row = add_row(*category_);
  OXAVariant value = oxa::make_variant(long_text);
  value.bits = 3;
  row->SetValue(0, value);
  const unsigned long failures = fail_each_allocation([&] {
    const OXAVariant found = row->GetValue(0);
    const bool failed = FailingAllocation::happened();
    EXPECT_TRUE(failed ? found.text == "unset" : found.text == long_text);
    EXPECT_EQ(found.kind, failed ? OXAVariant::Kind::Nothing : OXAVariant::Kind::Text);
    EXPECT_EQ(found.bits, failed ? 0 : 3);
  });
  EXPECT_EQ(failures, 1);
}

TEST_F(DiagnosticsMemoryTest, SetDiagnosticWithTexts) {
  IOXADiagnostic* const row = add_row(*category_);
  const unsigned long failures = fail_each_allocation([&] {
    EXPECT_EQ(row->SetDiagnostic("terse", "verbose"), S_OK);
    EXPECT_EQ(row->GetDiagnostic(), FailingAllocation::happened() ? -1 : 0);
    EXPECT_EQ(has_type(0), !FailingAllocation::happened());
  });
  EXPECT_GE(failures, 2);
}

TEST_F(DiagnosticsMemoryTest, Resize) {
  IOXADiagnostic* const row = add_row(*category_);
  oxa::set_value(*row, 1, oxa::make_variant(3));
  const unsigned long failures = fail_each_allocation([&] {
    row->Resize(10);
    EXPECT_EQ(cells(*row), FailingAllocation::happened() ? 2 : 10);
    EXPECT_EQ(oxa::value_of<int>(row->GetValue(1)), 3);
  });
  EXPECT_GE(failures, 1);
}

TEST_F(DiagnosticsMemoryTest, ReadingNeedsNone) {
  IOXADiagnosticCategory* const category = create(*manager_, long_text.c_str());
  IOXADiagnostic* row = add_row(*category);
  row->SetDiagnostic(long_text.c_str(), long_text.c_str());
  oxa::set_value(*row, 0, oxa::make_variant(3));
  const unsigned long before = made_allocations();
  IOXADiagnosticCategory* found = nullptr;
  char* text = nullptr;
  void* key = nullptr;
  EXPECT_EQ(manager_->CreateCategory(long_text.c_str(), &found), E_ALREADYEXISTS);
  EXPECT_EQ(manager_->GetColumnHeader(0, &text), S_OK);
  EXPECT_EQ(found->GetFirst(&row), S_OK);
  EXPECT_EQ(found->GetNext(&row), S_FALSE);
  EXPECT_EQ(found->GetNext(&row), S_OK);
  EXPECT_EQ(found->GetName(), long_text);
  EXPECT_EQ(found->GetCategoryKey(&key), S_OK);
  EXPECT_EQ(row->GetTerseString(), long_text);
  EXPECT_EQ(row->GetVerboseString(), long_text);
  EXPECT_EQ(row->GetValue(0).int_value, 3);
  EXPECT_EQ(row->GetValue(2).text, "unset");
  EXPECT_EQ(made_allocations(), before);
}

TEST_F(DiagnosticsMemoryTest, FewerColumnsAndTheEndNeedNone) {
  add_row(*create(*manager_, "a"));
  const unsigned long before = made_allocations();
  EXPECT_EQ(manager_->SetColumnCount(1), S_OK);
  EXPECT_EQ(manager_->SetColumnCount(2), S_OK);
  manager_->Clear();
  EXPECT_EQ(made_allocations(), before);
}

}  // namespace
