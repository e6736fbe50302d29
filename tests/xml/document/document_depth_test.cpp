// A million levels on the stack of a small thread.
#include "support.h"

using namespace oxa_test;

namespace {

constexpr std::size_t levels = deep;

TEST(DepthTest, AMillionLevelsAreParsedAndDestroyed) {
  const std::string input = repeated("<a>", levels) + repeated("</a>", levels);
  on_small_stack([&] {
    const Document document(static_cast<IOXADebugMessage*>(nullptr));
    document->SetBuffer(input.c_str());
    EXPECT_EQ(document->Parse(), S_OK);
    oxa::Ref<IOXAXMLElementEnum> all;
    EXPECT_EQ(document->GetElementEnumByName("a", oxa::adopt_into(all)), S_OK);
    EXPECT_EQ(all->Count(), levels - 1);
  });
}

// Returns how much is said when a source is parsed that fails.
std::size_t messages_of(const std::string& input) {
  std::size_t messages = 0;
  on_small_stack([&] {
    const auto sink = oxa::make<CallingSink>([&] { ++messages; });
    const Document document(sink.get());
    document->SetBuffer(input.c_str());
    EXPECT_EQ(document->Parse(), E_UNEXPECTED);
  });
  return messages;
}

TEST(DepthTest, AFailureBelowAMillionLevelsIsReportedByEach) {
  // One message for each level, one for the parse.
  EXPECT_EQ(messages_of(repeated("<a>", levels) + "<>"), levels + 1);
  // The innermost level itself does not know; the listing of each is one attribute.
  EXPECT_EQ(messages_of(repeated("<a k=\"v\">", levels) + "<b/>"), 2 * levels + 1);
}

TEST(DepthTest, AFailureInTheMiddleDropsWhatIsBelow) {
  const std::size_t half = levels / 2;
  EXPECT_EQ(messages_of(repeated("<a>", levels) + repeated("</a>", half) + "<b/>"), half + 1);
}

TEST(DepthTest, ALargeTreeEndsWithTheRootThatReplacesIt) {
  const std::string input = repeated("<a>", levels) + repeated("</a>", levels);
  on_small_stack([&] {
    const Document document(input);
    IOXAXMLElement* root = nullptr;
    document->CreateElement("b", &root);
    EXPECT_EQ(document->SetRoot(root), S_OK);
    EXPECT_EQ(document.tree(), "b");
  });
}

TEST(DepthTest, TenThousandLevelsAreWritten) {
  const TemporaryFolder folder;
  const std::size_t depth = 10000;
  const std::string input = repeated("<a>", depth) + repeated("</a>", depth);
  on_small_stack([&] {
    const Document document(input);
    EXPECT_EQ(document->Serialize(wide(folder / "deep.xml").c_str()), S_OK);
  });
  EXPECT_GT(std::filesystem::file_size(folder / "deep.xml"), 3 * depth * (depth - 1));
}

}  // namespace
