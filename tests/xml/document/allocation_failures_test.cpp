// Every allocation of every operation made to fail in turn.
#include "support.h"
#include "xml/oxa_xml_container.h"

using namespace oxa_test;

namespace {

// Runs an operation on a fresh object with its first allocation failing, then with its second, and
// so on until none fails. `judge` sees each result that came of a failure. Returns how many there
// were.
template <class Make, class Operation, class Judge>
int fail_in_turn(Make make, Operation operation, Judge judge) {
  for (int failures = 0;; ++failures) {
    auto object = make();
    OXAResult result = E_FAIL;
    bool happened = false;
    {
      const FailingAllocation failing(static_cast<unsigned long>(failures));
      result = operation(*object);
      happened = FailingAllocation::happened();
    }
    if (!happened) {
      EXPECT_EQ(result, S_OK);
      return failures;
    }
    judge(*object, result);
  }
}

// Has a declaration, attributes few and many, texts short and long, comments and levels.
std::string varied_input() {
  std::string many;
  for (int index = 0; index < 40; ++index) {
    many += " key" + std::to_string(index) + "=\"value\"";
  }
  return "<?xml version=\"1.0\" encoding=\"a long name for an encoding, longer than any other\"?>"
         "<!-- x --><root id=\"1\"><b k=\"v\">text</b><c" +
         many + "/><!-- y --><xml/>" + repeated("<d>", 40) + std::string(5000, 't') +
         repeated("</d>", 40) + repeated("<e/>", 100) + "<data><raw/></data></root>";
}

std::unique_ptr<Document> empty_document() { return std::make_unique<Document>(); }

const std::string usable_input = "<usable/>";

// Expects that a document can be given a source and parsed; ends the root that it had.
void expect_usable(const Document& document) {
  IOXAXMLElement* const old = document.root();
  EXPECT_EQ(document->SetBuffer(usable_input.c_str()), S_OK);
  EXPECT_EQ(document->Parse(), S_OK);
  EXPECT_EQ(document.tree(), "usable");
  while (old != nullptr && old->ReleaseReference() > 0) {
  }
}

TEST(AllocationFailureTest, CreateElement) {
  const std::string name(100, 'n');
  for (const char* one : {name.c_str(), "xml", "a", static_cast<const char*>(nullptr)}) {
    oxa::Ref<IOXAXMLElement> element;
    const auto create = [&](const Document& document) {
      return document->CreateElement(one, oxa::adopt_into(element));
    };
    EXPECT_GT(fail_in_turn(empty_document, create,
                           [&](const Document& document, OXAResult result) {
                             EXPECT_EQ(result, E_OUTOFMEMORY);
                             EXPECT_EQ(element, nullptr);
                             EXPECT_EQ(create(document), S_OK);
                           }),
              0);
  }
}

TEST(AllocationFailureTest, SetBuffer) {
  const std::string input = varied_input();
  const int failures = fail_in_turn(
      empty_document, [&](const Document& document) { return document->SetBuffer(input.c_str()); },
      [](const Document& document, OXAResult result) {
        EXPECT_EQ(result, E_OUTOFMEMORY);
        EXPECT_EQ(document->Parse(), E_UNEXPECTED);
        expect_usable(document);
      });
  EXPECT_GE(failures, 2);
}

TEST(AllocationFailureTest, Open) {
  const TemporaryFolder folder;
  const std::wstring path = wide(folder.write("a.xml", varied_input()));
  const int failures = fail_in_turn(
      empty_document, [&](const Document& document) { return document->Open(path.c_str()); },
      [](const Document& document, OXAResult result) {
        EXPECT_TRUE(result == E_OUTOFMEMORY || result == E_OPENFAILED) << result;
        EXPECT_EQ(document->Parse(), E_UNEXPECTED);
        expect_usable(document);
      });
  EXPECT_GE(failures, 3);
}

OXAResult parse(const Document& document) { return document->Parse(); }

std::unique_ptr<Document> with_buffer() {
  auto document = std::make_unique<Document>(static_cast<IOXADebugMessage*>(nullptr));
  EXPECT_EQ(document->get()->SetBuffer(varied_input().c_str()), S_OK);
  return document;
}

// The attributes of a declaration may get lost without a word.
void expect_failed_parse(const Document& document, OXAResult result) {
  EXPECT_TRUE(result == E_UNEXPECTED || result == S_OK) << result;
  expect_usable(document);
}

TEST(AllocationFailureTest, ParseOfABuffer) {
  EXPECT_GE(fail_in_turn(with_buffer, parse, expect_failed_parse), 10);
}

TEST(AllocationFailureTest, ParseOfAFile) {
  const TemporaryFolder folder;
  const std::wstring path = wide(folder.write("a.xml", varied_input()));
  const auto with_file = [&] {
    auto document = std::make_unique<Document>(static_cast<IOXADebugMessage*>(nullptr));
    document->get()->Open(path.c_str());
    return document;
  };
  EXPECT_GE(fail_in_turn(with_file, parse, expect_failed_parse), 10);
}

// A parse that failed for want of memory may be taken up again, and never breaks.
TEST(AllocationFailureTest, ParseTakenUpAgain) {
  fail_in_turn(with_buffer, parse, [](const Document& document, OXAResult) {
    IOXAXMLElement* const old = document.root();
    const OXAResult again = document->Parse();
    EXPECT_TRUE(again == E_UNEXPECTED || again == S_OK) << again;
    while (old != nullptr && old != document.root() && old->ReleaseReference() > 0) {
    }
  });
}

// What the sink allocates fails too.
TEST(AllocationFailureTest, ParseThatFailsWithMessages) {
  const auto with_source = [] {
    auto document = std::make_unique<Document>();
    document->get()->SetBuffer("<a k=\"v\"><b l=\"w\"><c m=\"x\"/><d n=\"y\"");
    return document;
  };
  for (int passing = 0;; ++passing) {
    const auto document = with_source();
    const FailingAllocation failing(static_cast<unsigned long>(passing));
    EXPECT_EQ(document->get()->Parse(), E_UNEXPECTED);
    if (!FailingAllocation::happened()) {
      break;
    }
  }
}

TEST(AllocationFailureTest, Serialize) {
  const TemporaryFolder folder;
  const std::wstring path = wide(folder / "out.xml");
  const std::string input = varied_input();
  const auto parsed = [&] { return std::make_unique<Document>(input); };
  const auto serialize = [&](const Document& document) {
    return document->Serialize(path.c_str());
  };
  const int failures =
      fail_in_turn(parsed, serialize, [&](const Document& document, OXAResult result) {
        EXPECT_TRUE(result == E_OUTOFMEMORY || result == S_OK) << result;
        EXPECT_EQ(serialize(document), S_OK);
      });
  EXPECT_GE(failures, 3);
  EXPECT_GT(std::filesystem::file_size(folder / "out.xml"), 5000);
}

// A container, and the last document that it has made.
struct Maker {
  ~Maker() { oxa::end_document(document); }
  oxa::Ref<FakeContext> context = oxa::make<FakeContext>();
  oxa::Ref<RecordingSink> sink = oxa::make<RecordingSink>();
  oxa::Ref<oxa_xml_container> container = oxa::make<oxa_xml_container>(context.get());
  oxa::Ref<IOXAXMLDocument> document;
};

std::unique_ptr<Maker> make_maker() {
  auto maker = std::make_unique<Maker>();
  maker->context->AddToContext(IID_IOXADebugMessage, maker->sink.get());
  return maker;
}

// Makes documents in one way of the container's, with failures.
template <class Way>
void expect_failures(Way way) {
  const auto create = [&](Maker& maker) { return way(*maker.container, maker.document); };
  const int failures = fail_in_turn(make_maker, create, [&](Maker& maker, OXAResult result) {
    EXPECT_TRUE(result == E_OUTOFMEMORY || result == E_OPENFAILED) << result;
    EXPECT_EQ(maker.sink->CheckReference(), maker.document == nullptr ? 2 : 3);
    oxa::end_document(maker.document);
    EXPECT_EQ(create(maker), S_OK);
    EXPECT_EQ(maker.sink->CheckReference(), 3);
  });
  EXPECT_GE(failures, 2);
}

TEST(AllocationFailureTest, ContainerCreateDocument) {
  const TemporaryFolder folder;
  const std::wstring path = wide(folder.write("a.xml", "<a/>"));
  expect_failures([&](oxa_xml_container& container, oxa::Ref<IOXAXMLDocument>& document) {
    return container.CreateDocument(path.c_str(), oxa::adopt_into(document));
  });
}

TEST(AllocationFailureTest, ContainerCreateDocumentFromBuffer) {
  expect_failures([](oxa_xml_container& container, oxa::Ref<IOXAXMLDocument>& document) {
    return container.CreateDocumentFromBuffer("<a/>", oxa::adopt_into(document));
  });
}

TEST(AllocationFailureTest, ContainerCreateEmptyDocument) {
  expect_failures([](oxa_xml_container& container, oxa::Ref<IOXAXMLDocument>& document) {
    return container.CreateEmptyDocument(oxa::adopt_into(document));
  });
}

TEST(AllocationFailureTest, OutputsAreNullAfterwards) {
  const Document document;
  const auto maker = make_maker();
  int marker = 0;
  auto* element = reinterpret_cast<IOXAXMLElement*>(&marker);
  auto* made = reinterpret_cast<IOXAXMLDocument*>(&marker);
  {
    const FailingAllocation failing(0);
    EXPECT_EQ(document->CreateElement("a", &element), E_OUTOFMEMORY);
  }
  {
    const FailingAllocation failing(0);
    EXPECT_EQ(maker->container->CreateEmptyDocument(&made), E_OUTOFMEMORY);
  }
  EXPECT_EQ(element, nullptr);
  EXPECT_EQ(made, nullptr);
}

TEST(AllocationFailureTest, Factory) {
  oxa::Ref<IOXAXMLParser> parser;
  const unsigned long failures = fail_each_allocation([&] {
    const OXAResult result = OXACreateXMLParser(IID_IOXAXMLParser, oxa::adopt_into(parser));
    EXPECT_EQ(result, FailingAllocation::happened() ? E_OUTOFMEMORY : S_OK);
    EXPECT_EQ(parser == nullptr, FailingAllocation::happened());
  });
  EXPECT_EQ(failures, 1);
}

}  // namespace
