// Where documents come from.
#include "xml/oxa_xml_container.h"

#include <cstdlib>

#include "support.h"
#include "support/capture.h"

using namespace oxa_test;

namespace {

class ContainerTest : public testing::Test {
 protected:
  ContainerTest() {
    context_->AddToContext(IID_IOXADebugMessage, sink_.get());
    container_ = oxa::make<oxa_xml_container>(context_.get());
  }

  // Parses a document and returns the outline of its root.
  static std::string parsed(IOXAXMLDocument& document) {
    IOXAXMLElement* root = nullptr;
    EXPECT_EQ(document.Parse(), S_OK);
    return document.GetRoot(&root) == S_OK ? outline(*root) : "none";
  }

  oxa::Ref<RecordingSink> sink_ = oxa::make<RecordingSink>();
  oxa::Ref<FakeContext> context_ = oxa::make<FakeContext>();
  oxa::Ref<oxa_xml_container> container_;
  oxa::Ref<IOXAXMLDocument> document_;
};

TEST_F(ContainerTest, MakesADocumentFromAFile) {
  const TemporaryFolder folder;
  const std::wstring path = wide(folder.write("a.xml", "<a/>"));
  EXPECT_EQ(container_->CreateDocument(path.c_str(), oxa::adopt_into(document_)), S_OK);
  EXPECT_EQ(document_->CheckReference(), 1);
  EXPECT_EQ(parsed(*document_), "a");
  oxa::end_document(document_);
}

TEST_F(ContainerTest, MakesADocumentFromABuffer) {
  EXPECT_EQ(container_->CreateDocumentFromBuffer("<a/>", oxa::adopt_into(document_)), S_OK);
  EXPECT_EQ(document_->CheckReference(), 1);
  EXPECT_EQ(parsed(*document_), "a");
  oxa::end_document(document_);
}

TEST_F(ContainerTest, MakesAnEmptyDocument) {
  EXPECT_EQ(container_->CreateEmptyDocument(oxa::adopt_into(document_)), S_OK);
  EXPECT_EQ(document_->CheckReference(), 1);
  EXPECT_EQ(document_->Parse(), E_UNEXPECTED);
  oxa::end_document(document_);
}

TEST_F(ContainerTest, DoesNotParse) {
  IOXAXMLElement* root = nullptr;
  container_->CreateDocumentFromBuffer("<a/>", oxa::adopt_into(document_));
  EXPECT_EQ(document_->GetRoot(&root), E_INVALIDDATA);
  oxa::end_document(document_);
}

TEST_F(ContainerTest, AMissingFileStillGivesADocument) {
  EXPECT_EQ(container_->CreateDocument(L"/not/there", oxa::adopt_into(document_)), E_OPENFAILED);
  ASSERT_NE(document_, nullptr);
  EXPECT_EQ(document_->CheckReference(), 1);
  EXPECT_EQ(sink_->lines, Lines{"message 5: Could not open file /not/there"});
  EXPECT_EQ(document_->Parse(), E_UNEXPECTED);
  oxa::end_document(document_);
}

TEST_F(ContainerTest, ANullSourceGivesADocumentWithout) {
  EXPECT_EQ(container_->CreateDocument(nullptr, oxa::adopt_into(document_)), S_OK);
  EXPECT_EQ(document_->Parse(), E_UNEXPECTED);
  oxa::end_document(document_);
  EXPECT_EQ(container_->CreateDocumentFromBuffer(nullptr, oxa::adopt_into(document_)), S_OK);
  EXPECT_EQ(document_->Parse(), E_UNEXPECTED);
  oxa::end_document(document_);
}

TEST_F(ContainerTest, ANullOutputIsRefused) {
  EXPECT_EQ(container_->CreateDocument(L"/not/there", nullptr), E_POINTER);
  EXPECT_EQ(container_->CreateDocumentFromBuffer("<a/>", nullptr), E_POINTER);
  EXPECT_EQ(container_->CreateEmptyDocument(nullptr), E_POINTER);
  EXPECT_EQ(sink_->lines, Lines{});
}

TEST_F(ContainerTest, TheDocumentHoldsOneReferenceToTheSink) {
  const auto before = sink_->CheckReference();
  const std::function<void(IOXAXMLDocument**)> ways[] = {
      [&](IOXAXMLDocument** out) { container_->CreateDocument(nullptr, out); },
      [&](IOXAXMLDocument** out) { container_->CreateDocument(L"/not/there", out); },
      [&](IOXAXMLDocument** out) { container_->CreateDocumentFromBuffer("<a/>", out); },
      [&](IOXAXMLDocument** out) { container_->CreateEmptyDocument(out); }};
  for (const auto& way : ways) {
    way(oxa::adopt_into(document_));
    EXPECT_EQ(sink_->CheckReference(), before + 1);
    oxa::end_document(document_);
    EXPECT_EQ(sink_->CheckReference(), before);
  }
}

TEST_F(ContainerTest, TheSinkIsTheOneOfTheMomentWhenTheDocumentIsMade) {
  container_->CreateDocumentFromBuffer("=", oxa::adopt_into(document_));
  const auto later = oxa::make<RecordingSink>();
  context_->AddToContext(IID_IOXADebugMessage, later.get());
  document_->Parse();
  EXPECT_EQ(sink_->lines, Lines{"error: Badly formed XML file; and I don't know why!"});
  EXPECT_EQ(later->lines, Lines{});
  oxa::end_document(document_);
  container_->CreateDocumentFromBuffer("=", oxa::adopt_into(document_));
  document_->Parse();
  EXPECT_EQ(sink_->lines.size(), 1);
  EXPECT_EQ(later->lines.size(), 1);
  oxa::end_document(document_);
}

TEST_F(ContainerTest, AContextWithoutASinkGivesASilentDocument) {
  const auto empty = oxa::make<FakeContext>();
  const auto container = oxa::make<oxa_xml_container>(empty.get());
  EXPECT_EQ(container->CreateDocumentFromBuffer("=", oxa::adopt_into(document_)), S_OK);
  EXPECT_EQ(document_->Parse(), E_UNEXPECTED);
  oxa::end_document(document_);
}

TEST_F(ContainerTest, WithoutAContextADocumentIsSilent) {
  const auto container = oxa::make<oxa_xml_container>(nullptr);
  const Written written = written_by([&] {
    EXPECT_EQ(container->CreateDocumentFromBuffer("=", oxa::adopt_into(document_)), S_OK);
    EXPECT_EQ(document_->Parse(), E_UNEXPECTED);
  });
  EXPECT_EQ(written.out + written.err, "");
  oxa::end_document(document_);
}

TEST_F(ContainerTest, DoesNotReferenceItsContext) { EXPECT_EQ(context_->CheckReference(), 1); }

TEST_F(ContainerTest, ItsDocumentsOutliveContainerAndContext) {
  container_->CreateDocumentFromBuffer("<a/>=", oxa::adopt_into(document_));
  container_.reset();
  context_.reset();
  EXPECT_EQ(document_->Parse(), E_UNEXPECTED);
  EXPECT_EQ(sink_->lines.size(), 1);
  oxa::end_document(document_);
}

TEST_F(ContainerTest, DestroyDocumentRefusesNull) {
  EXPECT_EQ(container_->DestroyDocument(nullptr), E_POINTER);
}

TEST_F(ContainerTest, DestroyDocumentTellsThatSomebodyElseReferencesTheDocument) {
  container_->CreateEmptyDocument(oxa::adopt_into(document_));
  document_->AddReference();
  EXPECT_EQ(container_->DestroyDocument(document_.get()), E_HANDLE);
  EXPECT_EQ(document_->CheckReference(), 1);
  EXPECT_EQ(container_->DestroyDocument(document_.detach()), S_OK);
  EXPECT_EQ(sink_->CheckReference(), 2);
}

// The tree is the caller's; the source is empty by then.
TEST_F(ContainerTest, DestroyDocumentOnlyReleases) {
  IOXAXMLElement* root = nullptr;
  container_->CreateDocumentFromBuffer("<a><b/></a>", oxa::adopt_into(document_));
  document_->Parse();
  document_->GetRoot(&root);
  document_->Open(nullptr);
  EXPECT_EQ(container_->DestroyDocument(document_.detach()), S_OK);
  EXPECT_EQ(outline(*root), "a(b)");
  EXPECT_EQ(root->CheckReference(), 2);
  root->ReleaseReference();
  EXPECT_EQ(root->ReleaseReference(), 0);
}

TEST(XMLParserFactoryTest, ChecksItsArgumentsInOrder) {
  EXPECT_EQ(OXACreateXMLParser(IID_IOXAPlugin, nullptr), E_INVALIDARG);
  EXPECT_EQ(OXACreateXMLParser(IID_IOXAXMLParser, nullptr), E_INVALIDARG);
  void* out = &out;
  EXPECT_EQ(OXACreateXMLParser(IID_IOXAPlugin, &out), E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);
}

TEST(XMLParserFactoryTest, MakesAContainerWithoutAContext) {
  oxa::Ref<IOXAXMLParser> parser;
  oxa::Ref<IOXAXMLDocument> document;
  EXPECT_EQ(OXACreateXMLParser(IID_IOXAXMLParser, oxa::adopt_into(parser)), S_OK);
  EXPECT_EQ(parser->CheckReference(), 1);
  EXPECT_EQ(parser->CreateDocumentFromBuffer("=", oxa::adopt_into(document)), S_OK);
  const Written written = written_by([&] { document->Parse(); });
  EXPECT_EQ(written.out + written.err, "");
  oxa::end_document(document);
}

class XMLServiceTest : public testing::Test {
 protected:
  XMLServiceTest() {
    OXACreateContext(IID_IOXAContext, oxa::adopt_into(context_));
    parser_ = oxa::service<IOXAXMLParser>(context_.get());
  }

