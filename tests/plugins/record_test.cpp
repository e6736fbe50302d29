// What the loader is made of and does not export.
#include <elf.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>

#include "plugins/files.h"
#include "plugins/plugin_record.h"
#include "plugins/shared_object_file.h"
#include "plugins/to_wstring.h"

using namespace oxa_test;

namespace {

TEST(PluginRecordTest, ARecordWithoutAHandleIsUnexpectedAndLeftAlone) {
  _plugin plugin;
  EXPECT_EQ(unload_plugin(plugin), E_UNEXPECTED);
}

TEST(ToWstringTest, WidensEachCharacterByItselfAndDoesNotDecode) {
  EXPECT_EQ(oxa::to_wstring("/"), L"/");
  EXPECT_EQ(oxa::to_wstring("a b"), L"a b");
  EXPECT_EQ(oxa::to_wstring(""), L"");
  EXPECT_NE(oxa::to_wstring("\u00E9"), L"\u00E9");
}

// The headers of a shared object with one segment and one section, all of it in one file.
struct Image {
  Elf64_Ehdr header{};
  Elf64_Phdr segment{};
  Elf64_Shdr section{};

  Image() {
    std::copy_n(ELFMAG, SELFMAG, header.e_ident);
    header.e_ident[EI_CLASS] = ELFCLASS64;
    header.e_phoff = sizeof header;
    header.e_phentsize = sizeof segment;
    header.e_phnum = 1;
    header.e_shoff = sizeof header + sizeof segment;
    header.e_shentsize = sizeof section;
    header.e_shnum = 1;
    segment.p_filesz = sizeof(Image);
  }
};

bool is_complete(const Image& image) {
  const TemporaryFolder folder;
  const std::string bytes(reinterpret_cast<const char*>(&image), sizeof image);
  return oxa::is_complete_shared_object(folder.write("x.so", bytes).c_str());
}

TEST(SharedObjectFileTest, HeadersThatTheFileKeepsAreComplete) {
  EXPECT_TRUE(is_complete(Image()));
}

TEST(SharedObjectFileTest, AFileWithoutASectionTableCanBeComplete) {
  Image image;
  image.header.e_shoff = 0;
  image.header.e_shnum = 0xFFFF;
  EXPECT_TRUE(is_complete(image));
}

struct HeaderCase {
  const char* name;
  void (*spoil)(Image& image);
};

class SpoiltHeaderTest : public testing::TestWithParam<HeaderCase> {};

TEST_P(SpoiltHeaderTest, IsNotComplete) {
  Image image;
  GetParam().spoil(image);
  EXPECT_FALSE(is_complete(image));
}

INSTANTIATE_TEST_SUITE_P(
    All, SpoiltHeaderTest,
    testing::Values(
        HeaderCase{"Magic", [](Image& image) { image.header.e_ident[3] = 'G'; }},
        HeaderCase{"Class", [](Image& image) { image.header.e_ident[EI_CLASS] = ELFCLASS32; }},
        HeaderCase{"SegmentSizeTooSmall", [](Image& image) { --image.header.e_phentsize; }},
        HeaderCase{"SegmentSizeTooLarge", [](Image& image) { ++image.header.e_phentsize; }},
        HeaderCase{"TooManySegments", [](Image& image) { image.header.e_phnum = 0xFFFF; }},
        HeaderCase{"SegmentsAtTheEnd", [](Image& image) { image.header.e_phoff = sizeof image; }},
        HeaderCase{"SegmentsBeyond", [](Image& image) { image.header.e_phoff = UINT64_MAX; }},
        HeaderCase{
            "SegmentsWrapAround",
            [](Image& image) { image.header.e_phoff = UINT64_MAX - sizeof(Elf64_Phdr) + 1; }},
        HeaderCase{"SecondSegmentWrapsAround",
                   [](Image& image) {
                     image.header.e_phnum = 2;
                     image.header.e_phoff = UINT64_MAX - sizeof(Elf64_Phdr) + 1;
                   }},
        HeaderCase{"SegmentTooLong", [](Image& image) { ++image.segment.p_filesz; }},
        HeaderCase{"SegmentFarTooLong", [](Image& image) { image.segment.p_filesz = UINT64_MAX; }},
        HeaderCase{"SegmentWrapsAround",
                   [](Image& image) {
                     image.segment.p_offset = UINT64_MAX;
                     image.segment.p_filesz = 2;
                   }},
        HeaderCase{"SegmentBeyond",
                   [](Image& image) {
                     image.segment.p_offset = sizeof image + 1;
                     image.segment.p_filesz = 0;
                   }},
        HeaderCase{"SectionsBeyond", [](Image& image) { image.header.e_shoff = sizeof image + 1; }},
        HeaderCase{"SectionsWrapAround", [](Image& image) { image.header.e_shoff = UINT64_MAX; }},
        HeaderCase{"TooManySections", [](Image& image) { image.header.e_shnum = 2; }},
        HeaderCase{"SectionSizeTooLarge", [](Image& image) { ++image.header.e_shentsize; }}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST(SharedObjectFileTest, AHeaderCutShortIsNotComplete) {
  const TemporaryFolder folder;
  const Image image;
  const std::string bytes(reinterpret_cast<const char*>(&image), sizeof image.header - 1);
  EXPECT_FALSE(oxa::is_complete_shared_object(folder.write("x.so", bytes).c_str()));
}

TEST(SharedObjectFileTest, AFolderIsNotComplete) {
  EXPECT_FALSE(oxa::is_complete_shared_object(TemporaryFolder().path().c_str()));
}

TEST(SharedObjectFileTest, WhatCannotBeOpenedIsLeftToTheSystem) {
  EXPECT_TRUE(oxa::is_complete_shared_object("/not/there.so"));
}

TEST(SharedObjectFileTest, ARealPluginIsComplete) {
  EXPECT_TRUE(oxa::is_complete_shared_object(miniature("good").c_str()));
}

}  // namespace
