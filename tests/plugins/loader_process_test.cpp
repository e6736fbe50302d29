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

// A context that answers as the test says and remembers what it was asked for.
class AskedContext final : public oxa::Implements<IOXAContext> {
 public:
  explicit AskedContext(std::function<OXAResult(const _GUID&, void**)> answer)
      : answer_(std::move(answer)) {}

  OXAResult GetInterface(const _GUID& iid, void** out) override {
    asked.push_back(iid);
    *out = nullptr;
    return answer_(iid, out);
  }
  OXAResult AddToContext(const _GUID&, void*) override { return S_FALSE; }

  std::vector<_GUID> asked;

 private:
  std::function<OXAResult(const _GUID&, void**)> answer_;
};

// A registry that tells when it is released, and keeps nothing.
class WatchedRegistry final : public oxa::Implements<IOXAInterfaceManager> {
 public:
  std::int64_t ReleaseReference() override {
    if (on_release) {
      on_release();
    }
    return Implements::ReleaseReference();
  }
  OXAResult GetInterfaceEnumByGUID(const _GUID&, IOXAInterfaceEnum**) override { return E_FAIL; }
  OXAResult GetInterfaceEnumByNamespace(const char*, IOXAInterfaceEnum**) override {
    return E_FAIL;
  }
  OXAResult RegisterInterface(const char*, const _GUID&, void*) override { return S_OK; }
  OXAResult UnRegisterInterface(const char*, const _GUID&, void*) override { return S_OK; }

  std::function<void()> on_release;
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

TEST(CreatePluginLoaderTest, TheSinkIsAskedForBeforeTheRegistry) {
  const auto context = oxa::make<AskedContext>([](const _GUID& iid, void**) {
    return iid == IID_IOXADebugMessage ? E_HANDLE : E_BADENVIRONMENT;
  });
  oxa::Ref<IOXAPluginLoader> loader;
  EXPECT_EQ(OXACreatePluginLoader(context.get(), oxa::adopt_into(loader)), E_HANDLE);
  EXPECT_EQ(context->asked, std::vector<_GUID>{IID_IOXADebugMessage});
}

// A loader without a registry used to end the process with its first plug-in.
TEST(CreatePluginLoaderTest, ALoaderWithoutARegistryLoadsNothing) {
  const auto context = oxa::make<AskedContext>([](const _GUID&, void**) { return S_OK; });
  oxa::Ref<IOXAPluginLoader> loader;
  EXPECT_EQ(OXACreatePluginLoader(context.get(), oxa::adopt_into(loader)), S_FALSE);
  ASSERT_TRUE(loader);
  EXPECT_EQ(loader->Load(wide(miniature("good")).c_str()), E_UNEXPECTED);
  EXPECT_EQ(loader->LoadAll(wide(miniature("good").parent_path()).c_str()), E_UNEXPECTED);
  EXPECT_FALSE(is_open(miniature("good")));
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

TEST(PluginLoaderTest, TheLoaderLetsGoOfTheRegistryBeforeTheSink) {
  Preparation made;
  const auto registry = oxa::make<WatchedRegistry>();
  made.context->AddToContext(IID_IOXAInterfaceManager, registry.get());
  OXACreatePluginLoader(made.context.get(), oxa::adopt_into(made.loader));
  made.context->services.erase(oxa::to_string(IID_IOXAPluginLoader));
  std::vector<std::int64_t> of_sink;
  registry->on_release = [&] { of_sink.push_back(made.sink->CheckReference()); };
  const std::int64_t before = made.sink->CheckReference();
  made.loader.reset();
  registry->on_release = nullptr;
  EXPECT_EQ(of_sink, std::vector<std::int64_t>{before});
  EXPECT_EQ(made.sink->CheckReference(), before - 1);
}

}  // namespace
