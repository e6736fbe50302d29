// The settings of the application.
#include "properties/OXAPreferences.h"

#include "support.h"
#include "support/allocations.h"

using namespace oxa_test;

namespace {

class PreferencesTest : public testing::Test {
 protected:
  IOXAProperty* added(const char* name, OXAResult expected = S_OK) const {
    IOXAProperty* property = nullptr;
    EXPECT_EQ(preferences_.Add("view::graph", name, &property), expected);
    return property;
  }

  OXAResult set(const char* name, const char* value) const {
    return preferences_.Set("view::graph", name, value);
  }

  std::string get(const char* name, OXAResult expected = S_OK) const {
    char* value = nullptr;
    EXPECT_EQ(preferences_.Get("view::graph", name, &value), expected);
    return shown(value);
  }

  Lines with_values() const {
    oxa::Ref<IOXAPropertyEnum> all;
    EXPECT_EQ(preferences_.GetPreferencePropertiesEnum(oxa::adopt_into(all)), S_OK);
    return listed(*all);
  }

  OXAResult made_ = E_FAIL;
  oxa::Ref<IOXAPreferences> owner_ = oxa::make<OXAPreferences>(made_);
  IOXAPreferences& preferences_ = *owner_;
};

TEST_F(PreferencesTest, StartEmptyWithOneReference) {
  EXPECT_EQ(made_, S_OK);
  EXPECT_EQ(preferences_.CheckReference(), 1);
  EXPECT_EQ(with_values(), Lines());
}

TEST_F(PreferencesTest, ASettingIsAddedOnce) {
  IOXAProperty* property = added("width");
  EXPECT_EQ(property->ID(), 0);
  EXPECT_STREQ(property->FullNamespace(), "view::graph::width");
  fill(*property);
  const std::string before = described(*property);
  EXPECT_EQ(added("width", S_ALREADYEXISTS), property);
  EXPECT_EQ(described(*property), before);
}

TEST_F(PreferencesTest, AValueIsSetAndGiven) {
  added("width")->SetDataType(DataType::Int);
  added("height")->SetDataType(DataType::Int);
  EXPECT_EQ(set("width", "42"), S_OK);
  EXPECT_EQ(get("width"), "'42'");
  EXPECT_EQ(with_values(), Lines{"view::graph::width"});
}

TEST_F(PreferencesTest, ADefaultIsNotApplied) {
  IOXAProperty* property = added("width");
  property->SetDataType(DataType::Int);
  property->SetDefaultValue("42");
  EXPECT_EQ(get("width", E_NOTFOUND), "-");
  EXPECT_EQ(with_values(), Lines());
}

TEST_F(PreferencesTest, ASettingThatWasNotAddedIsAddedAndTakesNothing) {
  EXPECT_EQ(set("width", "42"), E_UNEXPECTED);
  EXPECT_EQ(get("width", E_UNEXPECTED), "-");
  EXPECT_EQ(with_values(), Lines{"view::graph::width"});
  EXPECT_EQ(added("width", S_ALREADYEXISTS)->DataType(), NoDataType);
  EXPECT_EQ(get("height", E_NOTFOUND), "-");
  EXPECT_EQ(added("height", S_ALREADYEXISTS)->ID(), 1);
}

TEST_F(PreferencesTest, ATextThatIsRefusedLeavesASettingThatIsListed) {
  added("width")->SetDataType(DataType::Int);
  EXPECT_EQ(set("width", "wide"), E_INVALIDARG);
  EXPECT_EQ(get("width", E_UNEXPECTED), "-");
  EXPECT_EQ(with_values(), Lines{"view::graph::width"});
}

TEST_F(PreferencesTest, NullIsRefused) {
  IOXAProperty* property = nullptr;
  char* value = nullptr;
  EXPECT_EQ(preferences_.Add(nullptr, "width", &property), E_INVALIDARG);
  EXPECT_EQ(preferences_.Add("a", nullptr, &property), E_INVALIDARG);
  EXPECT_EQ(preferences_.Add("a", "width", nullptr), E_INVALIDARG);
  EXPECT_EQ(preferences_.Set(nullptr, "width", "1"), E_INVALIDARG);
  EXPECT_EQ(preferences_.Set("a", nullptr, "1"), E_INVALIDARG);
  EXPECT_EQ(preferences_.Set("a", "width", nullptr), E_INVALIDARG);
  EXPECT_EQ(preferences_.Set("a", "width", " "), E_INVALIDARG);
  EXPECT_EQ(preferences_.Get(nullptr, "width", &value), E_INVALIDARG);
  EXPECT_EQ(preferences_.Get("a", nullptr, &value), E_INVALIDARG);
  EXPECT_EQ(preferences_.Get("a", "width", nullptr), E_INVALIDARG);
  EXPECT_EQ(preferences_.GetPreferencePropertiesEnum(nullptr), E_INVALIDARG);
  EXPECT_EQ(preferences_.Add("a", "first", &property), S_OK);
  EXPECT_EQ(property->ID(), 0);
}

TEST_F(PreferencesTest, TwoAreIndependent) {
  OXAResult result = E_FAIL;
  const auto other = oxa::make<OXAPreferences>(result);
  added("width")->SetDataType(DataType::Int);
  set("width", "42");
  char* value = nullptr;
  EXPECT_EQ(other->Get("view::graph", "width", &value), E_NOTFOUND);
}

TEST_F(PreferencesTest, WhatIsReferencedOutlivesThem) {
  const auto kept = oxa::Ref<IOXAProperty>::share(added("width"));
  added("height");
  owner_ = nullptr;
  EXPECT_EQ(kept->CheckReference(), 1);
  EXPECT_STREQ(kept->FullNamespace(), "view::graph::width");
}

TEST_F(PreferencesTest, WithoutMemoryTheyCanOnlyBeReleased) {
  const unsigned long failures = fail_each_allocation([] {
    OXAResult result = S_OK;
    try {
      const auto preferences = oxa::make<OXAPreferences>(result);
      EXPECT_EQ(result, FailingAllocation::happened() ? E_OUTOFMEMORY : S_OK);
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(FailingAllocation::happened());
    }
  });
  EXPECT_EQ(failures, 3);  // they, their manager, and their model
}

}  // namespace
