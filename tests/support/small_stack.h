// Work on a stack that recursion with the depth of an input would not fit on.
#pragma once

#include <gtest/gtest.h>
#include <pthread.h>

#include <cstddef>
#include <functional>

namespace oxa_test {

// How many levels there are to go down: a million, but where threads are watched, which takes many
// times as long and finds nothing on one of them.
#if defined(__SANITIZE_THREAD__)
inline constexpr std::size_t deep = 100000;
#else
inline constexpr std::size_t deep = 1000000;
#endif

// Runs a function on a thread with a stack of 256 KiB.
inline void on_small_stack(const std::function<void()>& work) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, std::size_t{256} << 10U);
  pthread_t thread{};
  const auto run = [](void* argument) -> void* {
    (*static_cast<const std::function<void()>*>(argument))();
    return nullptr;
  };
  ASSERT_EQ(
      pthread_create(&thread, &attributes, run, const_cast<void*>(static_cast<const void*>(&work))),
      0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

}  // namespace oxa_test
