#include <oxa/sdk/xml.h>

#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "sdk/xml_documents.h"
#include "support/allocations.h"

using namespace oxa_test;

namespace {

TEST(AttributesTest, AreVisitedInOrder) {
  Document document = document_of("<a z=\"1\" y=\"2\" x=\"3\"/>");
  EXPECT_EQ(listed(root_of(document)), "z=1;y=2;x=3;");
  oxa::end_document(document);
}

TEST(AttributesTest, EmptyOnesAreEmptyAfterFullOnes) {
  Document document = document_of("<a first=\"\" full=\"1\" empty=\"\"/>");
  root_of(document).AddAttribute("", "keyless");
  EXPECT_EQ(listed(root_of(document)), "first=;full=1;empty=;=keyless;");
  oxa::end_document(document);
}

TEST(AttributesTest, MayBeNone) {
  Document document = document_of("<a/>");
  EXPECT_EQ(listed(root_of(document)), "");
  oxa::end_document(document);
}

TEST(AttributesTest, AreACopyThatLivesAsLongAsTheRange) {
  Document document = document_of("<a k=\"1\" l=\"2\"/>");
  const auto range = oxa::attributes(root_of(document));
  root_of(document).AddAttribute("m", "3");
  oxa::end_document(document);
  std::string text;
  for (const oxa::XMLAttribute& attribute : range) {
    text.append(attribute.key).append(attribute.value);
  }
  EXPECT_EQ(text, "k1l2");
}

TEST(AttributesTest, MayBeVisitedAgain) {
  Document document = document_of("<a k=\"1\"/>");
  const auto range = oxa::attributes(root_of(document));
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(std::distance(range.begin(), range.end()), 1);
  }
  oxa::end_document(document);
}

TEST(AttributesTest, ThrowForWantOfMemory) {
  Document document = document_of("<a k=\"1\"/>");
  EXPECT_GE(throwing_failures([&] { listed(root_of(document)); }), 2U);
  oxa::end_document(document);
}

// The accounting of each test sees that nothing is left behind.
TEST(EndDocumentTest, EndsTheTreeAndTheSource) {
  Document document = document_of("<a k=\"1\"><b>text</b><c><d/></c></a>");
  document->SetBuffer("<another source=\"that is not read\"/>");
  oxa::end_document(document);
  EXPECT_EQ(document, nullptr);
}

TEST(EndDocumentTest, EndsOneWithoutATree) {
  Document empty;
  EXPECT_EQ(parser()->CreateEmptyDocument(oxa::adopt_into(empty)), S_OK);
  oxa::end_document(empty);
  EXPECT_EQ(empty, nullptr);
  Document unread;
  EXPECT_EQ(parser()->CreateDocumentFromBuffer("<a/>", oxa::adopt_into(unread)), S_OK);
  oxa::end_document(unread);
  Document of_nothing = document_of("");
  oxa::end_document(of_nothing);
}

TEST(EndDocumentTest, EndsOneThatCouldNotBeRead) {
  for (const char* source : {"<a><b/>", "<a></b>", "<a/><b/>", "</a>"}) {
    Document document;
    EXPECT_EQ(parser()->CreateDocumentFromBuffer(source, oxa::adopt_into(document)), S_OK);
    EXPECT_EQ(document->Parse(), E_UNEXPECTED);
    oxa::end_document(document);
  }
}

TEST(EndDocumentTest, EndsTheRootThatWasSet) {
  Document document;
  EXPECT_EQ(parser()->CreateEmptyDocument(oxa::adopt_into(document)), S_OK);
  Element root;
  EXPECT_EQ(document->CreateElement("root", oxa::adopt_into(root)), S_OK);
  document->SetRoot(root.detach());
  oxa::end_document(document);
}

TEST(EndDocumentTest, EndsTheRootWhoeverElseReferencesIt) {
  Document document = document_of("<a><b/></a>");
  root_of(document).AddReference();
  root_of(document).AddReference();
  Element kept;
  root_of(document).FirstChild(oxa::share_into(kept));
  oxa::end_document(document);
  EXPECT_EQ(kept->CheckReference(), 1);
}

TEST(EndDocumentTest, LeavesTheSubtreesThatAreReferenced) {
  Document document = document_of("<a><b k=\"1\"><c>text</c></b></a>");
  Element kept;
  root_of(document).FirstChild(oxa::share_into(kept));
  oxa::end_document(document);
  EXPECT_STREQ(kept->Name(), "b");
  EXPECT_EQ(listed(*kept), "k=1;");
  Element child;
  kept->FirstChild(oxa::share_into(child));
  char* text = nullptr;
  child->GetText(text);
  EXPECT_STREQ(text, "text");
}

TEST(EndDocumentTest, GivesUpOneReferenceOfMany) {
  Document document = document_of("<a><b/></a>");
  Document other = document;
  oxa::end_document(document);
  EXPECT_EQ(document, nullptr);
  EXPECT_EQ(other->CheckReference(), 1);
  EXPECT_STREQ(root_of(other).Name(), "a");
  EXPECT_EQ(other->Parse(), S_OK);  // its source is still there
  oxa::end_document(other);
}