  oxa::Ref<IOXAContext> context_;
  oxa::Ref<IOXAXMLParser> parser_;
  oxa::Ref<IOXAXMLDocument> document_;
};

TEST_F(XMLServiceTest, EveryContextHasOne) {
  ASSERT_NE(parser_, nullptr);
  EXPECT_EQ(parser_->CheckReference(), 2);
  EXPECT_EQ(oxa::service<IOXAXMLParser>(context_.get()), parser_);
}

TEST_F(XMLServiceTest, ItsDocumentsSpeakToTheSinkOfTheContext) {
  parser_->CreateDocumentFromBuffer("<a><b/>", oxa::adopt_into(document_));
  const Written written = written_by([&] { document_->Parse(); });
  EXPECT_EQ(written.out, "");
  EXPECT_EQ(written.err,
            "ERROR: Badly formed XML file; unknown parsing error!\n"
            "ERROR: Badly formed XML file; confused during parsing\n");
  oxa::end_document(document_);
}

TEST_F(XMLServiceTest, ItsDocumentsSpeakToTheSinkThatAHostHasAdded) {
  const auto sink = oxa::make<RecordingSink>();
  context_->AddToContext(IID_IOXADebugMessage, sink.get());
  parser_->CreateDocumentFromBuffer("=", oxa::adopt_into(document_));
  document_->Parse();
  EXPECT_EQ(sink->lines, Lines{"error: Badly formed XML file; and I don't know why!"});
  oxa::end_document(document_);
}

}  // namespace
