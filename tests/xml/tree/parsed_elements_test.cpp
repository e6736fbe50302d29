// Elements of a parse that are changed, and that outlive their document and each other.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <thread>
#include <vector>

#include "support/allocations.h"
#include "xml/tree/trees.h"

using namespace oxa_test;

namespace {

TEST(ParsedElementTest, IsChangedLikeAnyOther) {
  const Element top = parsed("<top k=\"1\"><a x=\"2\">text</a><b/><c><d/></c></top>");
  oxa_xml_element& first = below(top, {0});
  EXPECT_EQ(first.SetText("a text that is longer than the one before"), S_OK);
  EXPECT_EQ(first.AddAttribute("x", "9"), S_OK);
  EXPECT_EQ(first.AddAttribute("y", "10"), S_OK);
  EXPECT_EQ(first.AddAttribute("z", "11"), S_OK);
  EXPECT_EQ(top->RemoveChild(&below(top, {1})), S_OK);
  add(below(top, {1, 0}), element("new", "1"));
  add(*top, parsed("<other><e/></other>"));
  EXPECT_EQ(top->SetName("renamed"), S_OK);
  EXPECT_EQ(dumped(*top),
            "<renamed  k=\"1\">\n"
            "   <a  x=\"9\"  y=\"10\"  z=\"11\">a text that is longer than the one before</a>\n"
            "   <c>\n      <d>\n         <new>1</new>\n      </d>\n   </c>\n"
            "   <other>\n      <e/>\n   </other>\n"
            "</renamed>\n");
}

TEST(ParsedElementTest, ARenamedOneLeavesItsNamesakesAlone) {
  const Element top = parsed("<a><a/><a k=\"1\"/><b k=\"1\"/></a>");
  below(top, {0}).SetName("z");
  below(top, {1}).AddAttribute("k", "2");
  EXPECT_EQ(shown(*top), "a(z a[k=2] b[k=1])");
}

TEST(ParsedElementTest, GrowsByHeapChildrenAtEveryCount) {
  for (std::size_t parsed_count = 0; parsed_count < 20; ++parsed_count) {
    std::string source = "<p>";
    std::string expected = "p";
    for (std::size_t i = 0; i < parsed_count + 10; ++i) {
      source += i < parsed_count ? "<c" + std::to_string(i) + "/>" : "";
      expected += (i == 0 ? "(c" : " c") + std::to_string(i);
    }
    const Element parent = parsed(source + "</p>");
    for (std::size_t i = parsed_count; i < parsed_count + 10; ++i) {
      add(*parent, element(("c" + std::to_string(i)).c_str()));
    }
    EXPECT_EQ(shown(*parent), expected + ")");
  }
}

TEST(ParsedElementTest, MayHaveManyChildrenInTheSource) {
  for (const std::size_t count : {4096U, 8192U, 8193U, 20000U}) {
    std::string source = "<p>";
    for (std::size_t i = 0; i < count; ++i) {
      source += "<c><d/></c>";
    }
    const Element parent = parsed(source + "</p>");
    EXPECT_EQ(parent->children("d", nullptr, nullptr).size(), count);
  }
}

TEST(ParsedElementTest, MovesToATreeOfAnotherParse) {
  Element from = parsed("<from><a>text</a></from>");
  Element to = parsed("<to/>");
  add(*to, Element::share(&below(from, {0})));
  from.reset();
  EXPECT_EQ(dumped(*to), "<to>\n   <a>text</a>\n</to>\n");
  add(*to, parsed("<b><c/></b>"));
  add(below(to, {0}), parsed("<d/>"));
  EXPECT_EQ(shown(*to), "to(a(d) b(c))");
}

// The memory of a parse goes with the last of its elements, whichever that is.
TEST(ParsedElementTest, TheLastOneFreesTheMemoryOfAll) {
  const std::string source = "<a x=\"1\"><b/><c><d>text</d></c></a>";
  const long before = live_allocations();
  for (std::size_t last = 0; last < 3; ++last) {
    Element top = parsed(source);
    const long alive = live_allocations();
    auto kept = Element::share(top->children(nullptr, nullptr, nullptr)[last]);
    top.reset();
    EXPECT_EQ(live_allocations(), alive);
    kept.reset();
    EXPECT_EQ(live_allocations(), before);
  }
}

TEST(ParsedElementTest, EndsInEveryOrderOfThree) {
  for (const auto& order :
       {std::vector<int>{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}}) {
    Element top = parsed("<top><a k=\"1\">one</a><b k=\"1\"><c/></b></top>");
    Element kept[] = {top, Element::share(&below(top, {0})), Element::share(&below(top, {1}))};
    top.reset();
    for (const int ending : order) {
      EXPECT_NE(shown(*kept[ending]), "");
      EXPECT_STREQ(kept[ending]->Name(), ending == 0 ? "top" : ending == 1 ? "a" : "b");
      kept[ending].reset();
    }
  }
}

// Uses what is left of a tree in every way, and gives it up.
void use_up(Element kept, const std::string& expected) {
  EXPECT_EQ(shown(*kept), expected);
  kept->SetText("text");
  kept->SetText("");
  for (int i = 0; i < 40; ++i) {
    kept->AddAttribute(std::to_string(i).c_str(), "value");
    add(*kept, element("added"));
  }
  kept->children(nullptr, "gained", nullptr);
  for (oxa_xml_element* child : kept->immediate_children(nullptr, nullptr, nullptr)) {
    char* text = nullptr;
    child->SetText("&lt;");
    child->GetPlainText(text);
    EXPECT_STREQ(text, "<");
  }
  kept->RemoveChild(&below(kept, {0}));
}

TEST(ParsedElementTest, SubtreesAreUsedAndReleasedByTwoThreads) {
  for (int round = 0; round < 20; ++round) {
    Element top =
        parsed("<top><a k=\"v\"><c>x</c><c>y</c></a><a k=\"v\"><c>x</c><c>y</c></a><rest/></top>");
    top->children(nullptr, "shared", nullptr);
    Element kept[] = {Element::share(&below(top, {0})), Element::share(&below(top, {1}))};
    top.reset();
    const std::string expected = "a[k=v shared=](c[shared=] c[shared=])";
    std::thread other(use_up, std::move(kept[0]), expected);
    use_up(std::move(kept[1]), expected);
    other.join();
  }
}

TEST(ParsedElementTest, ASubtreeIsUsedWhileItsTreeEnds) {
  for (int round = 0; round < 20; ++round) {
    Element top = parsed("<top><a><c/><c/></a><a><c/><c/></a></top>");
    auto kept = Element::share(&below(top, {1}));
    std::thread other(use_up, std::move(kept), "a(c c)");
    top.reset();
    other.join();
  }
}

}  // namespace
