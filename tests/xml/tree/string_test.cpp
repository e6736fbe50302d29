// The strings of a tree.
#include "xml/xml_string.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "support/allocations.h"

using oxa::xml_shared_text;
using oxa::xml_string;

namespace {

TEST(XmlStringTest, EmptyHasNoDataAndTakesNoMemory) {
  const unsigned long before = oxa_test::made_allocations();
  const xml_string strings[] = {xml_string(), xml_string(""), xml_string::borrow(nullptr)};
  EXPECT_EQ(oxa_test::made_allocations(), before);
  for (const xml_string& string : strings) {
    EXPECT_TRUE(string.empty());
    EXPECT_EQ(string.data(), nullptr);
    EXPECT_STREQ(string.c_str(), "");
  }
}

TEST(XmlStringTest, CopiesToTheHeap) {
  for (const std::size_t length : {1U, 2U, 3U, 4U, 5U, 100U, 100000U}) {
    std::string text(length, 'x');
    const xml_string copy(text);
    text[0] = 'y';
    EXPECT_FALSE(copy.empty());
    EXPECT_EQ(copy.c_str(), std::string(length, 'x'));
    EXPECT_EQ(copy.data(), copy.c_str());
  }
}

TEST(XmlStringTest, BorrowsWithoutFreeing) {
  alignas(xml_string::alignment) char text[] = "text";
  {
    const xml_string borrowed = xml_string::borrow(text);
    EXPECT_EQ(borrowed.data(), text);
    EXPECT_EQ(borrowed.c_str(), text);
  }
  EXPECT_STREQ(text, "text");
}

TEST(XmlStringTest, BorrowedEmptyHasNoData) {
  alignas(xml_string::alignment) char text[] = "";
  EXPECT_EQ(xml_string::borrow(text).data(), nullptr);
  EXPECT_TRUE(xml_string::borrow(text).empty());
}

TEST(XmlStringTest, SharesUntilTheLastOneIsGone) {
  const long before = oxa_test::live_allocations();
  xml_shared_text* const text = xml_shared_text::create("shared");
  text->add_references(2);
  {
    const xml_string one = xml_string::share(text);
    const xml_string two = xml_string::share(text);
    EXPECT_EQ(one.c_str(), two.c_str());
    EXPECT_STREQ(one.data(), "shared");
  }
  EXPECT_STREQ(text->text(), "shared");
  text->release();
  EXPECT_EQ(oxa_test::live_allocations(), before);
}

TEST(XmlStringTest, AnEmptySharedTextHasNoData) {
  const xml_string shared = xml_string::share(xml_shared_text::create(""));
  EXPECT_EQ(shared.data(), nullptr);
  EXPECT_STREQ(shared.c_str(), "");
}

TEST(XmlStringTest, MovesWithoutMovingItsCharacters) {
  xml_string from("text");
  const char* const characters = from.c_str();
  xml_string to(std::move(from));
  EXPECT_EQ(to.c_str(), characters);
  xml_string other("other");
  other = std::move(to);
  EXPECT_EQ(other.c_str(), characters);
}

TEST(XmlStringTest, AssignmentFreesWhatWasThere) {
  const long before = oxa_test::live_allocations();
  xml_string string("text");
  string = xml_string("another");
  EXPECT_EQ(oxa_test::live_allocations(), before + 1);
  string = xml_string::share(xml_shared_text::create("shared"));
  EXPECT_EQ(oxa_test::live_allocations(), before + 1);
  string = xml_string();
  EXPECT_EQ(oxa_test::live_allocations(), before);
}

}  // namespace
