// Unloading plug-ins.
#include <gtest/gtest.h>

#include "plugins/files.h"
#include "plugins/host.h"

using namespace oxa_test;

namespace {

using Lines = std::vector<std::string>;

IOXAPlugin* only_plugin(const Host& host) {
  return static_cast<IOXAPlugin*>(entries_in(host.registry, "plugins").at(0).object);
}

TEST(PluginLoaderTest, UnloadEndsThePluginObjectAndClosesItsSharedObject) {
  Host host;
  const auto path = miniature("good");
  host.loader->Load(wide(path).c_str());
  EXPECT_TRUE(is_open(path));
  EXPECT_EQ(host.loader->Unload(wide(path).c_str()), S_OK);
  EXPECT_EQ(host.journal->lines, (Lines{"good begins", "good ends"}));
  EXPECT_FALSE(is_open(path));
}

// Defect: variables of templates showed, which makes the system keep the object until the end, so
// that a plug-in that was built anew was not picked up.
TEST(PluginLoaderTest, UnloadClosesAPluginThatUsesTemplatesOfTheStandardLibrary) {
  Host host;
  const auto path = miniature("standard_templates");
  host.loader->Load(wide(path).c_str());
  auto* gauge = static_cast<IGauge*>(entries_in(host.registry, "misc").at(0).object);
  EXPECT_EQ(gauge->Read(), 42);
  EXPECT_EQ(host.loader->Unload(wide(path).c_str()), S_OK);
  EXPECT_FALSE(is_open(path));
}

TEST(PluginLoaderTest, UnloadLeavesTheRegistrationsBehind) {
  Host host;
  const auto path = miniature("good");
  host.loader->Load(wide(path).c_str());
  host.loader->Unload(wide(path).c_str());
  EXPECT_EQ(ids_in(host.registry, "plugins"), Lines{oxa::to_string(IID_IOXAPlugin)});
  EXPECT_EQ(ids_in(host.registry, "readers"), Lines{oxa::to_string(IID_IOXAFileReader)});
  EXPECT_EQ(ids_in(host.registry, "misc"), Lines{oxa::to_string(IID_IGauge)});
}

TEST(PluginLoaderTest, UnloadWithoutAPathIsRefused) {
  EXPECT_EQ(Host().loader->Unload(nullptr), E_INVALIDARG);
}

TEST(PluginLoaderTest, UnloadOfAPathThatWasNeverLoadedFindsNothing) {
  Host host;
  host.loader->Load(wide(miniature("good")).c_str());
  EXPECT_EQ(host.loader->Unload(wide(miniature("by_hand")).c_str()), E_NOTFOUND);
  EXPECT_EQ(host.loader->Unload(L""), E_NOTFOUND);
}

TEST(PluginLoaderTest, UnloadTwiceFindsNothingTheSecondTime) {
  Host host;
  const std::wstring path = wide(miniature("good"));
  host.loader->Load(path.c_str());
  host.loader->Unload(path.c_str());
  EXPECT_EQ(host.loader->Unload(path.c_str()), E_NOTFOUND);
}

TEST(PluginLoaderTest, WhatWasUnloadedCanBeLoadedAgain) {
  Host host;
  const std::wstring path = wide(miniature("good"));
  host.loader->Load(path.c_str());
  host.loader->Unload(path.c_str());
  EXPECT_EQ(host.loader->Load(path.c_str()), S_OK);
  EXPECT_EQ(host.journal->lines, (Lines{"good begins", "good ends", "good begins"}));
}

TEST(PluginLoaderTest, UnloadKeepsTheCodeOfAnObjectThatTheHostStillHolds) {
  Host host;
  const auto path = miniature("by_hand");
  host.loader->Load(wide(path).c_str());
  auto held = oxa::Ref<IOXAPlugin>::share(only_plugin(host));
  EXPECT_EQ(host.loader->Unload(wide(path).c_str()), S_OK);
  EXPECT_STREQ(held->GetName(), "By hand");
  EXPECT_EQ(held->CheckReference(), 1);
  held.reset();
  EXPECT_EQ(host.journal->lines.back(), "by hand ends");
  EXPECT_TRUE(is_open(path));
  close_for_good(path);
  EXPECT_FALSE(is_open(path));
}

TEST(PluginLoaderTest, UnloadAllKeepsTheCodeOfAnObjectThatTheHostStillHolds) {
  Host host;
  const auto path = miniature("by_hand");
  host.loader->Load(wide(path).c_str());
  const auto held = oxa::Ref<IOXAPlugin>::share(only_plugin(host));
  EXPECT_EQ(host.loader->UnloadAll(), S_OK);
  EXPECT_EQ(host.loader->Unload(wide(path).c_str()), E_NOTFOUND);
  EXPECT_STREQ(held->GetVersion(), "1.0");
}

TEST(PluginLoaderTest, UnloadAllGoesInAscendingPathOrder) {
  const TemporaryFolder folder;
  Host host;
  host.loader->Load(wide(copy_plugin(folder, "good", "b.so")).c_str());
  host.loader->Load(wide(copy_plugin(folder, "by_hand", "a.so")).c_str());
  host.journal->lines.clear();
  EXPECT_EQ(host.loader->UnloadAll(), S_OK);
  EXPECT_EQ(host.journal->lines, (Lines{"by hand ends", "good ends"}));
}

TEST(PluginLoaderTest, PathsAreOrderedByTheirCharacters) {
  const TemporaryFolder folder;
  Host host;
  host.loader->Load(wide(copy_plugin(folder, "good", "\u00E9.so")).c_str());
  host.loader->Load(wide(copy_plugin(folder, "by_hand", "Z.so")).c_str());
  host.journal->lines.clear();
  host.loader->UnloadAll();
  EXPECT_EQ(host.journal->lines, (Lines{"by hand ends", "good ends"}));
}

TEST(PluginLoaderTest, UnloadAllForgetsEveryPathAndKeepsTheRegistrations) {
  Host host;
  const std::wstring path = wide(miniature("good"));
  host.loader->Load(path.c_str());
  host.loader->UnloadAll();
  EXPECT_FALSE(is_open(miniature("good")));
  EXPECT_EQ(entry_count(host.registry), 3);
  EXPECT_EQ(host.loader->Unload(path.c_str()), E_NOTFOUND);
}

TEST(PluginLoaderTest, UnloadAllWithNothingLoadedSucceeds) {
  EXPECT_EQ(Host().loader->UnloadAll(), S_OK);
}

TEST(PluginLoaderTest, UnloadAllStopsAtAPluginThatThrowsAndCanBeCalledAgain) {
  const TemporaryFolder folder;
  Host host;
  host.loader->Load(wide(copy_plugin(folder, "throws_on_release", "a.so")).c_str());
  host.loader->Load(wide(copy_plugin(folder, "good", "b.so")).c_str());
  EXPECT_EQ(host.loader->UnloadAll(), E_UNEXPECTED);
  EXPECT_EQ(host.journal->lines, Lines{"good begins"});
  EXPECT_EQ(host.loader->UnloadAll(), S_OK);
  EXPECT_EQ(host.journal->lines, (Lines{"good begins", "good ends"}));
}

// Loads a.so, which ends well, b.so, which throws, and c.so; UnloadAll stops at b.so.
struct StoppedHost : Host {
  StoppedHost() {
    loader->Load(a.c_str());
    loader->Load(b.c_str());
    loader->Load(c.c_str());
    EXPECT_EQ(loader->UnloadAll(), E_UNEXPECTED);
  }
  ~StoppedHost() { close_for_good(folder / "b.so"); }

