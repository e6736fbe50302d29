#include "core/OXAContext.h"

#include <gtest/gtest.h>
#include <oxa/oxa.h>

#include <functional>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

#include "mortal.h"
#include "support/allocations.h"
#include "support/capture.h"
#include "support/fakes.h"

using oxa_test::Mortal;
using oxa_test::Thing;

namespace {

class ContextTest : public testing::Test {
 protected:
  static oxa::Ref<IOXAContext> create() {
    oxa::Ref<IOXAContext> context;
    EXPECT_EQ(OXACreateContext(IID_IOXAContext, oxa::adopt_into(context)), S_FALSE);
    return context;
  }

  oxa::Ref<IOXAContext> context_ = create();
  const _GUID mine_ = oxa::guid("{00000000-0000-4000-8000-000000000001}");
};

TEST_F(ContextTest, TheFactoryChecksItsArgumentsInOrder) {
  EXPECT_EQ(OXACreateContext(IID_IOXAPlugin, nullptr), E_INVALIDARG);
  void* out = this;
  EXPECT_EQ(OXACreateContext(IID_IOXAPlugin, &out), E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);
}

TEST_F(ContextTest, ANewContextBelongsToItsMaker) { EXPECT_EQ(context_->CheckReference(), 1); }

TEST_F(ContextTest, AServiceCarriesAReferenceForTheCaller) {
  const auto thing = oxa::make<Thing>();
  EXPECT_EQ(context_->AddToContext(mine_, thing.get()), S_FALSE);
  EXPECT_EQ(thing->CheckReference(), 2);
  void* out = nullptr;
  EXPECT_EQ(context_->GetInterface(mine_, &out), S_OK);
  EXPECT_EQ(out, thing.get());
  EXPECT_EQ(thing->CheckReference(), 3);
  thing->ReleaseReference();
}

TEST_F(ContextTest, AnUnknownIdIsNotFound) {
  void* out = this;
  EXPECT_EQ(context_->GetInterface(mine_, &out), E_NOTFOUND);
  EXPECT_EQ(out, nullptr);
}

TEST_F(ContextTest, NullArgumentsAreRefused) {
  EXPECT_EQ(context_->GetInterface(IID_IOXADebugMessage, nullptr), E_INVALIDARG);
  EXPECT_EQ(context_->AddToContext(mine_, nullptr), E_INVALIDARG);
  void* out = this;
  EXPECT_EQ(context_->GetInterface(mine_, &out), E_NOTFOUND);
}

TEST_F(ContextTest, ReplacingAServiceReleasesThePreviousOne) {
  const auto first = oxa::make<Thing>();
  const auto second = oxa::make<Thing>();
  context_->AddToContext(mine_, first.get());
  EXPECT_EQ(context_->AddToContext(mine_, second.get()), S_FALSE);
  EXPECT_EQ(first->CheckReference(), 1);
  EXPECT_EQ(second->CheckReference(), 2);
  void* out = nullptr;
  context_->GetInterface(mine_, &out);
  EXPECT_EQ(out, second.get());
  second->ReleaseReference();
}

TEST_F(ContextTest, AddingTheSameServiceAgainChangesNothing) {
  const auto thing = oxa::make<Thing>();
  context_->AddToContext(mine_, thing.get());
  EXPECT_EQ(context_->AddToContext(mine_, thing.get()), S_FALSE);
  EXPECT_EQ(thing->CheckReference(), 2);
}

TEST_F(ContextTest, TheIdsPaddingIsNotCompared) {
  const auto thing = oxa::make<Thing>();
  _GUID padded = mine_;
  reinterpret_cast<unsigned char*>(&padded)[20] = 1;
  context_->AddToContext(mine_, thing.get());
  void* out = nullptr;
  EXPECT_EQ(context_->GetInterface(padded, &out), S_OK);
  thing->ReleaseReference();
  context_->AddToContext(padded, thing.get());
  EXPECT_EQ(thing->CheckReference(), 2);
}

TEST_F(ContextTest, AddingItsOwnServiceAgainKeepsIt) {
  IOXAReference* thing = oxa::make<Thing>().detach();
  context_->AddToContext(mine_, thing);
  thing->ReleaseReference();
  context_->AddToContext(mine_, thing);
  EXPECT_EQ(thing->CheckReference(), 1);
}

TEST_F(ContextTest, ReleasesServicesInTheOrderInWhichTheirIdsCame) {
  std::vector<int> deaths;
  const auto add = [&](unsigned long id, int name) {
    context_->AddToContext({id, 0, 0, {}}, oxa::make<Mortal>(name, deaths).get());
  };
  add(30, 1);
  add(10, 2);
  add(20, 3);
  add(10, 4);  // replaces 2, and keeps its place
  EXPECT_EQ(deaths, (std::vector<int>{2}));
  context_.reset();
  EXPECT_EQ(deaths, (std::vector<int>{2, 1, 4, 3}));
}

// Does something when it ends.
class Caller final : public OXAReference {
 public:
  explicit Caller(std::function<void()> at_end) : at_end_(std::move(at_end)) { AddReference(); }
  ~Caller() override { at_end_(); }

