// The directory scanner of a context.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "plugins/files.h"
#include "plugins/host.h"
#include "support/allocations.h"

using namespace oxa_test;

namespace {

using Names = std::set<std::wstring>;

// A scanner and a folder to scan.
struct Scanning {
  explicit Scanning(const std::vector<std::string>& files = {}) {
    for (const std::string& name : files) {
      folder.write(name, "");
    }
  }

  OXAResult scan(const char* pattern) const {
    return scanner->Scan(wide(folder.path()).c_str(), pattern);
  }

  Names names() const {
    Names found;
    const auto range = oxa::names(*scanner);
    for (const wchar_t* name : range) {
      found.insert(name);
    }
    return found;
  }

  TemporaryFolder folder;
  oxa::Ref<IOXADirectoryScanner> scanner = oxa::service<IOXADirectoryScanner>(Host().context.get());
};

TEST(DirectoryScannerTest, KeepsTheNamesThatContainThePattern) {
  const Scanning scanning({"a.so", "a.so.1", "b.sox", "c.xml"});
  EXPECT_EQ(scanning.scan("*.so"), S_OK);
  EXPECT_EQ(scanning.names(), (Names{L"a.so", L"a.so.1", L"b.sox"}));
}

struct PatternCase {
  const char* pattern;
  Names names;
};

TEST(DirectoryScannerTest, StarsAreTakenOutAndTheRestIsLookedForAnywhere) {
  const Scanning scanning({"a.so", "b.SO", "c?d", "e.s", "xyz"});
  const Names all = {L".", L"..", L"a.so", L"b.SO", L"c?d", L"e.s", L"xyz"};
  const PatternCase cases[] = {{".so", {L"a.so"}},
                               {"*.so*", {L"a.so"}},
                               {"*.*s*o*", {L"a.so"}},
                               {"a*o", {}},
                               {".SO", {L"b.SO"}},
                               {"?", {L"c?d"}},
                               {"?.so", {}},
                               {"[ab]", {}},
                               {"xyz", {L"xyz"}},
                               {"y", {L"xyz"}},
                               {"xyz ", {}},
                               {"x*z", {}},
                               {"..", {L".."}},
                               {"*", all},
                               {"", all},
                               {"***", all},
                               {"*.s", {L"a.so", L"e.s"}}};
  for (const PatternCase& one : cases) {
    EXPECT_EQ(scanning.scan(one.pattern), S_OK);
    EXPECT_EQ(scanning.names(), one.names) << one.pattern;
  }
}

TEST(DirectoryScannerTest, FoldersAreKeptAndNotEntered) {
  const Scanning scanning;
  std::filesystem::create_directory(scanning.folder / "x.so");
  scanning.folder.write("x.so/y.so", "");
  scanning.scan("*.so");
  EXPECT_EQ(scanning.names(), Names{L"x.so"});
}

TEST(DirectoryScannerTest, LinksAreKeptWhereverTheyLead) {
  const Scanning scanning;
  std::filesystem::create_symlink("nowhere", scanning.folder / "x.so");
  scanning.scan("*.so");
  EXPECT_EQ(scanning.names(), Names{L"x.so"});
}

TEST(DirectoryScannerTest, EachEntryComesOnce) {
  const Scanning scanning({"a", "b", "c"});
  scanning.scan("*");
  const auto range = oxa::names(*scanning.scanner);
  EXPECT_EQ(std::distance(range.begin(), range.end()), 5);
}

TEST(DirectoryScannerTest, NamesComeInTheOrderOfTheFolder) {
  const Scanning scanning({"d", "a", "f", "c", "b", "g", "e"});
  scanning.scan("*");
  std::vector<std::wstring> expected;
  for (const std::string& name : scanning.folder.names()) {
    expected.push_back(wide(name));
  }
  const auto range = oxa::names(*scanning.scanner);
  EXPECT_EQ(std::vector<std::wstring>(range.begin(), range.end()), expected);
}

TEST(DirectoryScannerTest, HasNoResultsAtFirst) {
  const Scanning scanning;
  wchar_t text[] = L"x";
  wchar_t* name = text;
  EXPECT_EQ(scanning.scanner->GetFirst(&name), S_FALSE);
  EXPECT_EQ(name, nullptr);
  name = text;
  EXPECT_EQ(scanning.scanner->GetNext(&name), S_FALSE);
  EXPECT_EQ(name, nullptr);
}

TEST(DirectoryScannerTest, NullArgumentsAreRefusedAndKeepTheResults) {
  const Scanning scanning({"a"});
  scanning.scan("a");
  EXPECT_EQ(scanning.scanner->Scan(nullptr, "a"), E_INVALIDARG);
  EXPECT_EQ(scanning.scanner->Scan(L"/not/there", nullptr), E_INVALIDARG);
  EXPECT_EQ(scanning.scanner->Scan(nullptr, nullptr), E_INVALIDARG);
  EXPECT_EQ(scanning.names(), Names{L"a"});
}

TEST(DirectoryScannerTest, AFolderThatCannotBeOpenedDropsTheResults) {
  const Scanning scanning({"a"});
  for (const auto& folder : {scanning.folder / "missing", scanning.folder / "a"}) {
    scanning.scan("a");
    EXPECT_EQ(scanning.scanner->Scan(wide(folder).c_str(), "a"), E_BADENVIRONMENT);
    wchar_t* name = nullptr;
    EXPECT_EQ(scanning.scanner->GetFirst(&name), S_FALSE);
  }
}

TEST(DirectoryScannerTest, AnEmptyFolderPathCannotBeOpened) {
  EXPECT_EQ(Scanning().scanner->Scan(L"", ""), E_BADENVIRONMENT);
}

TEST(DirectoryScannerTest, AScanReplacesTheResultsOfTheOneBefore) {
  const Scanning scanning({"a", "b"});
  scanning.scan("a");
  scanning.scan("b");
  EXPECT_EQ(scanning.names(), Names{L"b"});
  EXPECT_EQ(scanning.scan("none"), S_OK);
  EXPECT_EQ(scanning.names(), Names{});
}

TEST(DirectoryScannerTest, TheFolderIsReadAnewByEachScan) {
  const Scanning scanning({"a"});
  scanning.scan("*a");
  scanning.folder.write("aa", "");
  EXPECT_EQ(scanning.names(), Names{L"a"});
  scanning.scan("*a");
  EXPECT_EQ(scanning.names(), (Names{L"a", L"aa"}));
}

TEST(DirectoryScannerTest, GetFirstRestarts) {
  const Scanning scanning({"a1", "a2"});
  scanning.scan("a");
  wchar_t* first = nullptr;
  wchar_t* again = nullptr;
  EXPECT_EQ(scanning.scanner->GetFirst(&first), S_OK);
  EXPECT_EQ(scanning.scanner->GetNext(&again), S_OK);
  EXPECT_NE(first, again);
  EXPECT_EQ(scanning.scanner->GetNext(&again), S_FALSE);
  EXPECT_EQ(again, nullptr);
  EXPECT_EQ(scanning.scanner->GetFirst(&again), S_OK);
  EXPECT_EQ(first, again);
}

TEST(DirectoryScannerTest, GetNextBeforeGetFirstSkipsTheFirstName) {
  const Scanning scanning({"a1", "a2"});
  scanning.scan("a");
  wchar_t* second = nullptr;
  wchar_t* name = nullptr;
  EXPECT_EQ(scanning.scanner->GetNext(&second), S_OK);
  scanning.scanner->GetFirst(&name);
  EXPECT_NE(name, second);
  scanning.scanner->GetNext(&name);
  EXPECT_EQ(name, second);
}

TEST(DirectoryScannerTest, AScanPutsTheCursorBackOnTheFirstName) {
  const Scanning scanning({"a1", "a2"});
  wchar_t* name = nullptr;
  scanning.scan("a");
  scanning.scanner->GetNext(&name);
  scanning.scan("a");
  EXPECT_EQ(scanning.scanner->GetNext(&name), S_OK);
}

TEST(DirectoryScannerTest, ANullNameIsRefusedAndDoesNotMoveTheCursor) {
  const Scanning scanning({"a1", "a2"});
  scanning.scan("a");
  wchar_t* name = nullptr;
  scanning.scanner->GetFirst(&name);
  EXPECT_EQ(scanning.scanner->GetNext(nullptr), E_INVALIDARG);
  EXPECT_EQ(scanning.scanner->GetNext(&name), S_OK);
  EXPECT_EQ(scanning.scanner->GetFirst(nullptr), E_INVALIDARG);
  EXPECT_EQ(scanning.scanner->GetNext(&name), S_FALSE);
}

TEST(DirectoryScannerTest, NamesStayUntilTheNextScan) {
  const Scanning scanning({"a1", "a2"});
  scanning.scan("a");
  wchar_t* first = nullptr;
  wchar_t* second = nullptr;
  scanning.scanner->GetFirst(&first);
  const std::wstring text = first;
  scanning.scanner->GetNext(&second);
  scanning.scanner->Scan(nullptr, "a");
  EXPECT_EQ(first, text);
}

TEST(DirectoryScannerTest, TheFolderPathIsConvertedToUtf8) {
  const Scanning scanning;
  std::filesystem::create_directory(scanning.folder / "\u00E9\U0001F600");
  scanning.folder.write("\u00E9\U0001F600/a", "");
  const std::wstring path = wide(scanning.folder.path()) + L"/\u00E9\xD800\U0001F600";
  EXPECT_EQ(scanning.scanner->Scan(path.c_str(), "a"), S_OK);
  EXPECT_EQ(scanning.names(), Names{L"a"});
}

TEST(DirectoryScannerTest, ThePatternIsComparedWithTheBytesOfTheName) {
  const Scanning scanning({"a\u00E9", "b\xE9"});
  scanning.scan("\u00E9");
  EXPECT_EQ(scanning.names(), Names{L"a\u00E9"});
  scanning.scan("\xE9");
  EXPECT_EQ(scanning.names(), Names{L"b"});
}

struct NameCase {
  const char* bytes;
  const wchar_t* name;
};

// A sequence that breaks off takes the byte that breaks it off with it.
TEST(DirectoryScannerTest, NamesAreDecodedFromUtf8AndWhatIsMalformedIsDropped) {
  const NameCase cases[] = {{"plain", L"plain"},
                            {"a\xC2\x80z", L"a\u0080z"},
                            {"a\xDF\xBFz", L"a\u07FFz"},
                            {"a\xE0\xA0\x80z", L"a\u0800z"},
                            {"a\xED\x9F\xBFz", L"a\uD7FFz"},
                            {"a\xEE\x80\x80z", L"a\uE000z"},
                            {"a\xEF\xBF\xBFz", L"a\uFFFFz"},
                            {"a\xF0\x90\x80\x80z", L"a\U00010000z"},
                            {"a\xF4\x8F\xBF\xBFz", L"a\U0010FFFFz"},
                            {"a\x80z", L"az"},              // stray continuation
                            {"a\xBF\xBFz", L"az"},          // two of them
                            {"a\xC0\xAFz", L"az"},          // overlong, two bytes
                            {"a\xC1\xBFz", L"az"},          // overlong, two bytes
                            {"a\xE0\x80\xAFz", L"az"},      // overlong, three bytes
                            {"a\xE0\x9F\xBFz", L"az"},      // overlong, three bytes
                            {"a\xF0\x8F\xBF\xBFz", L"az"},  // overlong, four bytes
                            {"a\xED\xA0\x80z", L"az"},      // first surrogate
                            {"a\xED\xBF\xBFz", L"az"},      // last surrogate
                            {"a\xF4\x90\x80\x80z", L"az"},  // beyond the last code point
                            {"a\xF5z", L"az"},              // no lead byte
                            {"a\xFFz", L"az"},              // no byte of any sequence
                            {"a\xC3", L"a"},                // incomplete at the end
                            {"a\xE4\xB8", L"a"},            // incomplete at the end
                            {"a\xF0\x9F\x98", L"a"},        // incomplete at the end
                            {"a\xC3xz", L"az"},             // broken off
                            {"a\xE4\xB8xz", L"az"},         // broken off
                            {"a\xF0\x9F\x98xz", L"az"},     // broken off
                            {"\xE9", L""}};
  for (const NameCase& one : cases) {
    const Scanning scanning({one.bytes});
    scanning.scan("");
    Names names = scanning.names();
    names.erase(L".");
    names.erase(L"..");
    EXPECT_EQ(names, Names{one.name}) << testing::PrintToString(one.bytes);
  }
}

TEST(DirectoryScannerTest, AScanThatRunsOutOfMemoryHasNoResults) {
  const Scanning scanning({"a name too long to be kept in place", "another name of that kind"});
  const std::wstring folder = wide(scanning.folder.path());
  const unsigned long failed = fail_each_allocation([&] {
    const OXAResult result = scanning.scanner->Scan(folder.c_str(), "name");
    wchar_t* name = nullptr;
    const bool happened = FailingAllocation::happened();
    EXPECT_EQ(result, happened ? E_OUTOFMEMORY : S_OK);
    EXPECT_EQ(scanning.scanner->GetFirst(&name), happened ? S_FALSE : S_OK);
  });
  EXPECT_GT(failed, 3);
}

TEST(DirectoryScannerTest, TheScannerInAContextHasItsReferenceAndTheCallers) {
  const Host host;
  EXPECT_EQ(oxa::service<IOXADirectoryScanner>(host.context.get())->CheckReference(), 2);
}

}  // namespace
