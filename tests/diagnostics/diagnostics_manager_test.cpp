// The diagnostic types and the top-level categories of a manager.
#include "table.h"

using namespace oxa_test;

namespace {

int register_type(IOXADiagnosticsManager& manager, const char* tool_tip, const char* status_tip) {
  int id = -1;
  EXPECT_EQ(manager.RegisterDiagnosticType(tool_tip, status_tip, &id), S_OK);
  return id;
}

// Returns the two texts of a type, "none" for what is not registered.
std::string tips(IOXADiagnosticsManager& manager, int id) {
  char marker = 0;
  char* tool_tip = &marker;
  char* status_tip = &marker;
  const OXAResult result = manager.GetDiagnosticToolTip(id, &tool_tip);
  EXPECT_EQ(manager.GetDiagnosticStatusTip(id, &status_tip), result);
  if (result == S_FALSE) {
    EXPECT_EQ(tool_tip, nullptr);
    EXPECT_EQ(status_tip, nullptr);
    return "none";
  }
  EXPECT_EQ(result, S_OK);
  return std::string(tool_tip) + '|' + status_tip;
}

TEST_F(DiagnosticsManagerTest, NumbersItsTypesInOrder) {
  for (int id = 0; id < 5; ++id) {
    EXPECT_EQ(register_type(*manager_, "Self loop", "The edge ends where it begins."), id);
  }
}

struct Type {
  const char* tool_tip;
  const char* status_tip;
  const char* tips;
};

const Type types[] = {
    {"Self loop", "The edge ends where it begins.", "Self loop|The edge ends where it begins."},
    {"a", "", "a|"},
    {"", "b", "|b"},
    {"", "", "|"},
    {nullptr, "b", "|b"},
    {"a", nullptr, "a|"},
    {nullptr, nullptr, "|"},
    {"\xC3\xA4", "two\nlines", "\xC3\xA4|two\nlines"},
};

TEST_F(DiagnosticsManagerTest, KeepsTheTextsOfEachType) {
  for (const Type& type : types) {
    register_type(*manager_, type.tool_tip, type.status_tip);
  }
  for (int id = 0; id < static_cast<int>(std::size(types)); ++id) {
    EXPECT_EQ(tips(*manager_, id), types[id].tips) << id;
  }
}

TEST_F(DiagnosticsManagerTest, TextsOfTypesAreItsOwnAndStayWhereTheyAre) {
  std::string text = "Self loop";
  const int id = register_type(*manager_, text.c_str(), text.c_str());
  text = "changed!!";
  char* before = nullptr;
  manager_->GetDiagnosticToolTip(id, &before);
  for (int others = 0; others < 1000; ++others) {
    register_type(*manager_, "a", "b");
  }
  char* after = nullptr;
  manager_->GetDiagnosticToolTip(id, &after);
  EXPECT_EQ(after, before);
  EXPECT_EQ(tips(*manager_, id), "Self loop|Self loop");
}

TEST_F(DiagnosticsManagerTest, ARegistrationThatIsRefusedUsesNoId) {
  EXPECT_EQ(manager_->RegisterDiagnosticType("a", "b", nullptr), E_INVALIDARG);
  EXPECT_EQ(register_type(*manager_, "a", "b"), 0);
}

// Ids that are no type's when two are registered.
const int no_types[] = {-1, 2, 3, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};

TEST_F(DiagnosticsManagerTest, AnIdThatIsNotRegisteredHasNoTexts) {
  EXPECT_EQ(tips(*manager_, 0), "none");
  register_type(*manager_, "a", "b");
  register_type(*manager_, "a", "b");
  for (const int id : no_types) {
    EXPECT_EQ(tips(*manager_, id), "none") << id;
  }
}

TEST_F(DiagnosticsManagerTest, TextsNeedAPlaceToGo) {
  for (const int id : {register_type(*manager_, "a", "b"), -1, 1}) {
    EXPECT_EQ(manager_->GetDiagnosticToolTip(id, nullptr), E_INVALIDARG);
    EXPECT_EQ(manager_->GetDiagnosticStatusTip(id, nullptr), E_INVALIDARG);
  }
}

TEST_F(DiagnosticsManagerTest, UnregisteringFailsAndRemovesTheType) {
  register_type(*manager_, "a", "b");
  register_type(*manager_, "c", "d");
  EXPECT_EQ(manager_->UnregisterDiagnosticType(0), E_INVALIDARG);
  EXPECT_EQ(tips(*manager_, 0), "none");
  EXPECT_EQ(tips(*manager_, 1), "c|d");
  EXPECT_EQ(manager_->UnregisterDiagnosticType(0), E_INVALIDARG);
  EXPECT_EQ(tips(*manager_, 0), "none");
}

TEST_F(DiagnosticsManagerTest, UnregisteringWhatIsNotThereChangesNothing) {
  register_type(*manager_, "a", "b");
  register_type(*manager_, "c", "d");
  for (const int id : no_types) {
    EXPECT_EQ(manager_->UnregisterDiagnosticType(id), E_INVALIDARG) << id;
  }
  EXPECT_EQ(tips(*manager_, 0), "a|b");
  EXPECT_EQ(tips(*manager_, 1), "c|d");
  EXPECT_EQ(register_type(*manager_, "e", "f"), 2);
}

TEST_F(DiagnosticsManagerTest, IdsAreNotUsedAgain) {
  for (int id = 0; id < 3; ++id) {
    EXPECT_EQ(register_type(*manager_, "a", "b"), id);
    manager_->UnregisterDiagnosticType(id);
  }
  EXPECT_EQ(register_type(*manager_, "a", "b"), 3);
}

TEST_F(DiagnosticsManagerTest, TheSameNameGivesTheSameCategoryAndAFailure) {
  IOXADiagnosticCategory* const first = create(*manager_, "Edges");
  IOXADiagnosticCategory* second = nullptr;
  EXPECT_EQ(manager_->CreateCategory("Edges", &second), E_ALREADYEXISTS);
  EXPECT_EQ(second, first);
  EXPECT_EQ(first->CheckReference(), 1);
  EXPECT_EQ(names(*manager_), Lines{"Edges"});
}

TEST_F(DiagnosticsManagerTest, ClearDropsTheCategoriesAlone) {
  manager_->SetColumnCount(4);
  manager_->SetColumnHeader(0, "Node", IOXADiagnosticsManager::Operation{3});
  register_type(*manager_, "a", "b");
  add_row(*create(*manager_, "a"));
  manager_->Clear();
  EXPECT_EQ(names(*manager_), Lines{});
  EXPECT_EQ(manager_->GetColumnCount(), 4);
  char* header = nullptr;
  manager_->GetColumnHeader(0, &header);
  EXPECT_STREQ(header, "Node");
  EXPECT_EQ(tips(*manager_, 0), "a|b");
  EXPECT_EQ(register_type(*manager_, "c", "d"), 1);
}

TEST_F(DiagnosticsManagerTest, ClearFreesTheNames) {
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(rows(*create(*manager_, "a")), Rows{});
    create(*manager_, "b");
    EXPECT_EQ(names(*manager_), (Lines{"a", "b"}));
    manager_->Clear();
  }
}

