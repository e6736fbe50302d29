// A category: its name, its key, its rows and its subcategories.
#include <stdexcept>

#include "table.h"

using namespace oxa_test;
using OXA::Diagnostics::Type;

namespace {

class DiagnosticCategoryTest : public CategoryFixture {};

TEST_F(DiagnosticCategoryTest, HasNothingAtFirst) {
  EXPECT_EQ(result_, S_OK);
  EXPECT_EQ(category_->CheckReference(), 1);
  EXPECT_EQ(manager_->CheckReference(), 1);
  EXPECT_STREQ(category_->GetName(), "Category name not set!");
  EXPECT_EQ(category_->GetCategoryKeyType(), Type{0});
  void* key = this;
  EXPECT_EQ(category_->GetCategoryKey(&key), S_OK);
  EXPECT_EQ(key, nullptr);
  EXPECT_EQ(rows(*category_), Rows{});
  EXPECT_EQ(names(*category_), Lines{});
}

TEST_F(DiagnosticCategoryTest, CanBeNamed) {
  for (const char* name : {"Edges", "a name that is longer than short ones", "b"}) {
    EXPECT_EQ(category_->SetName(name), S_OK);
    EXPECT_STREQ(category_->GetName(), name);
  }
  EXPECT_EQ(category_->SetName(nullptr), E_INVALIDARG);
  EXPECT_STREQ(category_->GetName(), "b");
  EXPECT_EQ(category_->SetName(""), S_OK);
  EXPECT_EQ(category_->GetName(), nullptr);
}

TEST_F(DiagnosticCategoryTest, CanBeNamedByPartOfItsName) {
  EXPECT_EQ(category_->SetName(category_->GetName() + 9), S_OK);
  EXPECT_STREQ(category_->GetName(), "name not set!");
  EXPECT_EQ(category_->SetName(category_->GetName() + 5), S_OK);
  EXPECT_STREQ(category_->GetName(), "not set!");
  const auto other = oxa::make<OXADiagnosticCategory>(manager_.get(), result_);
  EXPECT_STREQ(other->GetName(), "Category name not set!");
}

TEST_F(DiagnosticCategoryTest, ARenamedCategoryIsFoundByItsFirstName) {
  IOXADiagnosticCategory* const below = create_below(*category_, "a");
  EXPECT_EQ(below->SetName("b"), S_OK);
  IOXADiagnosticCategory* found = nullptr;
  EXPECT_EQ(category_->CreateCategory("a", &found), E_ALREADYEXISTS);
  EXPECT_EQ(found, below);
  EXPECT_STREQ(found->GetName(), "b");
}

TEST_F(DiagnosticCategoryTest, HasAKeyWhichCannotBeTakenBack) {
  int thing = 0;
  void* key = nullptr;
  EXPECT_EQ(category_->SetCategoryKey(&thing), S_OK);
  EXPECT_EQ(category_->SetCategoryKey(nullptr), E_INVALIDARG);
  EXPECT_EQ(category_->GetCategoryKey(nullptr), E_INVALIDARG);
  EXPECT_EQ(category_->GetCategoryKey(&key), S_OK);
  EXPECT_EQ(key, &thing);
  EXPECT_EQ(category_->SetCategoryKey(this), S_OK);
  category_->GetCategoryKey(&key);
  EXPECT_EQ(key, this);
}

TEST_F(DiagnosticCategoryTest, HasAnyTypeOfKey) {
  for (const int type : {1, -1, std::numeric_limits<int>::max(), 0}) {
    EXPECT_EQ(category_->SetCategoryKeyType(Type{type}), S_OK);
    EXPECT_EQ(category_->GetCategoryKeyType(), Type{type});
  }
}

TEST_F(DiagnosticCategoryTest, ANewRowBelongsToItsMaker) {
  oxa::Ref<IOXADiagnostic> row;
  EXPECT_EQ(category_->CreateDiagnostic(oxa::adopt_into(row)), S_OK);
  EXPECT_EQ(row->CheckReference(), 1);
  EXPECT_EQ(category_->CreateDiagnostic(nullptr), E_INVALIDARG);
  IOXADiagnostic* first = row.get();
  EXPECT_EQ(category_->GetFirst(&first), S_FALSE);
  EXPECT_EQ(first, nullptr);
}

TEST_F(DiagnosticCategoryTest, TakesOverTheReferenceToARow) {
  ForeignRow* const row = add_foreign_row(*category_);
  EXPECT_EQ(row->CheckReference(), 1);
  bool ended = false;
  row->on_end = [&] { ended = true; };
  category_.reset();
  EXPECT_TRUE(ended);
}

TEST_F(DiagnosticCategoryTest, DoesNotTakeNull) {
  EXPECT_EQ(category_->AddDiagnostic(nullptr), E_INVALIDARG);
  EXPECT_EQ(rows(*category_), Rows{});
}

TEST_F(DiagnosticCategoryTest, GivesRowsInTheOrderInWhichTheyWereAdded) {
  Rows added;
  for (int round = 0; round < 50; ++round) {
    added.push_back(add_row(*category_));
    added.push_back(add_foreign_row(*category_));
  }
  EXPECT_EQ(rows(*category_), added);
  EXPECT_EQ(added[0]->CheckReference(), 1);
}

TEST_F(DiagnosticCategoryTest, ARowAddedTwiceIsThereTwice) {
  const auto row = oxa::make<ForeignRow>();
  for (int times = 0; times < 2; ++times) {
    row->AddReference();
    EXPECT_EQ(category_->AddDiagnostic(row.get()), S_OK);
  }
  EXPECT_EQ(rows(*category_), (Rows{row.get(), row.get()}));
  EXPECT_EQ(row->CheckReference(), 3);
  category_.reset();
  EXPECT_EQ(row->CheckReference(), 1);
}

TEST_F(DiagnosticCategoryTest, ReleasesItsRowsInOrder) {
  Lines ended;
  for (const char* name : {"a", "b", "c"}) {
    add_foreign_row(*category_)->on_end = [&ended, name] { ended.emplace_back(name); };
  }
  category_.reset();
  EXPECT_EQ(ended, (Lines{"a", "b", "c"}));
}

TEST_F(DiagnosticCategoryTest, GoesRoundThroughItsEnd) {
  const Rows added{add_row(*category_), add_row(*category_)};
  IOXADiagnostic* row = nullptr;
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(round == 0 ? category_->GetFirst(&row) : category_->GetNext(&row), S_OK);
    EXPECT_EQ(row, added[0]);
    EXPECT_EQ(category_->GetNext(&row), S_OK);
    EXPECT_EQ(row, added[1]);
    EXPECT_EQ(category_->GetNext(&row), S_FALSE);
    EXPECT_EQ(row, nullptr);
  }
}

