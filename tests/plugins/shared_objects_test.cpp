// The exported primitives over the system's dynamic loader.
#include <gtest/gtest.h>
#include <link.h>
#include <sys/wait.h>
#include <unistd.h>

#include "plugins/files.h"

#include <oxa/oxa.h>

using namespace oxa_test;

namespace {

constexpr char entry_point[] = "OXACreatePluginInterface";

// Opens a wide path and closes it again; tells whether it could be opened.
bool opens(const std::wstring& path) {
  void* handle = LoadPluginW(path.c_str());
  return handle != nullptr && UnloadPlugin(handle) == S_OK;
}

// Puts a character that is no code point into a path, before its last character.
std::wstring with_stray(std::wstring path, unsigned long character) {
  return path.insert(path.size() - 1, 1, static_cast<wchar_t>(character));
}

TEST(SharedObjectTest, LoadPluginOpensAndUnloadPluginCloses) {
  const auto path = miniature("good");
  void* handle = LoadPlugin(path.c_str());
  EXPECT_TRUE(is_open(path));
  EXPECT_EQ(UnloadPlugin(handle), S_OK);
  EXPECT_FALSE(is_open(path));
}

TEST(SharedObjectTest, WhatCannotBeOpenedGivesNull) {
  EXPECT_EQ(LoadPlugin("/not/there.so"), nullptr);
  EXPECT_EQ(LoadPlugin("not-in-the-search-path.so"), nullptr);
  EXPECT_EQ(LoadPlugin(""), LoadPlugin(nullptr));  // the program itself
  EXPECT_EQ(LoadPluginW(L"/not/there.so"), nullptr);
}

// What a static constructor threw used to pass through to the caller, and left the system's loader
// locked. Runs in a child: the end of the process is the behaviour.
TEST(SharedObjectTest, AnObjectWhoseStaticConstructorThrowsEndsTheProcess) {
  const pid_t child = fork();
  if (child == 0) {
    close(STDERR_FILENO);
    try {
      LoadPlugin(miniature("throws_on_load").c_str());
    } catch (...) {
    }
    _exit(0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_FALSE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

TEST(SharedObjectTest, ANameWithoutASlashIsSearchedFor) {
  void* handle = LoadPlugin("libdl.so.2");
  EXPECT_NE(handle, nullptr);
  EXPECT_EQ(UnloadPlugin(handle), S_OK);
}

TEST(SharedObjectTest, TokensInAPathAreLeftToTheSystem) {
  void* handle = LoadPlugin("/usr/$LIB/libc.so.6");
  ASSERT_NE(handle, nullptr);
  EXPECT_EQ(UnloadPlugin(handle), S_OK);
}

TEST(SharedObjectTest, ANullPathGivesTheProgramItself) {
  void* narrow = LoadPlugin(nullptr);
  void* from_wide = LoadPluginW(nullptr);
  EXPECT_EQ(narrow, from_wide);
  EXPECT_EQ(FindFunction(narrow, "OXACreateContext"), reinterpret_cast<void*>(&OXACreateContext));
  EXPECT_EQ(UnloadPlugin(narrow), S_OK);
  EXPECT_EQ(UnloadPlugin(from_wide), S_OK);
}

TEST(SharedObjectTest, FunctionsAreBoundOnFirstUse) {
  EXPECT_TRUE(opens(wide(miniature("unresolved_function"))));
  EXPECT_FALSE(opens(wide(miniature("unresolved_datum"))));
}

TEST(SharedObjectTest, SymbolsStayLocal) {
  void* handle = LoadPlugin(miniature("good").c_str());
  EXPECT_NE(FindFunction(handle, entry_point), nullptr);
  EXPECT_EQ(FindFunction(nullptr, entry_point), nullptr);
  EXPECT_EQ(UnloadPlugin(handle), S_OK);
}

TEST(SharedObjectTest, AnAbsentSymbolGivesNull) {
  void* handle = LoadPlugin(miniature("good").c_str());
  EXPECT_EQ(FindFunction(handle, "NobodyExportsThis"), nullptr);
  EXPECT_EQ(FindFunction(handle, ""), nullptr);
  EXPECT_EQ(FindFunction(handle, nullptr), nullptr);
  EXPECT_EQ(UnloadPlugin(handle), S_OK);
}

TEST(SharedObjectTest, TheFunctionFoundCanBeCalled) {
  void* handle = LoadPlugin(miniature("no_entry_point").c_str());
  const auto answer = reinterpret_cast<int (*)()>(FindFunction(handle, "answer"));
  ASSERT_NE(answer, nullptr);
  EXPECT_EQ(answer(), 42);
  EXPECT_EQ(UnloadPlugin(handle), S_OK);
}

TEST(SharedObjectTest, ANullHandleIsNotClosed) { EXPECT_EQ(UnloadPlugin(nullptr), E_FAIL); }

// The system rejects the handle of a library that nobody opened by hand.
TEST(SharedObjectTest, AHandleThatTheSystemRejectsIsAFailure) {
  Dl_info info{};
  link_map* linked = nullptr;
  ASSERT_NE(dladdr1(reinterpret_cast<void*>(&OXACreateContext), &info,
                    reinterpret_cast<void**>(&linked), RTLD_DL_LINKMAP),
            0);
  ASSERT_NE(dlclose(linked), 0);
  EXPECT_EQ(UnloadPlugin(linked), E_FAIL);
}

TEST(SharedObjectTest, WidePathsAreUtf8ForTheSystem) {
  const TemporaryFolder folder;
  copy_plugin(folder, "good", "a\u00E9\u4E2D\U0001F600.so");
  EXPECT_TRUE(opens(wide(folder.path()) + L"/a\u00E9\u4E2D\U0001F600.so"));
}

TEST(SharedObjectTest, TheOutermostCodePointsOfEachLengthAreKept) {
  for (const char32_t character : {U'\x7F', U'\x80', U'\x7FF', U'\x800', U'\xD7FF', U'\xE000',
                                   U'\xFFFF', U'\x10000', U'\x10FFFF'}) {
    const TemporaryFolder folder;
    const std::filesystem::path name(std::u32string(1, character) + U".so");
    copy_plugin(folder, "good", name.string());
    EXPECT_TRUE(opens(wide(folder.path()) + L"/" + static_cast<wchar_t>(character) + L".so"))
        << std::hex << static_cast<unsigned long>(character);
  }
}

TEST(SharedObjectTest, CharactersThatAreNoCodePointsAreDropped) {
  const std::wstring path = wide(miniature("good"));
  for (const unsigned long character :
       {0xD800UL, 0xDBFFUL, 0xDC00UL, 0xDFFFUL, 0x110000UL, 0x7FFFFFFFUL, 0xFFFFFFFFUL}) {
    EXPECT_TRUE(opens(with_stray(path, character))) << std::hex << character;
  }
}

TEST(SharedObjectTest, ASurrogatePairIsDroppedLikeItsHalves) {
  const std::wstring path = wide(miniature("good"));
  EXPECT_TRUE(opens(with_stray(with_stray(path, 0xDE00), 0xD83D)));
}

TEST(SharedObjectTest, AReplacementForADroppedCharacterWouldNotBeFound) {
  EXPECT_FALSE(opens(with_stray(wide(miniature("good")), 0xFFFD)));
}

}  // namespace