TEST_F(DiagnosticsManagerTest, ACategoryThatAClientHoldsOutlivesClear) {
  const auto held = oxa::Ref<IOXADiagnosticCategory>::share(create(*manager_, "a"));
  IOXADiagnostic* const row = add_row(*held);
  manager_->Clear();
  EXPECT_EQ(held->CheckReference(), 1);
  EXPECT_STREQ(held->GetName(), "a");
  EXPECT_EQ(rows(*held), Rows{row});
  manager_->SetColumnCount(5);
  EXPECT_EQ(cells(*row), 2);
  EXPECT_NE(create(*manager_, "a"), held.get());
  EXPECT_EQ(cells(*add_row(*held)), 5);
}

TEST_F(DiagnosticsManagerTest, ACategoryThatAClientHoldsOutlivesIt) {
  const auto held = oxa::Ref<IOXADiagnosticCategory>::share(create(*manager_, "a"));
  const auto row = oxa::Ref<IOXADiagnostic>::share(add_row(*held));
  manager_.reset();
  EXPECT_EQ(held->CheckReference(), 1);
  EXPECT_EQ(row->CheckReference(), 2);
}

// Adds two categories of two rows each, which tell when they end.
Lines& add_mortal_rows(IOXADiagnosticsManager& manager, Lines& ended) {
  for (const char* name : {"a", "b"}) {
    IOXADiagnosticCategory* const category = create(manager, name);
    for (const char* row : {"1", "2"}) {
      add_foreign_row(*category)->on_end = [&ended, id = std::string(name) + row] {
        ended.push_back(id);
      };
    }
  }
  return ended;
}

const Lines in_order{"a1", "a2", "b1", "b2"};

TEST_F(DiagnosticsManagerTest, ClearReleasesInOrder) {
  Lines ended;
  EXPECT_EQ(add_mortal_rows(*manager_, ended), Lines{});
  manager_->Clear();
  EXPECT_EQ(ended, in_order);
  manager_->Clear();
  EXPECT_EQ(ended, in_order);
}

TEST_F(DiagnosticsManagerTest, ReleasesInOrderWhenItEnds) {
  Lines ended;
  EXPECT_EQ(add_mortal_rows(*manager_, ended), Lines{});
  manager_.reset();
  EXPECT_EQ(ended, in_order);
}

TEST_F(DiagnosticsManagerTest, IsEmptyWhileItReleases) {
  Lines seen{"not asked"};
  add_foreign_row(*create(*manager_, "a"))->on_end = [&] {
    seen = names(*manager_);
    create(*manager_, "a");
  };
  create(*manager_, "b");
  manager_->Clear();
  EXPECT_EQ(seen, Lines{});
  EXPECT_EQ(names(*manager_), Lines{"a"});
}

TEST_F(DiagnosticsManagerTest, ClearLeavesSubcategoriesToTheirMaker) {
  IOXADiagnosticCategory* const category = create(*manager_, "a");
  const auto below = oxa::Ref<IOXADiagnosticCategory>::adopt(create(*category, "b"));
  IOXADiagnostic* const row = add_row(*below);
  manager_->Clear();
  EXPECT_EQ(below->CheckReference(), 1);
  EXPECT_EQ(rows(*below), Rows{row});
}

}  // namespace
