// The queries of an element, and what they leave behind.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "support/allocations.h"
#include "xml/oxa_xml_enums.h"
#include "xml/tree/trees.h"

using namespace oxa_test;

namespace {

using Enum = oxa::Ref<IOXAXMLElementEnum>;

// Each level has a child beside the way down, so the walk must come back to all of them.
TEST(ElementQueryTest, FindsWhatIsBesideALongWayDown) {
  std::string source = "<leaf/>";
  for (int level = 0; level < 50; ++level) {
    source.insert(0, "<a><b/>").append("<c/></a>");
  }
  const Element top = parsed(source);
  EXPECT_EQ(top->children("b", nullptr, nullptr).size(), 50U);
  EXPECT_EQ(top->children("c", nullptr, nullptr).size(), 50U);
  EXPECT_EQ(top->children(nullptr, nullptr, nullptr).size(), 150U);
  EXPECT_EQ(top->children(nullptr, nullptr, nullptr).back(), &below(top, {2}));
}

TEST(ElementQueryTest, ASearchThatHitsAllocatesNothing) {
  const Element top =
      parsed("<top><a k=\"1\"><b/><c k=\"2\" id=\"x\"/></a><d k=\"3\" id=\"y\"/></top>");
  below(top, {0}).AddAttribute("id", "z");
  below(top, {0, 0}).AddAttribute("id", "w");
  const unsigned long before = oxa_test::made_allocations();
  IOXAXMLElement* found = nullptr;
  char* value = nullptr;
  EXPECT_EQ(top->FirstChild("c", nullptr, nullptr, &found), S_OK);
  EXPECT_EQ(found->GetAttribute("k", &value), S_OK);
  EXPECT_EQ(top->FirstChild(nullptr, "id", "y", &found), S_OK);
  EXPECT_EQ(top->GetChild("y", &found), S_OK);
  EXPECT_EQ(oxa_test::made_allocations(), before);
  EXPECT_EQ(found, &below(top, {1}));
}

constexpr char tree_source[] =
    "<top k=\"1\"><a k=\"1\"><b k=\"2\"/><a><b k=\"1\"/></a></a><b/><c k=\"2\"><a "
    "k=\"1\"/></c></top>";

struct Filter {
  const char* name;
  const char* key;
  const char* value;
  const char* found;      // among all descendants
  const char* immediate;  // among direct children
};

std::string described(const Filter& filter) {
  return text_of(filter.name) + ", " + text_of(filter.key) + ", " + text_of(filter.value);
}

constexpr Filter filters[] = {
    {nullptr, nullptr, nullptr, "a b a b b c a", "a b c"},
    {"a", nullptr, nullptr, "a a a", "a"},
    {"b", nullptr, nullptr, "b b b", "b"},
    {"A", nullptr, nullptr, "", ""},
    {"top", nullptr, nullptr, "", ""},
    {"", nullptr, nullptr, "", ""},
    {"ab", nullptr, nullptr, "", ""},
    {nullptr, "k", "1", "a b a", "a"},
    {nullptr, "k", "2", "b c", "c"},
    {nullptr, "k", "", "a b", "b"},
    {nullptr, "k", "12", "", ""},
    {nullptr, "k", nullptr, "a b a b b c a", "a b c"},
    {"b", "k", nullptr, "b b b", "b"},
    {"b", "k", "1", "b", ""},
    {"a", "k", "1", "a a", "a"},
    {"c", "k", "1", "", ""},
    {nullptr, "other", "", "a b a b b c a", "a b c"},
    {nullptr, "other", "1", "", ""},
    {"b", nullptr, "1", "b b b", "b"},
    {"b", "", "1", "b b b", "b"},
    {nullptr, "", "", "a b a b b c a", "a b c"},
};

TEST(ElementQueryTest, FindsByTheTableOfFilters) {
  for (const Filter& filter : filters) {
    for (const auto home : {&built, &parsed}) {
      const Element top = home(tree_source);
      EXPECT_EQ(names(top->children(filter.name, filter.key, filter.value)), filter.found)
          << described(filter);
      EXPECT_EQ(names(top->immediate_children(filter.name, filter.key, filter.value)),
                filter.immediate)
          << described(filter);
    }
  }
}

std::string walked(const Enum& found) {
  oxa_xml_element::elements elements;
  IOXAXMLElement* element = nullptr;
  for (OXAResult result = found->GetFirst(&element); result == S_OK;
       result = found->GetNext(&element)) {
    elements.push_back(static_cast<oxa_xml_element*>(element));
  }
  EXPECT_EQ(found->Count(), elements.size());
  return names(elements);
}

// Expects an enumerating query to give these elements.
template <class Query>
void expect_found(const Filter& filter, const char* expected, Query query) {
  const Element top = parsed(tree_source);
  IOXAXMLElementEnum* out = nullptr;
  if (*expected == '\0') {
    oxa_xml_element_enum before({});
    out = &before;
    EXPECT_EQ(query(*top, &out), E_NOTFOUND) << described(filter);
    EXPECT_EQ(out, &before);
    return;
  }
  ASSERT_EQ(query(*top, &out), S_OK) << described(filter);
  const Enum found = Enum::adopt(out);
  EXPECT_EQ(found->CheckReference(), 1);
  EXPECT_EQ(walked(found), expected) << described(filter);
}

TEST(ElementQueryTest, EnumeratesByTheTableOfFilters) {
  for (const Filter& filter : filters) {
    expect_found(filter, filter.found, [&](oxa_xml_element& top, IOXAXMLElementEnum** out) {
      return top.GetChildren(filter.name, filter.key, filter.value, out);
    });
    expect_found(filter, filter.immediate, [&](oxa_xml_element& top, IOXAXMLElementEnum** out) {
      return top.GetImmediateChildren(filter.name, filter.key, filter.value, out);
    });
  }
}

TEST(ElementQueryTest, TheFirstIsTheFirstOfAll) {
  for (const Filter& filter : filters) {
    const Element top = parsed(tree_source);
    IOXAXMLElement* first = top.get();
    EXPECT_EQ(top->FirstChild(filter.name, filter.key, filter.value, &first), S_OK);
    const auto all = top->children(filter.name, filter.key, filter.value);
    EXPECT_EQ(first, all.empty() ? nullptr : all.front()) << described(filter);
    EXPECT_EQ(top->first_child(filter.name, filter.key, filter.value), first);
  }
}

TEST(ElementQueryTest, TheClassFindsByNameAlone) {
  for (const Filter& filter : filters) {
    if (filter.key == nullptr && filter.value == nullptr) {
      expect_found(filter, filter.found, [&](oxa_xml_element& top, IOXAXMLElementEnum** out) {
        return top.GetChildren(filter.name, out);
      });
    }
  }
}

TEST(ElementQueryTest, TheClassFindsByKeyAndValueAlone) {
  for (const Filter& filter : filters) {
    if (filter.name == nullptr) {
      expect_found(filter, filter.found, [&](oxa_xml_element& top, IOXAXMLElementEnum** out) {
        return top.GetChildren(filter.key, filter.value, out);
      });
    }
  }
}

TEST(ElementQueryTest, ALeafHasNothingToFind) {
  const Element leaf = element("leaf");
  IOXAXMLElementEnum* out = nullptr;
  EXPECT_EQ(leaf->GetChildren(nullptr, nullptr, nullptr, &out), E_NOTFOUND);
  EXPECT_EQ(leaf->GetImmediateChildren(nullptr, nullptr, nullptr, &out), E_NOTFOUND);
  IOXAXMLElement* first = leaf.get();
  EXPECT_EQ(leaf->FirstChild(nullptr, nullptr, nullptr, &first), S_OK);
  EXPECT_EQ(first, nullptr);
  EXPECT_EQ(out, nullptr);
}

TEST(ElementQueryTest, TheOutputIsCheckedFirst) {
  const Element top = parsed("<top><a/></top>");
  EXPECT_EQ(top->GetChildren("none", "k", "v", nullptr), E_POINTER);
  EXPECT_EQ(top->GetChildren("none", nullptr), E_POINTER);
  EXPECT_EQ(top->GetChildren("k", "v", nullptr), E_POINTER);
  EXPECT_EQ(top->GetImmediateChildren("none", "k", "v", nullptr), E_POINTER);
  EXPECT_EQ(top->FirstChild("none", "k", "v", nullptr), E_POINTER);
  EXPECT_EQ(top->GetChild("x", nullptr), E_POINTER);
  EXPECT_EQ(top->GetChild(nullptr, nullptr), E_POINTER);
  EXPECT_EQ(shown(*top), "top(a)");
}

TEST(ElementQueryTest, NamelessElementsMatchAnEmptyName) {
  const Element top = parsed("<top><a/></top>");
  add(*top, element(""));
  EXPECT_EQ(top->children("", nullptr, nullptr).size(), 1U);
  EXPECT_EQ(top->children(nullptr, nullptr, nullptr).size(), 2U);
}

TEST(ElementQueryTest, EveryVisitedElementGainsTheKey) {
  for (const auto home : {&built, &parsed}) {
    const Element top = home("<top><a><b k=\"1\"/></a><c x=\"2\"/></top>");
    EXPECT_EQ(names(top->children("b", "k", "1")), "b");
    EXPECT_EQ(shown(*top), "top(a[k=](b[k=1]) c[x=2 k=])");
    EXPECT_EQ(names(top->children("a", "k", nullptr)), "a");
    EXPECT_EQ(shown(*top), "top(a[k=](b[k=1]) c[x=2 k=])");
    EXPECT_EQ(dumped(below(top, {1})), "<c  x=\"2\"  k=\"\"/>\n");
  }
}

TEST(ElementQueryTest, AnEmptyKeyIsNotGained) {
  const Element top = parsed(tree_source);
  const std::string before = shown(*top);
  top->children(nullptr, "", "v");
  top->children("a", nullptr, "v");
  top->first_child(nullptr, "", nullptr);
  top->immediate_children(nullptr, "", "");
  EXPECT_EQ(shown(*top), before);
}

TEST(ElementQueryTest, DirectChildrenAloneGainTheKeyOfTheirQuery) {
  const Element top = parsed("<top><a><b/></a><c/></top>");
  top->immediate_children("none", "k", "v");
  EXPECT_EQ(shown(*top), "top(a[k=](b) c[k=])");
}

TEST(ElementQueryTest, TheFirstMatchEndsTheVisit) {
  const Element top = parsed("<top><a><b/></a><c/><d/></top>");
  EXPECT_EQ(top->first_child("b", "k", nullptr), &below(top, {0, 0}));
  EXPECT_EQ(shown(*top), "top(a[k=](b[k=]) c d)");
  EXPECT_EQ(top->first_child("none", "k", nullptr), nullptr);
  EXPECT_EQ(shown(*top), "top(a[k=](b[k=]) c[k=] d[k=])");
}

TEST(ElementQueryTest, AGainedKeyIsAnAttributeLikeOthers) {
  const Element top = parsed("<top><a/><b/></top>");
  top->children(nullptr, "k", nullptr);
  oxa_xml_element& gained = below(top, {0});
  char* value = nullptr;
  EXPECT_EQ(gained.GetAttribute("k", &value), E_INVALIDARG);
  EXPECT_EQ(gained.AddAttribute("k", "v"), S_OK);
  EXPECT_EQ(shown(*top), "top(a[k=v] b[k=])");
  EXPECT_EQ(names(top->children(nullptr, "k", "v")), "a");
}

// Expects GetChild to find the element by this name, "(null)" for none, and leave the tree so.
void expect_child(const char* source, const char* id, const char* found, const char* left) {
  for (const auto home : {&built, &parsed}) {
    const Element top = home(source);
    IOXAXMLElement* out = top.get();
    EXPECT_EQ(top->GetChild(id, &out), S_OK);
    EXPECT_EQ(out == nullptr ? "(null)" : out->Name(), std::string(found)) << source;
    EXPECT_EQ(shown(*top), left) << source;
  }
}

TEST(ElementQueryTest, GetChildFollowsTheLastChild) {
  expect_child("<t/>", "x", "(null)", "t");
  expect_child("<t id=\"x\"/>", "x", "(null)", "t[id=x]");
  expect_child("<t><a id=\"x\"/></t>", "x", "a", "t(a[id=x])");
  expect_child("<t><a/><b id=\"x\"/></t>", "x", "b", "t(a[id=] b[id=x])");
  expect_child("<t><a id=\"x\"/><b/></t>", "x", "(null)", "t(a[id=x] b[id=])");
  expect_child("<t><a/><b><c/><d id=\"x\"/></b></t>", "x", "d", "t(a[id=] b[id=](c[id=] d[id=x]))");
  expect_child("<t><b><c id=\"x\"/><d/></b></t>", "x", "(null)", "t(b[id=](c[id=x] d[id=]))");
  expect_child("<t><a><b id=\"x\"/></a><c/></t>", "x", "(null)", "t(a[id=](b[id=x]) c[id=])");
  expect_child("<t><a id=\"x\"/><b id=\"x\"/></t>", "x", "b", "t(a[id=x] b[id=x])");
}

TEST(ElementQueryTest, GetChildLeavesWhatIsBelowAMatch) {
  expect_child("<t><a id=\"x\"><b/></a></t>", "x", "a", "t(a[id=x](b))");
  expect_child("<t><a id=\"x\"><b/></a><c><d/></c></t>", "x", "(null)",
               "t(a[id=x](b) c[id=](d[id=]))");
}

TEST(ElementQueryTest, GetChildTakesAMissingIdForAnEmptyOne) {
  expect_child("<t><a><b/></a></t>", "", "a", "t(a[id=](b))");
  expect_child("<t><a id=\"x\"><b/></a></t>", "", "b", "t(a[id=x](b[id=]))");
}

TEST(ElementQueryTest, GetChildComparesEveryByte) {
  expect_child("<t><a id=\"ab\"/></t>", "a", "(null)", "t(a[id=ab])");
  expect_child("<t><a id=\"a\"/></t>", "ab", "(null)", "t(a[id=a])");
  expect_child("<t><a id=\"X\"/></t>", "x", "(null)", "t(a[id=X])");
}

TEST(ElementQueryTest, GetChildWithANullIdIsALogicError) {
  const Element top = parsed("<t><a/></t>");
  IOXAXMLElement* out = top.get();
  EXPECT_THROW(top->GetChild(nullptr, &out), std::logic_error);
  EXPECT_EQ(out, nullptr);
}

}  // namespace
