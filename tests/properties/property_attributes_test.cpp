// What a property has many of: attributes, and what supports it.
#include <utility>

#include "support.h"

using namespace oxa_test;

namespace {

class PropertyAttributesTest : public PropertyTest {
 protected:
  void add(const std::vector<std::pair<const char*, const char*>>& attributes) {
    for (const auto& [name, value] : attributes) {
      EXPECT_EQ(property_.AddAttribute(name, value), S_OK);
    }
  }

  Lines names() const {
    const auto range = oxa::attribute_names(property_);
    return {range.begin(), range.end()};
  }

  // The result of a look-up, which must clear the output unless it finds something.
  template <class Lookup>
  std::string given(OXAResult expected, Lookup lookup) {
    char* out = marker_;
    EXPECT_EQ(lookup(&out), expected);
    EXPECT_EQ(out != nullptr, expected == S_OK);
    return shown(out);
  }
  std::string first(OXAResult expected = S_OK) {
    return given(expected, [this](char** out) { return property_.GetFirstAttribute(out); });
  }
  std::string next(OXAResult expected = S_OK) {
    return given(expected, [this](char** out) { return property_.GetNextAttribute(out); });
  }
  std::string value(const char* name, OXAResult expected = S_OK) {
    return given(expected, [&](char** out) { return property_.GetAttributeValue(name, out); });
  }
  std::string name(const char* value, OXAResult expected = S_OK) {
    return given(expected, [&](char** out) { return property_.GetAttributeFromValue(value, out); });
  }