 private:
  std::function<void()> at_end_;
};

// A context that ended used to hand out the services that it had released.
TEST_F(ContextTest, WhileItEndsOnlyWhatItStillHoldsIsFound) {
  IOXAContext* context = context_.get();
  const _GUID later{99, 0, 0, {}};
  OXAResult of_released = S_OK;
  OXAResult of_held = E_FAIL;
  const auto ask = [&] {
    void* out = this;
    of_released = context->GetInterface(IID_IOXADebugMessage, &out);
    EXPECT_EQ(out, nullptr);
    of_held = context->GetInterface(later, &out);
    static_cast<IOXAReference*>(out)->ReleaseReference();
  };
  context->AddToContext(mine_, oxa::make<Caller>(ask).get());
  context->AddToContext(later, oxa::make<Thing>().get());
  context_.reset();
  EXPECT_EQ(of_released, E_NOTFOUND);
  EXPECT_EQ(of_held, S_OK);
}

// Services added by one that ended used to be lost, or the end to read freed memory.
TEST_F(ContextTest, WhatIsAddedWhileItEndsIsReleasedToo) {
  IOXAContext* context = context_.get();
  std::vector<int> deaths;
  const auto add = [&] {
    for (unsigned long id = 0; id < 100; ++id) {
      context->AddToContext({id, 0, 0, {}}, oxa::make<Mortal>(1, deaths).get());
    }
    context->AddToContext(IID_IOXADebugMessage, oxa::make<Mortal>(2, deaths).get());
  };
  context->AddToContext(mine_, oxa::make<Caller>(add).get());
  context_.reset();
  EXPECT_EQ(deaths.size(), 101U);
  EXPECT_EQ(deaths.back(), 2);
}

// Throws whenever it is referenced or released.
class Thrower final : public IOXAReference {
 public:
  std::int64_t AddReference() override {
    if (throws) {
      throw std::runtime_error("referenced");
    }
    return 1;
  }
  std::int64_t ReleaseReference() override { throw std::runtime_error("released"); }
  std::int64_t CheckReference() override { return 1; }

  bool throws = false;
};

TEST_F(ContextTest, NoExceptionOfAServicePasses) {
  Thrower thrower;
  EXPECT_EQ(context_->AddToContext(mine_, &thrower), S_FALSE);
  thrower.throws = true;
  void* out = this;
  EXPECT_EQ(context_->GetInterface(mine_, &out), E_UNEXPECTED);
  EXPECT_EQ(out, nullptr);
  context_.reset();
}

TEST_F(ContextTest, KeepsTenThousandServicesApart) {
  std::vector<oxa::Ref<Thing>> things;
  for (unsigned long id = 0; id < 10000; ++id) {
    things.push_back(oxa::make<Thing>());
    context_->AddToContext({id, 0, 0, {}}, things.back().get());
  }
  for (unsigned long id = 0; id < 10000; ++id) {
    void* out = nullptr;
    ASSERT_EQ(context_->GetInterface({id, 0, 0, {}}, &out), S_OK);
    ASSERT_EQ(out, things[id].get());
    ASSERT_EQ(things[id]->ReleaseReference(), 2);
  }
}

TEST_F(ContextTest, ALookupAllocatesNothing) {
  const unsigned long made = oxa_test::made_allocations();
  const auto sink = oxa::service<IOXADebugMessage>(context_.get());
  EXPECT_TRUE(sink);
  EXPECT_EQ(oxa_test::made_allocations(), made);
}

TEST_F(ContextTest, AFailedAllocationAddsNothing) {
  const auto thing = oxa::make<Thing>();
  unsigned long failures = 0;
  for (unsigned long id = 0; id < 200; ++id) {
    const oxa_test::FailingAllocation failing(0);
    const OXAResult result = context_->AddToContext({id, 0, 0, {}}, thing.get());
    if (oxa_test::FailingAllocation::happened()) {
      ++failures;
      EXPECT_EQ(result, E_OUTOFMEMORY);
      void* out = nullptr;
      EXPECT_EQ(context_->GetInterface({id, 0, 0, {}}, &out), E_NOTFOUND);
      EXPECT_EQ(context_->AddToContext({id, 0, 0, {}}, thing.get()), S_FALSE);
    }
  }
  EXPECT_GE(failures, 4U);
  EXPECT_EQ(thing->CheckReference(), 201);
}

TEST_F(ContextTest, EachFailedAllocationOfTheFactoryLeavesNothingBehind) {
  context_.reset();
  const oxa_test::StreamCapture quiet(stderr);
  const unsigned long failed = oxa_test::fail_each_allocation([&] {
    void* out = this;
    const OXAResult result = OXACreateContext(IID_IOXAContext, &out);
    if (result >= 0) {
      static_cast<IOXAContext*>(out)->ReleaseReference();
    } else {
      EXPECT_EQ(result, E_OUTOFMEMORY);
      EXPECT_EQ(out, nullptr);
    }
  });
  EXPECT_GE(failed, 12U);  // the context, its table, its list of ids, and nine services
}

TEST_F(ContextTest, ManyThreadsFetchAndReleaseServices) {
  const auto fetch = [this] {
    for (int round = 0; round < 2000; ++round) {
      const auto sink = oxa::service<IOXADebugMessage>(context_.get());
      const auto progress = oxa::service<IOXAProgressIndicator>(context_.get());
      sink->AddReference();
      sink->ReleaseReference();
    }
  };
  {
    std::vector<std::jthread> threads;
    threads.reserve(4);
    for (int thread = 0; thread < 4; ++thread) {
      threads.emplace_back(fetch);
    }
  }
  EXPECT_EQ(oxa::service<IOXAProgressIndicator>(context_.get())->CheckReference(), 2);
}

}  // namespace
