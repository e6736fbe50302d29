// Loading one plug-in.
#include <gtest/gtest.h>

#include "plugins/files.h"
#include "plugins/host.h"

using namespace oxa_test;

namespace {

using Lines = std::vector<std::string>;

TEST(PluginLoaderTest, LoadFilesAPluginByTheIdsThatItOffers) {
  Host host;
  EXPECT_EQ(host.loader->Load(wide(miniature("good")).c_str()), S_OK);
  EXPECT_EQ(ids_in(host.registry, "plugins"), Lines{oxa::to_string(IID_IOXAPlugin)});
  EXPECT_EQ(ids_in(host.registry, "readers"), Lines{oxa::to_string(IID_IOXAFileReader)});
  EXPECT_EQ(ids_in(host.registry, "misc"), Lines{oxa::to_string(IID_IGauge)});
  EXPECT_EQ(entry_count(host.registry), 3);
}

TEST(PluginLoaderTest, EachKnownIdHasANamespaceOfItsOwn) {
  Host host;
  EXPECT_EQ(host.loader->Load(wide(miniature("all_kinds")).c_str()), S_OK);
  EXPECT_EQ(ids_in(host.registry, "readers"), Lines{oxa::to_string(IID_IOXAFileReader)});
  EXPECT_EQ(ids_in(host.registry, "writers"), Lines{oxa::to_string(IID_IOXAFileWriter)});
  EXPECT_EQ(ids_in(host.registry, "algorithms"), Lines{oxa::to_string(IID_IOXAAlgorithm)});
  EXPECT_EQ(ids_in(host.registry, "layouts"), Lines{oxa::to_string(IID_IOXALayout)});
  EXPECT_EQ(ids_in(host.registry, "misc"), Lines{oxa::to_string(IID_IOXALayoutCompute)});
}

TEST(PluginLoaderTest, WhatAPluginOffersCanBeCalled) {
  Host host;
  host.loader->Load(wide(miniature("good")).c_str());
  EXPECT_EQ(static_cast<IGauge*>(entries_in(host.registry, "misc").at(0).object)->Read(), 42);
}

TEST(PluginLoaderTest, TheEntryPointIsAskedForAPluginIntoAnEmptyOutput) {
  Host host;
  host.loader->Load(wide(miniature("by_hand")).c_str());
  EXPECT_EQ(host.journal->lines, (Lines{"an empty output", oxa::to_string(IID_IOXAPlugin)}));
}

TEST(PluginLoaderTest, TheLoaderHoldsTheOnlyReferenceToThePluginObject) {
  Host host;
  host.loader->Load(wide(miniature("by_hand")).c_str());
  auto* plugin = static_cast<IOXAPlugin*>(entries_in(host.registry, "plugins").at(0).object);
  EXPECT_EQ(plugin->CheckReference(), 1);
  EXPECT_EQ(entries_in(host.registry, "algorithms").at(0).object, plugin);
}

TEST(PluginLoaderTest, TwoObjectsUnderOneIdAreBothFiled) {
  Host host;
  EXPECT_EQ(host.loader->Load(wide(miniature("same_id_twice")).c_str()), S_OK);
  const auto readers = entries_in(host.registry, "readers");
  ASSERT_EQ(readers.size(), 2);
  EXPECT_NE(readers[0].object, readers[1].object);
}

TEST(PluginLoaderTest, APairWithoutAnObjectIsPassedOver) {
  Host host;
  EXPECT_EQ(host.loader->Load(wide(miniature("null_object")).c_str()), S_OK);
  EXPECT_EQ(ids_in(host.registry, "readers"), Lines{});
  EXPECT_EQ(ids_in(host.registry, "writers"), Lines{oxa::to_string(IID_IOXAFileWriter)});
}

TEST(PluginLoaderTest, LoadWithoutAPathIsRefused) {
  EXPECT_EQ(Host().loader->Load(nullptr), E_INVALIDARG);
}

TEST(PluginLoaderTest, TheSamePathAgainGivesFiveAndOpensNothing) {
  Host host;
  const std::wstring path = wide(miniature("good"));
  host.loader->Load(path.c_str());
  EXPECT_EQ(host.loader->Load(path.c_str()), 5);
  EXPECT_EQ(host.journal->lines, Lines{"good begins"});
  EXPECT_EQ(entry_count(host.registry), 3);
}

TEST(PluginLoaderTest, PathsAreComparedAsWritten) {
  Host host;
  const auto path = miniature("good");
  host.loader->Load(wide(path).c_str());
  EXPECT_EQ(host.loader->Load(wide(path.parent_path() / "." / "good.so").c_str()), S_OK);
  EXPECT_EQ(host.journal->lines, (Lines{"good begins", "good begins"}));
}

TEST(PluginLoaderTest, APathThatWasRefusedIsTriedAgain) {
  RecordingHost host;
  const std::wstring path = wide(miniature("entry_fails"));
  EXPECT_EQ(host.loader->Load(path.c_str()), E_INVALIDARG);
  EXPECT_EQ(host.loader->Load(path.c_str()), E_INVALIDARG);
  EXPECT_EQ(host.sink->lines.size(), 2);
}

struct Refusal {
  const char* plugin;
  OXAResult result;
  Lines messages;
};

class RefusedPluginTest : public testing::TestWithParam<Refusal> {};

TEST_P(RefusedPluginTest, IsClosedAndNotRemembered) {
  RecordingHost host;
  const auto path = miniature(GetParam().plugin);
  EXPECT_EQ(host.loader->Load(wide(path).c_str()), GetParam().result);
  EXPECT_EQ(host.sink->lines, GetParam().messages);
  EXPECT_FALSE(is_open(path));
  EXPECT_EQ(host.loader->Unload(wide(path).c_str()), E_NOTFOUND);
  EXPECT_EQ(entry_count(host.registry), 0);
}

constexpr char no_entry[] = "error: Unloading plugin: / is not an OXA plugin..";
constexpr char bad_entry[] = "error: Unloading plugin (/): OXACreateInterface() failed..";

INSTANTIATE_TEST_SUITE_P(All, RefusedPluginTest,
                         testing::Values(Refusal{"no_entry_point", E_INVALIDARG, {no_entry}},
                                         Refusal{"entry_fails", E_INVALIDARG, {bad_entry}},
                                         Refusal{"entry_gives_null", E_INVALIDARG, {bad_entry}},
                                         Refusal{"entry_throws", E_INVALIDARG, {bad_entry}},
                                         Refusal{"throws_midway", E_UNEXPECTED, {}},
                                         Refusal{"needs_missing_library", E_FAIL, {}},
                                         Refusal{"unresolved_datum", E_FAIL, {}},
                                         Refusal{"not_there", E_FAIL, {}}),
                         [](const auto& instance) { return std::string(instance.param.plugin); });

// Load leaves the plug-in object alive when its list fails, although its code is closed.
// The test keeps the code open to see the object, and ends it.
void expect_object_left_behind(const char* plugin) {
  RecordingHost host;
  const auto path = miniature(plugin);
  void* keeps_the_code = dlopen(path.c_str(), RTLD_LAZY);
  EXPECT_EQ(host.loader->Load(wide(path).c_str()), E_INVALIDARG);
  EXPECT_EQ(host.sink->lines, Lines{"error: Unloading plugin (/): GetInterfaceEnum() failed.."});
  EXPECT_EQ(ids_in(host.registry, "plugins"), Lines{oxa::to_string(IID_IOXAPlugin)});
  EXPECT_EQ(host.journal->lines, Lines{});

  auto* object = static_cast<IOXAPlugin*>(entries_in(host.registry, "plugins").at(0).object);
  EXPECT_EQ(object->ReleaseReference(), 0);
  EXPECT_EQ(host.journal->lines, Lines{"object ends"});
  dlclose(keeps_the_code);
  EXPECT_FALSE(is_open(path));
}

TEST(PluginLoaderTest, AFailingListLeavesThePluginObjectBehind) {
  expect_object_left_behind("list_fails");
}

TEST(PluginLoaderTest, AThrowingListCountsAsFailing) { expect_object_left_behind("list_throws"); }

TEST(PluginLoaderTest, AListWithoutAnEnumeratorCountsAsFailing) {
  expect_object_left_behind("list_gives_null");
}

TEST(PluginLoaderTest, AnEmptyListEndsThePluginObject) {
  RecordingHost host;
  const auto path = miniature("offers_nothing");
  EXPECT_EQ(host.loader->Load(wide(path).c_str()), E_NOINTERFACE);
  EXPECT_EQ(host.journal->lines, Lines{"object ends"});
  EXPECT_EQ(host.sink->lines, Lines{});
  EXPECT_FALSE(is_open(path));
  EXPECT_EQ(ids_in(host.registry, "plugins"), Lines{oxa::to_string(IID_IOXAPlugin)});
  EXPECT_EQ(host.loader->Unload(wide(path).c_str()), E_NOTFOUND);
}

TEST(PluginLoaderTest, AListThatBreaksOffEndsThePluginObject) {
  RecordingHost host;
  EXPECT_EQ(host.loader->Load(wide(miniature("throws_midway")).c_str()), E_UNEXPECTED);
  EXPECT_EQ(host.journal->lines, Lines{"object ends"});
}

TEST(PluginLoaderTest, AFunctionThatNobodyDefinesIsFoundMissingOnlyWhenCalled) {
  RecordingHost host;
  host.loader->Load(wide(miniature("unresolved_function")).c_str());
  EXPECT_EQ(host.sink->lines, Lines{bad_entry});
}

// The exception used to outlive the code of its own destructor.
TEST(PluginLoaderTest, AnObjectThatThrowsAtItsEndIsRefusedAllTheSame) {
  Host host;
  EXPECT_EQ(host.loader->Load(wide(miniature("throws_at_its_end")).c_str()), E_NOINTERFACE);
}

// An enumerator that threw when it was released used to end the process.
TEST(PluginLoaderTest, AListThatThrowsAtItsEndIsRefusedAndLeavesNothing) {
  Host host;
  const auto path = miniature("list_throws_at_its_end");
  EXPECT_EQ(host.loader->Load(wide(path).c_str()), E_UNEXPECTED);
  EXPECT_EQ(host.journal->lines, Lines{"object ends"});
  EXPECT_EQ(entry_count(host.registry), 0);
  EXPECT_FALSE(is_open(path));
  EXPECT_EQ(host.loader->Unload(wide(path).c_str()), E_NOTFOUND);
  EXPECT_EQ(host.loader->Load(wide(miniature("good")).c_str()), S_OK);
}

}  // namespace
