// A document's operations besides the parse.
#include <cstdlib>

#include "death.h"
#include "support.h"

using namespace oxa_test;

namespace {

TEST(CreateElementTest, BelongsToTheCaller) {
  const Document document;
  oxa::Ref<IOXAXMLElement> element;
  EXPECT_EQ(document->CreateElement("a", oxa::adopt_into(element)), S_OK);
  EXPECT_EQ(outline(*element), "a");
  EXPECT_EQ(element->CheckReference(), 1);
  EXPECT_EQ(document.root(), nullptr);
}

TEST(CreateElementTest, ANullNameGivesANamelessElement) {
  const Document document;
  oxa::Ref<IOXAXMLElement> element;
  EXPECT_EQ(document->CreateElement(nullptr, oxa::adopt_into(element)), S_OK);
  EXPECT_EQ(element->Name(), nullptr);
  EXPECT_EQ(element->CheckReference(), 1);
}

TEST(CreateElementTest, ADeclarationHasAVersion) {
  const Document document;
  oxa::Ref<IOXAXMLElement> element;
  document->CreateElement("xml", oxa::adopt_into(element));
  EXPECT_EQ(outline(*element), "xml[version=1.0]");
}

TEST(CreateElementTest, ANullOutputIsRefused) {
  const Document document;
  EXPECT_EQ(document->CreateElement("a", nullptr), E_POINTER);
  EXPECT_EQ(document->CreateElement(nullptr, nullptr), E_POINTER);
}

// Returns a new element, which belongs to the caller.
IOXAXMLElement* make_element(const Document& document, const char* name) {
  IOXAXMLElement* element = nullptr;
  EXPECT_EQ(document->CreateElement(name, &element), S_OK);
  return element;
}

TEST(DocumentRootTest, AnEmptyDocumentHasNone) {
  const Document document;
  int marker = 0;
  auto* root = reinterpret_cast<IOXAXMLElement*>(&marker);
  EXPECT_EQ(document->GetRoot(&root), E_INVALIDDATA);
  EXPECT_EQ(root, nullptr);
  EXPECT_EQ(document->GetRoot(nullptr), E_POINTER);
}

TEST(DocumentRootTest, GetRootAddsNoReference) {
  const Document document("<a/>");
  IOXAXMLElement* root = nullptr;
  EXPECT_EQ(document->GetRoot(nullptr), E_POINTER);
  EXPECT_EQ(document->GetRoot(&root), S_OK);
  EXPECT_EQ(document->GetRoot(&root), S_OK);
  EXPECT_EQ(root->CheckReference(), 2);
}

TEST(DocumentRootTest, SetRootTakesOverTheReference) {
  const Document document;
  IOXAXMLElement* const root = make_element(document, "a");
  EXPECT_EQ(document->SetRoot(root), S_OK);
  EXPECT_EQ(document.root(), root);
  EXPECT_EQ(root->CheckReference(), 1);
}

TEST(DocumentRootTest, SetRootDestroysTheOldOneWhateverItsCount) {
  const Document document("<a><b/></a>");
  document.root()->AddReference();
  const long before = live_allocations();
  IOXAXMLElement* const root = make_element(document, "c");
  EXPECT_GT(live_allocations(), before);
  EXPECT_EQ(document->SetRoot(root), S_OK);
  EXPECT_EQ(document.tree(), "c");
  EXPECT_EQ(root->CheckReference(), 1);
}

TEST(DocumentRootTest, SetRootKeepsADescendantThatSomebodyReferences) {
  const Document document("<a><b/></a>");
  oxa::Ref<IOXAXMLElement> child;
  IOXAXMLElement* borrowed = nullptr;
  document.root()->FirstChild(&borrowed);
  child = oxa::Ref<IOXAXMLElement>::share(borrowed);
  document->SetRoot(make_element(document, "c"));
  EXPECT_EQ(child->CheckReference(), 1);
  EXPECT_EQ(outline(*child), "b");
}

TEST(DocumentRootTest, SetRootToThePresentOneChangesNothing) {
  const Document document("<a/>");
  EXPECT_EQ(document->SetRoot(document.root()), S_OK);
  EXPECT_EQ(document.tree(), "a");
  EXPECT_EQ(document.root()->CheckReference(), 2);
}

TEST(DocumentRootTest, SetRootRefusesNullAndKeepsTheRoot) {
  const Document document("<a/>");
  EXPECT_EQ(document->SetRoot(nullptr), E_INVALIDARG);
  EXPECT_EQ(document.tree(), "a");
  const Document empty;
  EXPECT_EQ(empty->SetRoot(nullptr), E_INVALIDARG);
}

TEST(DocumentQueryTest, WithoutARootIsFalseAndLeavesTheOutput) {
  const Document document;
  IOXAXMLElement* const element = make_element(document, "a");
  IOXAXMLElement* found = element;
  int marker = 0;
  auto* const before = reinterpret_cast<IOXAXMLElementEnum*>(&marker);
  IOXAXMLElementEnum* list = before;
  EXPECT_EQ(document->GetElementByID("1", &found), S_FALSE);
  EXPECT_EQ(found, element);
  EXPECT_EQ(document->GetElementEnumByName("a", &list), S_FALSE);
  EXPECT_EQ(document->GetElementEnumByKeyValue("k", "v", &list), S_FALSE);
  EXPECT_EQ(document->GetElementEnumByNameKeyValue("a", "k", "v", &list), S_FALSE);
  EXPECT_EQ(list, before);
  element->ReleaseReference();
}

TEST(DocumentQueryTest, WithoutARootANullOutputIsNotLookedAt) {
  const Document document;
  EXPECT_EQ(document->GetElementByID("1", nullptr), S_FALSE);
  EXPECT_EQ(document->GetElementEnumByName("a", nullptr), S_FALSE);
  EXPECT_EQ(document->GetElementEnumByKeyValue("k", "v", nullptr), S_FALSE);
  EXPECT_EQ(document->GetElementEnumByNameKeyValue("a", "k", "v", nullptr), S_FALSE);
}

TEST(DocumentQueryTest, WithARootANullOutputIsRefused) {
  const Document document("<a/>");
  EXPECT_EQ(document->GetElementByID("1", nullptr), E_POINTER);
  EXPECT_EQ(document->GetElementEnumByName("a", nullptr), E_POINTER);
  EXPECT_EQ(document->GetElementEnumByKeyValue("k", "v", nullptr), E_POINTER);
  EXPECT_EQ(document->GetElementEnumByNameKeyValue("a", "k", "v", nullptr), E_POINTER);
}

// Each id with the element that is found: the last child alone decides, and the root is no match.
TEST(DocumentQueryTest, ByIdFollowsTheLastChild) {
  const std::pair<const char*, const char*> cases[] = {{"0", ""},  {"1", ""},  {"2", ""},
                                                       {"3", "d"}, {"4", "f"}, {"5", ""}};
  for (const auto& [id, name] : cases) {
    const Document document(
        R"(<a id="0"><b id="1"><c id="2"/></b><d id="3"><e id="5"/><f id="4"/></d></a>)");
    IOXAXMLElement* found = document.root();
    EXPECT_EQ(document->GetElementByID(id, &found), S_OK);
    EXPECT_EQ(found == nullptr ? "" : std::string(found->Name()), name) << id;
  }
}

TEST(DocumentQueryTest, ByIdGivesEveryVisitedElementAnId) {
  const Document document("<a><b/></a>");
  IOXAXMLElement* found = nullptr;
  EXPECT_EQ(document->GetElementByID("1", &found), S_OK);
  EXPECT_EQ(document.tree(), "a(b[id=])");
}

// Returns the outlines of what a query enumerates, or its result if that is a failure.
template <class Query>
Lines enumerated(Query query) {
  oxa::Ref<IOXAXMLElementEnum> list;
  const OXAResult result = query(oxa::adopt_into(list));
  if (result != S_OK) {
    return {result == E_NOTFOUND ? "not found" : "another result"};
  }
  Lines outlines;
  IOXAXMLElement* one = nullptr;
  for (OXAResult more = list->GetFirst(&one); more == S_OK; more = list->GetNext(&one)) {
    outlines.push_back(outline(*one));
  }
  return outlines;
}

TEST(DocumentQueryTest, TheEnumeratingOnesSearchTheDescendants) {
  const Document document(R"(<a k="v"><b k="v"><a k="w"/></b><a k="v"/></a>)");
  const auto by_name = [&](const char* name) {
    return enumerated(
        [&](IOXAXMLElementEnum** out) { return document->GetElementEnumByName(name, out); });
  };
  EXPECT_EQ(by_name("a"), (Lines{"a[k=w]", "a[k=v]"}));
  EXPECT_EQ(by_name(nullptr), (Lines{"b[k=v](a[k=w])", "a[k=w]", "a[k=v]"}));
  EXPECT_EQ(by_name("c"), Lines{"not found"});
  EXPECT_EQ(enumerated([&](IOXAXMLElementEnum** out) {
              return document->GetElementEnumByKeyValue("k", "v", out);
            }),
            (Lines{"b[k=v](a[k=w])", "a[k=v]"}));
  EXPECT_EQ(enumerated([&](IOXAXMLElementEnum** out) {
              return document->GetElementEnumByNameKeyValue("a", "k", "v", out);
            }),
            Lines{"a[k=v]"});
}

TEST(DocumentQueryTest, AKeyIsLeftInEveryVisitedElement) {
  const Document document("<a><b/></a>");
  EXPECT_EQ(enumerated([&](IOXAXMLElementEnum** out) {
              return document->GetElementEnumByNameKeyValue("c", "k", nullptr, out);
            }),
            Lines{"not found"});
  EXPECT_EQ(document.tree(), "a(b[k=])");
}

TEST(DocumentSourceTest, ANullOneTakesAwayTheSource) {
  const Document document;
  EXPECT_EQ(document->SetBuffer("<a/>"), S_OK);
  EXPECT_EQ(document->SetBuffer(nullptr), S_OK);
  EXPECT_EQ(document->Parse(), E_UNEXPECTED);
  EXPECT_EQ(document->SetBuffer("<a/>"), S_OK);
  EXPECT_EQ(document->Open(nullptr), S_OK);
  EXPECT_EQ(document->Parse(), E_UNEXPECTED);
  EXPECT_EQ(document.lines(), Lines{});
}

TEST(DocumentSourceTest, ALaterOneReplacesTheSource) {
  const TemporaryFolder folder;
  const Document document;
  document->SetBuffer("<a/>");
  EXPECT_EQ(document->Open(wide(folder.write("b.xml", "<b/>")).c_str()), S_OK);
  document->SetBuffer("<c/>");
  EXPECT_EQ(document->Parse(), S_OK);
  EXPECT_EQ(document.tree(), "c");
}

TEST(DocumentSourceTest, AMissingFileTakesAwayTheSourceAndSaysSo) {
  const Document document;
  document->SetBuffer("<a/>");
  EXPECT_EQ(document->Open(L"/not/there"), E_OPENFAILED);
  EXPECT_EQ(document.lines(), Lines{"message 5: Could not open file /not/there"});
  EXPECT_EQ(document->Parse(), E_UNEXPECTED);
}

TEST(DocumentSourceTest, AReplacedFileIsClosed) {
  const TemporaryFolder folder;
  const auto open_files = [] {
    const auto all = std::filesystem::directory_iterator("/proc/self/fd");
    return std::distance(begin(all), end(all));
  };
  const auto before = open_files();
  const Document document;
  document->Open(wide(folder.write("a.xml", "<a/>")).c_str());
  EXPECT_EQ(open_files(), before + 1);
  document->Open(nullptr);
  EXPECT_EQ(open_files(), before);
}

class DocumentLifeTest : public EndingProcessTest {};

TEST_F(DocumentLifeTest, HoldsOneReferenceToItsSink) {
  const auto sink = oxa::make<RecordingSink>();
  {
    const Document document(sink.get());
    EXPECT_EQ(sink->CheckReference(), 2);
    document->SetBuffer("<a");
    document->Parse();
    EXPECT_EQ(sink->CheckReference(), 2);
  }
  EXPECT_EQ(sink->CheckReference(), 1);
}

TEST_F(DocumentLifeTest, BeginsWithOneReference) {
  int result = E_FAIL;
  auto* const document = new oxa_xml_parser(nullptr, result);
  EXPECT_EQ(result, S_OK);
  EXPECT_EQ(document->CheckReference(), 1);
  EXPECT_EQ(document->Destroy(), 0);
}

TEST_F(DocumentLifeTest, DestroyEndsTreeAndSourceThoughTheDocumentLivesOn) {
  const Document document("<a/>");
  document->AddReference();
  EXPECT_EQ(document->Destroy(), 1);
  EXPECT_EQ(document.root(), nullptr);
  EXPECT_EQ(document->Parse(), E_UNEXPECTED);
  EXPECT_EQ(document->GetElementEnumByName("a", nullptr), S_FALSE);
}

TEST_F(DocumentLifeTest, DestroyEndsTheTreeWhateverItsCount) {
  const auto document = std::make_unique<Document>("<a><b/></a>");
  document->root()->AddReference();
}

// The source cannot be reached any more, so the process that loses it is another one.
TEST_F(DocumentLifeTest, TheLastReleaseLeavesTheTreeAndTheSource) {
  const auto lose_the_source = [] {
    const long before = live_allocations();
    int result = S_OK;
    auto* const document = new oxa_xml_parser(nullptr, result);
    document->SetBuffer("<a><b/></a><c/>");
    document->Parse();
    IOXAXMLElement* root = nullptr;
    document->GetRoot(&root);
    const bool ended = document->ReleaseReference() == 0;
    const bool intact = root->CheckReference() == 2 && outline(*root) == "a(b)";
    root->ReleaseReference();
    root->ReleaseReference();
    std::_Exit(ended && intact && live_allocations() > before ? 42 : 1);
  };
  EXPECT_EXIT(lose_the_source(), testing::ExitedWithCode(42), "");
}

}  // namespace
