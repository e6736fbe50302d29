// What stands in each slot of the library's objects for diagnostics.
#include <gtest/gtest.h>

#include <dlfcn.h>

#include <memory>
#include <string>

#include <oxa/oxa.h>

#include "abi/destructors.h"
#include "abi/raw.h"
#include "support/allocations.h"

using namespace oxa_test;

namespace {

// A manager with a category, in which there is nothing yet, as bare pointers.
struct RawDiagnostics {
  RawDiagnostics() {
    OXACreateDiagnosticsManager(&manager);
    call_slot<OXAResult>(manager, 9, "findings", &category);
  }
  RawDiagnostics(const RawDiagnostics&) = delete;
  RawDiagnostics& operator=(const RawDiagnostics&) = delete;
  ~RawDiagnostics() { call_slot<std::int64_t>(manager, release_slot); }

  // Makes a row, which is the caller's.
  void* make_row() const {
    void* row = nullptr;
    EXPECT_EQ(call_slot<OXAResult>(category, 6, &row), S_OK);
    return row;
  }

  void* manager = nullptr;
  void* category = nullptr;
};

TEST(DiagnosticSlotsTest, EveryObjectBeginsWithTheReferenceOperations) {
  const RawDiagnostics raw;
  void* const row = raw.make_row();
  for (void* object : {raw.manager, raw.category, row}) {
    EXPECT_EQ(call_slot<std::int64_t>(object, check_slot), 1);
    EXPECT_EQ(call_slot<std::int64_t>(object, 1), 2);
    EXPECT_EQ(call_slot<std::int64_t>(object, release_slot), 1);
  }
  EXPECT_EQ(call_slot<std::int64_t>(row, release_slot), 0);
}

TEST(DiagnosticSlotsTest, ManagerColumns) {
  const RawDiagnostics raw;
  const char* header = nullptr;
  std::int32_t operation = 0;
  EXPECT_EQ(call_slot<int>(raw.manager, 6), 2);
  EXPECT_EQ(call_slot<OXAResult>(raw.manager, 4, 5), S_OK);
  EXPECT_EQ(call_slot<int>(raw.manager, 6), 5);
  EXPECT_EQ(call_slot<OXAResult>(raw.manager, 5, 4, "weight", std::int32_t{-7}), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(raw.manager, 7, 4, &header), S_OK);
  EXPECT_STREQ(header, "weight");
  EXPECT_EQ(call_slot<OXAResult>(raw.manager, 8, 4, &operation), S_OK);
  EXPECT_EQ(operation, -7);
}

TEST(DiagnosticSlotsTest, ManagerTypes) {
  const RawDiagnostics raw;
  const char* tip = nullptr;
  int id = -1;
  EXPECT_EQ(call_slot<OXAResult>(raw.manager, 11, "short", "long", &id), S_OK);
  EXPECT_EQ(id, 0);
  EXPECT_EQ(call_slot<OXAResult>(raw.manager, 13, id, &tip), S_OK);
  EXPECT_STREQ(tip, "short");
  EXPECT_EQ(call_slot<OXAResult>(raw.manager, 14, id, &tip), S_OK);
  EXPECT_STREQ(tip, "long");
  EXPECT_EQ(call_slot<OXAResult>(raw.manager, 12, id), E_INVALIDARG);
  EXPECT_EQ(call_slot<OXAResult>(raw.manager, 13, id, &tip), S_FALSE);
}

TEST(DiagnosticSlotsTest, ManagerCategories) {
  const RawDiagnostics raw;
  void* again = nullptr;
  void* list = nullptr;
  EXPECT_EQ(call_slot<OXAResult>(raw.manager, 9, "findings", &again), E_ALREADYEXISTS);
  EXPECT_EQ(again, raw.category);
  call_slot<void>(raw.manager, 15);
  EXPECT_EQ(call_slot<OXAResult>(raw.manager, 10, &list), S_OK);
  EXPECT_EQ(call_slot<unsigned long>(list, 7), 0);
  EXPECT_EQ(call_slot<std::int64_t>(list, release_slot), 0);
}

TEST(DiagnosticSlotsTest, TheEnumeratorOfCategories) {
  const RawDiagnostics raw;
  void* second = nullptr;
  void* list = nullptr;
  void* clone = nullptr;
  void* found = nullptr;
  call_slot<OXAResult>(raw.manager, 9, "others", &second);
  EXPECT_EQ(call_slot<OXAResult>(raw.manager, 10, &list), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(list, 4, &found), S_OK);
  EXPECT_EQ(found, raw.category);
  EXPECT_EQ(call_slot<OXAResult>(list, 5, &found), S_OK);
  EXPECT_EQ(found, second);
  EXPECT_EQ(call_slot<unsigned long>(list, 7), 2);
  EXPECT_EQ(call_slot<OXAResult>(list, 6, &clone), S_OK);
  EXPECT_EQ(call_slot<std::int64_t>(clone, release_slot), 0);
  EXPECT_EQ(call_slot<std::int64_t>(list, release_slot), 0);
}

TEST(DiagnosticSlotsTest, CategoryNameAndKey) {
  const RawDiagnostics raw;
  void* key = nullptr;
  EXPECT_EQ(text_in(raw.category, 5), "findings");
  EXPECT_EQ(call_slot<OXAResult>(raw.category, 4, "other"), S_OK);
  EXPECT_EQ(text_in(raw.category, 5), "other");
  EXPECT_EQ(call_slot<std::int32_t>(raw.category, 12), 0);
  EXPECT_EQ(call_slot<OXAResult>(raw.category, 14, std::int32_t{-7}), S_OK);
  EXPECT_EQ(call_slot<std::int32_t>(raw.category, 12), -7);
  EXPECT_EQ(call_slot<OXAResult>(raw.category, 15, raw.manager), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(raw.category, 13, &key), S_OK);
  EXPECT_EQ(key, raw.manager);
}

TEST(DiagnosticSlotsTest, CategoryRows) {
  const RawDiagnostics raw;
  void* const rows[] = {raw.make_row(), raw.make_row()};
  void* found = nullptr;
  EXPECT_EQ(call_slot<OXAResult>(raw.category, 7, rows[0]), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(raw.category, 7, rows[1]), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(raw.category, 10, &found), S_OK);
  EXPECT_EQ(found, rows[0]);
  EXPECT_EQ(call_slot<OXAResult>(raw.category, 11, &found), S_OK);
  EXPECT_EQ(found, rows[1]);
}

TEST(DiagnosticSlotsTest, Subcategories) {
  void* sub = nullptr;
  {
    const RawDiagnostics raw;
    void* list = nullptr;
    void* found = nullptr;
    EXPECT_EQ(call_slot<OXAResult>(raw.category, 8, "sub", &sub), S_OK);
    EXPECT_EQ(call_slot<OXAResult>(raw.category, 9, &list), S_OK);
    EXPECT_EQ(call_slot<OXAResult>(list, 4, &found), S_OK);
    EXPECT_EQ(found, sub);
    call_slot<std::int64_t>(list, release_slot);
  }
  EXPECT_EQ(call_slot<std::int64_t>(sub, release_slot), 0);  // nobody else does
}

TEST(DiagnosticSlotsTest, RowTypeSeverityAndKey) {
  const RawDiagnostics raw;
  void* const row = raw.make_row();
  EXPECT_EQ(call_slot<int>(row, 6), -1);
  EXPECT_EQ(call_slot<OXAResult>(row, 12, "short", "long"), S_OK);
  EXPECT_EQ(text_in(row, 4), "long");
  EXPECT_EQ(text_in(row, 5), "short");
  EXPECT_EQ(call_slot<OXAResult>(row, 11, 9), S_OK);
  EXPECT_EQ(call_slot<int>(row, 6), 9);
  EXPECT_EQ(call_slot<OXAResult>(row, 14, std::int32_t{-7}), S_OK);
  EXPECT_EQ(call_slot<std::int32_t>(row, 8), -7);
  EXPECT_EQ(call_slot<OXAResult>(row, 15, raw.manager), S_OK);
  EXPECT_EQ(call_slot<void*>(row, 9), raw.manager);
  EXPECT_EQ(call_slot<OXAResult>(row, 16, std::int32_t{-8}), S_OK);
  EXPECT_EQ(call_slot<std::int32_t>(row, 10), -8);
  EXPECT_EQ(call_slot<std::int64_t>(row, release_slot), 0);
}

// A cell as it lies in memory: 8 bytes, a string, the kind, 4 bytes of padding.
struct RawCell {
  std::uint64_t bits;
  std::string text;
  std::uint32_t kind;
};

// Reads a cell as a call does that was compiled elsewhere: it gives the place as the first
// argument, and gets it back.
std::unique_ptr<RawCell> read_cell(void* row, int column) {
  auto* const place = static_cast<RawCell*>(operator new(sizeof(RawCell)));
  const auto get = slot_of<RawCell* (*)(RawCell*, void*, int)>(row, 7);
  EXPECT_EQ(get(place, row, column), place);
  return std::unique_ptr<RawCell>(place);
}

TEST(DiagnosticSlotsTest, RowCells) {
  const RawDiagnostics raw;
  void* const row = raw.make_row();
  RawCell given{0x0102030405060708U, "a text that is long enough to need memory", 0x1000};
  EXPECT_EQ(call_slot<OXAResult>(row, 13, 1, &given), S_OK);
  const auto cell = read_cell(row, 1);
  EXPECT_EQ(cell->bits, given.bits);
  EXPECT_EQ(cell->text, given.text);
  EXPECT_EQ(cell->kind, given.kind);
  call_slot<void>(row, 17, 1);
  EXPECT_EQ(read_cell(row, 1)->text, "unset");
  EXPECT_EQ(call_slot<std::int64_t>(row, release_slot), 0);
}

TEST(DiagnosticSlotsTest, TheDestructorsFollowTheManager) {
  expect_destructors_at(16, [] {
    void* manager = nullptr;
    void* category = nullptr;
    OXACreateDiagnosticsManager(&manager);
    call_slot<OXAResult>(manager, 9, "findings", &category);
    return manager;
  });
}

// A subcategory outlives all others and is then nobody's.
TEST(DiagnosticSlotsTest, TheDestructorsFollowTheCategory) {
  expect_destructors_at(16, [] {
    const RawDiagnostics raw;
    void* sub = nullptr;
    call_slot<OXAResult>(raw.category, 8, "sub", &sub);
    call_slot<OXAResult>(sub, 7, raw.make_row());
    return sub;
  });
}

TEST(DiagnosticSlotsTest, TheDestructorsFollowTheRow) {
  const RawDiagnostics raw;
  expect_destructors_at(18, [&] { return raw.make_row(); });
}

TEST(DiagnosticSlotsTest, TheDestructorsFollowTheEnumerator) {
  const RawDiagnostics raw;
  const long before = live_allocations();
  for (const std::size_t deleting : {0, 1}) {
    void* list = nullptr;
    EXPECT_EQ(call_slot<OXAResult>(raw.manager, 10, &list), S_OK);
    call_slot<void>(list, 8 + deleting);
    EXPECT_EQ(live_allocations(), before + 1 - static_cast<long>(deleting));
    if (deleting == 0) {
      operator delete(list);
    }
  }
}

// How a caller that compiles no header of ours declares the factory.
using CStyleFactory = int (*)(void** out);

TEST(DiagnosticSlotsTest, TheFactoryIsFoundByItsPlainName) {
  const auto factory =
      reinterpret_cast<CStyleFactory>(dlsym(RTLD_DEFAULT, "OXACreateDiagnosticsManager"));
  void* manager = nullptr;
  ASSERT_NE(factory, nullptr);
  EXPECT_EQ(factory(&manager), S_OK);
  EXPECT_EQ(call_slot<std::int64_t>(manager, release_slot), 0);
}

}  // namespace
