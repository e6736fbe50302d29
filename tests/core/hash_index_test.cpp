#include "core/hash_index.h"

#include <gtest/gtest.h>

#include <memory>
#include <unordered_map>

#include "support/allocations.h"
#include "support/random.h"

using namespace oxa_test;

namespace {

struct Item {
  std::size_t hash;
  int key;
};

class Table {
 public:
  Item* find(std::size_t hash, int key) const {
    return index_.find(hash, [key](const Item& item) { return item.key == key; });
  }
  void add(Item& item) {
    index_.reserve_one();
    index_.add(item.hash, &item);
  }
  void remove(const Item& item) { index_.remove(item.hash, &item); }
  std::size_t size() const { return index_.size(); }

  // How many items it visits, and the sum of their keys.
  std::pair<int, int> sum() const {
    std::pair<int, int> sum;
    index_.for_each([&sum](const Item& item) {
      ++sum.first;
      sum.second += item.key;
    });
    return sum;
  }

 private:
  oxa::hash_index<Item> index_;
};

TEST(HashIndexTest, AnEmptyOneHasNothingAndTakesNoMemory) {
  const unsigned long before = made_allocations();
  const Table table;
  EXPECT_EQ(table.find(0, 0), nullptr);
  EXPECT_EQ(table.sum(), std::pair(0, 0));
  EXPECT_EQ(table.size(), 0);
  EXPECT_EQ(made_allocations(), before);
}

TEST(HashIndexTest, KeysOfOneHashAreToldApart) {
  Item items[] = {{7, 1}, {7, 2}, {7, 3}};
  Table table;
  for (Item& item : items) {
    table.add(item);
  }
  for (Item& item : items) {
    EXPECT_EQ(table.find(7, item.key), &item);
  }
  EXPECT_EQ(table.find(7, 4), nullptr);
}

TEST(HashIndexTest, KeysAreOnlyComparedUnderTheSameHash) {
  Item item{7, 1};
  Table table;
  table.add(item);
  for (std::size_t hash = 0; hash < 100; ++hash) {
    EXPECT_EQ(table.find(hash, 1), hash == 7 ? &item : nullptr);
  }
}

// What the index is compared with: items under their hashes, of which it owns each.
class Model {
 public:
  Item* find(std::size_t hash, int key) const {
    const auto [begin, end] = items_.equal_range(hash);
    for (auto at = begin; at != end; ++at) {
      if (at->second->key == key) {
        return at->second.get();
      }
    }
    return nullptr;
  }
  Item& add(std::size_t hash, int key) {
    return *items_.emplace(hash, std::make_unique<Item>(Item{hash, key}))->second;
  }
  void remove(const Item& item) {
    auto at = items_.equal_range(item.hash).first;
    while (at->second.get() != &item) {
      ++at;
    }
    items_.erase(at);
  }
  std::pair<int, int> sum() const {
    std::pair<int, int> sum;
    for (const auto& [hash, item] : items_) {
      ++sum.first;
      sum.second += item->key;
    }
    return sum;
  }
  const auto& items() const { return items_; }

 private:
  std::unordered_multimap<std::size_t, std::unique_ptr<Item>> items_;
};

struct Mix {
  const char* name;
  std::size_t hashes;  // how many different ones
  std::size_t factor;  // what each is a multiple of
  std::size_t most;    // how many items there are at once
};

class RandomHashIndexTest : public testing::TestWithParam<Mix> {
 protected:
  void step() {
    const std::size_t hash = random_.below(GetParam().hashes) * GetParam().factor;
    const int key = static_cast<int>(random_.below(GetParam().most));
    Item* known = model_.find(hash, key);
    ASSERT_EQ(table_.find(hash, key), known);
    if (known != nullptr) {
      table_.remove(*known);
      model_.remove(*known);
      ASSERT_EQ(table_.find(hash, key), nullptr);
    } else if (table_.size() < GetParam().most) {
      table_.add(model_.add(hash, key));
    }
    ASSERT_EQ(table_.size(), model_.items().size());
  }

  void expect_all() {
    for (const auto& [hash, item] : model_.items()) {
      ASSERT_EQ(table_.find(hash, item->key), item.get());
    }
    ASSERT_EQ(table_.sum(), model_.sum());
  }

  Random random_{1};
  Table table_;
  Model model_;
};

TEST_P(RandomHashIndexTest, AgreesWithAMultimap) {
  const int steps = runs(40000);
  const int between = static_cast<int>(GetParam().most);
  for (int number = 0; number < steps && !HasFatalFailure(); ++number) {
    step();
    if (number % between == 0) {
      expect_all();
    }
  }
}

// Few items are in a table of few slots, where many searches go on at the beginning.
const Mix mixes[] = {
    {"one_hash", 1, 12345, 5},     {"few_items", 64, 1, 5},
    {"colliding", 8, 1, 40},       {"equal_low_bits", 1000, std::size_t{1} << 32U, 300},
    {"numbers", 1000000, 1, 2000},
};

INSTANTIATE_TEST_SUITE_P(Mixes, RandomHashIndexTest, testing::ValuesIn(mixes),
                         [](const auto& mix) { return mix.param.name; });

TEST(HashIndexTest, FindingAndRemovingAllocateNothing) {
  Model model;
  Table table;
  for (int key = 0; key < 1000; ++key) {
    table.add(model.add(static_cast<std::size_t>(key), key));
  }
  const unsigned long before = made_allocations();
  for (const auto& [hash, item] : model.items()) {
    EXPECT_EQ(table.find(hash, item->key), item.get());
    table.remove(*item);
  }
  EXPECT_EQ(made_allocations(), before);
  EXPECT_EQ(table.size(), 0);
}

TEST(HashIndexTest, WithoutMemoryForAnotherOneAllAreFound) {
  Model model;
  Table table;
  int failures = 0;
  for (int key = 0; key < 100; ++key) {
    Item& item = model.add(static_cast<std::size_t>(key) % 7, key);
    try {
      const FailingAllocation failing(0);
      table.add(item);
    } catch (const std::bad_alloc&) {
      ++failures;
      model.remove(item);
      EXPECT_EQ(table.find(static_cast<std::size_t>(key) % 7, key), nullptr);
      Item& again = model.add(static_cast<std::size_t>(key) % 7, key);
      table.add(again);
    }
    ASSERT_EQ(table.size(), model.items().size());
    for (const auto& [hash, each] : model.items()) {
      ASSERT_EQ(table.find(hash, each->key), each.get());
    }
  }
  EXPECT_EQ(failures, 6);  // for 8, 16, 32, 64, 128 and 256 slots
}

}  // namespace
