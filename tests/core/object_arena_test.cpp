// The memory that many objects share.
#include "core/object_arena.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <thread>

#include "support/allocations.h"

using oxa::object_arena;

namespace {

// An arena with a chunk, and the number of allocations that were alive before it.
class ObjectArenaTest : public testing::Test {
 protected:
  ObjectArenaTest() { add_chunk(1000); }

  char* add_chunk(std::size_t bytes) {
    const std::size_t asked = bytes;
    char* const room = arena_->add_chunk(bytes);
    EXPECT_GE(bytes, asked);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(room) % alignof(std::max_align_t), 0U);
    std::memset(room, 0xFF, bytes);
    return room;
  }
  bool all_freed() const { return oxa_test::live_allocations() == before_; }

  long before_ = oxa_test::live_allocations();
  object_arena* arena_ = object_arena::create();
};

TEST_F(ObjectArenaTest, EndsWithABuilderThatMadeNothing) {
  arena_->finish(0);
  EXPECT_TRUE(all_freed());
}

TEST_F(ObjectArenaTest, LivesOnForItsObjects) {
  arena_->finish(3);
  arena_->remove_objects(1);
  EXPECT_FALSE(all_freed());
  arena_->remove_objects(2);
  EXPECT_TRUE(all_freed());
}

TEST_F(ObjectArenaTest, OutlivesObjectsThatEndWhileItIsBuilt) {
  arena_->remove_objects(1);
  EXPECT_FALSE(all_freed());
  arena_->finish(2);
  EXPECT_FALSE(all_freed());
  arena_->remove_objects(1);
  EXPECT_TRUE(all_freed());
}

TEST_F(ObjectArenaTest, EndsWithABuilderWhoseObjectsAreGone) {
  arena_->remove_objects(2);
  arena_->finish(2);
  EXPECT_TRUE(all_freed());
}

TEST_F(ObjectArenaTest, FreesEveryChunk) {
  for (const std::size_t bytes : {100U, 10000U, 1000000U, 5000000U, 16U}) {
    add_chunk(bytes);
  }
  arena_->finish(0);
  EXPECT_TRUE(all_freed());
}

TEST_F(ObjectArenaTest, ObjectsEndOnAnyThread) {
  constexpr int count = 1000;
  arena_->finish(std::int64_t{2} * count);
  const auto remove = [this] {
    for (int i = 0; i < count; ++i) {
      arena_->remove_objects(1);
    }
  };
  std::thread other(remove);
  remove();
  other.join();
  EXPECT_TRUE(all_freed());
}

}  // namespace
