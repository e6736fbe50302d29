#include "datatypes/named_list.h"

#include <gtest/gtest.h>
#include <oxa/sdk/implements.h>

#include <string>
#include <vector>

#include "support/allocations.h"
#include "support/fakes.h"

using oxa_test::Thing;

namespace {

// Adds an object, of which the caller gets the bare pointer.
Thing* add(named_list<Thing>& list, const std::string& name) {
  auto made = oxa::Ref<Thing>::adopt(new Thing());
  list.add(oxa::thin_string(name), made.get());
  return made.detach();
}

// Returns the objects in the order in which a walk gives them.
std::vector<Thing*> walk(named_list<Thing>& list) {
  std::vector<Thing*> found;
  Thing* object = nullptr;
  for (OXAResult result = list.first(&object); result == S_OK; result = list.next(&object)) {
    found.push_back(object);
  }
  EXPECT_EQ(object, nullptr);
  return found;
}

// From lists that are searched one by one to those with a table, in each step of its growth.
TEST(NamedListTest, FindsEachOfAnyNumber) {
  named_list<Thing> list;
  std::vector<Thing*> added;
  for (std::size_t count = 0; count < 300; ++count) {
    EXPECT_EQ(list.find("n" + std::to_string(count)), nullptr);
    added.push_back(add(list, "n" + std::to_string(count)));
    ASSERT_EQ(list.size(), added.size());
    for (std::size_t each = 0; each < added.size(); ++each) {
      ASSERT_EQ(list.find("n" + std::to_string(each)), added[each]);
    }
  }
  EXPECT_EQ(walk(list), added);
}

TEST(NamedListTest, TellsNamesApartByEveryByte) {
  const std::string names[] = {"", "a", "A", "a ", "ab", "b", "\xC3\xA4", "a::b", "aa", "ba"};
  named_list<Thing> list;
  for (const std::string& name : names) {
    EXPECT_EQ(list.find(name), nullptr);
    Thing* const added = add(list, name);
    EXPECT_EQ(list.find(name), added);
  }
}

TEST(NamedListTest, FindsPartsOfATextWithoutAllocating) {
  named_list<Thing> list;
  Thing* const added = add(list, "a name longer than what fits into a short string");
  for (int other = 0; other < 20; ++other) {
    add(list, std::to_string(other));
  }
  const std::string text = "a name longer than what fits into a short string::x";
  const unsigned long before = oxa_test::made_allocations();
  EXPECT_EQ(list.find(std::string_view(text).substr(0, text.size() - 3)), added);
  EXPECT_EQ(oxa_test::made_allocations(), before);
}

TEST(NamedListTest, StartsOverBehindItsEnd) {
  named_list<Thing> list;
  Thing* object = nullptr;
  EXPECT_EQ(list.next(&object), S_FALSE);
  Thing* const added = add(list, "a");
  EXPECT_EQ(list.next(&object), S_OK);
  EXPECT_EQ(object, added);
  EXPECT_EQ(list.next(&object), S_FALSE);
  EXPECT_EQ(list.next(&object), S_OK);
  EXPECT_EQ(list.first(static_cast<Thing**>(nullptr)), E_INVALIDARG);
  EXPECT_EQ(list.next(static_cast<Thing**>(nullptr)), E_INVALIDARG);
  EXPECT_EQ(list.next(&object), S_FALSE);  // neither of them has moved
}

TEST(NamedListTest, AWalkMeetsWhatIsAddedMeanwhile) {
  named_list<Thing> list;
  Thing* object = nullptr;
  add(list, "first");
  list.first(&object);
  std::vector<Thing*> added;
  for (int each = 0; each < 50; ++each) {
    added.push_back(add(list, std::to_string(each)));
    EXPECT_EQ(list.next(&object), S_OK);
    EXPECT_EQ(object, added.back());
  }
}

TEST(NamedListTest, AFailedAdditionChangesNothing) {
  named_list<Thing> list;
  for (int count = 0; count < 40; ++count) {
    const std::string name = std::to_string(count);
    auto object = oxa::Ref<Thing>::adopt(new Thing());
    oxa_test::fail_each_allocation([&] {
      try {
        list.add(oxa::thin_string(name), object.get());
      } catch (const std::bad_alloc&) {
        EXPECT_EQ(list.size(), static_cast<std::size_t>(count));
        EXPECT_EQ(list.find(name), nullptr);
      }
    });
    EXPECT_EQ(list.find(name), object.get());
    static_cast<void>(object.detach());
  }
}

}  // namespace