  char marker_[1] = "";
};

TEST_F(PropertyAttributesTest, NamesComeInTheOrderInWhichTheyWereAdded) {
  add({{"red", "1"}, {"green", "2"}, {"blue", "3"}, {"alpha", "4"}});
  EXPECT_EQ(property_.GetAttributeCount(), 4);
  EXPECT_EQ(names(), (Lines{"red", "green", "blue", "alpha"}));
}

TEST_F(PropertyAttributesTest, ThePositionCanBeTakenBack) {
  add({{"red", "1"}, {"green", "2"}});
  EXPECT_EQ((Lines{first(), next(), first(), next(), next(S_FALSE)}),
            (Lines{"'red'", "'green'", "'red'", "'green'", "-"}));
}

TEST_F(PropertyAttributesTest, TheEndIsNotLeft) {
  add({{"red", "1"}});
  EXPECT_EQ((Lines{first(), next(S_FALSE), next(S_FALSE), next(S_FALSE)}),
            (Lines{"'red'", "-", "-", "-"}));
  EXPECT_EQ(first(), "'red'");
}

TEST_F(PropertyAttributesTest, WithoutAnyThereIsNothingToGive) {
  EXPECT_EQ((Lines{first(S_FALSE), next(S_FALSE)}), (Lines{"-", "-"}));
  EXPECT_EQ(value("red", E_NOTFOUND) + name("1", E_NOTFOUND), "--");
}

TEST_F(PropertyAttributesTest, ANameLeadsToItsValueAndBack) {
  add({{"red", "1"}, {"green", "2"}, {"", "empty"}, {"nothing", ""}, {long_text, "long"}});
  EXPECT_EQ(value("red") + value("green") + value("") + value("nothing") + value(long_text),
            "'1''2''empty''''long'");
  EXPECT_EQ(name("1") + name("2") + name("empty") + name(""), "'red''green''''nothing'");
  EXPECT_EQ(name("long"), shown(long_text));
}

TEST_F(PropertyAttributesTest, NamesAndValuesAreComparedByteByByte) {
  add({{"red", "One"}});
  for (const char* other : {"Red", "re", "redd", " red", "", "One"}) {
    EXPECT_EQ(value(other, E_NOTFOUND), "-") << other;
  }
  for (const char* other : {"one", "On", "Onee", "One ", "", "red"}) {
    EXPECT_EQ(name(other, E_NOTFOUND), "-") << other;
  }
}

TEST_F(PropertyAttributesTest, ANameIsAddedOnce) {
  add({{"red", "1"}, {"green", "2"}});
  EXPECT_EQ(property_.AddAttribute("red", "3"), E_ALREADYEXISTS);
  EXPECT_EQ(property_.AddAttribute("red", "1"), E_ALREADYEXISTS);
  EXPECT_EQ(property_.GetAttributeCount(), 2);
  EXPECT_EQ(value("red"), "'1'");
  EXPECT_EQ(name("3", E_NOTFOUND), "-");
}

TEST_F(PropertyAttributesTest, NamesMayShareAValue) {
  add({{"red", "1"}, {"green", "2"}, {"rot", "1"}});
  const std::string found = name("1");
  EXPECT_TRUE(found == "'red'" || found == "'rot'") << found;
  EXPECT_EQ(value("red") + value("rot"), "'1''1'");
}

TEST_F(PropertyAttributesTest, ClearedOnesAreGone) {
  add({{"red", "1"}, {"green", "2"}});
  property_.ClearAttributes();
  EXPECT_EQ(property_.GetAttributeCount(), 0);
  EXPECT_EQ(first(S_FALSE) + value("red", E_NOTFOUND) + name("2", E_NOTFOUND), "---");
  add({{"green", "3"}, {"red", "4"}});
  EXPECT_EQ(names(), (Lines{"green", "red"}));
  EXPECT_EQ(value("red"), "'4'");
  property_.ClearAttributes();
  property_.ClearAttributes();
  EXPECT_EQ(names(), Lines());
}

TEST_F(PropertyAttributesTest, TextsStayWhileOthersAreAdded) {
  add({{"red", "1"}});
  char* name = nullptr;
  char* value = nullptr;
  property_.GetFirstAttribute(&name);
  property_.GetAttributeValue("red", &value);
  for (int number = 0; number < 1000; ++number) {
    property_.AddAttribute(std::to_string(number).c_str(), long_text);
  }
  EXPECT_STREQ(name, "red");
  EXPECT_STREQ(value, "1");
}

TEST_F(PropertyAttributesTest, ManyAreFound) {
  constexpr int count = 20000;
  for (int number = 0; number < count; ++number) {
    const std::string text = std::to_string(number);
    ASSERT_EQ(property_.AddAttribute(text.c_str(), text.c_str()), S_OK);
  }
  int expected = 0;
  for (const char* each : oxa::attribute_names(property_)) {
    const std::string text = std::to_string(expected++);
    ASSERT_EQ(each, text);
    ASSERT_EQ(oxa::attribute(property_, each), text);
  }
  EXPECT_EQ(expected, count);
}

TEST_F(PropertyAttributesTest, NullIsRefused) {
  add({{"red", "1"}});
  char* out = marker_;
  EXPECT_EQ(property_.AddAttribute(nullptr, "1"), E_INVALIDARG);
  EXPECT_EQ(property_.AddAttribute("green", nullptr), E_INVALIDARG);
  EXPECT_EQ(property_.AddAttribute("red", nullptr), E_INVALIDARG);
  EXPECT_EQ(property_.GetFirstAttribute(nullptr), E_INVALIDARG);
  EXPECT_EQ(property_.GetNextAttribute(nullptr), E_INVALIDARG);
  EXPECT_EQ(property_.GetAttributeValue("red", nullptr), E_INVALIDARG);
  EXPECT_EQ(property_.GetAttributeValue(nullptr, &out), E_INVALIDARG);
  EXPECT_EQ(property_.GetAttributeFromValue("1", nullptr), E_INVALIDARG);
  EXPECT_EQ(property_.GetAttributeFromValue(nullptr, &out), E_INVALIDARG);
  EXPECT_EQ(property_.GetAttributeCount(), 1);
  EXPECT_EQ(out, marker_);
}

class PropertySupportTest : public PropertyTest {};

TEST_F(PropertySupportTest, WhatWasAddedIsSupported) {
  EXPECT_EQ(property_.AddSupport("node", "person"), S_OK);
  EXPECT_EQ(property_.AddSupport("node", "city"), S_OK);
  EXPECT_EQ(property_.AddSupport("edge", "road"), S_OK);
  EXPECT_TRUE(property_.Supports("node", "person"));
  EXPECT_TRUE(property_.Supports("node", "city"));
  EXPECT_TRUE(property_.Supports("edge", "road"));
}

TEST_F(PropertySupportTest, AddingAgainChangesNothing) {
  EXPECT_EQ(property_.AddSupport("node", "person"), S_OK);
  EXPECT_EQ(property_.AddSupport("node", "person"), S_OK);
  EXPECT_TRUE(property_.Supports("node", "person"));
}

TEST_F(PropertySupportTest, NothingElseIsSupported) {
  property_.AddSupport("node", "person");
  property_.AddSupport("edge", "road");
  const std::pair<const char*, const char*> others[] = {
      {"node", "road"},   {"edge", "person"},  {"Node", "person"},
      {"node", "Person"}, {"node", "perso"},   {"nod", "person"},
      {"person", "node"}, {"graph", "person"}, {"node ", "person"}};
  for (const auto& [category, name] : others) {
    EXPECT_FALSE(property_.Supports(category, name)) << category << " " << name;
    EXPECT_FALSE(property_.Supports(category, name)) << "when asked again";
  }
}

TEST_F(PropertySupportTest, NothingIsSupportedAtFirst) {
  EXPECT_FALSE(property_.Supports("node", "person"));
}

TEST_F(PropertySupportTest, AllMayBeSupported) {
  property_.AddSupport("node", "person");
  property_.SetSupportAllNodes(true);
  EXPECT_TRUE(property_.Supports("node", "city"));
  EXPECT_TRUE(property_.Supports("edge", "road"));
  property_.SetSupportAllNodes(false);
  EXPECT_FALSE(property_.Supports("node", "city"));
  EXPECT_TRUE(property_.Supports("node", "person"));
}

TEST_F(PropertySupportTest, NullAndEmptyAreNeverSupported) {
  EXPECT_EQ(property_.AddSupport("", "person"), S_OK);
  EXPECT_EQ(property_.AddSupport("node", ""), S_OK);
  for (const bool all : {false, true}) {
    property_.SetSupportAllNodes(all);
    EXPECT_FALSE(property_.Supports("", "person"));
    EXPECT_FALSE(property_.Supports("node", ""));
    EXPECT_FALSE(property_.Supports(nullptr, "person"));
    EXPECT_FALSE(property_.Supports("node", nullptr));
    EXPECT_FALSE(property_.Supports(nullptr, nullptr));
  }
}

TEST_F(PropertySupportTest, NullIsNotAdded) {
  EXPECT_EQ(property_.AddSupport(nullptr, "person"), E_INVALIDARG);
  EXPECT_EQ(property_.AddSupport("node", nullptr), E_INVALIDARG);
  EXPECT_EQ(property_.AddSupport(nullptr, nullptr), E_INVALIDARG);
}

}  // namespace
