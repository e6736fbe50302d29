#include "datatypes/type_builder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/allocations.h"

namespace {

class Placed : public arena_placed {
 public:
  explicit Placed(bool throws = false) {
    if (throws) {
      throw std::runtime_error("as told");
    }
  }

  std::uint64_t value = 0x0123456789ABCDEF;
};

class TypeBuilderTest : public testing::Test {
 protected:
  bool all_freed() const { return oxa_test::live_allocations() == before_; }

  long before_ = oxa_test::live_allocations();
  std::unique_ptr<type_builder> builder_ = std::make_unique<type_builder>();
};

TEST_F(TypeBuilderTest, TakesNoMemoryUntilSomethingIsMade) {
  EXPECT_EQ(builder_->arena(), nullptr);
  builder_.reset();
  EXPECT_TRUE(all_freed());
}

TEST_F(TypeBuilderTest, CopiesTexts) {
  std::string text = "text";
  const oxa::thin_string copy = builder_->copy(text.c_str());
  text = "other";
  EXPECT_STREQ(copy.c_str(), "text");
  EXPECT_FALSE(copy.on_heap());
  EXPECT_EQ(builder_->copy("").data(), nullptr);
  EXPECT_EQ(builder_->copy(nullptr).data(), nullptr);
  const std::string large(std::size_t{5} << 20U, 'x');
  EXPECT_EQ(builder_->copy(large.c_str()).c_str(), large);
}

TEST_F(TypeBuilderTest, ObjectsAndTextsOfAnySizeLieApart) {
  std::vector<std::unique_ptr<Placed>> objects;
  std::vector<oxa::thin_string> texts;
  for (std::size_t each = 0; each < 20000; ++each) {
    texts.push_back(builder_->copy(std::string(each % 100, 'x').c_str()));
    objects.emplace_back(new (*builder_) Placed());
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(objects.back().get()) % alignof(Placed), 0U);
  }
  for (std::size_t each = 0; each < objects.size(); ++each) {
    ASSERT_EQ(objects[each]->value, 0x0123456789ABCDEFU);
    ASSERT_EQ(texts[each].c_str(), std::string(each % 100, 'x'));
  }
}

TEST_F(TypeBuilderTest, ManyObjectsTakeFewAllocations) {
  std::vector<std::unique_ptr<Placed>> objects(100000);
  const unsigned long before = oxa_test::made_allocations();
  for (auto& object : objects) {
    object.reset(new (*builder_) Placed());
  }
  EXPECT_LT(oxa_test::made_allocations() - before, 15U);
}

TEST_F(TypeBuilderTest, ObjectsKeepTheirMemory) {
  std::unique_ptr<Placed> first(new (*builder_) Placed());
  const oxa::thin_string text = builder_->copy("text");
  std::unique_ptr<Placed> second(new (*builder_) Placed());
  builder_.reset();
  first.reset();
  EXPECT_STREQ(text.c_str(), "text");
  EXPECT_FALSE(all_freed());
  second.reset();
  EXPECT_TRUE(all_freed());
}

TEST_F(TypeBuilderTest, AnObjectThatThrowsDoesNotCount) {
  EXPECT_THROW(new (*builder_) Placed(true), std::runtime_error);
  builder_.reset();
  EXPECT_TRUE(all_freed());
}

TEST_F(TypeBuilderTest, WithoutABuilderObjectsLieOnTheHeap) {
  const long before = oxa_test::live_allocations();
  const auto object = std::make_unique<Placed>();
  EXPECT_EQ(oxa_test::live_allocations(), before + 1);
  EXPECT_THROW(std::make_unique<Placed>(true), std::runtime_error);
  EXPECT_EQ(oxa_test::live_allocations(), before + 1);
}

TEST_F(TypeBuilderTest, AFailedAllocationThrows) {
  oxa_test::fail_each_allocation([&] {
    try {
      const std::unique_ptr<Placed> object(new (*builder_) Placed());
    } catch (const std::bad_alloc&) {
    }
  });
  builder_.reset();
  EXPECT_TRUE(all_freed());
}

}  // namespace
