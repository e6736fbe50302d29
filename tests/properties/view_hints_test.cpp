// How a property is shown.
#include "support.h"

using namespace oxa_test;

namespace {

using ViewHintsTest = PropertyTest;

// A text of the hints, and how it is set.
struct HintText {
  OXAResult (IOXAPropertyViewHints::*set)(const char*);
  const char* (IOXAPropertyViewHints::*get)();
};

const HintText hint_texts[] = {
    {&IOXAPropertyViewHints::SetAlias, &IOXAPropertyViewHints::Alias},
    {&IOXAPropertyViewHints::SetTooltip, &IOXAPropertyViewHints::Tooltip},
    {&IOXAPropertyViewHints::SetGroup, &IOXAPropertyViewHints::Group},
};

TEST_F(ViewHintsTest, AreEmptyAtFirst) {
  EXPECT_EQ(hints_.Alias(), nullptr);
  EXPECT_EQ(hints_.Tooltip(), nullptr);
  EXPECT_EQ(hints_.Group(), nullptr);
  EXPECT_EQ(hints_.Editor(), 0);
  EXPECT_FALSE(hints_.Display());
}

TEST_F(ViewHintsTest, ATextCanBeReplaced) {
  for (const HintText& each : hint_texts) {
    for (const char* text : {"a", long_text, "b"}) {
      EXPECT_EQ((hints_.*each.set)(text), S_OK);
      EXPECT_STREQ((hints_.*each.get)(), text);
    }
  }
}

TEST_F(ViewHintsTest, AnEmptyTextReadsAsNone) {
  for (const HintText& each : hint_texts) {
    (hints_.*each.set)("a");
    EXPECT_EQ((hints_.*each.set)(""), S_OK);
    EXPECT_EQ((hints_.*each.get)(), nullptr);
  }
}

TEST_F(ViewHintsTest, NullIsRefused) {
  for (const HintText& each : hint_texts) {
    EXPECT_EQ((hints_.*each.set)(nullptr), E_INVALIDARG);
    EXPECT_EQ((hints_.*each.get)(), nullptr);
    (hints_.*each.set)("kept");
    EXPECT_EQ((hints_.*each.set)(nullptr), E_INVALIDARG);
    EXPECT_STREQ((hints_.*each.get)(), "kept");
  }
}

TEST_F(ViewHintsTest, ATextIsACopy) {
  for (const HintText& each : hint_texts) {
    std::string text = long_text;
    (hints_.*each.set)(text.c_str());
    text.assign(text.size(), 'x');
    EXPECT_STREQ((hints_.*each.get)(), long_text);
    EXPECT_EQ((hints_.*each.set)((hints_.*each.get)()), S_OK);
    EXPECT_STREQ((hints_.*each.get)(), long_text);
  }
}

TEST_F(ViewHintsTest, NumbersAreStored) {
  for (const int editor : {1, -1, 2147483647, 0}) {
    hints_.SetEditor(editor);
    EXPECT_EQ(hints_.Editor(), editor);
  }
  hints_.SetDisplayFlag(true);
  EXPECT_TRUE(hints_.Display());
  hints_.SetDisplayFlag(false);
  EXPECT_FALSE(hints_.Display());
}

TEST_F(ViewHintsTest, EachPropertyHasItsOwn) {
  IOXAProperty& other = add("other", DataType::Int);
  hints_.SetAlias("alias");
  EXPECT_EQ(property_.ViewHints(), &hints_);
  EXPECT_NE(other.ViewHints(), &hints_);
  EXPECT_EQ(other.ViewHints()->Alias(), nullptr);
}

}  // namespace
