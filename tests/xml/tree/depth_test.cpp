// Trees of a million levels on a small stack.
#include <gtest/gtest.h>

#include <cstddef>
#include <streambuf>
#include <string>

#include "support/small_stack.h"
#include "xml/tree/trees.h"

using namespace oxa_test;

namespace {

// Far too many for a function that calls itself.
constexpr std::size_t many = 100000;

Element parsed_chain(std::size_t levels) {
  std::string source;
  for (std::size_t level = 1; level < levels; ++level) {
    source += "<a>";
  }
  source += "<last id=\"x\"/>";
  for (std::size_t level = 1; level < levels; ++level) {
    source += "</a>";
  }
  return parsed(source);
}

Element built_chain(std::size_t levels) {
  Element top = element("last");
  top->AddAttribute("id", "x");
  for (std::size_t level = 1; level < levels; ++level) {
    Element above = element("a");
    add(*above, top);
    top = above;
  }
  return top;
}

// Elements of the heap, with one of an arena now and then.
Element mixed_chain(std::size_t levels) {
  Element top = parsed("<last id=\"x\"/>");
  for (std::size_t level = 1; level < levels; ++level) {
    Element above = level % 16 == 0 ? parsed("<a/>") : element("a");
    add(*above, std::move(top));
    top = std::move(above);
  }
  return top;
}

class DeepTreeTest : public testing::TestWithParam<Element (*)(std::size_t)> {};
INSTANTIATE_TEST_SUITE_P(Homes, DeepTreeTest,
                         testing::Values(&parsed_chain, &built_chain, &mixed_chain));

TEST_P(DeepTreeTest, IsQueriedAndDestroyed) {
  on_small_stack([] {
    Element top = GetParam()(deep);
    EXPECT_EQ(top->children(nullptr, "id", nullptr).size(), deep - 1);
    EXPECT_EQ(names(top->children("last", "id", "x")), "last");
    EXPECT_EQ(names(top->immediate_children("a", nullptr, nullptr)), "a");
    EXPECT_STREQ(top->first_child("last", "k", "")->Name(), "last");
    EXPECT_EQ(top->first_child("none", nullptr, nullptr), nullptr);
    IOXAXMLElement* found = nullptr;
    EXPECT_EQ(top->GetChild("x", &found), S_OK);
    EXPECT_STREQ(found->Name(), "last");
    IOXAXMLElementEnum* all = nullptr;
    EXPECT_EQ(top->GetChildren(nullptr, nullptr, nullptr, &all), S_OK);
    EXPECT_EQ(all->Count(), deep - 1);
    all->ReleaseReference();
    top.reset();
  });
}

TEST_P(DeepTreeTest, IsDestroyedAsAChild) {
  on_small_stack([] {
    const Element parent = element("p");
    oxa_xml_element* const child = add(*parent, GetParam()(many));
    EXPECT_EQ(parent->RemoveChild(child), S_OK);
  });
}

TEST_P(DeepTreeTest, IsDestroyedBelowAnElementInPlace) {
  on_small_stack([] {
    int result = E_FAIL;
    oxa_xml_element parent("p", result);
    add(parent, GetParam()(many));
    add(parent, GetParam()(10));
  });
}

TEST_P(DeepTreeTest, LeavesWhatIsReferenced) {
  on_small_stack([] {
    Element top = GetParam()(many);
    const auto all = top->children(nullptr, nullptr, nullptr);
    Element kept[] = {Element::share(all[many / 3]), Element::share(all[many / 2])};
    top.reset();
    EXPECT_EQ(kept[0]->children(nullptr, nullptr, nullptr).size(), many - many / 3 - 2);
    kept[0].reset();
    EXPECT_EQ(kept[1]->CheckReference(), 1);
    EXPECT_EQ(kept[1]->children(nullptr, nullptr, nullptr).size(), many - many / 2 - 2);
  });
}

class Nowhere final : public std::streambuf {
 public:
  std::size_t written = 0;

 private:
  int_type overflow(int_type ch) override {
    ++written;
    return traits_type::not_eof(ch);
  }
  std::streamsize xsputn(const char*, std::streamsize length) override {
    written += static_cast<std::size_t>(length);
    return length;
  }
};

TEST_P(DeepTreeTest, OfTenThousandLevelsIsDumped) {
  on_small_stack([] {
    constexpr std::size_t levels = 10000;
    const Element top = GetParam()(levels);
    Nowhere nowhere;
    std::ostream os(&nowhere);
    int level = 0;
    top->dump(os, level);
    const std::size_t tags = (levels - 1) * std::string("<a>\n</a>\n").size();
    const std::size_t last = std::string("<last  id=\"x\"/>\n").size() + 3 * (levels - 1);
    EXPECT_EQ(nowhere.written, tags + last + 3 * (levels - 1) * (levels - 2));
    EXPECT_EQ(level, 0);
  });
}

}  // namespace
