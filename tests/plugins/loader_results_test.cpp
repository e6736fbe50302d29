// What the loader makes of the results and counts that a plug-in returns.
#include <gtest/gtest.h>

#include "plugins/told.h"

using namespace oxa_test;

namespace {

using Results = std::vector<OXAResult>;

TEST(PluginResultTest, AnEntryPointSucceedsWithAnyResultThatIsNotNegative) {
  for (const OXAResult result : {S_OK, S_FALSE, OXAResult{7}}) {
    Telling<RecordingHost> host;
    host.entry->entered = result;
    EXPECT_EQ(host.load(), S_OK) << result;
    EXPECT_EQ(entries_in(host.registry, "misc").size(), 1);
  }
}

TEST(PluginResultTest, AListSucceedsWithAnyResultThatIsNotNegative) {
  for (const OXAResult result : {S_OK, S_FALSE, OXAResult{7}}) {
    Telling<RecordingHost> host;
    host.plugin.listed = result;
    EXPECT_EQ(host.load(), S_OK) << result;
    EXPECT_EQ(host.plugin.list.references, 0);
  }
}

TEST(PluginResultTest, AnythingButSOkEndsTheList) {
  for (const OXAResult last : {S_FALSE, OXAResult{7}, E_FAIL, E_OUTOFMEMORY}) {
    Telling<RecordingHost> host;
    host.plugin.list.results = {S_OK, S_OK, last};
    EXPECT_EQ(host.load(), S_OK) << last;
    EXPECT_EQ(entries_in(host.registry, "misc").size(), 2);
  }
}

TEST(PluginResultTest, AListThatDoesNotBeginWithSOkIsEmpty) {
  for (const OXAResult first : {S_FALSE, OXAResult{7}, E_FAIL, E_OUTOFMEMORY}) {
    Telling<RecordingHost> host;
    host.plugin.list.results = {first};
    EXPECT_EQ(host.load(), E_NOINTERFACE) << first;
    EXPECT_EQ(entries_in(host.registry, "misc").size(), 0);
    EXPECT_EQ(host.plugin.references, 0);
  }
}

TEST(PluginResultTest, WhatAFailingEntryPointStoresIsNotReleased) {
  Telling<RecordingHost> host;
  host.entry->entered = E_FAIL;
  EXPECT_EQ(host.load(), E_INVALIDARG);
  EXPECT_EQ(host.plugin.references, 1);
  EXPECT_EQ(entry_count(host.registry), 0);
}

// What a failing list had stored in its output used to be released, though it carried no reference.
TEST(PluginResultTest, WhatAFailingListStoresIsNotReleased) {
  Telling<RecordingHost> host;
  host.plugin.listed = E_FAIL;
  EXPECT_EQ(host.load(), E_INVALIDARG);
  EXPECT_EQ(host.plugin.list.references, 1);
}

TEST(PluginResultTest, OnlyACountOfExactlyZeroClosesTheSharedObject) {
  for (const std::int64_t left : {-1, 0, 1}) {
    Telling<RecordingHost> host;
    host.plugin.references = left + 1;
    ASSERT_EQ(host.load(), S_OK);
    EXPECT_EQ(host.unload(), S_OK);
    EXPECT_EQ(is_open(host.path), left != 0) << left;
    if (is_open(host.path)) {
      close_for_good(host.path);
    }
  }
}

}  // namespace
