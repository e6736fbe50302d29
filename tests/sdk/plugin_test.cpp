#include <oxa/sdk/plugin.h>

#include <gtest/gtest.h>
#include <oxa/sdk/ranges.h>

#include <stdexcept>
#include <vector>

#include "support/allocations.h"
#include "support/fakes.h"

namespace {

// An interface as a plug-in's own contract would declare it.
class IGreeter : public IOXAReference {
 public:
  virtual const char* Greet() = 0;

 protected:
  ~IGreeter() = default;
};

class Greeter final : public oxa::Implements<IGreeter> {
 public:
  const char* Greet() override { return "hello"; }
};

class ContextGreeter final : public oxa::Implements<IGreeter> {
 public:
  explicit ContextGreeter(IOXAContext* context) : known_(context != nullptr) {}
  const char* Greet() override { return known_ ? "hello, context" : "hello, nobody"; }

 private:
  bool known_;
};

class BrokenGreeter final : public oxa::Implements<IGreeter> {
 public:
  BrokenGreeter() { throw std::runtime_error("broken"); }
  const char* Greet() override { return ""; }
};

// The entry point of this program.
OXA_PLUGIN("Greeters", "1.0", oxa::offer<Greeter>(IID_IOXAFileReader),
           oxa::offer<ContextGreeter>(IID_IOXAAlgorithm))

class SdkPluginTest : public testing::Test {
 protected:
  oxa::Ref<IOXAPlugin> create() {
    oxa::Ref<IOXAPlugin> plugin;
    EXPECT_EQ(OXACreatePluginInterface(context_.get(), IID_IOXAPlugin, oxa::adopt_into(plugin)),
              S_OK);
    return plugin;
  }

  oxa::Ref<oxa_test::FakeContext> context_ = oxa::make<oxa_test::FakeContext>();
};

TEST_F(SdkPluginTest, TheEntryPointChecksItsArgumentsInOrder) {
  EXPECT_EQ(OXACreatePluginInterface(context_.get(), IID_IOXAContext, nullptr), E_INVALIDARG);
  void* out = this;
  EXPECT_EQ(OXACreatePluginInterface(context_.get(), IID_IOXAContext, &out), E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);
}

TEST_F(SdkPluginTest, ThePluginObjectTellsItsNameAndVersion) {
  const auto plugin = create();
  EXPECT_EQ(plugin->CheckReference(), 1);
  EXPECT_STREQ(plugin->GetName(), "Greeters");
  EXPECT_STREQ(plugin->GetVersion(), "1.0");
}

TEST_F(SdkPluginTest, TheTableIsListedInOrder) {
  const auto plugin = create();
  oxa::Ref<IOXAInterfaceEnum> offered;
  EXPECT_EQ(plugin->GetInterfaceEnum(oxa::adopt_into(offered)), S_OK);
  _GUID iid{};
  void* object = nullptr;
  EXPECT_EQ(offered->GetFirst(iid, &object), S_OK);
  EXPECT_EQ(iid, IID_IOXAFileReader);
  EXPECT_STREQ(static_cast<IGreeter*>(object)->Greet(), "hello");
  EXPECT_EQ(offered->GetNext(iid, &object), S_OK);
  EXPECT_EQ(iid, IID_IOXAAlgorithm);
  EXPECT_STREQ(static_cast<IGreeter*>(object)->Greet(), "hello, context");
  EXPECT_EQ(offered->GetNext(iid, &object), S_FALSE);
}

TEST_F(SdkPluginTest, ANullOutputOfTheListIsRefused) {
  EXPECT_EQ(create()->GetInterfaceEnum(nullptr), E_INVALIDARG);
}

TEST_F(SdkPluginTest, AnOfferedObjectMayOutliveItsPlugin) {
  oxa::Ref<IGreeter> greeter;
  {
    const auto plugin = create();
    oxa::Ref<IOXAInterfaceEnum> offered;
    plugin->GetInterfaceEnum(oxa::adopt_into(offered));
    _GUID iid{};
    offered->GetFirst(iid, oxa::share_into(greeter));
  }
  EXPECT_EQ(greeter->CheckReference(), 1);
  EXPECT_STREQ(greeter->Greet(), "hello");
}

TEST_F(SdkPluginTest, OneObjectCanBeOfferedUnderSeveralIds) {
  const oxa::Offer offers[] = {oxa::offer<Greeter>(IID_IOXAFileReader),
                               oxa::also(IID_IOXAFileWriter), oxa::offer<Greeter>(IID_IOXALayout)};
  oxa::Ref<IOXAPlugin> plugin;
  oxa::create_plugin(context_.get(), IID_IOXAPlugin, oxa::adopt_into(plugin),
                     {"Greeters", "1.0", offers, 3});
  oxa::Ref<IOXAInterfaceEnum> offered;
  plugin->GetInterfaceEnum(oxa::adopt_into(offered));
  std::vector<void*> objects;
  for (const oxa::InterfaceEntry& entry : oxa::entries(*offered)) {
    objects.push_back(entry.object);
  }
  ASSERT_EQ(objects.size(), 3U);
  EXPECT_EQ(objects[0], objects[1]);
  EXPECT_NE(objects[0], objects[2]);
}

TEST_F(SdkPluginTest, AThrowingConstructorFailsTheEntryPoint) {
  const oxa::Offer offers[] = {oxa::offer<Greeter>(IID_IOXAFileReader),
                               oxa::offer<BrokenGreeter>(IID_IOXAFileReader)};
  void* out = this;
  EXPECT_EQ(oxa::create_plugin(context_.get(), IID_IOXAPlugin, &out, {"Broken", "1.0", offers, 2}),
            E_UNEXPECTED);
  EXPECT_EQ(out, nullptr);
}

TEST_F(SdkPluginTest, EveryFailedAllocationIsReported) {
  const unsigned long failed = oxa_test::fail_each_allocation([&] {
    void* out = nullptr;
    if (OXACreatePluginInterface(context_.get(), IID_IOXAPlugin, &out) < 0) {
      EXPECT_EQ(out, nullptr);
      return;
    }
    const auto plugin = oxa::Ref<IOXAPlugin>::adopt(static_cast<IOXAPlugin*>(out));
    IOXAInterfaceEnum* offered = nullptr;
    if (plugin->GetInterfaceEnum(&offered) == S_OK) {
      offered->ReleaseReference();
    } else {
      EXPECT_EQ(offered, nullptr);
    }
  });
  EXPECT_EQ(failed, 8U);  // plug-in object, its two tables, two greeters; list, pairs, enumerator
}

}  // namespace
