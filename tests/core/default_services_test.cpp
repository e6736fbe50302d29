#include "core/default_services.h"

#include <gtest/gtest.h>
#include <oxa/oxa.h>

#include <memory>

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

TEST(DefaultServicesTest, AFailedAllocationStopsInSilence) {
  for (unsigned long passing = 1; passing < 6; ++passing) {  // 0 is the context itself
    OXAResult result = S_OK;
    void* out = nullptr;
    const auto written = written_by([&] {
      const oxa_test::FailingAllocation failing(passing);
      result = OXACreateContext(IID_IOXAContext, &out);
    });
    EXPECT_EQ(result, E_OUTOFMEMORY);
    EXPECT_EQ(written.err, "");
  }
}

}  // namespace
