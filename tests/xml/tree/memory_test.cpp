// Every allocation of every operation made to fail in turn.
#include <gtest/gtest.h>
#include <oxa/xml_text.h>

#include <new>
#include <streambuf>
#include <string>

#include "support/allocations.h"
#include "xml/oxa_xml_enums.h"
#include "xml/tree/trees.h"

using namespace oxa_test;

namespace {

// Runs `operation` until it runs through; each time before that it must throw std::bad_alloc.
// Returns how often it did.
template <class Operation>
unsigned long throws_until_it_works(Operation operation) {
  return fail_each_allocation([&] {
    try {
      operation();
      EXPECT_FALSE(FailingAllocation::happened());
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(FailingAllocation::happened());
    }
  });
}

// The same for one that returns `failure`; `unchanged` is checked after each.
template <class Operation, class Unchanged>
unsigned long fails_until_it_works(OXAResult failure, Operation operation, Unchanged unchanged) {
  return fail_each_allocation([&] {
    const OXAResult result = operation();
    EXPECT_EQ(result, FailingAllocation::happened() ? failure : S_OK);
    if (FailingAllocation::happened()) {
      unchanged();
    }
  });
}

TEST(ElementMemoryTest, MakingOne) {
  int result = E_FAIL;
  EXPECT_EQ(throws_until_it_works([&] { Element::adopt(new oxa_xml_element(result)); }), 1U);
  EXPECT_GE(throws_until_it_works([&] { Element::adopt(new oxa_xml_element("xml", result)); }), 4U);
  EXPECT_GE(throws_until_it_works([&] { delete new oxa_xml_element("xml", "text", result); }), 5U);
}

class ElementMemoryHomesTest : public HomesTest {};
INSTANTIATE_TEST_SUITE_P(Homes, ElementMemoryHomesTest, homes(), home_name);

TEST_P(ElementMemoryHomesTest, SetName) {
  const Element given = tree("<before/>");
  EXPECT_GE(fails_until_it_works(
                E_OUTOFMEMORY, [&] { return given->SetName("a name that is new"); },
                [&] { EXPECT_STREQ(given->Name(), "before"); }),
            1U);
  EXPECT_STREQ(given->Name(), "a name that is new");
}

TEST_P(ElementMemoryHomesTest, SetText) {
  const Element given = tree("<a>before</a>");
  EXPECT_GE(fails_until_it_works(
                E_OUTOFMEMORY, [&] { return given->SetText("a text that is new"); },
                [&] { EXPECT_EQ(text_of(*given), "before"); }),
            1U);
  EXPECT_EQ(text_of(*given), "a text that is new");
}

TEST_P(ElementMemoryHomesTest, ConvertedTexts) {
  const Element given = tree("<a/>");
  const std::string plain(1000, '<');
  given->SetText(plain.c_str());
  for (const auto get : {&oxa_xml_element::GetHTMLEscapedText, &oxa_xml_element::GetPlainText}) {
    char* text = nullptr;
    EXPECT_GE(throws_until_it_works([&] { EXPECT_EQ((*given.*get)(text), S_OK); }), 1U);
    EXPECT_STRNE(text, nullptr);
    EXPECT_EQ(text_of(*given), plain);
  }
}

TEST_P(ElementMemoryHomesTest, AddAttributeAtEveryCount) {
  const Element given = tree("<a k=\"1\"/>");
  for (int i = 0; i < 70; ++i) {
    const std::string before = shown(*given);
    const std::string key = "k" + std::to_string(i);
    EXPECT_GE(fails_until_it_works(
                  E_UNEXPECTED, [&] { return given->AddAttribute(key.c_str(), "value"); },
                  [&] { EXPECT_EQ(shown(*given), before); }),
              2U);
    EXPECT_EQ(value_of(*given, key.c_str()), "value");
    EXPECT_EQ(value_of(*given, "k"), "1");
  }
}

TEST_P(ElementMemoryHomesTest, ReplacingAnAttribute) {
  const Element given = tree("<a k=\"1\"/>");
  EXPECT_EQ(fails_until_it_works(
                E_UNEXPECTED, [&] { return given->AddAttribute("k", "2"); },
                [&] { EXPECT_EQ(shown(*given), "a[k=1]"); }),
            1U);
  EXPECT_EQ(shown(*given), "a[k=2]");
}

TEST_P(ElementMemoryHomesTest, AddChildAtEveryCount) {
  const Element given = tree("<a/>");
  unsigned long failures = 0;
  for (std::size_t count = 0; count < 20; ++count) {
    Element child = tree("<c/>");
    failures += fails_until_it_works(
        E_OUTOFMEMORY, [&] { return given->AddChild(child.get()); },
        [&] {
          EXPECT_EQ(child->CheckReference(), 1);
          EXPECT_EQ(given->child_count(), count);
        });
    static_cast<void>(child.detach());
    EXPECT_EQ(given->child_count(), count + 1);
  }
  EXPECT_GE(failures, 5U);
}

TEST_P(ElementMemoryHomesTest, GetAttributes) {
  const Element given = tree("<a k=\"1\" l=\"a value that is longer than a short string\"/>");
  oxa_xml_attribute_enum before(given->attributes());
  IOXAXMLAttributeEnum* out = nullptr;
  EXPECT_GE(fails_until_it_works(
                E_OUTOFMEMORY,
                [&] {
                  out = &before;
                  return given->GetAttributes(&out);
                },
                [&] { EXPECT_EQ(out, nullptr); }),
            3U);
  EXPECT_EQ(out->ReleaseReference(), 0);
}

// A query may run out of memory anywhere: what it has left on the elements stays, and the next goes
// on from there.
class QueryMemoryTest : public HomesTest {
 protected:
  template <class Query>
  unsigned long fails(Query query) {
    return fail_each_allocation([&] {
      try {
        const OXAResult result = query();
        EXPECT_EQ(result, FailingAllocation::happened() ? E_OUTOFMEMORY : S_OK);
      } catch (const std::bad_alloc&) {
        EXPECT_TRUE(FailingAllocation::happened());
      }
    });
  }

