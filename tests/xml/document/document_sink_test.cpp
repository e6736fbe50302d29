// Sinks that fail, and sinks that look at the document while it speaks to them.
#include <pthread.h>

#include <thread>

#include "support.h"

using namespace oxa_test;

namespace {

// One input for each place where something is said.
const std::string speaking_inputs[] = {
    "= ",
    "<a/><b/>",
    "<?xm?>",
    "<a",
    "<a><b/>",
    "<a k=\"v\"><b l=\"w\"><c/></a>",
    "<a><b><c><d><>",
    "<" + std::string(4096, 'n') + "/>",
    "<a " + std::string(4096, 'n') + "=\"v\"/>",
    "<a k=\"" + std::string(4096, 'v') + "\"/>",
    "<?xml k=\"" + std::string(4096, 'v') + "\"?>",
    "<a><b>" + std::string(99999, 't') + "</b></a>",
    "<a></" + std::string(4096, 'n') + ">",
};

class ThrowingSinkTest : public testing::TestWithParam<std::string> {};

TEST_P(ThrowingSinkTest, GivesUnexpectedAndIsNotFatal) {
  const auto sink = throwing_sink();
  const Document document(sink.get());
  document->SetBuffer(GetParam().c_str());
  EXPECT_EQ(document->Parse(), E_UNEXPECTED);
  const IOXAXMLElement* const left = document.root();
  document->SetBuffer("<after/>");
  if (left == nullptr) {
    EXPECT_EQ(document->Parse(), S_OK);
    EXPECT_EQ(document.tree(), "after");
  }
}

INSTANTIATE_TEST_SUITE_P(EachMessage, ThrowingSinkTest, testing::ValuesIn(speaking_inputs));

TEST(DocumentSinkTest, AMessageThatFailsDoesNotSilenceTheOuterElements) {
  int calls = 0;
  const auto sink = oxa::make<CallingSink>([&] {
    if (++calls == 1) {
      throw std::runtime_error("the sink fails once");
    }
  });
  const Document document(sink.get());
  document->SetBuffer("<a k=\"v\"><b l=\"w\"><c m=\"x\"><>");
  EXPECT_EQ(document->Parse(), E_UNEXPECTED);
  EXPECT_EQ(calls, 1 + 2 + 2 + 1);  // c, whose listing is lost, then b and a, and the end
}

TEST(DocumentSinkTest, ASinkThatFailsWhenAFileIsMissingGivesUnexpected) {
  const auto sink = throwing_sink();
  const Document document(sink.get());
  EXPECT_EQ(document->Open(L"/not/there"), E_UNEXPECTED);
  EXPECT_EQ(document->SetBuffer("<a/>"), S_OK);
  EXPECT_EQ(document->Parse(), S_OK);
}

// Returns what is there of the tree, with the count of the root, at each message of a parse.
Lines trees_seen(const std::string& input) {
  Lines seen;
  const Document* speaking = nullptr;
  const auto sink = oxa::make<CallingSink>([&] {
    IOXAXMLElement* const root = speaking->root();
    seen.push_back(speaking->tree() +
                   (root == nullptr ? "" : " " + std::to_string(root->CheckReference())));
  });
  const Document document(sink.get());
  speaking = &document;
  document->SetBuffer(input.c_str());
  document->Parse();
  return seen;
}

TEST(DocumentSinkTest, SeesThePartialTree) {
  // An element is in the tree when its end has come; the root is the document's at once.
  EXPECT_EQ(trees_seen(R"(<a k="v"><b/><c l="w"><d/>)"),
            (Lines{"a[k=v](b) 2", "a[k=v](b) 2", "a[k=v](b) 2", "a[k=v](b) 2", "a[k=v](b) 1"}));
}

TEST(DocumentSinkTest, SeesTheTreeWhileATextIsCut) {
  const std::string name(4096, 'n');
  EXPECT_EQ(trees_seen("<" + name + "/>"), Lines{"none"});
  EXPECT_EQ(trees_seen("<a " + name + "=\"v\"/>"), Lines{"a 2"});
  EXPECT_EQ(trees_seen("<a k=\"" + name + "\"/>"), Lines{"a 2"});
  EXPECT_EQ(trees_seen("<a k=\"v\" " + name + "=\"w\"/>"), Lines{"a[k=v] 2"});
  EXPECT_EQ(trees_seen("<a><b/><" + name + "/></a>"), Lines{"a(b) 2"});
  EXPECT_EQ(trees_seen("<a>" + std::string(99999, 't') + "</a>"), Lines{"a 2"});
}

TEST(DocumentSinkTest, MayChangeTheTree) {
  Document* speaking = nullptr;
  const auto sink = oxa::make<CallingSink>([&] { speaking->root()->AddAttribute("seen", "1"); });
  Document document(sink.get());
  speaking = &document;
  document->SetBuffer(("<a " + std::string(4096, 'n') + "=\"v\" k=\"w\"><b/></a>").c_str());
  EXPECT_EQ(document->Parse(), S_OK);
  EXPECT_EQ(document.tree(), "a[seen=1 " + std::string(4095, 'n') + "=v k=w](b)");
}

// The attributes were listed from the element itself, which had other ones by then.
TEST(DocumentSinkTest, MayAddAttributesWhileTheyAreListed) {
  int calls = 0;
  Document* speaking = nullptr;
  const auto sink = oxa::make<CallingSink>(
      [&] { speaking->root()->AddAttribute(("seen" + std::to_string(++calls)).c_str(), "1"); });
  Document document(sink.get());
  speaking = &document;
  document->SetBuffer("<a k=\"v\" l=\"w\"><b/>=");
  EXPECT_EQ(document->Parse(), E_UNEXPECTED);
  EXPECT_EQ(calls, 1 + 3 + 1);  // the error, the attributes by then, and the end
}

// The inner parse freed the source from which the outer one still read. What the outer one makes of
// it is left open.
TEST(DocumentSinkTest, AParseWithinAParseDoesNotTakeItsSource) {
  const Document* speaking = nullptr;
  Lines results;
  const auto sink = oxa::make<CallingSink>([&] {
    if (results.empty()) {
      results.emplace_back();
      results.back() = (*speaking)->Parse() == S_OK ? "done" : "failed";
    }
  });
  const Document document(sink.get());
  speaking = &document;
  document->SetBuffer(("<a><b/><" + std::string(4200, 'n') + "/></a>").c_str());
  document->Parse();
  EXPECT_EQ(results, Lines{"failed"});
}

TEST(DocumentSinkTest, MayEndItsThread) {
  std::thread([] {
    const auto sink = oxa::make<CallingSink>([] { pthread_exit(nullptr); });
    const Document document(sink.get());
    document->SetBuffer("<a><b><c></d>");
    document->Parse();
    ADD_FAILURE() << "the thread goes on";
  }).join();
}

TEST(DocumentSinkTest, MayReadAnotherDocument) {
  Lines trees;
  const auto sink =
      oxa::make<CallingSink>([&] { trees.push_back(Document("<x><y/></x>").tree()); });
  const Document document(sink.get());
  document->SetBuffer("<a><b/>");
  EXPECT_EQ(document->Parse(), E_UNEXPECTED);
  EXPECT_EQ(trees, Lines(2, "x(y)"));
}

}  // namespace
