// The helpers around elements in sdk/xml.h.
#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "sdk/xml_documents.h"
#include "support/allocations.h"
#include "support/small_stack.h"

using namespace oxa_test;

namespace {

TEST(ChildrenTest, AreVisitedInOrder) {
  oxa::XMLDocument document(document_of("<a><b/><c><b/></c><b/></a>"));
  IOXAXMLElement& root = *oxa::root(*document);
  EXPECT_EQ(named(oxa::children(root)), "b c b ");
  EXPECT_EQ(named(oxa::children(root, "b")), "b b ");
  EXPECT_EQ(named(oxa::descendants(root)), "b c b b ");
  EXPECT_EQ(named(oxa::descendants(root, "b")), "b b b ");
}

TEST(ChildrenTest, MayBeNone) {
  oxa::XMLDocument document(document_of("<a><b/></a>"));
  IOXAXMLElement& root = *oxa::root(*document);
  EXPECT_EQ(named(oxa::children(root, "a")), "");
  EXPECT_EQ(named(oxa::descendants(root, "")), "");
  EXPECT_EQ(named(oxa::children(**oxa::children(root).begin())), "");
}

TEST(ChildrenTest, AreNotReferenced) {
  oxa::XMLDocument document(document_of("<a><b/></a>"));
  for (IOXAXMLElement* child : oxa::children(*oxa::root(*document))) {
    EXPECT_EQ(child->CheckReference(), 1);
  }
}

TEST(ChildrenTest, AreThoseOfTheMomentOfTheCall) {
  oxa::XMLDocument document(document_of("<a><b/><c/></a>"));
  IOXAXMLElement& root = *oxa::root(*document);
  for (IOXAXMLElement* child : oxa::children(root)) {
    EXPECT_EQ(root.RemoveChild(child), S_OK);
  }
  EXPECT_FALSE(root.HasChildren());
}

TEST(ChildrenTest, ThrowForWantOfMemory) {
  oxa::XMLDocument document(document_of("<a><b/><b><c/></b></a>"));
  IOXAXMLElement& root = *oxa::root(*document);
  EXPECT_GE(throwing_failures([&] { EXPECT_EQ(named(oxa::children(root)), "b b "); }), 2U);
  EXPECT_GE(throwing_failures([&] { EXPECT_EQ(named(oxa::descendants(root)), "b b c "); }), 2U);
}

TEST(AttributeTest, IsTheValueOrEmptyOrTheFallback) {
  oxa::XMLDocument document(document_of("<a full=\"1\" empty=\"\"/>"));
  IOXAXMLElement& root = *oxa::root(*document);
  EXPECT_STREQ(oxa::attribute(root, "full", "none"), "1");
  EXPECT_STREQ(oxa::attribute(root, "empty", "none"), "");
  EXPECT_STREQ(oxa::attribute(root, "absent", "none"), "none");
  EXPECT_STREQ(oxa::attribute(root, "absent"), "");
  EXPECT_EQ(oxa::attribute(root, "absent", nullptr), nullptr);
  EXPECT_EQ(listed(root), "full=1;empty=;");
}

TEST(TextTest, IsAsItStandsOrPlain) {
  oxa::XMLDocument document(document_of("<a>1 &lt; 2 &amp;&quot;</a>"));
  IOXAXMLElement& root = *oxa::root(*document);
  EXPECT_EQ(oxa::text(root), "1 &lt; 2 &amp;&quot;");
  EXPECT_EQ(oxa::plain_text(root), "1 < 2 &&quot;");
}

TEST(TextTest, MayBeEmpty) {
  oxa::XMLDocument document(document_of("<a/>"));
  EXPECT_EQ(oxa::text(*oxa::root(*document)), "");
  EXPECT_EQ(oxa::plain_text(*oxa::root(*document)), "");
}

TEST(FindTest, GivesTheFirstThatMatches) {
  oxa::XMLDocument document(
      document_of("<r k=\"1\" n=\"root\">"
                  "<a n=\"1\"><b k=\"1\" n=\"2\"/></a>"
                  "<a k=\"1\" n=\"3\"/><a k=\"\" n=\"4\"/><a k=\"2\" n=\"5\"/>"
                  "</r>"));
  const struct {
    const char* name;
    const char* key;
    const char* value;
    const char* found;  // by its "n"
  } cases[] = {
      {nullptr, nullptr, nullptr, "1"},
      {"b", nullptr, nullptr, "2"},
      {"c", nullptr, nullptr, ""},
      {nullptr, "k", nullptr, "2"},
      {"a", "k", nullptr, "3"},
      {nullptr, "k", "1", "2"},
      {"a", "k", "1", "3"},
      {"a", "k", "", "4"},
      {nullptr, "k", "2", "5"},
      {nullptr, "k", "3", ""},
      {nullptr, "l", nullptr, ""},
      {"b", "k", "2", ""},
      {"a", nullptr, "2", "1"},
      {"r", nullptr, nullptr, ""},
  };
  IOXAXMLElement& root = *oxa::root(*document);
  for (const auto& each : cases) {
    IOXAXMLElement* const found = oxa::find(root, each.name, each.key, each.value);
    EXPECT_STREQ(found != nullptr ? oxa::attribute(*found, "n") : "", each.found);
  }
}

TEST(FindTest, LeavesTheTreeAsItIs) {
  oxa::XMLDocument document(document_of("<a><b/><b id=\"1\"/></a>"));
  EXPECT_NE(oxa::find(*oxa::root(*document), nullptr, "id", "1"), nullptr);
  EXPECT_EQ(shown(*oxa::root(*document)), "a()[b()][b(id=1;)]");
}

TEST(FindTest, ThrowsForWantOfMemory) {
  oxa::XMLDocument document(document_of("<a><b/><b id=\"1\"/></a>"));
  const auto find = [&] { EXPECT_NE(oxa::find(*oxa::root(*document), "b", "id"), nullptr); };
  EXPECT_GE(throwing_failures(find), 2U);
}

TEST(AddChildTest, GivesTheChildToItsParent) {
  oxa::XMLDocument document(document_of("<a><b/></a>"));
  Element child;
  document->CreateElement("c", oxa::adopt_into(child));
  IOXAXMLElement* const added = child.get();
  EXPECT_EQ(oxa::add_child(*oxa::root(*document), std::move(child)), S_OK);
  EXPECT_EQ(added->CheckReference(), 1);
  EXPECT_EQ(shown(*oxa::root(*document)), "a()[b()][c()]");
}

TEST(AddChildTest, RefusesNone) {
  oxa::XMLDocument document(document_of("<a/>"));
  EXPECT_EQ(oxa::add_child(*oxa::root(*document), nullptr), E_INVALIDARG);
}

TEST(AddChildTest, DropsTheChildForWantOfMemory) {
  oxa::XMLDocument document(document_of("<a/>"));
  const unsigned long failures = oxa_test::fail_each_allocation([&] {
    Element child;
    document->CreateElement("c", oxa::adopt_into(child));
    if (child != nullptr) {
      const bool failed = oxa::failed(oxa::add_child(*oxa::root(*document), std::move(child)));
      EXPECT_EQ(failed, oxa_test::FailingAllocation::happened());
    }
  });
  EXPECT_GE(failures, 2U);
}

TEST(CopyElementTest, CopiesAllBelowInOrder) {
  oxa::XMLDocument document(
      document_of("<a z=\"1\" y=\"\"><b k=\"1\"><c>1 &lt; 2</c><d/></b>"
                  "<b><data> <raw/> </data></b><e/></a>"));
  IOXAXMLElement& root = *oxa::root(*document);
  const std::string before = shown(root);
  const Element copy = oxa::copy_element(*document, root);
  EXPECT_EQ(copy->CheckReference(), 1);
  EXPECT_EQ(shown(*copy), before);
  EXPECT_EQ(shown(root), before);
}

TEST(CopyElementTest, CopiesWhatNoParseMakes) {
  oxa::XMLDocument document(document_of("<a><xml k=\"1\"/></a>"));
  IOXAXMLElement& root = *oxa::root(*document);
  root.SetName("");
  root.AddAttribute("", "keyless");
  root.SetText("beside children");
  IOXAXMLElement* child = nullptr;
  root.FirstChild(&child);
  child->SetName("");
  child->SetName("xml");
  Element bare;
  document->CreateElement(nullptr, oxa::adopt_into(bare));
  bare->SetName("xml");
  oxa::add_child(root, std::move(bare));
  const Element copy = oxa::copy_element(*document, root);
  EXPECT_EQ(shown(*copy), "?(=keyless;)beside children[xml(version=1.0;k=1;)][xml()]");
}

TEST(CopyElementTest, MayGoToAnotherDocumentAndOutliveItsOwn) {
  oxa::XMLDocument from(document_of("<a><b k=\"1\"><c/></b></a>"));
  oxa::XMLDocument to(document_of("<list/>"));
  IOXAXMLElement* const moved = oxa::find(*oxa::root(*from), "b");
  EXPECT_EQ(oxa::add_child(*oxa::root(*to), oxa::copy_element(*to, *moved)), S_OK);
  from.reset();
  EXPECT_EQ(shown(*oxa::root(*to)), "list()[b(k=1;)[c()]]");
}

TEST(CopyElementTest, IsEmptyForWantOfMemory) {
  oxa::XMLDocument document(
      document_of("<long_name long_key=\"long value, longer than a string "
                  "holds\"><b k=\"1\">text</b><c/></long_name>"));
  IOXAXMLElement& root = *oxa::root(*document);
  Element copy;
  const unsigned long failures = oxa_test::fail_each_allocation([&] {
    copy = oxa::copy_element(*document, root);
    EXPECT_EQ(copy == nullptr, oxa_test::FailingAllocation::happened());
  });
  EXPECT_EQ(shown(*copy), shown(root));
  EXPECT_GE(failures, 10U);
}

// Recursion with the depth of a tree would end the process.
class DeepTreeTest : public testing::Test {
 protected:
  static constexpr int depth = 100000;

  static std::string source() {
    std::string text;
    for (int level = 0; level < depth; ++level) {
      text += "<a>";
    }
    text += "<b k=\"1\"/>";
    for (int level = 0; level < depth; ++level) {
      text += "</a>";
    }
    return text;
  }
};

TEST_F(DeepTreeTest, IsSearchedOnASmallStack) {
  oxa_test::on_small_stack([] {
    oxa::XMLDocument document(document_of(source().c_str()));
    IOXAXMLElement* const found = oxa::find(*oxa::root(*document), nullptr, "k", "1");
    EXPECT_STREQ(found->Name(), "b");
  });
}

TEST_F(DeepTreeTest, IsCopiedOnASmallStack) {
  oxa_test::on_small_stack([] {
    oxa::XMLDocument document(document_of(source().c_str()));
    const Element copy = oxa::copy_element(*document, *oxa::root(*document));
    document.reset();
    const auto all = oxa::descendants(*copy);
    EXPECT_EQ(std::distance(all.begin(), all.end()), depth);
    EXPECT_NE(oxa::find(*copy, "b", "k", "1"), nullptr);
  });
}

}  // namespace
