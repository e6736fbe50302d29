#include "core/OXAInterfaceManager.h"

#include <gtest/gtest.h>
#include <oxa/oxa.h>

#include <algorithm>
#include <array>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "support/allocations.h"

namespace {

_GUID id_of(unsigned long number) { return {number, 0, 0, {}}; }

class InterfaceManagerTest : public testing::Test {
 protected:
  using Listing = std::vector<std::pair<unsigned long, void*>>;  // the ids by their first group

  Listing in(const char* name) {
    oxa::Ref<IOXAInterfaceEnum> found;
    EXPECT_EQ(manager_->GetInterfaceEnumByNamespace(name, oxa::adopt_into(found)), S_OK);
    return listing(found.get());
  }

  Listing under(const _GUID& iid) {
    oxa::Ref<IOXAInterfaceEnum> found;
    EXPECT_EQ(manager_->GetInterfaceEnumByGUID(iid, oxa::adopt_into(found)), S_OK);
    return listing(found.get());
  }

  static Listing listing(IOXAInterfaceEnum* enumerator) {
    Listing list;
    if (enumerator != nullptr) {
      for (const oxa::InterfaceEntry& entry : oxa::entries(*enumerator)) {
        list.emplace_back(entry.iid.Data1, entry.object);
      }
    }
    return list;
  }

