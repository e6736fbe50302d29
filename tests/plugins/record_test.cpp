// What the loader is made of and does not export.
#include <elf.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <iterator>
#include <random>

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

// Beyond the first page of the file.
TEST(SharedObjectFileTest, SegmentsMayBeDescribedAnywhere) {
  const TemporaryFolder folder;
  constexpr std::size_t far = 4096 - sizeof(Elf64_Phdr) / 2;
  for (const std::uint64_t excess : {0, 1}) {
    Image image;
    const Elf64_Phdr segment = image.segment;
    std::string bytes(reinterpret_cast<const char*>(&image), sizeof image);
    image.header.e_phoff = far;
    bytes.replace(0, sizeof image.header, reinterpret_cast<const char*>(&image.header),
                  sizeof image.header);
    bytes.resize(far + sizeof segment);
    Elf64_Phdr described = segment;
    described.p_offset = 0;
    described.p_filesz = bytes.size() + excess;
    bytes.replace(far, sizeof described, reinterpret_cast<const char*>(&described),
                  sizeof described);
    EXPECT_EQ(oxa::is_complete_shared_object(folder.write("x.so", bytes).c_str()), excess == 0);
  }
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

// What is_complete_shared_object promises, with numbers that cannot wrap around.
bool is_complete_by_the_book(const Image& image) {
  __extension__ using Wide = unsigned __int128;
  const auto& header = image.header;
  const auto holds = [](Wide offset, Wide length) { return offset + length <= sizeof(Image); };
  if (std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0 || header.e_ident[EI_CLASS] != ELFCLASS64 ||
      header.e_phentsize != sizeof(Elf64_Phdr)) {
    return false;
  }
  const auto* bytes = reinterpret_cast<const char*>(&image);
  for (unsigned index = 0; index < header.e_phnum; ++index) {
    const Wide place = Wide{header.e_phoff} + index * sizeof(Elf64_Phdr);
    if (!holds(place, sizeof(Elf64_Phdr))) {
      return false;
    }
    Elf64_Phdr segment;
    std::memcpy(&segment, bytes + static_cast<std::size_t>(place), sizeof segment);
    if (!holds(segment.p_offset, segment.p_filesz)) {
      return false;
    }
  }
  return header.e_shoff == 0 || holds(header.e_shoff, Wide{header.e_shnum} * header.e_shentsize);
}

TEST(SharedObjectFileTest, RandomHeadersAreJudgedByTheBook) {
  std::mt19937_64 random(1);
  const std::uint64_t interesting[] = {
      0,         1, 55, 56, 64, 120, 184, 185, 0xFFFF, 1U << 31, UINT64_MAX - 183, UINT64_MAX - 55,
      UINT64_MAX};
  const auto number = [&] { return interesting[random() % std::size(interesting)]; };
  int complete = 0;
  for (int round = 0; round < 3000; ++round) {
    Image image;
    for (std::uint64_t left = random() % 4; left > 0; --left) {
      switch (random() % 8) {
        case 0:
          image.header.e_phoff = number();
          break;
        case 1:
          image.header.e_phnum = static_cast<Elf64_Half>(number());
          break;
        case 2:
          image.header.e_shoff = number();
          break;
        case 3:
          image.header.e_shnum = static_cast<Elf64_Half>(number());
          break;
        case 4:
          image.segment.p_offset = number();
          break;
        case 5:
          image.segment.p_filesz = number();
          break;
        default:
          reinterpret_cast<unsigned char*>(&image)[random() % sizeof image] ^=
              static_cast<unsigned char>(1U << (random() % 8));
      }
    }
    ASSERT_EQ(is_complete(image), is_complete_by_the_book(image)) << round;
    complete += is_complete_by_the_book(image) ? 1 : 0;
  }
  EXPECT_GT(complete, 300);
  EXPECT_LT(complete, 2700);
}

}  // namespace
