// Plug-ins that call the loader while they end.
#include <gtest/gtest.h>

#include "plugins/told.h"

using namespace oxa_test;

namespace {

using Results = std::vector<OXAResult>;

// UnloadAll used to come back to a path that was loaded while it ended, without end.
TEST(PluginLoaderTest, APluginThatLoadsItsOwnPathWhileAllEndFindsItLoaded) {
  Telling<RecordingHost> host;
  Results inner;
  host.plugin.on_release = [&] {
    if (inner.size() < 3) {
      inner.push_back(host.load());
    }
  };
  ASSERT_EQ(host.load(), S_OK);
  EXPECT_EQ(host.loader->UnloadAll(), S_OK);
  EXPECT_EQ(inner, Results{5});
  EXPECT_EQ(host.unload(), E_NOTFOUND);
  EXPECT_FALSE(is_open(host.path));
}

TEST(PluginLoaderTest, APluginThatLoadsItsOwnPathAtTheEndOfTheContextIsRefused) {
  Telling<Host> host;
  IOXAPluginLoader* loader = host.loader.get();
  Results inner;
  host.plugin.on_release = [&] {
    if (inner.size() < 3) {
      inner.push_back(loader->Load(wide(host.path).c_str()));
    }
  };
  ASSERT_EQ(host.load(), S_OK);
  host.loader.reset();
  host.context.reset();
  EXPECT_EQ(inner, Results{E_UNEXPECTED});
  EXPECT_FALSE(is_open(host.path));
}

// Loading used to call the registry that the ending loader had let go of.
TEST(PluginLoaderTest, APluginThatLoadsOthersWhileTheLoaderEndsIsRefused) {
  Telling<RecordingHost> host;
  IOXAPluginLoader* loader = host.loader.get();
  const TemporaryFolder folder;
  const std::wstring other = wide(copy_plugin(folder, "good", "good.so"));
  Results inner;
  host.plugin.on_release = [&] {
    inner = {loader->Load(other.c_str()), loader->LoadAll(wide(folder.path()).c_str())};
  };
  ASSERT_EQ(host.load(), S_OK);
  host.context->services.erase(oxa::to_string(IID_IOXAPluginLoader));
  host.loader.reset();
  EXPECT_EQ(inner, (Results{E_UNEXPECTED, E_UNEXPECTED}));
  EXPECT_TRUE(host.journal->lines.empty());
}

// The other context does not take the loader, which has no references left to give.
TEST(PluginLoaderTest, ThePluginsEndWhileTheLoaderIsStillTheOneOfTheProcess) {
  Telling<RecordingHost> host;
  const auto other = oxa::make<FakeContext>();
  other->failing_iid = IID_IOXAPluginLoader;
  void* const loader = host.loader.get();
  void* found = nullptr;
  host.plugin.on_release = [&] { OXACreatePluginLoader(other.get(), &found); };
  ASSERT_EQ(host.load(), S_OK);
  host.context->services.erase(oxa::to_string(IID_IOXAPluginLoader));
  host.loader.reset();
  EXPECT_EQ(found, loader);
  EXPECT_EQ(OXACreatePluginLoader(other.get(), &found), E_NOTFOUND);
}

}  // namespace