  oxa::Ref<IOXAInterfaceManager> manager_ =
      oxa::Ref<IOXAInterfaceManager>(oxa::make<OXAInterfaceManager>());
  std::array<char, 4> objects_{};
  void* a_ = &objects_[0];
  void* b_ = &objects_[1];
  void* c_ = &objects_[2];
  _GUID x_ = id_of(1);
  _GUID y_ = id_of(2);
};

TEST_F(InterfaceManagerTest, ListsObjectsUnderOneIdInRegistrationOrder) {
  EXPECT_EQ(manager_->RegisterInterface("n", x_, b_), S_OK);
  EXPECT_EQ(manager_->RegisterInterface("n", x_, a_), S_OK);
  EXPECT_EQ(in("n"), (Listing{{1, b_}, {1, a_}}));
}

TEST_F(InterfaceManagerTest, ListsIdsInTheOrderInWhichTheyWereMet) {
  manager_->RegisterInterface("other", y_, c_);
  manager_->RegisterInterface("n", x_, a_);
  manager_->RegisterInterface("n", y_, b_);
  manager_->RegisterInterface("n", x_, c_);
  EXPECT_EQ(in("n"), (Listing{{2, b_}, {1, a_}, {1, c_}}));
}

TEST_F(InterfaceManagerTest, AQueryNumbersItsIdToo) {
  under(y_);
  manager_->RegisterInterface("n", x_, a_);
  manager_->RegisterInterface("n", y_, b_);
  EXPECT_EQ(in("n"), (Listing{{2, b_}, {1, a_}}));
}

TEST_F(InterfaceManagerTest, AFailedRemovalNumbersItsIdToo) {
  EXPECT_EQ(manager_->UnRegisterInterface("n", y_, a_), E_NOTFOUND);
  manager_->RegisterInterface("n", x_, a_);
  manager_->RegisterInterface("n", y_, b_);
  EXPECT_EQ(in("n"), (Listing{{2, b_}, {1, a_}}));
}

TEST_F(InterfaceManagerTest, RefusedArgumentsNumberNothing) {
  EXPECT_EQ(manager_->RegisterInterface(nullptr, y_, a_), E_INVALIDARG);
  EXPECT_EQ(manager_->RegisterInterface("n", y_, nullptr), E_INVALIDARG);
  EXPECT_EQ(manager_->UnRegisterInterface("n", y_, nullptr), E_INVALIDARG);
  EXPECT_EQ(manager_->UnRegisterInterface(nullptr, y_, a_), E_INVALIDARG);
  EXPECT_EQ(manager_->GetInterfaceEnumByGUID(y_, nullptr), E_INVALIDARG);
  manager_->RegisterInterface("n", x_, a_);
  manager_->RegisterInterface("n", y_, b_);
  EXPECT_EQ(in("n"), (Listing{{1, a_}, {2, b_}}));
}

TEST_F(InterfaceManagerTest, ListsNamespacesOfAnIdInByteOrder) {
  manager_->RegisterInterface("b", x_, b_);
  manager_->RegisterInterface("\xC3\xA9", x_, c_);
  manager_->RegisterInterface("B", x_, a_);
  manager_->RegisterInterface("b", y_, c_);
  EXPECT_EQ(under(x_), (Listing{{1, a_}, {1, b_}, {1, c_}}));
}

TEST_F(InterfaceManagerTest, AnIdThatNobodyRegisteredHasNothingToList) {
  EXPECT_EQ(under(x_), Listing{});
}

TEST_F(InterfaceManagerTest, AnUnknownNamespaceIsNotFound) {
  auto* out = reinterpret_cast<IOXAInterfaceEnum*>(this);
  EXPECT_EQ(manager_->GetInterfaceEnumByNamespace("n", &out), E_NOTFOUND);
  EXPECT_EQ(out, nullptr);
}

TEST_F(InterfaceManagerTest, NullArgumentsOfAQueryAreRefused) {
  auto* out = reinterpret_cast<IOXAInterfaceEnum*>(this);
  EXPECT_EQ(manager_->GetInterfaceEnumByNamespace(nullptr, &out), E_INVALIDARG);
  EXPECT_EQ(out, reinterpret_cast<IOXAInterfaceEnum*>(this));
  EXPECT_EQ(manager_->GetInterfaceEnumByNamespace("n", nullptr), E_INVALIDARG);
}

TEST_F(InterfaceManagerTest, RegisteringTwiceGivesTwoEntries) {
  manager_->RegisterInterface("n", x_, a_);
  manager_->RegisterInterface("n", x_, b_);
  manager_->RegisterInterface("n", x_, a_);
  EXPECT_EQ(in("n"), (Listing{{1, a_}, {1, b_}, {1, a_}}));
  EXPECT_EQ(manager_->UnRegisterInterface("n", x_, a_), S_OK);
  EXPECT_EQ(in("n"), (Listing{{1, b_}, {1, a_}}));
}

TEST_F(InterfaceManagerTest, AnEntryIsRemovedFromItsNamespaceAndIdOnly) {
  manager_->RegisterInterface("m", x_, a_);
  manager_->RegisterInterface("n", x_, a_);
  manager_->RegisterInterface("n", y_, a_);
  EXPECT_EQ(manager_->UnRegisterInterface("n", x_, a_), S_OK);
  EXPECT_EQ(in("m"), (Listing{{1, a_}}));
  EXPECT_EQ(in("n"), (Listing{{2, a_}}));
  EXPECT_EQ(under(x_), (Listing{{1, a_}}));
}

TEST_F(InterfaceManagerTest, WhatWasNeverRegisteredIsNotFound) {
  manager_->RegisterInterface("n", x_, a_);
  EXPECT_EQ(manager_->UnRegisterInterface("m", x_, a_), E_NOTFOUND);
  EXPECT_EQ(manager_->UnRegisterInterface("n", y_, a_), E_NOTFOUND);
  EXPECT_EQ(manager_->UnRegisterInterface("n", x_, b_), E_NOTFOUND);
  EXPECT_EQ(in("n"), (Listing{{1, a_}}));
}

TEST_F(InterfaceManagerTest, AnEmptiedNamespaceStays) {
  manager_->RegisterInterface("n", x_, a_);
  EXPECT_EQ(manager_->UnRegisterInterface("n", x_, a_), S_OK);
  EXPECT_EQ(in("n"), Listing{});
  EXPECT_EQ(under(x_), Listing{});
  EXPECT_EQ(manager_->UnRegisterInterface("n", x_, a_), E_NOTFOUND);
}

TEST_F(InterfaceManagerTest, AFailedRemovalMakesNoNamespace) {
  manager_->UnRegisterInterface("n", x_, a_);
  IOXAInterfaceEnum* out = nullptr;
  EXPECT_EQ(manager_->GetInterfaceEnumByNamespace("n", &out), E_NOTFOUND);
}

TEST_F(InterfaceManagerTest, AQueryIsASnapshot) {
  manager_->RegisterInterface("n", x_, a_);
  oxa::Ref<IOXAInterfaceEnum> found;
  manager_->GetInterfaceEnumByGUID(x_, oxa::adopt_into(found));
  manager_->UnRegisterInterface("n", x_, a_);
  manager_.reset();
  EXPECT_EQ(found->CheckReference(), 1);
  EXPECT_EQ(listing(found.get()), (Listing{{1, a_}}));
}

TEST_F(InterfaceManagerTest, HandsOutThePaddingOfEachRegistration) {
  _GUID padded = x_;
  reinterpret_cast<unsigned char*>(&padded)[23] = 0xAB;
  manager_->RegisterInterface("n", x_, a_);
  manager_->RegisterInterface("n", padded, b_);
  oxa::Ref<IOXAInterfaceEnum> found;
  manager_->GetInterfaceEnumByGUID(x_, oxa::adopt_into(found));
  std::vector<unsigned char> padding;
  for (const oxa::InterfaceEntry& entry : oxa::entries(*found)) {
    padding.push_back(reinterpret_cast<const unsigned char*>(&entry.iid)[23]);
  }
  EXPECT_EQ(padding, (std::vector<unsigned char>{0, 0xAB}));
}

TEST_F(InterfaceManagerTest, TakesNoReferences) {
  std::array<void*, 3> no_object{};  // a call through any of its words would not return
  manager_->RegisterInterface("n", x_, no_object.data());
  EXPECT_EQ(manager_->UnRegisterInterface("n", x_, no_object.data()), S_OK);
}

TEST_F(InterfaceManagerTest, AFailedAllocationFilesNothing) {
  const char* name = "a name beyond the strings that need no allocation";
  unsigned long passing = 0;
  for (bool failed = true; failed; ++passing) {
    manager_ = oxa::make<OXAInterfaceManager>();
    {
      const oxa_test::FailingAllocation failing(passing);
      const OXAResult result = manager_->RegisterInterface(name, x_, a_);
      failed = oxa_test::FailingAllocation::happened();
      EXPECT_EQ(result, failed ? E_OUTOFMEMORY : S_OK);
    }
    EXPECT_EQ(under(x_), failed ? Listing{} : (Listing{{1, a_}}));
    oxa::Ref<IOXAInterfaceEnum> found;
    EXPECT_EQ(manager_->GetInterfaceEnumByNamespace(name, oxa::adopt_into(found)),
              failed ? E_NOTFOUND : S_OK);
    EXPECT_EQ(manager_->RegisterInterface(name, x_, b_), S_OK);
    EXPECT_EQ(under(x_).back().second, b_);
  }
  EXPECT_GE(passing, 6U);
}

TEST_F(InterfaceManagerTest, AFailedQueryLeavesANullOutput) {
  manager_->RegisterInterface("n", x_, a_);
  const unsigned long failed = oxa_test::fail_each_allocation([&] {
    for (const bool by_name : {true, false}) {
      auto* out = reinterpret_cast<IOXAInterfaceEnum*>(this);
      const OXAResult result = by_name ? manager_->GetInterfaceEnumByNamespace("n", &out)
                                       : manager_->GetInterfaceEnumByGUID(x_, &out);
      if (result == S_OK) {
        out->ReleaseReference();
      } else {
        EXPECT_EQ(result, E_OUTOFMEMORY);
        EXPECT_EQ(out, nullptr);
      }
    }
  });
  EXPECT_EQ(failed, 6U);  // the list, its pairs and the enumerator, twice
}

// The registry at its simplest: scanned from end to end at every step.
class SlowRegistry {
 public:
  void add(const std::string& name, unsigned long id, void* object) {
    entries_[name].push_back({number(id), {id, object}});
    std::stable_sort(entries_[name].begin(), entries_[name].end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
  }

  OXAResult remove(const std::string& name, unsigned long id, void* object) {
    number(id);
    if (entries_.count(name) == 0) {
      return E_NOTFOUND;
    }
    auto& entries = entries_[name];
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const auto& entry) {
      return entry.second.first == id && entry.second.second == object;
    });
    if (found == entries.end()) {
      return E_NOTFOUND;
    }
    entries.erase(found);
    return S_OK;
  }

