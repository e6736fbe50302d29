#include <oxa/sdk/guard.h>

#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <stdexcept>

namespace {

TEST(GuardTest, PassesTheResultOn) {
  EXPECT_EQ(oxa::guard([] { return S_FALSE; }), S_FALSE);
  EXPECT_EQ(oxa::guard([] { return E_NOTFOUND; }), E_NOTFOUND);
}

TEST(GuardTest, ShortMemoryHasItsOwnCode) {
  EXPECT_EQ(oxa::guard([]() -> OXAResult { throw std::bad_alloc(); }), E_OUTOFMEMORY);
  EXPECT_EQ(oxa::guard([]() -> OXAResult { throw std::bad_array_new_length(); }), E_OUTOFMEMORY);
}

TEST(GuardTest, NoExceptionPasses) {
  EXPECT_EQ(oxa::guard([]() -> OXAResult { throw std::runtime_error("x"); }), E_UNEXPECTED);
  EXPECT_EQ(oxa::guard([]() -> OXAResult { throw 7; }), E_UNEXPECTED);
}

// Swallowing the exception by which a thread is cancelled would end the process.
TEST(GuardTest, ACancelledThreadEnds) {
  const auto wait_for_cancel = [](void* reached) -> void* {
    oxa::guard([&]() -> OXAResult {
      static_cast<std::atomic<bool>*>(reached)->store(true);
      for (;;) {
        pthread_testcancel();
      }
    });
    return nullptr;
  };
  std::atomic<bool> reached = false;
  pthread_t thread;
  ASSERT_EQ(pthread_create(&thread, nullptr, wait_for_cancel, &reached), 0);
  while (!reached) {
  }
  pthread_cancel(thread);
  void* result = nullptr;
  ASSERT_EQ(pthread_join(thread, &result), 0);
  EXPECT_EQ(result, PTHREAD_CANCELED);
}

}  // namespace
