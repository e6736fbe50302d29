// What stands in each slot of the library's properties and preferences.
#include <gtest/gtest.h>

#include <cfloat>
#include <string>

#include <oxa/oxa.h>

#include "abi/destructors.h"
#include "abi/raw.h"
#include "support/allocations.h"

using namespace oxa_test;

namespace {

constexpr std::int32_t int_type = 4;
constexpr std::int32_t user_defined = 16;
constexpr std::int32_t no_data_type = -1;

// Preferences with the setting "x" of "a::b", which is their first, as bare pointers.
struct RawPreferences {
  RawPreferences() {
    OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
    context->GetInterface(IID_IOXAPreferences, &preferences);
    call_slot<std::int64_t>(preferences, release_slot);  // the context holds them
    call_slot<OXAResult>(preferences, 4, "a::b", "x", &property);
  }

  oxa::Ref<IOXAContext> context;
  void* preferences = nullptr;
  void* property = nullptr;
};

TEST(PropertySlotsTest, ThePreferencesHaveTheirInterfaceFirstAndTheReferenceBaseBehindIt) {
  const RawPreferences raw;
  void* const base = static_cast<char*>(raw.preferences) + 8;
  EXPECT_EQ(offset_to_top(raw.preferences), 0);
  EXPECT_EQ(offset_to_top(base), -8);
  EXPECT_EQ(call_slot<std::int64_t>(base, check_slot), 1);
  EXPECT_EQ(call_slot<std::int64_t>(raw.preferences, check_slot), 1);
}

TEST(PropertySlotsTest, APropertyHasItsReferenceBaseFirstAndItsInterfaceSecond) {
  const RawPreferences raw;
  void* const base = static_cast<char*>(raw.property) - 16;
  EXPECT_EQ(offset_to_top(raw.property), -16);
  EXPECT_EQ(offset_to_top(base), 0);
  EXPECT_EQ(call_slot<std::int64_t>(base, 1), 2);
  EXPECT_EQ(call_slot<std::int64_t>(raw.property, release_slot), 1);
  EXPECT_EQ(call_slot<std::int64_t>(raw.property, check_slot), 1);
}

TEST(PropertySlotsTest, Preferences) {
  const RawPreferences raw;
  void* again = nullptr;
  const char* value = nullptr;
  EXPECT_EQ(call_slot<OXAResult>(raw.preferences, 4, "a::b", "x", &again), S_ALREADYEXISTS);
  EXPECT_EQ(again, raw.property);
  EXPECT_EQ(call_slot<OXAResult>(raw.preferences, 6, "a::b", "x", &value), E_NOTFOUND);
  call_slot<void>(raw.property, 24, int_type);
  EXPECT_EQ(call_slot<OXAResult>(raw.preferences, 5, "a::b", "x", "42"), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(raw.preferences, 6, "a::b", "x", &value), S_OK);
  EXPECT_STREQ(value, "42");
}

// Returns the enumerator over the settings "x" and "y", which have a value both.
void* make_enumerator(const RawPreferences& raw) {
  void* second = nullptr;
  void* enumerator = nullptr;
  call_slot<OXAResult>(raw.preferences, 4, "a::b", "y", &second);
  for (void* property : {raw.property, second}) {
    call_slot<void>(property, 24, int_type);
    EXPECT_EQ(
        call_slot<OXAResult>(raw.preferences, 5, "a::b", call_slot<const char*>(property, 6), "1"),
        S_OK);
  }
  EXPECT_EQ(call_slot<OXAResult>(raw.preferences, 7, &enumerator), S_OK);
  return enumerator;
}

TEST(PropertySlotsTest, TheEnumeratorOfPreferences) {
  const RawPreferences raw;
  void* enumerator = make_enumerator(raw);
  void* first = nullptr;
  void* second = nullptr;
  void* clone = nullptr;
  EXPECT_EQ(call_slot<unsigned long>(enumerator, 7), 2);
  EXPECT_EQ(call_slot<OXAResult>(enumerator, 4, &first), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(enumerator, 5, &second), S_OK);
  EXPECT_EQ(text_in(first, 6) == "x" ? text_in(second, 6) : text_in(first, 6), "y");
  EXPECT_EQ(call_slot<OXAResult>(enumerator, 5, &second), S_FALSE);
  EXPECT_EQ(call_slot<OXAResult>(enumerator, 6, &clone), S_OK);
  EXPECT_EQ(call_slot<std::int64_t>(clone, release_slot), 0);
  EXPECT_EQ(call_slot<std::int64_t>(enumerator, release_slot), 0);
}

TEST(PropertySlotsTest, Identity) {
  const RawPreferences raw;
  EXPECT_EQ(call_slot<int>(raw.property, 5), 0);
  EXPECT_EQ(text_in(raw.property, 6), "x");
  EXPECT_EQ(text_in(raw.property, 7), "a::b");
  EXPECT_EQ(text_in(raw.property, 16), "a::b::x");
  call_slot<void>(raw.property, 18, 7);
  EXPECT_EQ(call_slot<int>(raw.property, 5), 7);
}

TEST(PropertySlotsTest, Kinds) {
  const RawPreferences raw;
  EXPECT_EQ(call_slot<std::int32_t>(raw.property, 8), 0);
  EXPECT_EQ(call_slot<std::int32_t>(raw.property, 9), no_data_type);
  call_slot<void>(raw.property, 23, std::int32_t{-7});
  call_slot<void>(raw.property, 24, user_defined);
  EXPECT_EQ(call_slot<std::int32_t>(raw.property, 8), -7);
  EXPECT_EQ(call_slot<std::int32_t>(raw.property, 9), user_defined);
}

TEST(PropertySlotsTest, RangeAndDefault) {
  const RawPreferences raw;
  EXPECT_EQ(text_in(raw.property, 11), "null");
  EXPECT_FALSE(call_slot<bool>(raw.property, 13));
  call_slot<void>(raw.property, 24, int_type);
  EXPECT_EQ(call_slot<double>(raw.property, 14), -2147483648.0);
  EXPECT_EQ(call_slot<double>(raw.property, 15), 2147483647.0);
  EXPECT_EQ(call_slot<OXAResult>(raw.property, 19, -1.5, 2.5), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(raw.property, 21, "1"), S_OK);
  EXPECT_TRUE(call_slot<bool>(raw.property, 13));
  EXPECT_EQ(call_slot<double>(raw.property, 14), -1.5);
  EXPECT_EQ(call_slot<double>(raw.property, 15), 2.5);
  EXPECT_EQ(text_in(raw.property, 11), "1");
}

TEST(PropertySlotsTest, RecordType) {
  const RawPreferences raw;
  const auto types = oxa::type_manager(raw.context);
  EXPECT_EQ(call_slot<OXAResult>(raw.property, 20, "x$int"), E_UNEXPECTED);
  call_slot<void>(raw.property, 24, user_defined);
  EXPECT_EQ(text_in(raw.property, 10), "null");
  EXPECT_EQ(call_slot<OXAResult>(raw.property, 20, "x$int"), S_OK);
  EXPECT_EQ(text_in(raw.property, 10), "x$int");
}

TEST(PropertySlotsTest, Flags) {
  constexpr std::pair<std::size_t, std::size_t> getters_and_setters[] = {
      {12, 22}, {17, 26}, {37, 25}};
  for (const auto& [getter, setter] : getters_and_setters) {
    const RawPreferences raw;
    EXPECT_FALSE(call_slot<bool>(raw.property, getter));
    call_slot<void>(raw.property, setter, true);
    for (const auto& [other, unused] : getters_and_setters) {
      EXPECT_EQ(call_slot<bool>(raw.property, other), other == getter) << other;
    }
  }
}

TEST(PropertySlotsTest, Attributes) {
  const RawPreferences raw;
  const char* found = nullptr;
  EXPECT_EQ(call_slot<OXAResult>(raw.property, 30, "red", "#f00"), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(raw.property, 30, "blue", "#00f"), S_OK);
  EXPECT_EQ(call_slot<unsigned long>(raw.property, 28), 2);
  EXPECT_EQ(call_slot<OXAResult>(raw.property, 31, &found), S_OK);
  EXPECT_STREQ(found, "red");
  EXPECT_EQ(call_slot<OXAResult>(raw.property, 32, &found), S_OK);
  EXPECT_STREQ(found, "blue");
  EXPECT_EQ(call_slot<OXAResult>(raw.property, 33, "red", &found), S_OK);
  EXPECT_STREQ(found, "#f00");
  EXPECT_EQ(call_slot<OXAResult>(raw.property, 34, "#f00", &found), S_OK);
  EXPECT_STREQ(found, "red");
  call_slot<void>(raw.property, 29);
  EXPECT_EQ(call_slot<unsigned long>(raw.property, 28), 0);
}

TEST(PropertySlotsTest, Support) {
  const RawPreferences raw;
  EXPECT_EQ(call_slot<OXAResult>(raw.property, 36, "node", "circle"), S_OK);
  EXPECT_TRUE(call_slot<bool>(raw.property, 35, "node", "circle"));
  EXPECT_FALSE(call_slot<bool>(raw.property, 35, "circle", "node"));
}

TEST(PropertySlotsTest, Clone) {
  const RawPreferences raw;
  void* clone = nullptr;
  EXPECT_EQ(call_slot<OXAResult>(raw.property, 4, &clone), S_OK);
  EXPECT_EQ(text_in(clone, 16), "a::b::x");
  EXPECT_EQ(call_slot<std::int64_t>(clone, release_slot), 0);
}

TEST(PropertySlotsTest, ViewHints) {
  const RawPreferences raw;
  void* const hints = call_slot<void*>(raw.property, 27);
  for (const std::size_t getter : {1, 3, 9}) {
    EXPECT_EQ(text_in(hints, getter), "null");
    EXPECT_EQ(call_slot<OXAResult>(hints, getter + 1, "a text"), S_OK);
    EXPECT_EQ(text_in(hints, getter), "a text");
    EXPECT_EQ(call_slot<OXAResult>(hints, getter + 1, ""), S_OK);
  }
  call_slot<void>(hints, 6, 3);
  EXPECT_EQ(call_slot<int>(hints, 5), 3);
  EXPECT_FALSE(call_slot<bool>(hints, 7));
  call_slot<void>(hints, 8, true);
  EXPECT_TRUE(call_slot<bool>(hints, 7));
}

TEST(PropertySlotsTest, TheDestructorsFollowThePreferences) {
  expect_destructors_at(8, [] {
    oxa::Ref<IOXAContext> context;
    void* preferences = nullptr;
    OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
    context->GetInterface(IID_IOXAPreferences, &preferences);
    return preferences;  // no longer the context's, which ends
  });
}

TEST(PropertySlotsTest, TheDestructorsFollowTheEnumerator) {
  const RawPreferences raw;
  call_slot<std::int64_t>(make_enumerator(raw), release_slot);  // what it needs is there now
  expect_destructors_at(8, [&] { return make_enumerator(raw); });
}

// Of a property they are not in the interface's table, but in that of the reference base.
TEST(PropertySlotsTest, TheReferenceBaseEndsAPropertyByItsDestructors) {
  const RawPreferences raw;
  expect_destructors_at(4, [&] {
    void* clone = nullptr;
    call_slot<OXAResult>(raw.property, 4, &clone);
    return static_cast<void*>(static_cast<char*>(clone) - 16);
  });
}

}  // namespace
