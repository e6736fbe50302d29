// Loading when memory runs out.
#include <gtest/gtest.h>

#include "plugins/files.h"
#include "plugins/host.h"
#include "support/allocations.h"
#include "support/capture.h"

using namespace oxa_test;

namespace {

constexpr std::size_t entries_of_all_kinds = 6;

// Keeps a shared object open, so that an object which the loader leaves behind can be ended.
class OpenObject {
 public:
  explicit OpenObject(const std::filesystem::path& path)
      : handle_(dlopen(path.c_str(), RTLD_LAZY)) {}
  OpenObject(const OpenObject&) = delete;
  OpenObject& operator=(const OpenObject&) = delete;
  ~OpenObject() { dlclose(handle_); }

 private:
  void* handle_;
};

// Takes out what a load has left in "plugins". Load leaves a plug-in object alive when its
// list fails; the test ends it.
void end_object_left_behind(const Host& host) {
  for (const oxa::InterfaceEntry& entry : entries_in(host.registry, "plugins")) {
    EXPECT_EQ(static_cast<IOXAPlugin*>(entry.object)->ReleaseReference(), 0);
    host.registry->UnRegisterInterface("plugins", entry.iid, entry.object);
  }
}

TEST(PluginLoaderMemoryTest, ALoadThatRunsOutOfMemoryLeavesNothingInTheRegistry) {
  Host host;
  const StreamCapture errors(stderr);
  const std::wstring path = wide(miniature("all_kinds"));
  const OpenObject keeps_the_code(miniature("all_kinds"));
  OXAResult result = S_OK;
  const unsigned long failed = fail_each_allocation([&] {
    result = host.loader->Load(path.c_str());
    if (FailingAllocation::happened()) {
      EXPECT_TRUE(result == E_OUTOFMEMORY || result == E_FAIL || result == E_INVALIDARG) << result;
      end_object_left_behind(host);
      EXPECT_EQ(entry_count(host.registry), 0);
    }
  });
  EXPECT_GT(failed, 20);
  EXPECT_EQ(result, S_OK);
  EXPECT_EQ(entry_count(host.registry), entries_of_all_kinds);
}

TEST(PluginLoaderMemoryTest, ALoadThatRanOutOfMemoryCanBeRepeatedAndUnloaded) {
  Host host;
  const StreamCapture errors(stderr);
  const std::wstring path = wide(miniature("good"));
  {
    const FailingAllocation failing(0);
    EXPECT_EQ(host.loader->Load(path.c_str()), E_OUTOFMEMORY);
  }
  EXPECT_EQ(host.loader->Load(path.c_str()), S_OK);
  EXPECT_EQ(host.loader->Unload(path.c_str()), S_OK);
}

// Each LoadAll leaves a reference on the sink; the test drops it.
TEST(PluginLoaderMemoryTest, ALoadAllThatRunsOutOfMemoryLeavesNothingInTheRegistry) {
  const TemporaryFolder folder;
  const std::wstring path = wide(copy_plugin(folder, "all_kinds", "x.so"));
  const std::wstring folder_path = wide(folder.path());
  const OpenObject keeps_the_code(folder / "x.so");
  Host host;
  const auto sink = oxa::service<IOXADebugMessage>(host.context.get());
  const StreamCapture errors(stderr);
  const StreamCapture messages(stdout);
  const unsigned long failed = fail_each_allocation([&] {
    const OXAResult result = host.loader->LoadAll(folder_path.c_str());
    drop_reference_of_load_all(sink.get());
    EXPECT_TRUE(result == S_OK || result == E_OUTOFMEMORY) << result;
    if (FailingAllocation::happened()) {
      end_object_left_behind(host);
      EXPECT_EQ(entry_count(host.registry), 0);
    }
  });
  EXPECT_GT(failed, 20);
  EXPECT_EQ(host.loader->Load(path.c_str()), 5);
  EXPECT_EQ(entry_count(host.registry), entries_of_all_kinds);
}

}  // namespace
