#include <oxa/sdk/ranges.h>

#include <gtest/gtest.h>
#include <oxa/sdk/implements.h>
#include <oxa/sdk/utf8.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "support/fakes.h"

namespace {

// An enumerator that refuses to be asked again after its end, as the contract allows.
class OnceToTheEnd final : public oxa::Implements<IOXAInterfaceEnum> {
 public:
  explicit OnceToTheEnd(int count) : count_(count) {}

  OXAResult GetFirst(_GUID& iid, void** out) override {
    position_ = 0;
    return give(iid, out);
  }
  OXAResult GetNext(_GUID& iid, void** out) override {
    EXPECT_LT(position_, count_);
    ++position_;
    return give(iid, out);
  }

 private:
  OXAResult give(_GUID& iid, void** out) const {
    *out = nullptr;
    if (position_ == count_) {
      return S_FALSE;
    }
    iid = {static_cast<unsigned long>(position_), 0, 0, {}};
    *out = const_cast<OnceToTheEnd*>(this);
    return S_OK;
  }

  int count_;
  int position_ = 0;
};

TEST(EntriesTest, VisitsEveryPairOnce) {
  const auto enumerator = oxa::make<OnceToTheEnd>(3);
  std::vector<unsigned long> visited;
  for (const oxa::InterfaceEntry& entry : oxa::entries(*enumerator)) {
    EXPECT_EQ(entry.object, enumerator.get());
    visited.push_back(entry.iid.Data1);
  }
  EXPECT_EQ(visited, (std::vector<unsigned long>{0, 1, 2}));
}

TEST(EntriesTest, KeepItsEnumeratorAlive) {
  int visited = 0;
  for ([[maybe_unused]] const oxa::InterfaceEntry& entry :
       oxa::entries(*oxa::make<OnceToTheEnd>(3))) {
    ++visited;
  }
  EXPECT_EQ(visited, 3);
}

TEST(EntriesTest, AreInputIterators) {
  const auto enumerator = oxa::make<OnceToTheEnd>(3);
  auto entry = oxa::entries(*enumerator).begin();
  EXPECT_EQ((*entry++).iid.Data1, 0U);
  EXPECT_EQ(entry->iid.Data1, 1U);
}

TEST(EntriesTest, AnEmptyEnumeratorHasNothingToVisit) {
  const auto enumerator = oxa::make<OnceToTheEnd>(0);
  for (const oxa::InterfaceEntry& entry : oxa::entries(*enumerator)) {
    ADD_FAILURE() << entry.object;
  }
}

TEST(EntriesTest, ALoopCanBeLeftAndStartedAgain) {
  const auto enumerator = oxa::make<OnceToTheEnd>(3);
  const auto range = oxa::entries(*enumerator);
  const auto begin = range.begin();
  EXPECT_EQ(begin->iid.Data1, 0U);
  int visited = 0;
  for ([[maybe_unused]] const oxa::InterfaceEntry& entry : range) {
    ++visited;
  }
  EXPECT_EQ(visited, 3);
}

TEST(NamesTest, VisitsEveryNameOfAFolder) {
  std::string folder = testing::TempDir() + "names-XXXXXX";
  ASSERT_NE(mkdtemp(folder.data()), nullptr);
  const std::ofstream first(folder + "/a.xml");
  const std::ofstream second(folder + "/b.xml");
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  const auto scanner = oxa::service<IOXADirectoryScanner>(context.get());
  EXPECT_EQ(scanner->Scan(oxa::widen(folder).c_str(), "*.xml"), S_OK);
  std::set<std::wstring> visited;
  for (const wchar_t* name : oxa::names(*scanner)) {
    visited.insert(name);
  }
  EXPECT_EQ(visited, (std::set<std::wstring>{L"a.xml", L"b.xml"}));
  std::filesystem::remove_all(folder);
}

}  // namespace
