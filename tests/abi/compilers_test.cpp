// Plug-ins of different compilers in one process.
#include <gtest/gtest.h>

#include <set>

#include "abi/compiled_plugin.h"
#include "plugins/files.h"
#include "plugins/host.h"

using namespace oxa_test;

namespace {

using Names = std::multiset<std::string>;

const Names compilers = {"clang++ -O0", "clang++ -O3", "g++ -O0", "g++ -O3"};

// A host that has loaded all of them.
struct CompilersHost : RecordingHost {
  CompilersHost() {
    loader->LoadAll(wide(OXA_COMPILED_DIRECTORY).c_str());
    drop_reference_of_load_all(sink.get());
  }
};

TEST(CompilersTest, AllArePublishedWithTheirReaderAndTheirOwnInterface) {
  const CompilersHost host;
  EXPECT_EQ(entries_in(host.registry, "plugins").size(), compilers.size());
  Names readers;
  Names others;
  for (const oxa::InterfaceEntry& entry : entries_in(host.registry, "readers")) {
    readers.insert(static_cast<ICompiled*>(entry.object)->Compiler());
  }
  for (const oxa::InterfaceEntry& entry : entries_in(host.registry, "misc")) {
    others.insert(static_cast<ICompiled*>(entry.object)->Compiler());
  }
  EXPECT_EQ(readers, compilers);
  EXPECT_EQ(others, compilers);
}

TEST(CompilersTest, TheHostWalksTheListOfEachPlugin) {
  const CompilersHost host;
  for (const oxa::InterfaceEntry& entry : entries_in(host.registry, "plugins")) {
    oxa::Ref<IOXAInterfaceEnum> list;
    auto* plugin = static_cast<IOXAPlugin*>(entry.object);
    EXPECT_EQ(plugin->GetInterfaceEnum(oxa::adopt_into(list)), S_OK);
    const auto range = oxa::entries(*list);
    EXPECT_EQ(std::distance(range.begin(), range.end()), 2) << plugin->GetVersion();
    EXPECT_EQ(range.begin()->iid, IID_IOXAFileReader);
  }
}

TEST(CompilersTest, EachPluginWalksAListOfTheHostAndHoldsItsObjects) {
  const auto thing = oxa::make<Thing>();
  OXAInterfaceList list(3, {IID_IOXALayout, thing.get()});
  oxa::Ref<IOXAInterfaceEnum> enumerator;
  OXACreateInterfaceEnum(&list, false, IID_IOXAInterfaceEnum, oxa::adopt_into(enumerator));
  const CompilersHost host;
  for (const oxa::InterfaceEntry& entry : entries_in(host.registry, "misc")) {
    auto* compiled = static_cast<ICompiled*>(entry.object);
    EXPECT_EQ(compiled->Take(enumerator.get()), 3);
    EXPECT_EQ(thing->CheckReference(), 4);
    compiled->Drop();
    EXPECT_EQ(thing->CheckReference(), 1);
  }
}

TEST(CompilersTest, EachPluginEndsByTheReleaseOfTheHost) {
  const CompilersHost host;
  EXPECT_EQ(host.loader->UnloadAll(), S_OK);
  for (const auto& file : std::filesystem::directory_iterator(OXA_COMPILED_DIRECTORY)) {
    EXPECT_FALSE(is_open(file.path())) << file.path();
  }
}

}  // namespace