TEST(EndDocumentTest, NullIsNothingToEnd) {
  Document document;
  oxa::end_document(document);
  EXPECT_EQ(document, nullptr);
}

TEST(TakeRootTest, LeavesATreeWithOneReference) {
  Document document = document_of("<a k=\"1\"><b>text</b></a>");
  document->SetBuffer("<another source=\"that is not read\"/>");
  const Element root = oxa::take_root(document);
  EXPECT_EQ(document, nullptr);
  EXPECT_EQ(root->CheckReference(), 1);
  EXPECT_EQ(shown(*root), "a(k=1;)[b()text]");
}

TEST(TakeRootTest, TakesARootThatWasSet) {
  Document document = document_of("");
  Element root;
  document->CreateElement("root", oxa::adopt_into(root));
  IOXAXMLElement* const set = root.detach();
  document->SetRoot(set);
  root = oxa::take_root(document);
  EXPECT_EQ(root.get(), set);
  EXPECT_EQ(root->CheckReference(), 1);
}

TEST(TakeRootTest, LeavesOneReferenceWhoeverElseHasSome) {
  Document document = document_of("<a/>");
  root_of(document).AddReference();
  EXPECT_EQ(oxa::take_root(document)->CheckReference(), 1);
}

TEST(TakeRootTest, IsEmptyWithoutATreeOrADocument) {
  Document document = document_of("");
  EXPECT_EQ(oxa::take_root(document), nullptr);
  EXPECT_EQ(document, nullptr);
  EXPECT_EQ(oxa::take_root(document), nullptr);
}

TEST(TakeRootTest, LeavesTheTreeToOthersThatReferenceTheDocument) {
  Document document = document_of("<a/>");
  Document other = document;
  EXPECT_EQ(oxa::take_root(document), nullptr);
  EXPECT_EQ(document, nullptr);
  EXPECT_STREQ(root_of(other).Name(), "a");
  EXPECT_STREQ(oxa::take_root(other)->Name(), "a");
}

TEST(RootTest, IsBorrowed) {
  oxa::XMLDocument document(document_of("<a/>"));
  EXPECT_STREQ(oxa::root(*document)->Name(), "a");
  EXPECT_EQ(oxa::root(*document)->CheckReference(), 2);
}

TEST(RootTest, IsNullWithoutATree) {
  oxa::XMLDocument document(document_of(""));
  EXPECT_EQ(oxa::root(*document), nullptr);
}

static_assert(!std::is_copy_constructible_v<oxa::XMLDocument>);
static_assert(!std::is_copy_assignable_v<oxa::XMLDocument>);
static_assert(std::is_nothrow_move_constructible_v<oxa::XMLDocument>);
static_assert(!std::is_convertible_v<Document, oxa::XMLDocument>);

TEST(XMLDocumentTest, EndsItsDocument) {
  const oxa::XMLDocument document(document_of("<a><b/></a>"));
  EXPECT_TRUE(document);
  EXPECT_EQ(&*document, document.get());
  EXPECT_EQ(document->CheckReference(), 1);
}

TEST(XMLDocumentTest, IsEmptyAtFirstAndAfterReset) {
  oxa::XMLDocument document;
  EXPECT_FALSE(document);
  EXPECT_EQ(document.get(), nullptr);
  document = oxa::XMLDocument(document_of("<a/>"));
  document.reset();
  EXPECT_FALSE(document);
  document.reset();
}

TEST(XMLDocumentTest, MovesItsDocument) {
  oxa::XMLDocument first(document_of("<a/>"));
  oxa::XMLDocument second(std::move(first));
  EXPECT_FALSE(first);
  oxa::XMLDocument third(document_of("<b/>"));
  third = std::move(second);
  EXPECT_FALSE(second);
  EXPECT_STREQ(oxa::root(*third)->Name(), "a");
}

TEST(XMLDocumentTest, SurvivesItsOwnAssignment) {
  oxa::XMLDocument document(document_of("<a/>"));
  oxa::XMLDocument& same = document;
  document = std::move(same);
  EXPECT_STREQ(oxa::root(*document)->Name(), "a");
}

TEST(XMLDocumentTest, ReceivesADocumentInPlaceOfItsOwn) {
  oxa::XMLDocument document;
  for (const char* source : {"<a/>", "<b><c/></b>"}) {
    parser()->CreateDocumentFromBuffer(source, oxa::adopt_into(document));
    EXPECT_EQ(document->Parse(), S_OK);
  }
  EXPECT_STREQ(oxa::root(*document)->Name(), "b");
}

TEST(XMLDocumentTest, GivesUpItsTree) {
  oxa::XMLDocument document(document_of("<a><b/></a>"));
  const Element root = oxa::take_root(document);
  EXPECT_FALSE(document);
  EXPECT_EQ(shown(*root), "a()[b()]");
}

}  // namespace
