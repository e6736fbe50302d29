// Loading the plug-ins of a folder.
#include <gtest/gtest.h>

#include <algorithm>

#include "plugins/files.h"
#include "plugins/host.h"

using namespace oxa_test;

namespace {

using Lines = std::vector<std::string>;

// Loads a folder and returns what the sink was told, sorted: a folder has no order.
Lines reports_of_loading_all(RecordingHost& host, const std::filesystem::path& folder) {
  EXPECT_EQ(host.loader->LoadAll(wide(folder).c_str()), S_OK);
  drop_reference_of_load_all(host.sink.get());
  Lines lines = host.sink->lines;
  std::sort(lines.begin(), lines.end());
  return lines;
}

TEST(PluginLoaderTest, LoadAllLoadsEveryEntryWithSoInItsName) {
  const TemporaryFolder folder;
  const std::string good = copy_plugin(folder, "good", "a.so");
  const std::string versioned = copy_plugin(folder, "by_hand", "b.so.1");
  copy_plugin(folder, "all_kinds", "c.plugin");
  copy_plugin(folder, "all_kinds", "also");
  RecordingHost host;
  EXPECT_EQ(reports_of_loading_all(host, folder.path()),
            (Lines{"message 0: " + good + " loaded...", "message 0: " + versioned + " loaded..."}));
  EXPECT_EQ(entries_in(host.registry, "plugins").size(), 2);
}

TEST(PluginLoaderTest, APluginThatFailsDoesNotStopTheOthers) {
  const TemporaryFolder folder;
  const std::string text = folder.write("a.so", "no plug-in");
  const std::string good = copy_plugin(folder, "good", "b.so");
  const std::string other_text = folder.write("c.so", "no plug-in");
  RecordingHost host;
  EXPECT_EQ(reports_of_loading_all(host, folder.path()),
            (Lines{"error: " + text + " failed...", "error: " + other_text + " failed...",
                   "message 0: " + good + " loaded..."}));
}

TEST(PluginLoaderTest, LoadAllGoesInTheOrderOfTheFolder) {
  const TemporaryFolder folder;
  for (const char* name : {"d.so", "a.so", "f.so", "c.so", "b.so", "g.so", "e.so"}) {
    folder.write(name, "no plug-in");
  }
  Lines expected;
  for (const std::string& name : folder.names()) {
    if (name.front() != '.') {
      expected.push_back("error: " + (folder / name).string() + " failed...");
    }
  }
  RecordingHost host;
  host.loader->LoadAll(wide(folder.path()).c_str());
  drop_reference_of_load_all(host.sink.get());
  EXPECT_EQ(host.sink->lines, expected);
}

TEST(PluginLoaderTest, AMissingFolderIsNoFailureAndNotReported) {
  const TemporaryFolder folder;
  RecordingHost host;
  EXPECT_EQ(reports_of_loading_all(host, folder / "missing"), Lines{});
  EXPECT_EQ(entry_count(host.registry), 0);
}

TEST(PluginLoaderTest, AFolderWithoutPluginsIsNotReported) {
  const TemporaryFolder folder;
  folder.write("a.xml", "");
  RecordingHost host;
  EXPECT_EQ(reports_of_loading_all(host, folder.path()), Lines{});
}

TEST(PluginLoaderTest, LoadAllWithoutAFolderIsRefusedBeforeTheSinkIsFetched) {
  RecordingHost host;
  const std::int64_t references = host.sink->CheckReference();
  EXPECT_EQ(host.loader->LoadAll(nullptr), E_INVALIDARG);
  EXPECT_EQ(host.sink->CheckReference(), references);
}

// LoadAll leaves one reference per call; the test drops them.
TEST(PluginLoaderTest, EachLoadAllLeavesAReferenceOnTheSink) {
  RecordingHost host;
  const std::int64_t references = host.sink->CheckReference();
  host.loader->LoadAll(L"/not/there");
  EXPECT_EQ(host.sink->CheckReference(), references + 1);
  host.loader->LoadAll(L"/not/there");
  EXPECT_EQ(host.sink->CheckReference(), references + 2);
  drop_reference_of_load_all(host.sink.get());
  drop_reference_of_load_all(host.sink.get());
}

TEST(PluginLoaderTest, LoadAllMovesTheLoaderToTheSinkThatTheContextHoldsNow) {
  RecordingHost host;
  const auto later = oxa::make<RecordingSink>();
  host.context->AddToContext(IID_IOXADebugMessage, later.get());
  host.loader->Load(wide(miniature("entry_fails")).c_str());
  host.loader->LoadAll(L"/not/there");
  drop_reference_of_load_all(host.sink.get());
  host.loader->Load(wide(miniature("no_entry_point")).c_str());
  EXPECT_EQ(host.sink->lines, Lines{"error: Unloading plugin (/): OXACreateInterface() failed.."});
  EXPECT_EQ(later->lines, Lines{"error: Unloading plugin: / is not an OXA plugin.."});
}

TEST(PluginLoaderTest, WithoutASinkInTheContextLoadAllLoadsInSilence) {
  const TemporaryFolder folder;
  folder.write("a.so", "no plug-in");
  copy_plugin(folder, "no_entry_point", "b.so");
  copy_plugin(folder, "good", "c.so");
  copy_plugin(folder, "good", "d.so");
  RecordingHost host;
  host.context->services.erase(oxa::to_string(IID_IOXADebugMessage));
  EXPECT_EQ(reports_of_loading_all(host, folder.path()), Lines{});
  EXPECT_EQ(host.journal->lines, (Lines{"good begins", "good begins"}));
}

TEST(PluginLoaderTest, LoadAllAgainReportsWhatIsLoadedAlreadyAsLoaded) {
  const TemporaryFolder folder;
  const std::string path = copy_plugin(folder, "good", "a.so");
  RecordingHost host;
  reports_of_loading_all(host, folder.path());
  const std::string report = "message 0: " + path + " loaded...";
  EXPECT_EQ(reports_of_loading_all(host, folder.path()), (Lines{report, report}));
  EXPECT_EQ(host.journal->lines, Lines{"good begins"});
}

TEST(PluginLoaderTest, PathsAreTheFolderAsGivenASlashAndTheName) {
  const TemporaryFolder folder;
  const std::string path = copy_plugin(folder, "good", "a.so");
  const std::string given = folder.path().string() + "/";
  RecordingHost host;
  EXPECT_EQ(reports_of_loading_all(host, given), Lines{"message 0: " + given + "/a.so loaded..."});
  EXPECT_EQ(host.loader->Unload(wide(path).c_str()), E_NOTFOUND);
  EXPECT_EQ(host.loader->Unload(wide(given + "/a.so").c_str()), S_OK);
}

TEST(PluginLoaderTest, LoadAllLeavesTheScannerOfTheContextAlone) {
  const TemporaryFolder folder;
  folder.write("a.xml", "");
  Host host;
  const auto scanner = oxa::service<IOXADirectoryScanner>(host.context.get());
  scanner->Scan(wide(folder.path()).c_str(), ".xml");
  host.loader->LoadAll(L"/not/there");
  drop_reference_of_load_all(oxa::service<IOXADebugMessage>(host.context.get()).get());
  wchar_t* name = nullptr;
  EXPECT_EQ(scanner->GetFirst(&name), S_OK);
  EXPECT_STREQ(name, L"a.xml");
}

TEST(PluginLoaderTest, AnEntryPointMayLoadItsOwnFolder) {
  const TemporaryFolder folder;
  const std::string self = copy_plugin(folder, "loads_its_folder", "a.so");
  const std::string other = copy_plugin(folder, "good", "b.so");
  RecordingHost host;
  const Lines expected = {"error: " + self + " failed...",
                          "error: Unloading plugin (/): OXACreateInterface() failed..",
                          "message 0: " + self + " loaded...", "message 0: " + other + " loaded...",
                          "message 0: " + other + " loaded..."};
  EXPECT_EQ(reports_of_loading_all(host, folder.path()), expected);
  drop_reference_of_load_all(host.sink.get());  // of the inner LoadAll
  EXPECT_EQ(entries_in(host.registry, "plugins").size(), 2);
}

// The outer load used to be lost: neither loaded nor undone.
TEST(PluginLoaderTest, AnEntryPointThatLoadsItsOwnPathIsLoadedOnce) {
  Host host;
  const auto path = wide(miniature("loads_itself"));
  EXPECT_EQ(host.loader->Load(path.c_str()), 5);
  EXPECT_EQ(entries_in(host.registry, "plugins").size(), 1);
  EXPECT_EQ(entries_in(host.registry, "misc").size(), 1);
  EXPECT_EQ(host.loader->Unload(path.c_str()), S_OK);
  EXPECT_FALSE(is_open(miniature("loads_itself")));
}

}  // namespace
