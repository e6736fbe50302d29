// Settings, and walking them and what describes them.
#include <oxa/sdk/properties.h>

#include <gtest/gtest.h>
#include <oxa/oxa.h>

#include <new>
#include <set>
#include <string>
#include <vector>

#include "support/allocations.h"

using OXA::Property::DataType;
using oxa_test::fail_each_allocation;
using oxa_test::FailingAllocation;

namespace {

using Names = std::vector<std::string>;

const char* const long_text = "a text that is longer than short ones";

class PropertiesTest : public testing::Test {
 protected:
  PropertiesTest() {
    oxa::Ref<IOXAContext> context;
    OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
    preferences_ = oxa::service<IOXAPreferences>(context);
  }

  // Adds a text and gives it a value.
  IOXAProperty& add_text(const char* name, const char* value) {
    IOXAProperty& property = oxa::add_setting(*preferences_, "layout", name, DataType::String);
    EXPECT_EQ(preferences_->Set("layout", name, value), S_OK);
    return property;
  }

  std::multiset<std::string> names() {
    std::multiset<std::string> found;
    for (IOXAProperty* property : oxa::settings(*preferences_)) {
      found.insert(property->FullNamespace());
    }
    return found;
  }

  oxa::Ref<IOXAPreferences> preferences_;
};

TEST_F(PropertiesTest, AddSettingGivesItItsDataType) {
  IOXAProperty& width = oxa::add_setting(*preferences_, "layout::text", "width", DataType::Int);
  EXPECT_STREQ(width.Namespace(), "layout::text");
  EXPECT_STREQ(width.Name(), "width");
  EXPECT_EQ(width.DataType(), DataType::Int);
  EXPECT_EQ(width.CheckReference(), 1);
  EXPECT_EQ(preferences_->Set("layout::text", "width", "7"), S_OK);
}

TEST_F(PropertiesTest, AddSettingLeavesWhatIsThere) {
  IOXAProperty& width = oxa::add_setting(*preferences_, "layout", "width", DataType::Int);
  EXPECT_EQ(width.SetRange(1, 9), S_OK);
  EXPECT_EQ(&oxa::add_setting(*preferences_, "layout", "width", DataType::String), &width);
  EXPECT_EQ(width.DataType(), DataType::Int);
  EXPECT_EQ(width.MaximumValue(), 9);
  EXPECT_EQ(width.CheckReference(), 1);
}

TEST_F(PropertiesTest, AddSettingThrowsWhatItCannotAdd) {
  EXPECT_THROW(oxa::add_setting(*preferences_, nullptr, "width", DataType::Int), std::bad_alloc);
  EXPECT_THROW(oxa::add_setting(*preferences_, "layout", nullptr, DataType::Int), std::bad_alloc);
}

TEST_F(PropertiesTest, AddSettingThrowsForWantOfMemory) {
  const unsigned long failures = fail_each_allocation([&] {
    try {
      oxa::add_setting(*preferences_, "layout", long_text, DataType::Int);
      EXPECT_FALSE(FailingAllocation::happened());
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(FailingAllocation::happened());
    }
  });
  EXPECT_GE(failures, 1U);
  EXPECT_EQ(oxa::add_setting(*preferences_, "layout", long_text, DataType::Bool).DataType(),
            DataType::Int);
}

TEST_F(PropertiesTest, ASettingIsItsValueOrItsDefaultOrNothing) {
  IOXAProperty& width = oxa::add_setting(*preferences_, "layout", "width", DataType::Int);
  EXPECT_EQ(oxa::setting(*preferences_, width), std::nullopt);
  width.SetDefaultValue("5");
  EXPECT_EQ(oxa::setting(*preferences_, width), "5");
  preferences_->Set("layout", "width", "7");
  EXPECT_EQ(oxa::setting(*preferences_, width), "7");
}

TEST_F(PropertiesTest, ADefaultNeedNotBeAValue) {
  IOXAProperty& width = oxa::add_setting(*preferences_, "layout", "width", DataType::Int);
  width.SetDefaultValue("");
  EXPECT_EQ(oxa::setting(*preferences_, width), "");
  EXPECT_EQ(preferences_->Set("layout", "width", "wide"), E_INVALIDARG);
  width.SetDefaultValue("wide");
  EXPECT_EQ(oxa::setting(*preferences_, width), "wide");
}

TEST_F(PropertiesTest, ASettingIsACopy) {
  IOXAProperty& title = add_text("title", "a");
  const auto before = oxa::setting(*preferences_, title);
  preferences_->Set("layout", "title", "b");
  EXPECT_EQ(before, "a");
  EXPECT_EQ(oxa::setting(*preferences_, title), "b");
}

TEST_F(PropertiesTest, ASettingThrowsForWantOfMemory) {
  IOXAProperty& title = add_text("title", long_text);
  title.SetDefaultValue("default");
  const unsigned long failures = fail_each_allocation([&] {
    try {
      const auto value = oxa::setting(*preferences_, title);
      EXPECT_FALSE(FailingAllocation::happened());
      EXPECT_TRUE(value == long_text);
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(FailingAllocation::happened());
    }
  });
  EXPECT_GE(failures, 1U);
}

TEST_F(PropertiesTest, SettingsAreThoseWithAValue) {
  EXPECT_EQ(names(), std::multiset<std::string>{});
  add_text("title", "a");
  add_text("font", "b");
  oxa::add_setting(*preferences_, "layout", "width", DataType::Int).SetDefaultValue("5");
  EXPECT_EQ(names(), (std::multiset<std::string>{"layout::font", "layout::title"}));
}

TEST_F(PropertiesTest, SettingsAreThoseOfTheMomentOfTheCall) {
  IOXAProperty& title = add_text("title", "a");
  const auto before = oxa::settings(*preferences_);
  add_text("font", "b");
  std::vector<IOXAProperty*> found;
  for (IOXAProperty* property : before) {
    found.push_back(property);
    EXPECT_EQ(property->CheckReference(), 1);
  }
  EXPECT_EQ(found, std::vector<IOXAProperty*>{&title});
}

TEST_F(PropertiesTest, SettingsThrowForWantOfMemory) {
  add_text("title", "a");
  const unsigned long failures = fail_each_allocation([&] {
    try {
      EXPECT_NE(oxa::settings(*preferences_).begin(), oxa::settings(*preferences_).end());
      EXPECT_FALSE(FailingAllocation::happened());
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(FailingAllocation::happened());
    }
  });
  EXPECT_GE(failures, 1U);
}

Names attribute_names(IOXAProperty& property) {
  Names names;
  for (const char* name : oxa::attribute_names(property)) {
    names.emplace_back(name);
  }
  return names;
}

TEST_F(PropertiesTest, AttributeNamesComeInOrder) {
  IOXAProperty& shape = oxa::add_setting(*preferences_, "layout", "shape", DataType::Enum);
  EXPECT_EQ(attribute_names(shape), Names{});
  for (const char* name : {"tree", "circle", "grid"}) {
    EXPECT_EQ(shape.AddAttribute(name, "x"), S_OK);
  }
  EXPECT_EQ(attribute_names(shape), (Names{"tree", "circle", "grid"}));
  EXPECT_EQ(attribute_names(shape), (Names{"tree", "circle", "grid"}));
  EXPECT_EQ(shape.CheckReference(), 1);
}

TEST_F(PropertiesTest, AttributeNamesKeepTheirPropertyAlive) {
  IOXAProperty& shape = oxa::add_setting(*preferences_, "layout", "shape", DataType::Enum);
  shape.AddAttribute("tree", "1");
  shape.AddAttribute("circle", "2");
  oxa::Ref<IOXAProperty> copy;
  EXPECT_EQ(shape.Clone(oxa::adopt_into(copy)), S_OK);
  Names names;
  for (const char* name : oxa::attribute_names(*copy)) {
    copy.reset();
    names.emplace_back(name);
  }
  EXPECT_EQ(names, (Names{"tree", "circle"}));
}

TEST_F(PropertiesTest, AnAttributeIsItsValueOrNull) {
  IOXAProperty& shape = oxa::add_setting(*preferences_, "layout", "shape", DataType::Enum);
  EXPECT_EQ(oxa::attribute(shape, "tree"), nullptr);
  shape.AddAttribute("tree", "1");
  shape.AddAttribute("circle", "");
  EXPECT_STREQ(oxa::attribute(shape, "tree"), "1");
  EXPECT_STREQ(oxa::attribute(shape, "circle"), "");
  EXPECT_EQ(oxa::attribute(shape, "1"), nullptr);
  EXPECT_EQ(oxa::attribute(shape, nullptr), nullptr);
}

}  // namespace
