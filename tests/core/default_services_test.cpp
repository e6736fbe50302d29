#include "core/default_services.h"

#include <gtest/gtest.h>
#include <oxa/oxa.h>

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "diagnostics/OXADiagnosticsManager.h"
#include "mortal.h"
#include "properties/OXAPreferences.h"
#include "properties/OXAPropertyDataTypeTranslator.h"
#include "support/allocations.h"
#include "support/capture.h"
#include "support/fakes.h"

using oxa_test::FailingAllocation;
using oxa_test::FakeContext;
using oxa_test::Mortal;
using oxa_test::written_by;

namespace {

// The sequence: the id, and what is said when adding under it fails.
struct Step {
  const _GUID& iid;
  const char* message;
};

const char* const no_loader = "ERROR: Unable to create plugin loader interface...\n";

const Step steps[] = {
    {IID_IOXADebugMessage, ""},
    {IID_IOXAProgressIndicator, "ERROR: Unable to add ProgressIndicator to the context.\n"},
    {IID_IOXADirectoryScanner, "ERROR: Unable to add DirectoryScanner() to the context.\n"},
    {IID_IOXADiagnosticsManager, "ERROR: Unable to add DiagnosticsManager() to the context.\n"},
    {IID_IOXAXMLParser, "ERROR: Unable to add XMLParser() to the context.\n"},
    {IID_IOXAPropertyDataTypeTranslator,
     "ERROR: Unable to add DataTypeTranslator() to the context.\n"},
    {IID_IOXAInterfaceManager, "ERROR: Unable to add Interface Manager to the context.\n"},
    {IID_IOXAPreferences, "ERROR: Unable to add Preferences interface to the context.\n"},
    {IID_IOXAPluginLoader, no_loader},
};
const int step_count = std::size(steps);
const int preferences_step = 7;

oxa::Ref<IOXAContext> create_context() {
  oxa::Ref<IOXAContext> context;
  EXPECT_EQ(OXACreateContext(IID_IOXAContext, oxa::adopt_into(context)), S_FALSE);
  return context;
}

TEST(DefaultServicesTest, AreAddedInOrder) {
  const auto context = oxa::make<FakeContext>();
  EXPECT_EQ(add_default_services(*context), S_FALSE);
  ASSERT_EQ(context->added.size(), step_count);
  for (int step = 0; step < step_count; ++step) {
    EXPECT_EQ(context->added[step], steps[step].iid) << step;
  }
}

TEST(DefaultServicesTest, BelongToTheContextAlone) {
  const auto context = oxa::make<FakeContext>();
  add_default_services(*context);
  for (const Step& step : steps) {
    // The loader has a reference of its own to the sink and to the registry.
    const bool used = step.iid == IID_IOXADebugMessage || step.iid == IID_IOXAInterfaceManager;
    const auto& service = context->services[oxa::to_string(step.iid)];
    EXPECT_EQ(service->CheckReference(), used ? 2 : 1) << oxa::to_string(step.iid);
  }
}

// Whatever stands in for a service has its place, and what is added later comes after them all.
TEST(DefaultServicesTest, EndInTheirOrderAndBeforeAllOthers) {
  auto context = create_context();
  std::vector<int> deaths;
  const auto add = [&](const _GUID& iid, int name) {
    EXPECT_EQ(context->AddToContext(iid, oxa::make<Mortal>(name, deaths).get()), S_FALSE);
  };
  add(oxa::guid("{00000000-0000-4000-8000-000000000001}"), step_count);
  for (int step = step_count - 1; step >= 0; --step) {
    add(steps[step].iid, step);
  }
  EXPECT_EQ(deaths, std::vector<int>{});
  context.reset();
  EXPECT_EQ(deaths, (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(DefaultServicesTest, AFreshContextHandsOutItsSink) {
  const auto context = create_context();
  const auto sink = oxa::service<IOXADebugMessage>(context);
  // The context's, the loader's and ours.
  EXPECT_EQ(sink->CheckReference(), 3);
}

TEST(DefaultServicesTest, AFreshContextHandsOutItsDiagnostics) {
  const auto context = create_context();
  const auto diagnostics = oxa::service<IOXADiagnosticsManager>(context);
  EXPECT_EQ(diagnostics->CheckReference(), 2);
  EXPECT_EQ(diagnostics->GetColumnCount(), 2);
}

TEST(DefaultServicesTest, AFreshContextHandsOutItsTranslator) {
  const auto context = create_context();
  const auto translator = oxa::service<IOXAPropertyDataTypeTranslator>(context);
  EXPECT_EQ(translator->CheckReference(), 2);
  EXPECT_EQ(translator->ToType("int"), OXA::Property::DataType::Int);
}

OXAResult add_preference(IOXAPreferences& preferences) {
  IOXAProperty* property = nullptr;
  return preferences.Add("layout", "width", &property);
}

TEST(DefaultServicesTest, AFreshContextHandsOutItsPreferences) {
  const auto context = create_context();
  const auto preferences = oxa::service<IOXAPreferences>(context);
  EXPECT_EQ(preferences->CheckReference(), 2);
  EXPECT_EQ(add_preference(*preferences), S_OK);
}

class DefaultServicesFailureTest : public testing::TestWithParam<int> {};

TEST_P(DefaultServicesFailureTest, StopsTheSequenceWithItsMessage) {
  const Step& failing = steps[GetParam()];
  const auto context = oxa::make<FakeContext>();
  context->failing_iid = failing.iid;
  context->failure = E_FAIL + GetParam();
  OXAResult result = S_OK;
  const auto written = written_by([&] { result = add_default_services(*context); });
  EXPECT_EQ(result, E_FAIL + GetParam());
  EXPECT_EQ(written.err, failing.message);
  EXPECT_EQ(written.out, "");
  EXPECT_EQ(context->added.size(), GetParam() + 1);
}

INSTANTIATE_TEST_SUITE_P(EachStep, DefaultServicesFailureTest, testing::Range(0, step_count));

TEST(DefaultServicesTest, GoOnAfterAnySuccess) {
  const auto context = oxa::make<FakeContext>();
  context->failing_iid = IID_IOXAPreferences;
  context->failure = S_ALREADYEXISTS;
  EXPECT_EQ(add_default_services(*context), S_FALSE);
  EXPECT_EQ(context->added.size(), step_count);
}

// Makes a context while one allocation fails, the one after `passing` others. Returns what was
// said, or nothing once there are no more allocations to fail.
std::optional<std::string> said_without_allocation(unsigned long passing) {
  OXAResult result = S_OK;
  bool failed = false;
  long left = 0;
  void* out = &out;
  const auto written = written_by([&] {
    const long before = oxa_test::live_allocations();
    const FailingAllocation failing(passing);
    result = OXACreateContext(IID_IOXAContext, &out);
    failed = FailingAllocation::happened();
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

template <class Service, class... Arguments>
unsigned long allocations_of(Arguments&&... arguments) {
  const unsigned long before = oxa_test::made_allocations();
  oxa::make<Service>(std::forward<Arguments>(arguments)...);
  return oxa_test::made_allocations() - before;
}

unsigned long allocations_of_preferences() {
  OXAResult result = E_FAIL;
  const unsigned long allocations = allocations_of<OXAPreferences>(result);
  EXPECT_EQ(result, S_OK);
  return allocations;
}

// The loader comes from a factory, whose failure is told, whatever it is.
TEST(DefaultServicesTest, EachFailedAllocationButTheLoadersStopsInSilence) {
  std::vector<std::string> said;
  while (const auto text = said_without_allocation(said.size())) {
    said.push_back(*text);
  }
  const unsigned long others = 8;  // the context, its two tables, and five services with one each
  ASSERT_GE(said.size(), others + allocations_of<OXADiagnosticsManager>() +
                             allocations_of<OXAPropertyDataTypeTranslator>() +
                             allocations_of_preferences() + 2);
  std::vector<std::string> expected(said.size() - 2);
  expected.insert(expected.end(), 2, no_loader);
  EXPECT_EQ(said, expected);
}

// A context that needs no memory.
class ContextOfSlots final : public oxa::Implements<IOXAContext> {
 public:
  OXAResult GetInterface(const _GUID& iid, void** out) override {
    for (int step = 0; step < count; ++step) {
      if (steps[step].iid == iid) {
        *out = oxa::Ref<IOXAReference>(services_[step]).detach();
        return S_OK;
      }
    }
    return E_NOTFOUND;
  }

  OXAResult AddToContext(const _GUID& iid, void* object) override {
    EXPECT_EQ(iid, steps[count].iid);
    services_[count++] = oxa::Ref<IOXAReference>::share(static_cast<IOXAReference*>(object));
    return S_FALSE;
  }

  int count = 0;

 private:
  std::array<oxa::Ref<IOXAReference>, step_count> services_;
};

// Their constructor tells by its result what became of it.
TEST(DefaultServicesTest, PreferencesThatCannotBeMadeAreNotAdded) {
  unsigned long stopped_there = 0;
  const auto stops = [&](unsigned long passing) {
    const auto context = oxa::make<ContextOfSlots>();
    const FailingAllocation failing(passing);
    const OXAResult result = oxa::guard([&] { return add_default_services(*context); });
    EXPECT_EQ(result, FailingAllocation::happened() ? E_OUTOFMEMORY : S_FALSE);
    stopped_there += context->count == preferences_step ? 1 : 0;
    return FailingAllocation::happened() && context->count <= preferences_step;
  };
  const auto written = written_by([&] {
    for (unsigned long passing = 0; stops(passing); ++passing) {
    }
  });
  EXPECT_EQ(stopped_there, allocations_of_preferences());
  EXPECT_EQ(written.err, no_loader);  // the first failure after these
}

// Two contexts of the process.
class TwoContextsTest : public testing::Test {
 protected:
  // A second one's entry for the loader lacks a reference, which the test gives back.
  ~TwoContextsTest() override {
    static_cast<void>(oxa::service<IOXAPluginLoader>(second_).detach());
  }

  oxa::Ref<IOXAContext> first_ = create_context();
  oxa::Ref<IOXAContext> second_ = create_context();
};

TEST_F(TwoContextsTest, ShareTheLoaderAlone) {
  for (const Step& step : steps) {
    oxa::Ref<IOXAReference> of_first;
    oxa::Ref<IOXAReference> of_second;
    first_->GetInterface(step.iid, oxa::adopt_into(of_first));
    second_->GetInterface(step.iid, oxa::adopt_into(of_second));
    EXPECT_EQ(of_first == of_second, step.iid == IID_IOXAPluginLoader);
  }
}

TEST_F(TwoContextsTest, HaveTypesOfTheirOwn) {
  const auto of_first = oxa::service<IOXAPropertyDataTypeTranslator>(first_);
  const auto of_second = oxa::service<IOXAPropertyDataTypeTranslator>(second_);
  EXPECT_EQ(of_first->Register(OXA::Property::DataType::Int, "number", nullptr), S_OK);
  EXPECT_EQ(of_first->ToType("number"), OXA::Property::DataType::Int);
  EXPECT_EQ(of_second->ToType("number"), OXA::Property::NoDataType);
}

TEST_F(TwoContextsTest, HaveDiagnosticsOfTheirOwn) {
  const auto of_second = oxa::service<IOXADiagnosticsManager>(second_);
  EXPECT_EQ(oxa::service<IOXADiagnosticsManager>(first_)->SetColumnCount(5), S_OK);
  EXPECT_EQ(of_second->GetColumnCount(), 2);
}

TEST_F(TwoContextsTest, HavePreferencesOfTheirOwn) {
  EXPECT_EQ(add_preference(*oxa::service<IOXAPreferences>(first_)), S_OK);
  EXPECT_EQ(add_preference(*oxa::service<IOXAPreferences>(second_)), S_OK);
}

}  // namespace
