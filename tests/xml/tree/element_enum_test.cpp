// The enumerator over elements.
#include <gtest/gtest.h>

#include "xml/oxa_xml_enums.h"
#include "xml/tree/trees.h"

using namespace oxa_test;

namespace {

class ElementEnumTest : public testing::Test {
 protected:
  // Expects a call to store an element of this name.
  void expect(OXAResult result, const char* name) {
    EXPECT_EQ(result, S_OK);
    EXPECT_STREQ(out_->Name(), name);
  }

  Element top_ = parsed("<top><a/><b/><c/></top>");
  oxa_xml_element_enum walked_{top_->children(nullptr, nullptr, nullptr)};
  IOXAXMLElement* out_ = top_.get();
};

TEST_F(ElementEnumTest, WalksFromTheFirstToTheLast) {
  expect(walked_.GetFirst(&out_), "a");
  expect(walked_.GetNext(&out_), "b");
  expect(walked_.GetNext(&out_), "c");
  EXPECT_EQ(walked_.Count(), 3U);
}

TEST_F(ElementEnumTest, BeginsOnTheFirst) { expect(walked_.GetNext(&out_), "b"); }

TEST_F(ElementEnumTest, StaysAtItsEndWithTheOutputUntouched) {
  walked_.GetNext(&out_);
  walked_.GetNext(&out_);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(walked_.GetNext(&out_), S_FALSE);
    EXPECT_STREQ(out_->Name(), "c");
  }
  expect(walked_.GetFirst(&out_), "a");
  expect(walked_.GetNext(&out_), "b");
}

TEST_F(ElementEnumTest, ANullOutputMovesNothing) {
  EXPECT_EQ(walked_.GetNext(nullptr), E_POINTER);
  expect(walked_.GetNext(&out_), "b");
  EXPECT_EQ(walked_.GetFirst(nullptr), E_POINTER);
  expect(walked_.GetNext(&out_), "c");
}

TEST_F(ElementEnumTest, EmptyHasNoFirst) {
  oxa_xml_element_enum empty({});
  EXPECT_EQ(empty.Count(), 0U);
  EXPECT_EQ(empty.GetFirst(nullptr), E_POINTER);
  EXPECT_EQ(empty.GetFirst(&out_), E_UNEXPECTED);
  EXPECT_EQ(empty.GetNext(&out_), S_FALSE);
  EXPECT_EQ(out_, top_.get());
}

TEST_F(ElementEnumTest, OfASingleElementHasNoNext) {
  oxa_xml_element_enum single(top_->children("b", nullptr, nullptr));
  EXPECT_EQ(single.GetNext(&out_), S_FALSE);
  expect(single.GetFirst(&out_), "b");
}

TEST_F(ElementEnumTest, ReferencesNothing) {
  walked_.GetFirst(&out_);
  EXPECT_EQ(out_->CheckReference(), 1);
}

TEST_F(ElementEnumTest, IsACopyThatLaterChildrenDoNotJoin) {
  IOXAXMLElementEnum* before = nullptr;
  EXPECT_EQ(top_->GetChildren(nullptr, nullptr, nullptr, &before), S_OK);
  add(*top_, element("d"));
  EXPECT_EQ(before->Count(), 3U);
  EXPECT_EQ(before->CheckReference(), 1);
  EXPECT_EQ(before->ReleaseReference(), 0);
}

}  // namespace
