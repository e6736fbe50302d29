// What lies in a folder under the name of a plug-in and is none.
#include <gtest/gtest.h>
#include <sys/fsuid.h>
#include <sys/stat.h>

#include "plugins/files.h"
#include "plugins/host.h"

using namespace oxa_test;

namespace {

using Lines = std::vector<std::string>;

// Expects that nothing can be loaded from a path, and that the host goes on.
void expect_failure(const std::filesystem::path& path) {
  RecordingHost host;
  EXPECT_EQ(host.loader->Load(wide(path).c_str()), E_FAIL);
  EXPECT_EQ(host.sink->lines, Lines{});
  EXPECT_EQ(host.loader->Load(wide(miniature("good")).c_str()), S_OK);
}

// Loads a folder and returns the only report.
std::string report_of_loading_all(const TemporaryFolder& folder) {
  RecordingHost host;
  host.loader->LoadAll(wide(folder.path()).c_str());
  drop_reference_of_load_all(host.sink.get());
  EXPECT_EQ(host.sink->lines.size(), 1);
  return host.sink->lines.at(0);
}

// Makes this thread a user to whom file permissions apply.
class OrdinaryUser {
 public:
  OrdinaryUser() : previous_(setfsuid(geteuid() == 0 ? nobody : geteuid())) {}
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;
  ~OrdinaryUser() { setfsuid(static_cast<uid_t>(previous_)); }

 private:
  static constexpr uid_t nobody = 65534;
  int previous_;
};

TEST(PluginFileTest, TextIsNotLoaded) {
  const TemporaryFolder folder;
  expect_failure(folder.write("x.so", "This is no shared object.\n"));
}

TEST(PluginFileTest, AnEmptyFileIsNotLoaded) {
  const TemporaryFolder folder;
  expect_failure(folder.write("x.so", ""));
}

TEST(PluginFileTest, AFileShorterThanItsMagicIsNotLoaded) {
  const TemporaryFolder folder;
  expect_failure(folder.write("x.so",
                              "\x7F"
                              "EL"));
}

TEST(PluginFileTest, APluginCutAtAnyLengthIsNotLoaded) {
  const TemporaryFolder folder;
  const auto path = copy_plugin(folder, "good", "x.so");
  RecordingHost host;
  const std::wstring wide_path = wide(path);
  ASSERT_EQ(host.loader->Load(wide_path.c_str()), S_OK);
  ASSERT_EQ(host.loader->Unload(wide_path.c_str()), S_OK);
  for (auto length = std::filesystem::file_size(path); length-- > 0;) {
    ASSERT_EQ(truncate(path.c_str(), static_cast<off_t>(length)), 0);
    ASSERT_EQ(host.loader->Load(wide_path.c_str()), E_FAIL) << length;
  }
  EXPECT_EQ(host.sink->lines, Lines{});
}

TEST(PluginFileTest, AFolderNamedLikeAPluginFails) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder / "x.so");
  expect_failure(folder / "x.so");
  EXPECT_EQ(report_of_loading_all(folder), "error: " + (folder / "x.so").string() + " failed...");
}

TEST(PluginFileTest, ANamedPipeFailsInsteadOfWaitingForAWriter) {
  const TemporaryFolder folder;
  ASSERT_EQ(mkfifo((folder / "x.so").c_str(), 0600), 0);
  expect_failure(folder / "x.so");
  EXPECT_EQ(report_of_loading_all(folder), "error: " + (folder / "x.so").string() + " failed...");
}

TEST(PluginFileTest, ADanglingLinkFails) {
  const TemporaryFolder folder;
  std::filesystem::create_symlink(folder / "gone", folder / "x.so");
  expect_failure(folder / "x.so");
  EXPECT_EQ(report_of_loading_all(folder), "error: " + (folder / "x.so").string() + " failed...");
}

TEST(PluginFileTest, ALinkToAPluginIsLoaded) {
  const TemporaryFolder folder;
  std::filesystem::create_symlink(miniature("good"), folder / "x.so");
  EXPECT_EQ(report_of_loading_all(folder),
            "message 0: " + (folder / "x.so").string() + " loaded...");
}

TEST(PluginFileTest, AFileThatMayNotBeReadFailsUntilItMay) {
  const TemporaryFolder folder;
  std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
  const auto path = copy_plugin(folder, "good", "x.so");
  RecordingHost host;
  const auto load = [&] {
    const OrdinaryUser user;
    return host.loader->Load(wide(path).c_str());
  };
  ASSERT_EQ(chmod(path.c_str(), 0), 0);
  EXPECT_EQ(load(), E_FAIL);
  ASSERT_EQ(chmod(path.c_str(), 0755), 0);
  EXPECT_EQ(load(), S_OK);
}

TEST(PluginFileTest, APathWithoutAFileFails) { expect_failure("/not/there.so"); }

TEST(PluginFileTest, AnEmptyPathNamesTheProgramItselfWhichIsNoPlugin) {
  RecordingHost host;
  EXPECT_EQ(host.loader->Load(L""), E_INVALIDARG);
  EXPECT_EQ(host.sink->lines, Lines{"error: Unloading plugin:  is not an OXA plugin.."});
}

TEST(PluginFileTest, ANameInUtf8IsLoaded) {
  const TemporaryFolder folder;
  copy_plugin(folder, "good", "\u00E9.so");
  RecordingHost host;
  host.loader->LoadAll(wide(folder.path()).c_str());
  drop_reference_of_load_all(host.sink.get());
  EXPECT_EQ(host.loader->Load(wide(folder / "\u00E9.so").c_str()), 5);
}

TEST(PluginFileTest, ANameThatIsNotUtf8LosesTheBadByteAndIsNotFound) {
  const TemporaryFolder folder;
  copy_plugin(folder, "good", "\xFF.so");
  EXPECT_EQ(report_of_loading_all(folder), "error: " + folder.path().string() + "/.so failed...");
}

TEST(PluginFileTest, ANameWithABrokenSequenceLosesTheByteBehindItToo) {
  const TemporaryFolder folder;
  copy_plugin(folder, "good", "\xE9.so");
  EXPECT_EQ(report_of_loading_all(folder), "error: " + folder.path().string() + "/so failed...");
}

}  // namespace