  Element top_ = tree("<top><a/><b><c><d/></c></b><e k=\"1\"/></top>");
};
INSTANTIATE_TEST_SUITE_P(Homes, QueryMemoryTest, homes(), home_name);

TEST_P(QueryMemoryTest, GetChildren) {
  IOXAXMLElementEnum* out = nullptr;
  EXPECT_GE(fails([&] {
              EXPECT_EQ(out, nullptr);
              return top_->GetChildren(nullptr, "gained", nullptr, &out);
            }),
            3U);
  EXPECT_EQ(out->Count(), 5U);
  EXPECT_EQ(out->ReleaseReference(), 0);
  EXPECT_EQ(shown(*top_), "top(a[gained=] b[gained=](c[gained=](d[gained=])) e[k=1 gained=])");
}

TEST_P(QueryMemoryTest, OnlyTheMakingOfTheEnumeratorIsAResult) {
  IOXAXMLElementEnum* out = nullptr;
  unsigned long results = 0;
  const unsigned long failures = fail_each_allocation([&] {
    try {
      results += top_->GetImmediateChildren(nullptr, nullptr, nullptr, &out) == E_OUTOFMEMORY;
    } catch (const std::bad_alloc&) {
      EXPECT_EQ(out, nullptr);
    }
  });
  EXPECT_EQ(results, 1U);
  EXPECT_GE(failures, 2U);
  EXPECT_EQ(out->ReleaseReference(), 0);
}

TEST_P(QueryMemoryTest, FirstChild) {
  IOXAXMLElement* out = nullptr;
  EXPECT_GE(fails([&] { return top_->FirstChild("e", "gained", "", &out); }), 3U);
  EXPECT_EQ(out, &below(top_, {2}));
}

TEST_P(QueryMemoryTest, GetChild) {
  below(top_, {2}).AddAttribute("id", "x");
  IOXAXMLElement* out = nullptr;
  EXPECT_GE(fails([&] {
              EXPECT_EQ(out, nullptr);
              return top_->GetChild("x", &out);
            }),
            3U);
  EXPECT_EQ(out, &below(top_, {2}));
  EXPECT_EQ(shown(*top_), "top(a[id=] b[id=](c[id=](d[id=])) e[k=1 id=x])");
}

class Discarding final : public std::streambuf {
  int_type overflow(int_type ch) override { return traits_type::not_eof(ch); }
};

TEST_P(ElementMemoryHomesTest, Dump) {
  const Element given =
      tree("<top k=\"a value that is longer than a short string\"><a><b/></a></top>");
  Discarding discarding;
  std::ostream os(&discarding);
  EXPECT_GE(throws_until_it_works([&] {
              int level = 0;
              given->dump(os, level);
            }),
            3U);
}

TEST(ElementMemoryTest, Escaping) {
  const std::string plain(1000, '<');
  std::string text;
  EXPECT_GE(throws_until_it_works([&] { text = ConvertToHTMLEscapedText(plain.c_str()); }), 1U);
  const std::string escaped = text;
  EXPECT_EQ(escaped.size(), 4000U);
  EXPECT_GE(throws_until_it_works([&] { text = ConvertFromHTMLEscapedText(escaped.c_str()); }), 1U);
  EXPECT_EQ(text, plain);
}

}  // namespace
