// What the loader reports, byte for byte.
#include <gtest/gtest.h>

#include <clocale>

#include "plugins/files.h"
#include "plugins/host.h"
#include "support/capture.h"
#include "support/stubs.h"

using namespace oxa_test;

namespace {

using Lines = std::vector<std::string>;

class LocaleGuard {
 public:
  explicit LocaleGuard(const char* name) : previous_(std::setlocale(LC_ALL, nullptr)) {
    std::setlocale(LC_ALL, name);
  }
  LocaleGuard(const LocaleGuard&) = delete;
  LocaleGuard& operator=(const LocaleGuard&) = delete;
  ~LocaleGuard() { std::setlocale(LC_ALL, previous_.c_str()); }

 private:
  std::string previous_;
};

class WorkingFolderGuard {
 public:
  explicit WorkingFolderGuard(const std::filesystem::path& path)
      : previous_(std::filesystem::current_path()) {
    std::filesystem::current_path(path);
  }
  WorkingFolderGuard(const WorkingFolderGuard&) = delete;
  WorkingFolderGuard& operator=(const WorkingFolderGuard&) = delete;
  ~WorkingFolderGuard() { std::filesystem::current_path(previous_); }

 private:
  std::filesystem::path previous_;
};

// A sink that asks, when it is told of an error, whether a shared object is open.
class AskingSink final : public StubSink {
 public:
  explicit AskingSink(std::filesystem::path path) : path_(std::move(path)) {}
  void EmitError(const char*, ...) override { open.push_back(is_open(path_)); }

  std::vector<bool> open;

 private:
  std::filesystem::path path_;
};

// Returns what a context's own sink writes when a plug-in is loaded.
Written written_by_loading(const std::wstring& path) {
  Host host;
  return written_by([&] { host.loader->Load(path.c_str()); });
}

// The same for a folder.
Written written_by_loading_all(const std::filesystem::path& folder) {
  Host host;
  Written written = written_by([&] { host.loader->LoadAll(wide(folder).c_str()); });
  drop_reference_of_load_all(oxa::service<IOXADebugMessage>(host.context.get()).get());
  return written;
}

TEST(PluginLoaderTest, MessagesShowTheFirstCharacterOfThePath) {
  const Written written = written_by_loading(wide(miniature("no_entry_point")));
  EXPECT_EQ(written.err, "ERROR: Unloading plugin: / is not an OXA plugin..\n");
  EXPECT_EQ(written.out, "");
}

TEST(PluginLoaderTest, AFailingEntryPointIsReportedAsAnError) {
  const Written written = written_by_loading(wide(miniature("entry_fails")));
  EXPECT_EQ(written.err, "ERROR: Unloading plugin (/): OXACreateInterface() failed..\n");
  EXPECT_EQ(written.out, "");
}

TEST(PluginLoaderTest, MessagesShowTheBytesOfThePathUpToTheFirstZero) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder / "\u0161");
  copy_plugin(folder, "no_entry_point", "\u0161/x.so");
  const WorkingFolderGuard inside(folder.path());
  EXPECT_EQ(written_by_loading(L"\u0161/x.so").err,
            "ERROR: Unloading plugin: a\x01 is not an OXA plugin..\n");
}

TEST(PluginLoaderTest, AShortPathIsShownByItsFirstCharacterToo) {
  const TemporaryFolder folder;
  copy_plugin(folder, "no_entry_point", "x.so");
  const WorkingFolderGuard inside(folder.path());
  EXPECT_EQ(written_by_loading(L"./x.so").err,
            "ERROR: Unloading plugin: . is not an OXA plugin..\n");
}

TEST(PluginLoaderTest, LoadAloneReportsNoSuccessAndNoMissingFile) {
  const Written good = written_by_loading(wide(miniature("good")));
  const Written missing = written_by_loading(L"/not/there.so");
  EXPECT_EQ(good.out + good.err + missing.out + missing.err, "");
}

