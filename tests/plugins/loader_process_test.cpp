// The one loader of the process: how it begins, who holds it and how it ends.
#include <gtest/gtest.h>

#include "plugins/files.h"
#include "plugins/host.h"
#include "support/allocations.h"

using namespace oxa_test;

namespace {

using Lines = std::vector<std::string>;

oxa::Ref<IOXAContext> make_context() {
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  return context;
}

// A context that has what a loader needs, but no loader.
struct Preparation {
  Preparation() {
    context->AddToContext(IID_IOXADebugMessage, sink.get());
    context->AddToContext(IID_IOXAInterfaceManager, registry.get());
    context->added.clear();
  }

  oxa::Ref<FakeContext> context = oxa::make<FakeContext>();
  oxa::Ref<RecordingSink> sink = oxa::make<RecordingSink>();
  oxa::Ref<IOXAInterfaceManager> registry =
      oxa::service<IOXAInterfaceManager>(make_context().get());
  oxa::Ref<IOXAPluginLoader> loader;
};

TEST(CreatePluginLoaderTest, ANullOutputIsRefusedBeforeAnythingElse) {
  const auto context = oxa::make<FakeContext>();
  EXPECT_EQ(OXACreatePluginLoader(context.get(), nullptr), E_INVALIDARG);
  EXPECT_EQ(OXACreatePluginLoader(nullptr, nullptr), E_INVALIDARG);
  EXPECT_TRUE(context->added.empty());
}

TEST(CreatePluginLoaderTest, ANullContextIsRefusedWithANullOutput) {
  int something = 0;
  void* out = &something;
  EXPECT_EQ(OXACreatePluginLoader(nullptr, &out), E_INVALIDARG);
  EXPECT_EQ(out, nullptr);
}

TEST(CreatePluginLoaderTest, ANullContextIsRefusedAlsoWhenThereIsALoader) {
  const Host host;
  void* out = host.loader.get();
  EXPECT_EQ(OXACreatePluginLoader(nullptr, &out), E_INVALIDARG);
  EXPECT_EQ(out, nullptr);
}

TEST(CreatePluginLoaderTest, ANewLoaderIsFiledInTheContextAndOwnedByTheCaller) {
  Preparation made;
  EXPECT_EQ(OXACreatePluginLoader(made.context.get(), oxa::adopt_into(made.loader)), S_FALSE);
  EXPECT_EQ(made.context->added, std::vector<_GUID>{IID_IOXAPluginLoader});
  EXPECT_EQ(oxa::service<IOXAPluginLoader>(made.context.get()), made.loader);
  EXPECT_EQ(made.loader->CheckReference(), 2);
}

TEST(CreatePluginLoaderTest, TheLoaderHoldsTheSinkAndTheRegistryButNotTheContext) {
  Preparation made;
  const std::int64_t of_sink = made.sink->CheckReference();
  const std::int64_t of_registry = made.registry->CheckReference();
  OXACreatePluginLoader(made.context.get(), oxa::adopt_into(made.loader));
  EXPECT_EQ(made.sink->CheckReference(), of_sink + 1);
  EXPECT_EQ(made.registry->CheckReference(), of_registry + 1);
  EXPECT_EQ(made.context->CheckReference(), 1);
}

TEST(CreatePluginLoaderTest, AContextWithoutASinkGetsNoLoader) {
  Preparation made;
  made.context->services.erase(oxa::to_string(IID_IOXADebugMessage));
  void* out = &made;
  EXPECT_EQ(OXACreatePluginLoader(made.context.get(), &out), E_NOTFOUND);
  EXPECT_EQ(out, nullptr);
  EXPECT_TRUE(made.context->added.empty());
}

TEST(CreatePluginLoaderTest, AContextWithoutARegistryGetsNoLoader) {
  Preparation made;
  made.context->services.erase(oxa::to_string(IID_IOXAInterfaceManager));
  void* out = &made;
  EXPECT_EQ(OXACreatePluginLoader(made.context.get(), &out), E_NOTFOUND);
  EXPECT_EQ(out, nullptr);
  EXPECT_EQ(made.sink->CheckReference(), 2);
  EXPECT_TRUE(made.context->added.empty());
}

TEST(CreatePluginLoaderTest, AFailedAttemptDoesNotStandInTheWayOfTheNext) {
  Preparation made;
  EXPECT_EQ(OXACreatePluginLoader(oxa::make<FakeContext>().get(), oxa::adopt_into(made.loader)),
            E_NOTFOUND);
  EXPECT_EQ(OXACreatePluginLoader(made.context.get(), oxa::adopt_into(made.loader)), S_FALSE);
}

TEST(CreatePluginLoaderTest, ALoaderThatCannotBeFiledIsHandedOutAllTheSame) {
  Preparation made;
  made.context->failing_iid = IID_IOXAPluginLoader;
  EXPECT_EQ(OXACreatePluginLoader(made.context.get(), oxa::adopt_into(made.loader)), E_FAIL);
  ASSERT_TRUE(made.loader);
  EXPECT_EQ(made.loader->CheckReference(), 1);
}

TEST(CreatePluginLoaderTest, AnExistingLoaderIsHandedOutWithoutAReference) {
  const Host host;
  const auto other = oxa::make<FakeContext>();
  const std::int64_t references = host.loader->CheckReference();
  void* out = nullptr;
  EXPECT_EQ(OXACreatePluginLoader(other.get(), &out), S_FALSE);
  EXPECT_EQ(out, host.loader.get());
  EXPECT_EQ(other->added, std::vector<_GUID>{IID_IOXAPluginLoader});
  EXPECT_EQ(host.loader->CheckReference(), references + 1);  // the other context's
}

TEST(CreatePluginLoaderTest, AnExistingLoaderIsHandedOutAlsoWhenItCannotBeFiled) {
  const Host host;
  const auto other = oxa::make<FakeContext>();
  other->failing_iid = IID_IOXAPluginLoader;
  const std::int64_t references = host.loader->CheckReference();
  void* out = nullptr;
  EXPECT_EQ(OXACreatePluginLoader(other.get(), &out), E_FAIL);
  EXPECT_EQ(out, host.loader.get());
  EXPECT_EQ(host.loader->CheckReference(), references);
}

TEST(CreatePluginLoaderTest, WantOfMemoryLeavesNoLoaderAndNoOutput) {
  Preparation made;
  const unsigned long failed = fail_each_allocation([&] {
    const OXAResult result =
        OXACreatePluginLoader(made.context.get(), oxa::adopt_into(made.loader));
    EXPECT_EQ(result, FailingAllocation::happened() ? E_OUTOFMEMORY : S_FALSE);
    EXPECT_EQ(static_cast<bool>(made.loader), !FailingAllocation::happened());
  });
  EXPECT_GT(failed, 0);
}

TEST(PluginLoaderTest, AllContextsOfTheProcessShareOneLoader) {
  Host first;
  const auto second = make_context();
  EXPECT_EQ(oxa::service<IOXAPluginLoader>(second.get()), first.loader);
  static_cast<void>(first.loader.detach());  // the second context releases it
}

// The second context releases what it never took, so the host that keeps two contexts gives it a
// reference of its own: the one of `loader`, which must not be released otherwise.
TEST(PluginLoaderTest, ASecondContextHasNoReferenceOfItsOwn) {
  auto first = make_context();
  IOXAPluginLoader* loader = oxa::service<IOXAPluginLoader>(first.get()).detach();
  EXPECT_EQ(loader->CheckReference(), 2);
  auto second = make_context();
  EXPECT_EQ(loader->CheckReference(), 2);
  second.reset();
  EXPECT_EQ(loader->CheckReference(), 1);
  const long before = live_allocations();
  first.reset();
  EXPECT_LT(live_allocations(), before);
}

TEST(PluginLoaderTest, WhenTheLoaderHasEndedTheNextContextMakesANewOne) {
  const std::wstring path = wide(miniature("good"));
  Host().loader->Load(path.c_str());
  Host next;
  EXPECT_EQ(next.loader->CheckReference(), 2);
  EXPECT_EQ(next.loader->Unload(path.c_str()), E_NOTFOUND);
}

TEST(PluginLoaderTest, TheEndOfTheContextEndsThePlugins) {
  auto journal = oxa::make<Journal>();
  {
    Host host;
    host.context->AddToContext(IID_IJournal, journal.get());
    host.loader->Load(wide(miniature("good")).c_str());
  }
  EXPECT_EQ(journal->lines, (Lines{"good begins", "good ends"}));
  EXPECT_FALSE(is_open(miniature("good")));
}

TEST(PluginLoaderTest, TheLoaderLetsGoOfItsServicesBeforeItEndsThePlugins) {
  RecordingHost host;
  host.loader->Load(wide(miniature("good")).c_str());
  host.context->services.erase(oxa::to_string(IID_IOXAPluginLoader));
  const std::int64_t of_sink = host.sink->CheckReference();
  const std::int64_t of_registry = host.registry->CheckReference();
  host.journal->on_note = [&] {
    EXPECT_EQ(host.sink->CheckReference(), of_sink - 1);
    EXPECT_EQ(host.registry->CheckReference(), of_registry - 1);
  };
  host.loader.reset();
  EXPECT_EQ(host.journal->lines, (Lines{"good begins", "good ends"}));
}

}  // namespace