  TemporaryFolder folder;
  std::wstring a = wide(copy_plugin(folder, "good", "a.so"));
  std::wstring b = wide(copy_plugin(folder, "throws_on_release", "b.so"));
  std::wstring c = wide(copy_plugin(folder, "by_hand", "c.so"));
};

TEST(PluginLoaderTest, WhatUnloadAllWalkedBeforeItStoppedStillCountsAsLoaded) {
  const StoppedHost host;
  EXPECT_EQ(host.loader->Load(host.a.c_str()), 5);
  EXPECT_EQ(host.loader->Load(host.b.c_str()), 5);
  EXPECT_EQ(host.journal->lines.back(), "good ends");
  EXPECT_FALSE(is_open(host.folder / "a.so"));
}

TEST(PluginLoaderTest, WhatUnloadAllWalkedBeforeItStoppedIsForgottenByUnload) {
  const StoppedHost host;
  for (const std::wstring& path : {host.a, host.b}) {
    EXPECT_EQ(host.loader->Unload(path.c_str()), E_UNEXPECTED);
    EXPECT_EQ(host.loader->Unload(path.c_str()), E_NOTFOUND);
  }
  EXPECT_EQ(host.loader->Load(host.a.c_str()), S_OK);
}

TEST(PluginLoaderTest, WhatUnloadAllDidNotReachIsUntouched) {
  const StoppedHost host;
  EXPECT_TRUE(is_open(host.folder / "c.so"));
  EXPECT_EQ(host.loader->Load(host.c.c_str()), 5);
  EXPECT_EQ(host.loader->Unload(host.c.c_str()), S_OK);
  EXPECT_EQ(host.journal->lines.back(), "by hand ends");
  EXPECT_FALSE(is_open(host.folder / "c.so"));
}

// A second UnloadAll used to begin again and again with the first path of the one that stopped.
TEST(PluginLoaderTest, UnloadAllGoesOnBehindThePluginAtWhichItStopped) {
  const StoppedHost host;
  EXPECT_EQ(host.loader->UnloadAll(), S_OK);
  EXPECT_EQ(host.journal->lines.back(), "by hand ends");
  for (const std::wstring& path : {host.a, host.b, host.c}) {
    EXPECT_EQ(host.loader->Unload(path.c_str()), E_NOTFOUND);
  }
}

TEST(PluginLoaderTest, UnloadOfAPluginThatThrowsForgetsIt) {
  const TemporaryFolder folder;
  Host host;
  const std::wstring path = wide(copy_plugin(folder, "throws_on_release", "a.so"));
  host.loader->Load(path.c_str());
  EXPECT_LT(host.loader->Unload(path.c_str()), 0);
  EXPECT_EQ(host.loader->Unload(path.c_str()), E_NOTFOUND);
}

}  // namespace