TEST(PluginLoaderTest, LoadAllReportsWhatItLoadedOnStandardOutput) {
  const TemporaryFolder folder;
  const std::string path = copy_plugin(folder, "good", "x.so");
  const Written written = written_by_loading_all(folder.path());
  EXPECT_EQ(written.out, path + " loaded...\n");
  EXPECT_EQ(written.err, "");
}

TEST(PluginLoaderTest, LoadAllReportsWhatFailedOnStandardError) {
  const TemporaryFolder folder;
  const std::string path = folder.write("x.so", "no plug-in");
  const Written written = written_by_loading_all(folder.path());
  EXPECT_EQ(written.err, "ERROR: " + path + " failed...\n");
  EXPECT_EQ(written.out, "");
}

TEST(PluginLoaderTest, LoadAllReportsARefusedPluginAfterTheReason) {
  const TemporaryFolder folder;
  const std::string path = copy_plugin(folder, "no_entry_point", "x.so");
  EXPECT_EQ(written_by_loading_all(folder.path()).err,
            "ERROR: Unloading plugin: / is not an OXA plugin..\nERROR: " + path + " failed...\n");
}

TEST(PluginLoaderTest, PathsAreReportedInTheEncodingOfTheLocale) {
  const LocaleGuard locale("C.UTF-8");
  const TemporaryFolder folder;
  const std::string path = copy_plugin(folder, "good", "\u017E.so");
  EXPECT_EQ(written_by_loading_all(folder.path()).out, path + " loaded...\n");
}

TEST(PluginLoaderTest, APathThatTheLocaleCannotShowIsLeftOut) {
  const LocaleGuard locale("C");
  const TemporaryFolder folder;
  copy_plugin(folder, "good", "\u017E.so");
  folder.write("\u4E2D.so", "no plug-in");
  const Written written = written_by_loading_all(folder.path());
  EXPECT_EQ(written.out, "\n");
  EXPECT_EQ(written.err, "ERROR: \n");
}

TEST(PluginLoaderTest, ALongPathIsCutWithTheRestOfItsLine) {
  const TemporaryFolder folder;
  const std::string name(200, 'd');
  std::string deep = folder.path();
  for (int level = 0; level < 5; ++level) {
    deep += "/" + name;
  }
  std::filesystem::create_directories(deep);
  std::ofstream(deep + "/x.so") << "no plug-in";
  EXPECT_EQ(written_by_loading_all(deep).err, ("ERROR: " + deep).substr(0, 999) + "\n");
}

TEST(PluginLoaderTest, AnAlreadyLoadedPluginIsReportedAsLoadedAtLevelZero) {
  const TemporaryFolder folder;
  RecordingHost host;
  const std::string path = copy_plugin(folder, "good", "x.so");
  host.loader->Load(wide(path).c_str());
  host.loader->LoadAll(wide(folder.path()).c_str());
  drop_reference_of_load_all(host.sink.get());
  EXPECT_EQ(host.sink->lines, Lines{"message 0: " + path + " loaded..."});
}

class RefusalReportTest : public testing::TestWithParam<const char*> {};

TEST_P(RefusalReportTest, IsMadeWhileTheSharedObjectIsStillOpen) {
  const auto sink = oxa::make<AskingSink>(miniature(GetParam()));
  const auto context = oxa::make<FakeContext>();
  context->AddToContext(IID_IOXADebugMessage, sink.get());
  context->AddToContext(IID_IOXAInterfaceManager, Host().registry.get());
  oxa::Ref<IOXAPluginLoader> loader;
  OXACreatePluginLoader(context.get(), oxa::adopt_into(loader));
  EXPECT_EQ(loader->Load(wide(miniature(GetParam())).c_str()), E_INVALIDARG);
  EXPECT_EQ(sink->open, std::vector<bool>{true});
  EXPECT_FALSE(is_open(miniature(GetParam())));
}

INSTANTIATE_TEST_SUITE_P(All, RefusalReportTest, testing::Values("no_entry_point", "entry_fails"),
                         [](const auto& instance) { return std::string(instance.param); });

}  // namespace