TEST_F(DiagnosticCategoryTest, WithoutRowsThereIsNoneToGive) {
  const auto elsewhere = oxa::make<ForeignRow>();
  for (const auto move : {&IOXADiagnosticCategory::GetFirst, &IOXADiagnosticCategory::GetNext,
                          &IOXADiagnosticCategory::GetNext}) {
    IOXADiagnostic* row = elsewhere.get();
    EXPECT_EQ((category_.get()->*move)(&row), S_FALSE);
    EXPECT_EQ(row, nullptr);
  }
}

TEST_F(DiagnosticCategoryTest, ANullOutputDoesNotMoveThePosition) {
  const Rows added{add_row(*category_), add_row(*category_), add_row(*category_)};
  next(*category_);
  EXPECT_EQ(category_->GetNext(nullptr), E_INVALIDARG);
  EXPECT_EQ(next(*category_), added[1]);
  EXPECT_EQ(category_->GetFirst(nullptr), E_INVALIDARG);
  EXPECT_EQ(next(*category_), added[2]);
}

TEST_F(DiagnosticCategoryTest, ARowAddedBehindThePositionIsNext) {
  IOXADiagnostic* row = nullptr;
  IOXADiagnostic* const first = add_row(*category_);
  category_->GetFirst(&row);
  IOXADiagnostic* const second = add_row(*category_);
  EXPECT_EQ(next(*category_), second);
  EXPECT_EQ(next(*category_), nullptr);
  add_row(*category_);
  EXPECT_EQ(next(*category_), first);  // it stood at the end
}

TEST_F(DiagnosticCategoryTest, EachHasAPositionOfItsOwn) {
  IOXADiagnosticCategory* const below = create_below(*category_, "a");
  add_row(*category_);
  IOXADiagnostic* const second = add_row(*category_);
  IOXADiagnostic* const row_below = add_row(*below);
  next(*category_);
  EXPECT_EQ(next(*below), row_below);
  EXPECT_EQ(next(*category_), second);
}

