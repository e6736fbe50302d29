// The columns of the table, and the cells that its rows have for them.
#include <stdexcept>

#include "table.h"

using namespace oxa_test;
using Operation = IOXADiagnosticsManager::Operation;

namespace {

// Returns the headers in brackets.
std::string headers(IOXADiagnosticsManager& manager) {
  std::string all;
  for (int column = 0; column < manager.GetColumnCount(); ++column) {
    char* header = nullptr;
    EXPECT_EQ(manager.GetColumnHeader(column, &header), S_OK);
    all += '[' + std::string(header) + ']';
  }
  return all;
}

Operation operation(IOXADiagnosticsManager& manager, int column) {
  Operation found{-1};
  EXPECT_EQ(manager.GetColumnOperation(column, found), S_OK);
  return found;
}

TEST_F(DiagnosticsManagerTest, HasTwoColumnsWithoutHeadersAtFirst) {
  EXPECT_EQ(manager_->GetColumnCount(), 2);
  EXPECT_EQ(headers(*manager_), "[][]");
  EXPECT_EQ(operation(*manager_, 0), Operation{0});
  EXPECT_EQ(operation(*manager_, 1), Operation{0});
}

struct Counts {
  std::vector<int> given;
  const char* headers;
};

const Counts counts[] = {
    {{0}, ""},
    {{1}, "[]"},
    {{2}, "[][]"},
    {{3}, "[][][Severity]"},
    {{4}, "[][][Severity][Diagnostics]"},
    {{5}, "[][][Severity][Diagnostics][]"},
    {{3, 4}, "[][][Severity][]"},
    {{4, 4}, "[][][Severity][Diagnostics]"},
    {{4, 6}, "[][][Severity][Diagnostics][][]"},
    {{5, 3, 5}, "[][][Severity][][]"},
    {{4, 2, 4}, "[][][][]"},
    {{2, 4}, "[][][][]"},
    {{1, 4}, "[][][][]"},
    {{0, 4}, "[][][][]"},
    {{-1}, "[][]"},
    {{-1, 4}, "[][][Severity][Diagnostics]"},
    {{4, std::numeric_limits<int>::min()}, "[][][Severity][Diagnostics]"},
};

class ColumnCountTest : public DiagnosticsManagerTest,
                        public testing::WithParamInterface<Counts> {};

TEST_P(ColumnCountTest, DecidesOnTheHeaders) {
  for (const int count : GetParam().given) {
    EXPECT_EQ(manager_->SetColumnCount(count), count < 0 ? E_INVALIDARG : S_OK);
  }
  EXPECT_EQ(headers(*manager_), GetParam().headers);
}

INSTANTIATE_TEST_SUITE_P(Sequences, ColumnCountTest, testing::ValuesIn(counts));

TEST_F(DiagnosticsManagerTest, TheNamedHeadersComeWithColumnsTwoAndThree) {
  char* header = nullptr;
  EXPECT_EQ(manager_->GetColumnHeader(2, &header), E_INVALIDARG);
  EXPECT_EQ(manager_->SetColumnCount(4), S_OK);
  EXPECT_EQ(manager_->GetColumnHeader(2, &header), S_OK);
  EXPECT_STREQ(header, "Severity");
  EXPECT_EQ(manager_->GetColumnHeader(3, &header), S_OK);
  EXPECT_STREQ(header, "Diagnostics");
  EXPECT_EQ(operation(*manager_, 2), Operation{0});
  EXPECT_EQ(operation(*manager_, 3), Operation{0});
}

TEST_F(DiagnosticsManagerTest, SetsHeaderAndOperationOfOneColumn) {
  EXPECT_EQ(manager_->SetColumnHeader(1, "Node", Operation{7}), S_OK);
  EXPECT_EQ(headers(*manager_), "[][Node]");
  EXPECT_EQ(operation(*manager_, 0), Operation{0});
  EXPECT_EQ(operation(*manager_, 1), Operation{7});
  EXPECT_EQ(manager_->SetColumnHeader(1, "", Operation{-7}), S_OK);
  EXPECT_EQ(headers(*manager_), "[][]");
  EXPECT_EQ(operation(*manager_, 1), Operation{-7});
}

TEST_F(DiagnosticsManagerTest, ColumnsThatStayKeepWhatWasSet) {
  manager_->SetColumnCount(3);
  for (int column = 0; column < 3; ++column) {
    manager_->SetColumnHeader(column, std::to_string(column).c_str(), Operation{column + 1});
  }
  manager_->SetColumnCount(2);
  manager_->SetColumnCount(4);
  EXPECT_EQ(headers(*manager_), "[0][1][][]");
  const int kept[] = {1, 2, 0, 0};
  for (int column = 0; column < 4; ++column) {
    EXPECT_EQ(operation(*manager_, column), Operation{kept[column]}) << column;
  }
}

TEST_F(DiagnosticsManagerTest, AColumnThatIsNotThereCannotBeSet) {
  for (const int column : no_columns) {
    EXPECT_EQ(manager_->SetColumnHeader(column, "x", Operation{1}), E_INVALIDARG) << column;
  }
  manager_->SetColumnCount(4);
  EXPECT_EQ(headers(*manager_), "[][][Severity][Diagnostics]");
}

TEST_F(DiagnosticsManagerTest, ANullHeaderChangesNothing) {
  manager_->SetColumnHeader(0, "Node", Operation{3});
  EXPECT_EQ(manager_->SetColumnHeader(0, nullptr, Operation{4}), E_INVALIDARG);
  EXPECT_EQ(headers(*manager_), "[Node][]");
  EXPECT_EQ(operation(*manager_, 0), Operation{3});
}

TEST_F(DiagnosticsManagerTest, AColumnThatIsNotThereGivesNothing) {
  for (const int column : no_columns) {
    char text[] = "";
    char* header = text;
    EXPECT_EQ(manager_->GetColumnHeader(column, &header), E_INVALIDARG) << column;
    EXPECT_EQ(header, nullptr) << column;
    EXPECT_EQ(manager_->GetColumnHeader(column, nullptr), E_INVALIDARG) << column;
    Operation found{5};
    EXPECT_EQ(manager_->GetColumnOperation(column, found), E_INVALIDARG) << column;
    EXPECT_EQ(found, Operation{5}) << column;
  }
  EXPECT_EQ(manager_->GetColumnHeader(0, nullptr), E_INVALIDARG);
}

TEST_F(DiagnosticsManagerTest, WithoutColumnsThereIsNoneToSet) {
  EXPECT_EQ(manager_->SetColumnCount(0), S_OK);
  EXPECT_EQ(manager_->GetColumnCount(), 0);
  EXPECT_EQ(manager_->SetColumnHeader(0, "x", Operation{}), E_INVALIDARG);
}

TEST_F(DiagnosticsManagerTest, AHeaderStaysWhereItIsWhileOthersAreSet) {
  char* before = nullptr;
  manager_->SetColumnHeader(0, "a header that is longer than short ones", Operation{});
  manager_->GetColumnHeader(0, &before);
  manager_->SetColumnHeader(1, "another header of that kind", Operation{});
  char* after = nullptr;
  manager_->GetColumnHeader(0, &after);
  EXPECT_EQ(after, before);
  EXPECT_STREQ(after, "a header that is longer than short ones");
}

TEST_F(DiagnosticsManagerTest, AHeaderStaysWhereItIsWhileColumnsComeAndGo) {
  manager_->SetColumnHeader(0, "Node", Operation{});
  char* before = nullptr;
  manager_->GetColumnHeader(0, &before);
  for (const int count : {100, 1, 1000}) {
    manager_->SetColumnCount(count);
    char* after = nullptr;
    manager_->GetColumnHeader(0, &after);
    EXPECT_EQ(after, before);
    EXPECT_STREQ(after, "Node");
  }
}

TEST_F(DiagnosticsManagerTest, AHeaderCanBeSetToItself) {
  manager_->SetColumnHeader(0, "a header that is longer than short ones", Operation{});
  char* header = nullptr;
  manager_->GetColumnHeader(0, &header);
  EXPECT_EQ(manager_->SetColumnHeader(0, header + 2, Operation{}), S_OK);
  EXPECT_EQ(headers(*manager_), "[header that is longer than short ones][]");
}

TEST_F(DiagnosticsManagerTest, RowsHaveACellForEachColumn) {
  IOXADiagnosticCategory* const category = create(*manager_, "a");
  for (const int count : {0, 2, 5}) {
    manager_->SetColumnCount(count);
    EXPECT_EQ(cells(*add_row(*category)), count);
  }
}

TEST_F(DiagnosticsManagerTest, ChangesTheCellsOfEveryRow) {
  for (const char* name : {"a", "b", "c"}) {
    IOXADiagnosticCategory* const category = create(*manager_, name);
    add_row(*category);
    add_row(*category);
  }
  for (const int count : {5, 1, 0, 3}) {
    EXPECT_EQ(manager_->SetColumnCount(count), S_OK);
    for (IOXADiagnosticCategory* category : oxa::categories(*manager_)) {
      EXPECT_EQ(cells(*rows(*category)[0]), count);
      EXPECT_EQ(cells(*rows(*category)[1]), count);
    }
  }
}

TEST_F(DiagnosticsManagerTest, ColumnsThatStayKeepTheirCells) {
  IOXADiagnostic* const row = add_row(*create(*manager_, "a"));
  for (int column = 0; column < 2; ++column) {
    oxa::set_value(*row, column, oxa::make_variant(column));
  }
  manager_->SetColumnCount(1);
  manager_->SetColumnCount(3);
  EXPECT_EQ(oxa::value_of<int>(row->GetValue(0)), 0);
  EXPECT_EQ(row->GetValue(1).kind, OXAVariant::Kind::Nothing);
  EXPECT_EQ(row->GetValue(1).bits, 0);
  EXPECT_EQ(row->GetValue(2).kind, OXAVariant::Kind::Nothing);
}

TEST_F(DiagnosticsManagerTest, RowsOfSubcategoriesKeepTheirCells) {
  IOXADiagnosticCategory* const category = create(*manager_, "a");
  const auto below = oxa::Ref<IOXADiagnosticCategory>::adopt(create(*category, "b"));
  IOXADiagnostic* const row = add_row(*category);
  IOXADiagnostic* const row_below = add_row(*below);
  EXPECT_EQ(manager_->SetColumnCount(5), S_OK);
  EXPECT_EQ(cells(*row), 5);
  EXPECT_EQ(cells(*row_below), 2);
  EXPECT_EQ(cells(*add_row(*below)), 5);
  manager_.reset();
}

TEST_F(DiagnosticsManagerTest, ARowThatIsInNoCategoryKeepsItsCells) {
  oxa::Ref<IOXADiagnostic> row;
  create(*manager_, "a")->CreateDiagnostic(oxa::adopt_into(row));
  manager_->SetColumnCount(5);
  EXPECT_EQ(cells(*row), 2);
}

TEST_F(DiagnosticsManagerTest, ResizingMovesThePositions) {
  IOXADiagnosticCategory* const category = create(*manager_, "a");
  const Rows added{add_row(*category), add_row(*category), add_row(*category)};
  IOXADiagnostic* row = nullptr;
  EXPECT_EQ(category->GetFirst(&row), S_OK);
  manager_->SetColumnCount(3);
  EXPECT_EQ(next(*category), added[0]);
  EXPECT_EQ(next(*category), added[1]);
  manager_->SetColumnCount(-1);
  EXPECT_EQ(next(*category), added[2]);
}

TEST_F(DiagnosticsManagerTest, TellsForeignRowsEachCount) {
  IOXADiagnosticCategory* const category = create(*manager_, "a");
  const ForeignRow* const row = add_foreign_row(*category);
  for (const int count : {5, 5, -1, 0, 2}) {
    manager_->SetColumnCount(count);
  }
  EXPECT_EQ(row->sizes, (std::vector<int>{5, 5, 0, 2}));
}

TEST_F(DiagnosticsManagerTest, TellsARowAsOftenAsItIsThere) {
  ForeignRow* const row = add_foreign_row(*create(*manager_, "a"));
  row->AddReference();
  EXPECT_EQ(create(*manager_, "b")->AddDiagnostic(row), S_OK);
  manager_->SetColumnCount(3);
  EXPECT_EQ(row->sizes, (std::vector<int>{3, 3}));
}

TEST_F(DiagnosticsManagerTest, FindsItsColumnsChangedWhenItTellsRows) {
  ForeignRow* const row = add_foreign_row(*create(*manager_, "a"));
  std::string seen;
  row->on_resize = [&] { seen = headers(*manager_); };
  manager_->SetColumnCount(3);
  EXPECT_EQ(seen, "[][][Severity]");
}

TEST_F(DiagnosticsManagerTest, PassesOverARowThatThrows) {
  for (const char* name : {"a", "b"}) {
    IOXADiagnosticCategory* const category = create(*manager_, name);
    add_foreign_row(*category)->on_resize = [] { throw std::runtime_error("resized"); };
    add_foreign_row(*category)->on_resize = [] { throw std::bad_alloc(); };
    add_row(*category);
  }
  EXPECT_EQ(manager_->SetColumnCount(4), S_OK);
  EXPECT_EQ(manager_->GetColumnCount(), 4);
  for (IOXADiagnosticCategory* category : oxa::categories(*manager_)) {
    EXPECT_EQ(cells(*rows(*category)[2]), 4);
  }
}

// A row that cleared the table from within Resize used to free what was being walked.
TEST_F(DiagnosticsManagerTest, ARowMayClearTheTableWhileItIsResized) {
  IOXADiagnosticCategory* const category = create(*manager_, "a");
  add_foreign_row(*category)->on_resize = [this] { manager_->Clear(); };
  int resized = 0;
  add_foreign_row(*category)->on_resize = [&] { ++resized; };
  create(*manager_, "b");
  EXPECT_EQ(manager_->SetColumnCount(4), S_OK);
  EXPECT_EQ(resized, 1);
  EXPECT_TRUE(names(*manager_).empty());
}

// Rows behind one that changed the number of columns used to get the number of before.
TEST_F(DiagnosticsManagerTest, ARowMayChangeTheColumnsWhileItIsResized) {
  ForeignRow* const first = add_foreign_row(*create(*manager_, "a"));
  ForeignRow* const second = add_foreign_row(*create(*manager_, "b"));
  first->on_resize = [&] {
    if (manager_->GetColumnCount() != 6) {
      manager_->SetColumnCount(6);
    }
  };
  EXPECT_EQ(manager_->SetColumnCount(4), S_OK);
  EXPECT_EQ(manager_->GetColumnCount(), 6);
  EXPECT_EQ(second->sizes.back(), 6);
}

TEST_F(DiagnosticsManagerTest, ChangesOneHundredThousandRows) {
  IOXADiagnosticCategory* const category = create(*manager_, "a");
  for (int row = 0; row < 100'000; ++row) {
    add_row(*category);
  }
  EXPECT_EQ(manager_->SetColumnCount(3), S_OK);
  int changed = 0;
  for (IOXADiagnostic* row : oxa::diagnostics(*category)) {
    changed += cells(*row) == 3 ? 1 : 0;
  }
  EXPECT_EQ(changed, 100'000);
}

}  // namespace
