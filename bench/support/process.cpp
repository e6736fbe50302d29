#include "support/process.h"

#include <malloc.h>
#include <sys/mman.h>
#include <time.h>

#include <thread>

namespace bench {

double processor_seconds() {
  constexpr double nanosecond = 1e-9;
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * nanosecond;
}

bool like_a_host() {
  std::thread([] {}).join();
  // By itself, malloc would move the size from which on it maps blocks.
  constexpr int mapped = 1 << 20;
  constexpr int kept = 1 << 26;
  return mallopt(M_MMAP_THRESHOLD, mapped) != 0 && mallopt(M_TRIM_THRESHOLD, kept) != 0;
}

void back_with_memory(std::size_t bytes) {
  constexpr std::size_t page = 4096;
  void* const taken =
      mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (taken == MAP_FAILED) {
    return;
  }
  static_cast<void>(madvise(taken, bytes, MADV_HUGEPAGE));
  for (std::size_t at = 0; at < bytes; at += page) {
    static_cast<volatile char*>(taken)[at] = 1;
  }
  munmap(taken, bytes);
}

}  // namespace bench