TEST_F(DiagnosticCategoryTest, SubcategoriesLiveOn) {
  IOXADiagnosticCategory* const below = create_below(*category_, "a");
  IOXADiagnostic* const row = add_row(*below);
  category_.reset();
  EXPECT_EQ(below->CheckReference(), 1);
  EXPECT_STREQ(below->GetName(), "a");
  EXPECT_EQ(rows(*below), Rows{row});
}

TEST_F(DiagnosticCategoryTest, SubcategoriesAreOfTheSameManager) {
  manager_->SetColumnCount(5);
  IOXADiagnosticCategory* const below = create_below(*create_below(*category_, "a"), "b");
  IOXADiagnostic* const row = add_row(*below);
  EXPECT_EQ(cells(*row), 5);
  row->SetDiagnostic("terse", "verbose");
  char* text = nullptr;
  EXPECT_EQ(manager_->GetDiagnosticToolTip(row->GetDiagnostic(), &text), S_OK);
  EXPECT_STREQ(text, "terse");
}

TEST_F(DiagnosticCategoryTest, NamesAreTakenInOneCategoryAlone) {
  IOXADiagnosticCategory* const below = create_below(*category_, "a");
  EXPECT_NE(create_below(*below, "a"), below);
  EXPECT_NE(create(*manager_, "a"), below);
}

TEST_F(DiagnosticCategoryTest, NestsToAnyDepth) {
  const int depth = 100'000;
  IOXADiagnosticCategory* innermost = category_.get();
  for (int level = 0; level < depth; ++level) {
    innermost = create_below(*innermost, "a");
  }
  int levels = 0;
  for (IOXADiagnosticCategory* at = category_.get(); at != innermost; ++levels) {
    at = *oxa::categories(*at).begin();
  }
  EXPECT_EQ(levels, depth);
}

TEST_F(DiagnosticCategoryTest, ACategoryIsMadeEvenOfANullManager) {
  category_ = oxa::make<OXADiagnosticCategory>(nullptr, result_);
  EXPECT_EQ(result_, E_INVALIDARG);
  EXPECT_STREQ(category_->GetName(), "Category name not set!");
}

TEST_F(DiagnosticCategoryTest, WithoutAManagerNothingIsMade) {
  const auto other = oxa::make<ForeignRow>();
  IOXADiagnostic* row = other.get();
  IOXADiagnosticCategory* below = category_.get();
  const auto orphan = oxa::make<OXADiagnosticCategory>(nullptr, result_);
  for (int times = 0; times < 2; ++times) {
    EXPECT_EQ(orphan->CreateDiagnostic(&row), E_INVALIDARG);
    EXPECT_EQ(row, nullptr);
    EXPECT_EQ(orphan->CreateCategory("a", &below), E_INVALIDARG);
    EXPECT_EQ(below, nullptr);
  }
  EXPECT_EQ(names(*orphan), Lines{});
}

// A row that threw as it was released used to end the process.
TEST_F(DiagnosticCategoryTest, ARowThatThrowsAsItIsReleasedStopsNothing) {
  int ended = 0;
  const auto thrower = oxa::make<ForeignRow>();
  thrower->on_release = [] { throw std::runtime_error("released"); };
  category_->AddDiagnostic(thrower.get());
  add_foreign_row(*category_)->on_end = [&] { ++ended; };
  category_.reset();
  thrower->on_release = [] {};
  EXPECT_EQ(ended, 1);
}

// A row that ended used to find itself in its category, and one that it added was lost.
TEST_F(DiagnosticCategoryTest, ARowThatEndsFindsTheCategoryEmptyAndMayAddOne) {
  IOXADiagnosticCategory* const category = category_.get();
  OXAResult result = S_OK;
  int ended = 0;
  add_foreign_row(*category)->on_end = [&] {
    IOXADiagnostic* found = nullptr;
    result = category->GetFirst(&found);
    add_foreign_row(*category)->on_end = [&] { ++ended; };
  };
  add_foreign_row(*category);
  category_.reset();
  EXPECT_EQ(result, S_FALSE);
  EXPECT_EQ(ended, 1);
}

}  // namespace
