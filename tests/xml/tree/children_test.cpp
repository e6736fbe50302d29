// Adding and removing children, and what becomes of them.
#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "xml/tree/trees.h"

using namespace oxa_test;

namespace {

TEST(ElementChildrenTest, AreKeptInOrderAndNotReferenced) {
  const Element parent = element("p");
  EXPECT_FALSE(parent->HasChildren());
  oxa_xml_element* const first = add(*parent, element("a"));
  add(*parent, element("b"));
  EXPECT_TRUE(parent->HasChildren());
  EXPECT_EQ(shown(*parent), "p(a b)");
  EXPECT_EQ(first->CheckReference(), 1);
}

// Each removal moved all children that were left.
TEST(ElementChildrenTest, ManyAreRemovedFromEitherEnd) {
  std::string source = "<p>";
  for (int i = 0; i < 200000; ++i) {
    source += "<a/>";
  }
  const Element parent = parsed(source + "</p>");
  for (int i = 0; i < 100000; ++i) {
    IOXAXMLElement* first = nullptr;
    parent->FirstChild(&first);
    ASSERT_EQ(parent->RemoveChild(first), S_OK);
    ASSERT_EQ(parent->RemoveChild(parent->child(parent->child_count() - 1)), S_OK);
  }
  EXPECT_FALSE(parent->HasChildren());
}

TEST(ElementChildrenTest, NullIsNoChild) {
  const Element parent = parsed("<p><a/></p>");
  EXPECT_EQ(parent->AddChild(nullptr), E_INVALIDARG);
  EXPECT_EQ(parent->RemoveChild(nullptr), E_INVALIDARG);
  EXPECT_EQ(shown(*parent), "p(a)");
}

TEST(ElementChildrenTest, TheFirstIsBorrowed) {
  const Element parent = parsed("<p><a><c/></a><b/></p>");
  IOXAXMLElement* first = parent.get();
  EXPECT_EQ(parent->FirstChild(nullptr), E_POINTER);
  EXPECT_EQ(parent->FirstChild(&first), S_OK);
  EXPECT_EQ(first, &below(parent, {0}));
  EXPECT_EQ(first->CheckReference(), 1);
}

TEST(ElementChildrenTest, WithoutAnyTheFirstIsNull) {
  const Element leaf = element("leaf");
  IOXAXMLElement* first = leaf.get();
  EXPECT_EQ(leaf->FirstChild(&first), S_OK);
  EXPECT_EQ(first, nullptr);
}

TEST(ElementChildrenTest, RemovingKeepsTheOrderOfTheOthers) {
  const char* const left[] = {"p(b c d)", "p(a c d)", "p(a b d)", "p(a b c)"};
  for (std::size_t position = 0; position < 4; ++position) {
    for (const auto home : {&built, &parsed}) {
      const Element parent = home("<p><a/><b/><c/><d/></p>");
      EXPECT_EQ(parent->RemoveChild(&below(parent, {position})), S_OK);
      EXPECT_EQ(shown(*parent), left[position]);
    }
  }
}

TEST(ElementChildrenTest, RemovingTheLastOneLeavesALeaf) {
  const Element parent = parsed("<p><a/></p>");
  EXPECT_EQ(parent->RemoveChild(&below(parent, {0})), S_OK);
  EXPECT_FALSE(parent->HasChildren());
  EXPECT_EQ(dumped(*parent), "<p/>\n");
  add(*parent, element("b"));
  EXPECT_EQ(shown(*parent), "p(b)");
}

TEST(ElementChildrenTest, OnlyDirectChildrenAreRemoved) {
  const Element parent = parsed("<p><a><b/></a></p>");
  const Element stranger = element("a");
  EXPECT_EQ(parent->RemoveChild(&below(parent, {0, 0})), S_FALSE);
  EXPECT_EQ(parent->RemoveChild(parent.get()), S_FALSE);
  EXPECT_EQ(parent->RemoveChild(stranger.get()), S_FALSE);
  EXPECT_EQ(stranger->RemoveChild(parent.get()), S_FALSE);
  EXPECT_EQ(shown(*parent), "p(a(b))");
}

TEST(ElementChildrenTest, RemoveChildDestroysWhateverTheCount) {
  for (const auto home : {&built, &parsed}) {
    const Element parent = home("<p><a><b/></a></p>");
    oxa_xml_element& removed = below(parent, {0});
    removed.AddReference();
    removed.AddReference();
    const auto kept = Element::share(&below(parent, {0, 0}));
    EXPECT_EQ(parent->RemoveChild(&removed), S_OK);
    EXPECT_EQ(kept->CheckReference(), 1);
    EXPECT_EQ(shown(*parent), "p");
  }
}

TEST(ElementChildrenTest, AReferencedChildOutlivesItsParent) {
  for (const auto home : {&built, &parsed}) {
    Element parent = home("<p><a k=\"v\"><b>text</b></a><c/></p>");
    const auto kept = Element::share(&below(parent, {0}));
    EXPECT_EQ(kept->CheckReference(), 2);
    parent.reset();
    EXPECT_EQ(kept->CheckReference(), 1);
    EXPECT_EQ(dumped(*kept), "<a  k=\"v\">\n   <b>text</b>\n</a>\n");
  }
}

TEST(ElementChildrenTest, EveryElementMayBeTheOneThatIsKept) {
  const std::string source = "<a><b><c/><d><e/></d></b><f><g/></f></a>";
  for (const auto home : {&built, &parsed}) {
    for (std::size_t kept = 0; kept < 6; ++kept) {
      Element top = home(source);
      const auto survivor = Element::share(top->children(nullptr, nullptr, nullptr)[kept]);
      const std::string before = shown(*survivor);
      top.reset();
      EXPECT_EQ(survivor->CheckReference(), 1);
      EXPECT_EQ(shown(*survivor), before);
    }
  }
}

TEST(ElementChildrenTest, TheSameChildTwiceIsReleasedTwice) {
  Element parent = element("p");
  const Element child = element("a");
  child->AddReference();
  child->AddReference();
  parent->AddChild(child.get());
  parent->AddChild(child.get());
  EXPECT_EQ(shown(*parent), "p(a a)");
  EXPECT_EQ(dumped(*parent), "<p>\n   <a/>\n   <a/>\n</p>\n");
  EXPECT_EQ(child->CheckReference(), 3);
  parent.reset();
  EXPECT_EQ(child->CheckReference(), 1);
}

TEST(ElementChildrenTest, AChildInTwoPlacesEndsWithTheLast) {
  Element parents[] = {element("p"), element("q")};
  Element child = element("a");
  child->AddReference();
  parents[0]->AddChild(child.get());
  parents[1]->AddChild(child.detach());
  parents[0].reset();
  EXPECT_EQ(shown(*parents[1]), "q(a)");
}

TEST(ElementChildrenTest, AChildWithoutAReferenceIsNotDestroyedWithItsParent) {
  int result = E_FAIL;
  const auto child = std::make_unique<oxa_xml_element>("a", "text", result);
  Element parent = element("p");
  parent->AddChild(child.get());
  parent.reset();
  EXPECT_EQ(child->CheckReference(), -1);
}

TEST(ElementChildrenTest, AnElementMadeInPlaceReleasesItsChildren) {
  const Element kept = element("kept");
  {
    int result = E_FAIL;
    oxa_xml_element parent("p", result);
    add(parent, kept);
    add(parent, built("<a><b><c/></b><d/></a>"));
    add(parent, parsed("<a><b><c/></b><d/></a>"));
    EXPECT_EQ(kept->CheckReference(), 2);
  }
  EXPECT_EQ(kept->CheckReference(), 1);
}

TEST(ElementChildrenTest, ConvertedTextsGoWithTheirElements) {
  for (const auto home : {&built, &parsed}) {
    Element top = home("<a><b>1</b><c><d>2</d><e>3</e></c></a>");
    const auto kept = Element::share(&below(top, {1, 0}));
    char* text = nullptr;
    for (oxa_xml_element* element : top->children(nullptr, nullptr, nullptr)) {
      element->GetPlainText(text);
    }
    top->RemoveChild(&below(top, {0}));
    kept->GetPlainText(text);
    top.reset();
    EXPECT_STREQ(text, "2");
  }
}

// Adds and removes by chance, and compares with a vector.
TEST(ElementChildrenTest, AddedAndRemovedByChanceAreThoseLeft) {
  std::minstd_rand chance(1);
  for (const auto home : {&built, &parsed}) {
    const Element parent = home("<p><c0/><c1/><c2/></p>");
    std::vector<oxa_xml_element*> expected = parent->immediate_children(nullptr, nullptr, nullptr);
    for (int step = 0; step < 3000; ++step) {
      if (expected.empty() || chance() % 5 < 3) {
        expected.push_back(add(*parent, home("<c><d/></c>")));
      } else {
        const auto removed = expected.begin() + chance() % expected.size();
        ASSERT_EQ(parent->RemoveChild(*removed), S_OK);
        expected.erase(removed);
      }
    }
    EXPECT_EQ(parent->immediate_children(nullptr, nullptr, nullptr), expected);
  }
}

TEST(ElementChildrenTest, MayBeAMillion) {
  constexpr std::size_t count = 1000000;
  const Element parent = element("p");
  for (std::size_t i = 0; i < count; ++i) {
    add(*parent, element("c"));
  }
  EXPECT_EQ(parent->children("c", nullptr, nullptr).size(), count);
  EXPECT_EQ(parent->RemoveChild(&below(parent, {count / 2})), S_OK);
  EXPECT_EQ(parent->child_count(), count - 1);
}

}  // namespace
