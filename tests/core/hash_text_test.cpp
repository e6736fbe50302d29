#include "core/hash_text.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

TEST(HashTextTest, EqualTextsHaveEqualHashes) {
  const std::string text = "a text, wherever it lies in memory";
  const std::string padded = "x" + text + "y";
  EXPECT_EQ(oxa::hash_text(std::string_view(padded).substr(1, text.size())), oxa::hash_text(text));
  EXPECT_EQ(oxa::hash_text(std::string_view()), oxa::hash_text(""));
}

// Texts that differ in little: a number, their length, or one byte at any place.
TEST(HashTextTest, DifferentTextsHaveDifferentHashes) {
  std::set<std::size_t> hashes;
  std::size_t count = 0;
  const auto add = [&](const std::string& text) {
    hashes.insert(oxa::hash_text(text));
    ++count;
  };
  for (int number = 0; number < 20000; ++number) {
    add(std::to_string(number));
    add("a_long_namespace::" + std::to_string(number) + "::name");
  }
  add("");
  for (std::size_t size = 1; size < 40; ++size) {
    add(std::string(size, '\0'));
    add(std::string(size, 'a'));
    for (std::size_t at = 0; at < size; ++at) {
      std::string text(size, 'a');
      text[at] = 'b';
      add(text);
    }
  }
  EXPECT_EQ(hashes.size(), count);
}

// Hashes of paths are made of those of their parts, which may all be empty.
TEST(HashTextTest, TheHashOfTheEmptyTextIsNotZero) { EXPECT_NE(oxa::hash_text(""), 0); }

}  // namespace
