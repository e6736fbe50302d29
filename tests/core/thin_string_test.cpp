// Strings in one word.
#include "core/thin_string.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "support/allocations.h"

using oxa::shared_text;
using oxa::thin_string;

namespace {

TEST(ThinStringTest, EmptyHasNoDataAndTakesNoMemory) {
  const unsigned long before = oxa_test::made_allocations();
  const thin_string strings[] = {thin_string(), thin_string(""), thin_string::borrow(nullptr)};
  EXPECT_EQ(oxa_test::made_allocations(), before);
  for (const thin_string& string : strings) {
    EXPECT_TRUE(string.empty());
    EXPECT_EQ(string.data(), nullptr);
    EXPECT_STREQ(string.c_str(), "");
  }
}

TEST(ThinStringTest, CopiesToTheHeap) {
  for (const std::size_t length : {1U, 2U, 3U, 4U, 5U, 100U, 100000U}) {
    std::string text(length, 'x');
    const thin_string copy(text);
    text[0] = 'y';
    EXPECT_FALSE(copy.empty());
    EXPECT_EQ(copy.c_str(), std::string(length, 'x'));
    EXPECT_EQ(copy.data(), copy.c_str());
  }
}

TEST(ThinStringTest, BorrowsWithoutFreeing) {
  alignas(thin_string::alignment) char text[] = "text";
  {
    const thin_string borrowed = thin_string::borrow(text);
    EXPECT_EQ(borrowed.data(), text);
    EXPECT_EQ(borrowed.c_str(), text);
  }
  EXPECT_STREQ(text, "text");
}

TEST(ThinStringTest, BorrowedEmptyHasNoData) {
  alignas(thin_string::alignment) char text[] = "";
  EXPECT_EQ(thin_string::borrow(text).data(), nullptr);
  EXPECT_TRUE(thin_string::borrow(text).empty());
}

TEST(ThinStringTest, SharesUntilTheLastOneIsGone) {
  const long before = oxa_test::live_allocations();
  shared_text* const text = shared_text::create("shared");
  text->add_references(2);
  {
    const thin_string one = thin_string::share(text);
    const thin_string two = thin_string::share(text);
    EXPECT_EQ(one.c_str(), two.c_str());
    EXPECT_STREQ(one.data(), "shared");
  }
  EXPECT_STREQ(text->text(), "shared");
  text->release();
  EXPECT_EQ(oxa_test::live_allocations(), before);
}

TEST(ThinStringTest, AnEmptySharedTextHasNoData) {
  const thin_string shared = thin_string::share(shared_text::create(""));
  EXPECT_EQ(shared.data(), nullptr);
  EXPECT_STREQ(shared.c_str(), "");
}

TEST(ThinStringTest, MovesWithoutMovingItsCharacters) {
  thin_string from("text");
  const char* const characters = from.c_str();
  thin_string to(std::move(from));
  EXPECT_EQ(to.c_str(), characters);
  thin_string other("other");
  other = std::move(to);
  EXPECT_EQ(other.c_str(), characters);
}

TEST(ThinStringTest, AssignmentFreesWhatWasThere) {
  const long before = oxa_test::live_allocations();
  thin_string string("text");
  string = thin_string("another");
  EXPECT_EQ(oxa_test::live_allocations(), before + 1);
  string = thin_string::share(shared_text::create("shared"));
  EXPECT_EQ(oxa_test::live_allocations(), before + 1);
  string = thin_string();
  EXPECT_EQ(oxa_test::live_allocations(), before);
}

}  // namespace