  std::vector<std::pair<unsigned long, void*>> under(unsigned long id) {
    number(id);
    std::vector<std::pair<unsigned long, void*>> list;
    for (const auto& [name, entries] : entries_) {
      for (const auto& entry : entries) {
        if (entry.second.first == id) {
          list.push_back(entry.second);
        }
      }
    }
    return list;
  }

  std::vector<std::pair<unsigned long, void*>> in(const std::string& name) {
    std::vector<std::pair<unsigned long, void*>> list;
    for (const auto& entry : entries_[name]) {
      list.push_back(entry.second);
    }
    return list;
  }

 private:
  std::size_t number(unsigned long id) {
    const auto found = std::find(numbered_.begin(), numbered_.end(), id);
    if (found != numbered_.end()) {
      return static_cast<std::size_t>(found - numbered_.begin());
    }
    numbered_.push_back(id);
    return numbered_.size() - 1;
  }

  std::vector<unsigned long> numbered_;
  std::map<std::string, std::vector<std::pair<std::size_t, std::pair<unsigned long, void*>>>>
      entries_;
};

class InterfaceManagerModelTest : public InterfaceManagerTest,
                                  public testing::WithParamInterface<unsigned> {};

// Few names, ids and objects make long buckets with many duplicates, gaps and indexes.
TEST_P(InterfaceManagerModelTest, AgreesWithTheSlowRegistry) {
  std::mt19937 random(GetParam());
  const auto below = [&](unsigned bound) { return static_cast<unsigned>(random() % bound); };
  const std::array<const char*, 3> names{"algorithms", "misc", "readers"};
  std::vector<char> things(1 + below(60));
  SlowRegistry slow;
  for (const char* name : names) {  // so that every namespace exists on both sides
    manager_->RegisterInterface(name, id_of(0), things.data());
    slow.add(name, 0, things.data());
  }
  for (int step = 0; step < 1500; ++step) {
    const char* name = names[below(3)];
    const unsigned long id = below(3);
    void* object = &things[below(static_cast<unsigned>(things.size()))];
    if (below(100) < (step / 300 % 2 == 0 ? 70U : 30U)) {  // grow, shrink, grow, ...
      ASSERT_EQ(manager_->RegisterInterface(name, id_of(id), object), S_OK);
      slow.add(name, id, object);
    } else {
      ASSERT_EQ(manager_->UnRegisterInterface(name, id_of(id), object),
                slow.remove(name, id, object));
    }
    if (step % 10 == 0) {
      ASSERT_EQ(in(name), slow.in(name));
      ASSERT_EQ(under(id_of(id)), slow.under(id));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, InterfaceManagerModelTest, testing::Range(0U, 40U));

}  // namespace
