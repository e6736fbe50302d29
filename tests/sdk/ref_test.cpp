#include <oxa/sdk/ref.h>

#include <gtest/gtest.h>

#include <type_traits>
#include <unordered_set>
#include <utility>

#include "support/fakes.h"

using oxa::Ref;
using oxa_test::Thing;

namespace {

TEST(RefTest, AdoptTakesOverTheReference) {
  auto* raw = new Thing();
  const auto ref = Ref<Thing>::adopt(raw);
  EXPECT_EQ(raw->CheckReference(), 1);
}

TEST(RefTest, ShareAddsAReference) {
  const auto owner = oxa::make<Thing>();
  {
    const auto shared = Ref<Thing>::share(owner.get());
    EXPECT_EQ(owner->CheckReference(), 2);
  }
  EXPECT_EQ(owner->CheckReference(), 1);
}

TEST(RefTest, NullGivesAnEmptyPointer) {
  EXPECT_FALSE(Ref<Thing>::adopt(nullptr));
  EXPECT_FALSE(Ref<Thing>::share(nullptr));
  EXPECT_EQ(Ref<Thing>().get(), nullptr);
}

TEST(RefTest, CopyingSharesAndMovingDoesNot) {
  auto first = oxa::make<Thing>();
  auto second = first;
  EXPECT_EQ(second, first);
  EXPECT_EQ(second->CheckReference(), 2);
  auto third = std::move(first);
  EXPECT_EQ(third->CheckReference(), 2);
}

TEST(RefTest, AssignmentReleasesThePreviousObject) {
  const auto kept = oxa::make<Thing>();
  Ref<Thing> ref = kept;
  ref = oxa::make<Thing>();
  EXPECT_EQ(kept->CheckReference(), 1);
  EXPECT_NE(ref, kept);
}

TEST(RefTest, SelfAssignmentKeepsTheObject) {
  auto ref = oxa::make<Thing>();
  const auto& same = ref;
  ref = same;
  EXPECT_EQ(ref->CheckReference(), 1);
}

TEST(RefTest, ResetReleasesOnce) {
  const auto owner = oxa::make<Thing>();
  Ref<Thing> ref = owner;
  ref.reset();
  ref.reset();
  EXPECT_EQ(owner->CheckReference(), 1);
}

TEST(RefTest, DetachHandsTheReferenceOver) {
  auto ref = oxa::make<Thing>();
  Thing* raw = ref.detach();
  EXPECT_FALSE(ref);
  EXPECT_EQ(raw->ReleaseReference(), 0);
}

TEST(RefTest, ConvertsToAnInterfaceOfItsObject) {
  auto sink = oxa::make<oxa_test::RecordingSink>();
  const Ref<IOXADebugMessage> as_interface = sink;
  EXPECT_EQ(sink->CheckReference(), 2);
  EXPECT_EQ(as_interface.get(), sink.get());
}

// What operations with output arguments look like.
OXAResult give(Thing* object, void** out) {
  *out = object;
  return S_OK;
}

OXAResult give_typed(Thing* object, Thing** out) {
  *out = object;
  return S_OK;
}

TEST(RefTest, AdoptIntoReceivesAReference) {
  Ref<Thing> ref;
  EXPECT_EQ(give(oxa::make<Thing>().detach(), oxa::adopt_into(ref)), S_OK);
  EXPECT_EQ(ref->CheckReference(), 1);
  EXPECT_EQ(give_typed(oxa::make<Thing>().detach(), oxa::adopt_into(ref)), S_OK);
  EXPECT_EQ(ref->CheckReference(), 1);
}

TEST(RefTest, ShareIntoAddsAReference) {
  const auto owner = oxa::make<Thing>();
  Ref<Thing> ref;
  give(owner.get(), oxa::share_into(ref));
  EXPECT_EQ(owner->CheckReference(), 2);
  give_typed(owner.get(), oxa::share_into(ref));
  EXPECT_EQ(owner->CheckReference(), 2);
}

TEST(RefTest, ANullOutputEmptiesTheTarget) {
  auto ref = oxa::make<Thing>();
  give(nullptr, oxa::adopt_into(ref));
  EXPECT_FALSE(ref);
}

TEST(RefTest, IsComparedWithNull) {
  EXPECT_TRUE(Ref<Thing>() == nullptr);
  EXPECT_TRUE(oxa::make<Thing>() != nullptr);
}

TEST(RefTest, FindsItsPlaceInASet) {
  const auto thing = oxa::make<Thing>();
  const std::unordered_set<Ref<Thing>> things{thing, thing, oxa::make<Thing>()};
  EXPECT_EQ(things.size(), 2U);
  EXPECT_EQ(things.count(thing), 1U);
}

TEST(RefTest, ConvertsOnlyWhereThePointersDo) {
  static_assert(std::is_convertible_v<Ref<oxa_test::RecordingSink>, Ref<IOXADebugMessage>>);
  static_assert(!std::is_convertible_v<Ref<IOXADebugMessage>, Ref<oxa_test::RecordingSink>>);
  static_assert(!std::is_convertible_v<Ref<IOXADebugMessage>, Ref<IOXAContext>>);
}

TEST(RefTest, ATargetReceivesItsOutputWhenTheStatementEnds) {
  Ref<Thing> ref;
  const bool inside =
      give(oxa::make<Thing>().detach(), oxa::adopt_into(ref)) == S_OK && ref != nullptr;
  EXPECT_FALSE(inside);
  EXPECT_TRUE(ref);
}

TEST(ServiceTest, IsFiledUnderItsInterface) {
  const auto context = oxa::make<oxa_test::FakeContext>();
  const auto sink = oxa::make<oxa_test::RecordingSink>();
  EXPECT_EQ(oxa::add_service<IOXADebugMessage>(context.get(), sink), S_FALSE);
  EXPECT_EQ(oxa::service<IOXADebugMessage>(context).get(), sink.get());
}

TEST(ServiceTest, FetchesByInterface) {
  const auto context = oxa::make<oxa_test::FakeContext>();
  const auto sink = oxa::make<oxa_test::RecordingSink>();
  context->AddToContext(IID_IOXADebugMessage, static_cast<IOXADebugMessage*>(sink.get()));
  EXPECT_EQ(oxa::service<IOXADebugMessage>(context.get()).get(), sink.get());
  EXPECT_FALSE(oxa::service<IOXAProgressIndicator>(context.get()));
  EXPECT_FALSE(oxa::service<IOXADebugMessage>(nullptr));
}

}  // namespace
