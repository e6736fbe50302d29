#include <problem.h>

#include <algorithm>

#include "graph_host.h"
#include "support/capture.h"

namespace {

std::size_t registered_plugins(IOXAContext* context) {
  const auto registry = oxa::service<IOXAInterfaceManager>(context);
  oxa::Ref<IOXAInterfaceEnum> found;
  registry->GetInterfaceEnumByGUID(IID_IOXAPlugin, oxa::adopt_into(found));
  const auto range = oxa::entries(*found);
  return static_cast<std::size_t>(std::distance(range.begin(), range.end()));
}

TEST(PluginFolderTest, KnowsTheFileOfEachObject) {
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  PluginFolder plugins(context.get());
  plugins.load(OXA_GRAPH_PLUGINS);
  const auto& offered = plugins.offered();
  const auto reader = std::find_if(offered.begin(), offered.end(), [](const Offered& entry) {
    return entry.iid == IID_IOXAFileReader;
  });
  ASSERT_NE(reader, offered.end());
  EXPECT_EQ(reader->file, "edge_list_reader.so");
  EXPECT_EQ(reader->plugin, "Edge lists 1.0");
  EXPECT_EQ(reader->name_space, "readers");
}

TEST(PluginFolderTest, TakesEverythingOutAtItsEnd) {
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  {
    PluginFolder plugins(context.get());
    plugins.load(OXA_GRAPH_PLUGINS);
    EXPECT_GT(registered_plugins(context.get()), 0U);
  }
  EXPECT_EQ(registered_plugins(context.get()), 0U);
}

// The loader leaves the ended object of a plug-in that offers nothing in the registry.
TEST(PluginFolderTest, APluginThatOffersNothingIsSkippedAndLeavesNoEntry) {
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  PluginFolder plugins(context.get());
  oxa_test::StreamCapture errors(stderr);
  EXPECT_THROW(plugins.load(OXA_GRAPH_EMPTY_PLUGINS), Problem);
  EXPECT_NE(errors.text().find("skipped the plug-in"), std::string::npos);
  EXPECT_EQ(registered_plugins(context.get()), 0U);
  EXPECT_TRUE(plugins.offered().empty());
}

// Texts that are null once ended the program when it looked for a name.
TEST(PluginFolderTest, PluginsWithoutTextsAreSkippedAndUnloaded) {
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  PluginFolder plugins(context.get());
  oxa_test::StreamCapture errors(stderr);
  EXPECT_THROW(plugins.load(OXA_GRAPH_CARELESS_PLUGINS), Problem);
  EXPECT_EQ(registered_plugins(context.get()), 0U);
  EXPECT_TRUE(plugins.offered().empty());
  const auto loader = oxa::service<IOXAPluginLoader>(context.get());
  EXPECT_EQ(loader->Unload(L"" OXA_GRAPH_CARELESS_PLUGINS "/careless_nameless.so"), E_NOTFOUND);
}

TEST(PluginFolderTest, AFolderThatCannotBeReadIsAProblem) {
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  PluginFolder plugins(context.get());
  try {
    plugins.load("/nowhere");
    FAIL();
  } catch (const Problem& problem) {
    EXPECT_STREQ(problem.what(),
                 "cannot read the plug-in folder \"/nowhere\": folder cannot be opened; name "
                 "another one with --plugins");
  }
}

}  // namespace
