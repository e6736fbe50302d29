// What docs/behaviours.md tells hosts to do about the behaviours that are kept.
#include <gtest/gtest.h>

#include "plugins/files.h"
#include "plugins/host.h"

using namespace oxa_test;

namespace {

TEST(RemediesTest, AReferenceKeptForASecondContextKeepsTheLoaderAlive) {
  oxa::Ref<IOXAContext> first;
  oxa::Ref<IOXAContext> second;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(first));
  // [snippet: second-context]
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(second));
  // The reference that the second context's entry for the loader lacks.
  static_cast<void>(oxa::service<IOXAPluginLoader>(second.get()).detach());
  // [snippet end]
  second.reset();
  const auto loader = oxa::service<IOXAPluginLoader>(first.get());
  EXPECT_EQ(loader->CheckReference(), 2);
  EXPECT_EQ(loader->Load(wide(miniature("good")).c_str()), S_OK);
}

TEST(RemediesTest, TheReferenceLeftOnTheSinkCanBeReleased) {
  const RecordingHost host;
  const TemporaryFolder folder;
  const auto& loader = host.loader;
  const auto& context = host.context;
  const std::int64_t before = host.sink->CheckReference();
  // [snippet: sink]
  const auto sink = oxa::service<IOXADebugMessage>(context.get());
  loader->LoadAll(wide(folder.path()).c_str());
  sink->ReleaseReference();  // the one that the loader held until then
  // [snippet end]
  EXPECT_EQ(host.sink->CheckReference(), before + 1);
}

}  // namespace
