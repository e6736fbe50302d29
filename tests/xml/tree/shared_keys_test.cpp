// The key that a query leaves on many elements, while these end in every order.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <thread>
#include <vector>

#include "support/allocations.h"
#include "xml/tree/trees.h"

using namespace oxa_test;

namespace {

using Four = std::array<Element, 4>;

// Four elements that have gained a key from one query and outlived their parent.
Four with_gained_key(Element (*home)(const std::string&)) {
  Element top = home("<top><a/><b/><c><d/></c></top>");
  const auto found = top->children(nullptr, "gained", nullptr);
  Four kept;
  for (std::size_t i = 0; i < kept.size(); ++i) {
    kept[i] = Element::share(found[i]);
  }
  return kept;
}

TEST(SharedKeyTest, LivesAsLongAsAnyElement) {
  std::array<std::size_t, 4> order{0, 1, 2, 3};
  do {
    for (const auto home : {&built, &parsed}) {
      Four kept = with_gained_key(home);
      for (const std::size_t ending : order) {
        EXPECT_EQ(kept[ending]->attributes().count(), 1U);
        EXPECT_STREQ(kept[ending]->attributes().begin()->key.c_str(), "gained");
        kept[ending].reset();
      }
    }
  } while (std::next_permutation(order.begin(), order.end()));
}

TEST(SharedKeyTest, CostsOneAllocationForAllThatGainIt) {
  const Element top = element("top");
  for (int i = 0; i < 1000; ++i) {
    oxa_xml_element* const child = add(*top, element("c"));
    child->AddAttribute("a", "1");  // leaves room for a second
  }
  const unsigned long before = made_allocations();
  EXPECT_EQ(top->immediate_children("none", "gained", nullptr).size(), 0U);
  EXPECT_EQ(made_allocations() - before, 1U);
}

TEST(SharedKeyTest, OfAQueryWithoutNeedIsNotMade) {
  const Element top = parsed("<top><c k=\"1\"/><c k=\"2\"/></top>");
  const unsigned long before = made_allocations();
  EXPECT_EQ(top->immediate_children(nullptr, "k", "none").size(), 0U);
  EXPECT_EQ(made_allocations(), before);
}

TEST(SharedKeyTest, StaysWhenTheAttributesGrowAndChange) {
  Four kept = with_gained_key(&parsed);
  for (int i = 0; i < 100; ++i) {
    kept[0]->AddAttribute(std::to_string(i).c_str(), "value");
  }
  kept[0]->AddAttribute("gained", "mine");
  kept[1]->SetName("gained");
  EXPECT_EQ(value_of(*kept[0], "gained"), "mine");
  kept[0].reset();
  EXPECT_EQ(shown(*kept[1]), "gained[gained=]");
}

TEST(SharedKeyTest, MayBeTheWrittenKeyOfAnotherQuery) {
  const Element top = parsed("<top><a/></top>");
  top->children(nullptr, "one", nullptr);
  const char* const key = below(top, {0}).attributes().begin()->key.c_str();
  add(*top, element("b"));
  top->children(nullptr, key, nullptr);
  EXPECT_EQ(shown(*top), "top(a[one=] b[one=])");
}

TEST(SharedKeyTest, IsReleasedByManyThreads) {
  Element top = parsed("<top/>");
  for (int i = 0; i < 64; ++i) {
    add(*top, built("<c><d/><d/></c>"));
  }
  top->children(nullptr, "gained", nullptr);
  std::vector<std::thread> threads;
  for (std::size_t part = 0; part < 4; ++part) {
    std::vector<Element> kept;
    for (std::size_t i = part; i < 64; i += 4) {
      kept.push_back(Element::share(&below(top, {i})));
    }
    threads.emplace_back([mine = std::move(kept)]() mutable {
      for (Element& element : mine) {
        EXPECT_EQ(shown(*element), "c[gained=](d[gained=] d[gained=])");
        element.reset();
      }
    });
  }
  top.reset();
  for (std::thread& thread : threads) {
    thread.join();
  }
}

}  // namespace
