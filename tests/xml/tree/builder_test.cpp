// How a parse makes its texts and blocks.
#include "xml/xml_builder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "support/allocations.h"
#include "xml/tree/building.h"

using oxa::xml_builder;

namespace {

class XmlBuilderTest : public testing::Test {
 protected:
  // A source gives its texts with readable bytes behind them.
  std::string_view source(const std::string& text) {
    source_ = text + "behind the text...";
    return std::string_view(source_).substr(0, text.size());
  }
  char* copy(const std::string& text) { return builder_.copy(source(text)); }
  xml_builder::name_copy copy_name(const std::string& text) {
    return builder_.copy_name(source(text));
  }

  std::string source_;
  oxa_test::Building building_;
  xml_builder& builder_ = building_.builder;
};

TEST_F(XmlBuilderTest, TakesNoMemoryBeforeItMakesSomething) {
  EXPECT_EQ(builder_.arena(), nullptr);
  copy("text");
  EXPECT_NE(builder_.arena(), nullptr);
}

TEST_F(XmlBuilderTest, ItsElementsOutliveIt) {
  const long before = oxa_test::live_allocations();
  oxa::object_arena* arena = nullptr;
  {
    oxa_test::Building building;
    xml_builder& builder = building.builder;
    builder.add_element(64);
    builder.add_element(64);
    builder.undo_element();
    arena = builder.arena();
  }
  EXPECT_GT(oxa_test::live_allocations(), before);
  arena->remove_objects(1);
  EXPECT_EQ(oxa_test::live_allocations(), before);
}

TEST_F(XmlBuilderTest, CopiesAreTerminatedAlignedAndApart) {
  std::vector<char*> copies;
  const auto text = [](std::size_t length) {
    return std::string(length, static_cast<char>('a' + length % 26));
  };
  for (std::size_t length = 0; length < 3000; ++length) {
    copies.push_back(copy(text(length)));
  }
  for (std::size_t length = 0; length < copies.size(); ++length) {
    ASSERT_EQ(copies[length], text(length));
    ASSERT_EQ(reinterpret_cast<std::uintptr_t>(copies[length]) % oxa::thin_string::alignment, 0U);
  }
}

TEST_F(XmlBuilderTest, TextsAndObjectsAreApart) {
  std::set<char*> rooms;
  std::vector<char*> copies;
  for (int i = 0; i < 1000; ++i) {
    auto* const room = static_cast<char*>(builder_.add_element(72));
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(room) % alignof(void*), 0U);
    rooms.insert(room);
    copies.push_back(copy(std::to_string(i)));
    std::memset(room, 0xFF, 72);
  }
  for (int i = 0; i < 1000; ++i) {
    ASSERT_EQ(copies[static_cast<std::size_t>(i)], std::to_string(i));
  }
  for (auto room = rooms.begin(), next = std::next(room); next != rooms.end(); ++room, ++next) {
    EXPECT_GE(*next - *room, 72);
  }
  builder_.arena()->remove_objects(1000);
}

TEST_F(XmlBuilderTest, CopiesMayBeLargerThanAnyChunk) {
  const std::string large(std::size_t{5} << 20U, 'x');
  const char* const small = copy("before");
  EXPECT_EQ(copy(large), large);
  EXPECT_STREQ(copy("after"), "after");
  EXPECT_STREQ(small, "before");
}

TEST_F(XmlBuilderTest, ARepeatedShortNameIsCopiedOnce) {
  for (const std::string name : {"m", "member", "sixteen letters!"}) {
    const auto first = copy_name(name);
    const auto second = copy_name(name);
    EXPECT_TRUE(first.known);
    EXPECT_TRUE(second.known);
    EXPECT_EQ(second.text, first.text);
    EXPECT_NE(copy(name), first.text);
  }
}

TEST_F(XmlBuilderTest, ALongNameIsCopiedEachTime) {
  const auto first = copy_name("seventeen letters");
  const auto second = copy_name("seventeen letters");
  EXPECT_FALSE(first.known);
  EXPECT_FALSE(second.known);
  EXPECT_NE(second.text, first.text);
  EXPECT_STREQ(second.text, "seventeen letters");
}

// Equal names that are known must have one copy, and different names different ones.
TEST_F(XmlBuilderTest, NamesAreToldApart) {
  std::vector<std::string> names{"member",           "mexber",          "a", "aa",
                                 "aaaaaaaaa",        "aaaaaaaa",        "b", "abcdefghijklmnop",
                                 "abcdefghijklmnoq", "bbcdefghijklmnop"};
  for (int i = 0; i < 1000; ++i) {
    names.push_back(std::to_string(i));
  }
  std::vector<xml_builder::name_copy> first;
  for (const std::string& name : names) {
    first.push_back(copy_name(name));
  }
  for (std::size_t i = 0; i < names.size(); ++i) {
    const auto second = copy_name(names[i]);
    ASSERT_EQ(second.text, names[i]);
    ASSERT_EQ(first[i].text, names[i]);
    ASSERT_EQ(second.known, first[i].known);
    ASSERT_EQ(second.text == first[i].text, second.known);
  }
}

TEST_F(XmlBuilderTest, ABlockIsGivenOutAgainForItsSize) {
  for (const std::size_t bytes : {16U, 24U, 32U, 4096U, 65536U}) {
    void* const block = builder_.allocate_block(bytes);
    std::memset(block, 0xFF, bytes);
    builder_.recycle_block(block, bytes);
    EXPECT_NE(builder_.allocate_block(bytes / 2), block);
    EXPECT_EQ(builder_.allocate_block(bytes), block);
    EXPECT_NE(builder_.allocate_block(bytes), block);
  }
}

TEST_F(XmlBuilderTest, ABlockHoldsWhateverItsSizeClassHolds) {
  auto* const block = static_cast<char*>(builder_.allocate_block(33));
  auto* const next = static_cast<char*>(builder_.allocate_block(33));
  EXPECT_GE(std::max(block, next) - std::min(block, next), 64);
  builder_.recycle_block(block, 33);
  EXPECT_EQ(builder_.allocate_block(64), block);
}

}  // namespace
