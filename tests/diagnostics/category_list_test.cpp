// The categories of a manager and those of a category, which are made and found alike.
#include <type_traits>

#include "table.h"

using namespace oxa_test;

namespace {

// Holders of categories: `Holder` is the manager or a category.
template <class Holder>
class CategoryListTest : public CategoryFixture {
 protected:
  Holder& holder() {
    if constexpr (std::is_same_v<Holder, IOXADiagnosticsManager>) {
      return *manager_;
    } else {
      return *category_;
    }
  }

  IOXADiagnosticCategory* add(const char* name) {
    if constexpr (std::is_same_v<Holder, IOXADiagnosticsManager>) {
      return create(holder(), name);
    } else {
      return create_below(holder(), name);
    }
  }

  oxa::Ref<IOXADiagnosticCategoryEnum> enumerate() {
    oxa::Ref<IOXADiagnosticCategoryEnum> found;
    EXPECT_EQ(holder().GetDiagnosticCategoryEnum(oxa::adopt_into(found)), S_OK);
    return found;
  }
};

using Holders = testing::Types<IOXADiagnosticsManager, IOXADiagnosticCategory>;
TYPED_TEST_SUITE(CategoryListTest, Holders);

IOXADiagnosticCategory* first(IOXADiagnosticCategoryEnum& categories) {
  IOXADiagnosticCategory* found = nullptr;
  return categories.GetFirst(&found) == S_OK ? found : nullptr;
}

IOXADiagnosticCategory* next(IOXADiagnosticCategoryEnum& categories) {
  IOXADiagnosticCategory* found = nullptr;
  return categories.GetNext(&found) == S_OK ? found : nullptr;
}

TYPED_TEST(CategoryListTest, MakesACategoryWithOneReference) {
  IOXADiagnosticCategory* const category = this->add("Edges");
  EXPECT_EQ(category->CheckReference(), 1);
  EXPECT_STREQ(category->GetName(), "Edges");
  EXPECT_EQ(rows(*category), Rows{});
  EXPECT_EQ(names(*category), Lines{});
}

TYPED_TEST(CategoryListTest, NullArgumentsMakeNothing) {
  IOXADiagnosticCategory* const category = this->category_.get();
  IOXADiagnosticCategory* made = category;
  EXPECT_EQ(this->holder().CreateCategory(nullptr, &made), E_INVALIDARG);
  EXPECT_EQ(made, category);
  EXPECT_EQ(this->holder().CreateCategory("a", nullptr), E_INVALIDARG);
  EXPECT_EQ(this->holder().CreateCategory(nullptr, nullptr), E_INVALIDARG);
  EXPECT_EQ(names(this->holder()), Lines{});
}

TYPED_TEST(CategoryListTest, GivesWhatIsThereTogetherWithAFailure) {
  IOXADiagnosticCategory* const category = this->add("a name that is longer than short ones");
  this->add("b");
  IOXADiagnosticCategory* found = nullptr;
  EXPECT_EQ(this->holder().CreateCategory("a name that is longer than short ones", &found),
            E_ALREADYEXISTS);
  EXPECT_EQ(found, category);
  EXPECT_EQ(category->CheckReference(), 1);
  EXPECT_EQ(this->enumerate()->Count(), 2U);
}

TYPED_TEST(CategoryListTest, NamesAreComparedExactly) {
  const Lines all{"a", "A", "a ", " a", "a::b", "\xC3\xA4", "\xC3\xA5"};
  for (const std::string& name : all) {
    this->add(name.c_str());
  }
  EXPECT_EQ(names(this->holder()), all);
}

TYPED_TEST(CategoryListTest, ANameMayBeEmpty) {
  IOXADiagnosticCategory* const category = this->add("");
  EXPECT_EQ(category->GetName(), nullptr);
  IOXADiagnosticCategory* found = nullptr;
  EXPECT_EQ(this->holder().CreateCategory("", &found), E_ALREADYEXISTS);
  EXPECT_EQ(found, category);
}

TYPED_TEST(CategoryListTest, FindsARenamedCategoryByItsFirstName) {
  IOXADiagnosticCategory* const renamed = this->add("a");
  renamed->SetName("b");
  IOXADiagnosticCategory* found = nullptr;
  EXPECT_EQ(this->holder().CreateCategory("a", &found), E_ALREADYEXISTS);
  EXPECT_EQ(found, renamed);
  EXPECT_NE(this->add("b"), renamed);
  EXPECT_EQ(names(this->holder()), (Lines{"b", "b"}));
}

TYPED_TEST(CategoryListTest, AnEnumeratorNeedsAPlaceToGo) {
  EXPECT_EQ(this->holder().GetDiagnosticCategoryEnum(nullptr), E_INVALIDARG);
}

TYPED_TEST(CategoryListTest, AnEnumeratorBelongsToItsCaller) {
  IOXADiagnosticCategory* const category = this->add("a");
  const auto categories = this->enumerate();
  EXPECT_EQ(categories->CheckReference(), 1);
  EXPECT_EQ(this->holder().CheckReference(), 1);
  EXPECT_EQ(first(*categories), category);
  EXPECT_EQ(category->CheckReference(), 1);
}

TYPED_TEST(CategoryListTest, EnumeratesInTheOrderOfCreation) {
  IOXADiagnosticCategory* const b = this->add("b");
  IOXADiagnosticCategory* const a = this->add("a");
  const auto categories = this->enumerate();
  EXPECT_EQ(categories->Count(), 2U);
  EXPECT_EQ(next(*categories), a);  // it stood on the first one
  EXPECT_EQ(next(*categories), nullptr);
  EXPECT_EQ(next(*categories), b);
  EXPECT_EQ(first(*categories), b);
}

TYPED_TEST(CategoryListTest, EnumeratorsSeeWhatIsMadeLater) {
  const auto categories = this->enumerate();
  EXPECT_EQ(categories->Count(), 0U);
  EXPECT_EQ(first(*categories), nullptr);
  IOXADiagnosticCategory* const a = this->add("a");
  EXPECT_EQ(next(*categories), a);  // it stood at the end
  IOXADiagnosticCategory* const b = this->add("b");
  EXPECT_EQ(next(*categories), b);
  EXPECT_EQ(categories->Count(), 2U);
  EXPECT_EQ(next(*categories), nullptr);
}

TYPED_TEST(CategoryListTest, EnumeratorsDoNotDisturbEachOther) {
  IOXADiagnosticCategory* const a = this->add("a");
  IOXADiagnosticCategory* const b = this->add("b");
  const auto categories = this->enumerate();
  EXPECT_EQ(next(*categories), b);
  EXPECT_EQ(first(*this->enumerate()), a);
  oxa::Ref<IOXADiagnosticCategoryEnum> clone;
  EXPECT_EQ(categories->Clone(oxa::adopt_into(clone)), S_OK);
  EXPECT_EQ(first(*clone), a);
  EXPECT_EQ(next(*categories), nullptr);
}

TYPED_TEST(CategoryListTest, MakesOneHundredThousand) {
  const int count = 100'000;
  for (int number = 0; number < count; ++number) {
    this->add(std::to_string(number).c_str());
  }
  int found = 0;
  for (IOXADiagnosticCategory* category : oxa::categories(this->holder())) {
    IOXADiagnosticCategory* known = nullptr;
    this->holder().CreateCategory(category->GetName(), &known);
    found += known == category ? 1 : 0;
  }
  EXPECT_EQ(found, count);
}

}  // namespace
