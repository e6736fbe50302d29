// Extension files that come out of a host's own XML parser, and who holds what meanwhile.
#include "foreign_xml.h"
#include "support.h"

using namespace oxa_test;

namespace {

class ExtensionDocumentTest : public testing::Test {
 protected:
  ExtensionDocumentTest() {
    // Documents of the library exist beside the host's own.
    EXPECT_EQ(host_.load(R"(<extension type="data" plugin="z"><data_type name="a" type="s"/>
                            </extension>)"),
              S_FALSE);
    host_.manager.reset();
    host_.context->AddToContext(IID_IOXAXMLParser, parser_.get());
    host_.make_manager();
  }

  // Gives the parser a document with one type, and loads it.
  ForeignXMLDocument& document() {
    parser_->document = oxa::make<ForeignXMLDocument>(content_.c_str());
    return *parser_->document;
  }
  ForeignXMLElement& root() { return *parser_->document->root; }
  OXAResult load() { return host_.manager->Load(L"a path"); }

  // Expects that all that was given out has come back.
  void expect_returned() {
    EXPECT_EQ(parser_->document->CheckReference(), 1);
    EXPECT_EQ(root().CheckReference(), 1);
    EXPECT_EQ(host_.sink->CheckReference(), 2);
  }

  const std::string content_ = point(R"(<member name="x" type="int"/>)");
  Host host_;
  oxa::Ref<ForeignXMLParser> parser_ = oxa::make<ForeignXMLParser>();
};

TEST_F(ExtensionDocumentTest, IsReadLikeTheLibrarysOwn) {
  document();
  EXPECT_EQ(load(), S_FALSE);
  EXPECT_EQ(outline(*host_.manager), Lines{"p: point(x)"});
  EXPECT_EQ(parser_->paths, std::vector<std::wstring>{L"a path"});
  EXPECT_EQ(parser_->document->parsed, 1);
  expect_returned();
}

TEST_F(ExtensionDocumentTest, EndsWithTheLoadWhenNobodyElseHoldsIt) {
  int ended = 0;
  document().on_end = [&] { ++ended; };
  parser_->gives_away = true;
  EXPECT_EQ(load(), S_FALSE);
  EXPECT_EQ(ended, 1);
  EXPECT_EQ(parser_->document, nullptr);
}

TEST_F(ExtensionDocumentTest, IsAskedForItsTypesByNameAlone) {
  document();
  load();
  EXPECT_EQ(root().asked, (Lines{"data_type", "null", "null"}));
}

TEST_F(ExtensionDocumentTest, AFailureToMakeItIsReturned) {
  for (const OXAResult failure : {E_FAIL, E_OPENFAILED, OXAResult{-1}}) {
    document();
    parser_->result = failure;
    EXPECT_EQ(load(), failure);
    EXPECT_EQ(parser_->document->parsed, 0);
    expect_returned();
    parser_->document.reset();
    EXPECT_EQ(load(), failure);
  }
  EXPECT_EQ(outline(*host_.manager), Lines{});
}

TEST_F(ExtensionDocumentTest, SuccessWithoutADocumentIsAFailure) {
  for (const OXAResult success : {S_OK, S_FALSE}) {
    parser_->result = success;
    EXPECT_LT(load(), 0);
  }
  EXPECT_EQ(host_.lines(), Lines{});
}

TEST_F(ExtensionDocumentTest, AnySuccessToMakeItWillDo) {
  document();
  parser_->result = 7;
  EXPECT_EQ(load(), S_FALSE);
  expect_returned();
}

TEST_F(ExtensionDocumentTest, AFailureToParseIsReturned) {
  for (const OXAResult failure : {E_UNEXPECTED, E_FAIL, OXAResult{-1}}) {
    document().parse_result = failure;
    EXPECT_EQ(load(), failure);
    expect_returned();
  }
  EXPECT_EQ(outline(*host_.manager), Lines{});
}

TEST_F(ExtensionDocumentTest, AFailureToGiveTheRootIsReturned) {
  for (const OXAResult failure : {E_INVALIDDATA, E_FAIL, OXAResult{-1}}) {
    document().root_result = failure;
    EXPECT_EQ(load(), failure);
    EXPECT_EQ(parser_->document->parsed, 1);
    expect_returned();
  }
  EXPECT_EQ(host_.lines(), Lines{});
}

TEST_F(ExtensionDocumentTest, SuccessWithoutARootIsAFailure) {
  for (const OXAResult success : {S_OK, S_FALSE}) {
    document().root_result = success;
    EXPECT_LT(load(), 0);
    expect_returned();
  }
}

TEST_F(ExtensionDocumentTest, ANamelessRootIsNoExtension) {
  document();
  root().told_name = nullptr;
  EXPECT_EQ(load(), E_INVALIDDATA);
  EXPECT_EQ(host_.lines(), Lines{"error: Unrecognized XML format - not an extension file!"});
  expect_returned();
}

TEST_F(ExtensionDocumentTest, AFailureToGiveItsKindIsReturned) {
  for (const OXAResult told : {E_FAIL, OXAResult{-1}, S_OK}) {
    document();
    root().told_key = "type";
    root().told_attribute = told;
    const OXAResult result = load();
    EXPECT_TRUE(told < 0 ? result == told : result < 0) << result;
    expect_returned();
  }
  EXPECT_EQ(host_.lines(), Lines{});
}

TEST_F(ExtensionDocumentTest, AFailureToGiveItsPluginIsToldAndReturned) {
  for (const OXAResult told : {E_FAIL, OXAResult{-1}, S_OK}) {
    document();
    root().told_key = "plugin";
    root().told_attribute = told;
    const OXAResult result = load();
    EXPECT_TRUE(told < 0 ? result == told : result < 0) << result;
    expect_returned();
  }
  EXPECT_EQ(host_.lines(), Lines(3, "error: 'plugin' attribute missing!"));
  EXPECT_EQ(outline(*host_.manager), Lines{});
}

TEST_F(ExtensionDocumentTest, AFailureToGiveTheTypesIsReturned) {
  document();
  root().told_children = E_FAIL;
  EXPECT_EQ(load(), E_FAIL);
  expect_returned();
  document();
  root().told_children = S_OK;
  EXPECT_LT(load(), 0);
  expect_returned();
  EXPECT_EQ(outline(*host_.manager), Lines{"p:"});
}

TEST_F(ExtensionDocumentTest, TheLastStepThroughTheTypesGivesTheResult) {
  for (const OXAResult last : {S_FALSE, E_FAIL, E_UNEXPECTED, OXAResult{7}}) {
    document();
    root().at_end = last;
    EXPECT_EQ(load(), last);
    expect_returned();
  }
  EXPECT_EQ(outline(*host_.manager), Lines{"p: point(x)"});
  EXPECT_EQ(host_.lines(), Lines{});
}

// An enumerator that succeeded without an element ended the process.
TEST_F(ExtensionDocumentTest, AnElementThatIsNotThereIsPassedOver) {
  document();
  root().begins_with_null = true;
  EXPECT_EQ(load(), S_FALSE);
  EXPECT_EQ(outline(*host_.manager), Lines{"p: point(x)"});
}

TEST_F(ExtensionDocumentTest, TheSinkIsHeldMeanwhileAndNoLonger) {
  std::int64_t meanwhile = 0;
  document().on_parse = [&] { meanwhile = host_.sink->CheckReference(); };
  EXPECT_EQ(host_.sink->CheckReference(), 2);
  load();
  EXPECT_EQ(meanwhile, 3);
  EXPECT_EQ(host_.sink->CheckReference(), 2);
}

TEST_F(ExtensionDocumentTest, EachLoadTakesTheSinkOfTheContext) {
  const auto other = oxa::make<RecordingSink>();
  for (RecordingSink* sink : {host_.sink.get(), other.get()}) {
    host_.context->AddToContext(IID_IOXADebugMessage, sink);
    document();
    root().told_name = "other";
    load();
    EXPECT_EQ(sink->lines.size(), 1);
  }
  EXPECT_EQ(host_.lines().size(), 1);
}

// The one that was there when it began is held to its end.
TEST_F(ExtensionDocumentTest, ASinkMayBeReplacedMeanwhile) {
  document().on_parse = [&] { host_.remove(IID_IOXADebugMessage); };
  root().told_name = "other";
  EXPECT_EQ(load(), E_INVALIDDATA);
  EXPECT_EQ(host_.lines().size(), 1);
  EXPECT_EQ(host_.sink->CheckReference(), 1);
}

TEST_F(ExtensionDocumentTest, AnotherFileMayBeLoadedMeanwhile) {
  const auto inner = oxa::make<ForeignXMLDocument>(
      R"(<extension type="data" plugin="q"><data_type name="a" type="s"/></extension>)");
  document().on_parse = [&] {
    const auto outer = std::exchange(parser_->document, inner);
    EXPECT_EQ(host_.manager->Load(L"another path"), S_FALSE);
    parser_->document = outer;
  };
  EXPECT_EQ(load(), S_FALSE);
  EXPECT_EQ(outline(*host_.manager), (Lines{"p: point(x)", "q: a()"}));
  expect_returned();
}

}  // namespace
