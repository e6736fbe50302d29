#include "core/default_services.h"

#include <gtest/gtest.h>
#include <oxa/oxa.h>

#include <optional>
#include <string>
#include <vector>

#include "properties/OXAPropertyDataTypeTranslator.h"
#include "support/allocations.h"
#include "support/capture.h"
#include "support/fakes.h"

using oxa_test::FakeContext;
using oxa_test::written_by;

namespace {

// The sequence: the id, and what is said when adding under it fails.
struct Step {
  const _GUID& iid;
  const char* message;
};

const Step steps[] = {
    {IID_IOXADebugMessage, ""},
    {IID_IOXAProgressIndicator, "ERROR: Unable to add ProgressIndicator to the context.\n"},
    {IID_IOXADirectoryScanner, "ERROR: Unable to add DirectoryScanner() to the context.\n"},
    {IID_IOXAXMLParser, "ERROR: Unable to add XMLParser() to the context.\n"},
    {IID_IOXAPropertyDataTypeTranslator,
     "ERROR: Unable to add DataTypeTranslator() to the context.\n"},
    {IID_IOXAInterfaceManager, "ERROR: Unable to add Interface Manager to the context.\n"},
    {IID_IOXAPluginLoader, "ERROR: Unable to create plugin loader interface...\n"},
};

TEST(DefaultServicesTest, AreAddedInOrder) {
  const auto context = oxa::make<FakeContext>();
  EXPECT_EQ(add_default_services(*context), S_FALSE);
  ASSERT_EQ(context->added.size(), std::size(steps));
  for (std::size_t step = 0; step < std::size(steps); ++step) {
    EXPECT_EQ(context->added[step], steps[step].iid) << step;
  }
}

TEST(DefaultServicesTest, BelongToTheContextAlone) {
  const auto context = oxa::make<FakeContext>();
  add_default_services(*context);
  const auto count = [&](const _GUID& iid) {
    return context->services[oxa::to_string(iid)]->CheckReference();
  };
  EXPECT_EQ(count(IID_IOXAProgressIndicator), 1);
  EXPECT_EQ(count(IID_IOXADirectoryScanner), 1);
  EXPECT_EQ(count(IID_IOXAXMLParser), 1);
  EXPECT_EQ(count(IID_IOXAPropertyDataTypeTranslator), 1);
  EXPECT_EQ(count(IID_IOXAPluginLoader), 1);
  // The loader has a reference of its own to each of these.
  EXPECT_EQ(count(IID_IOXADebugMessage), 2);
  EXPECT_EQ(count(IID_IOXAInterfaceManager), 2);
}

TEST(DefaultServicesTest, AFreshContextHandsOutItsSink) {
  void* out = nullptr;
  EXPECT_EQ(OXACreateContext(IID_IOXAContext, &out), S_FALSE);
  const auto context = oxa::Ref<IOXAContext>::adopt(static_cast<IOXAContext*>(out));
  const auto sink = oxa::service<IOXADebugMessage>(context.get());
  // The context's, the loader's and ours.
  EXPECT_EQ(sink->CheckReference(), 3);
}

class DefaultServicesFailureTest : public testing::TestWithParam<std::size_t> {};

TEST_P(DefaultServicesFailureTest, StopsTheSequenceWithItsMessage) {
  const Step& failing = steps[GetParam()];
  const auto context = oxa::make<FakeContext>();
  context->failing_iid = failing.iid;
  OXAResult result = S_OK;
  const auto written = written_by([&] { result = add_default_services(*context); });
  EXPECT_EQ(result, E_FAIL);
  EXPECT_EQ(written.err, failing.message);
  EXPECT_EQ(written.out, "");
  EXPECT_EQ(context->added.size(), GetParam() + 1);
}

INSTANTIATE_TEST_SUITE_P(EachStep, DefaultServicesFailureTest,
                         testing::Range<std::size_t>(0, std::size(steps)));

// Makes a context while one allocation fails, the one after `passing` others. Returns what was
// said, or nothing once there are no more allocations to fail.
std::optional<std::string> said_without_allocation(unsigned long passing) {
  OXAResult result = S_OK;
  bool failed = false;
  long left = 0;
  void* out = &out;
  const auto written = written_by([&] {
    const long before = oxa_test::live_allocations();
    const oxa_test::FailingAllocation failing(passing);
    result = OXACreateContext(IID_IOXAContext, &out);
    failed = oxa_test::FailingAllocation::happened();
    left = oxa_test::live_allocations() - before;
  });
  if (!failed) {
    static_cast<IOXAContext*>(out)->ReleaseReference();
    return std::nullopt;
  }
  EXPECT_EQ(result, E_OUTOFMEMORY) << passing;
  EXPECT_EQ(out, nullptr) << passing;
  EXPECT_EQ(left, 0) << passing;
  return written.err;
}

unsigned long allocations_of_a_translator() {
  const unsigned long before = oxa_test::made_allocations();
  oxa::make<OXAPropertyDataTypeTranslator>();
  return oxa_test::made_allocations() - before;
}

// The loader comes from a factory, whose failure is told, whatever it is.
TEST(DefaultServicesTest, EachFailedAllocationButTheLoadersStopsInSilence) {
  std::vector<std::string> said;
  while (const auto text = said_without_allocation(said.size())) {
    said.push_back(*text);
  }
  const std::size_t others = std::size(steps) - 2;
  ASSERT_GE(said.size(), allocations_of_a_translator() + others + 2);
  std::vector<std::string> expected(said.size() - 2);
  expected.insert(expected.end(), 2, "ERROR: Unable to create plugin loader interface...\n");
  EXPECT_EQ(said, expected);
}

TEST(DefaultServicesTest, AFreshContextHandsOutItsTranslator) {
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  const auto translator = oxa::service<IOXAPropertyDataTypeTranslator>(context.get());
  EXPECT_EQ(translator->CheckReference(), 2);
  EXPECT_EQ(translator->ToType("int"), OXA::Property::DataType::Int);
}

TEST(DefaultServicesTest, EachContextHasATranslatorOfItsOwn) {
  oxa::Ref<IOXAContext> first;
  oxa::Ref<IOXAContext> second;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(first));
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(second));
  // The reference that the second context's entry for the loader lacks.
  static_cast<void>(oxa::service<IOXAPluginLoader>(second.get()).detach());
  const auto of_first = oxa::service<IOXAPropertyDataTypeTranslator>(first.get());
  const auto of_second = oxa::service<IOXAPropertyDataTypeTranslator>(second.get());
  EXPECT_EQ(of_first->Register(OXA::Property::DataType::Int, "number", nullptr), S_OK);
  EXPECT_EQ(of_first->ToType("number"), OXA::Property::DataType::Int);
  EXPECT_EQ(of_second->ToType("number"), OXA::Property::NoDataType);
}

}  // namespace
