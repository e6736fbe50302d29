#include "support/allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long> live{0};
std::atomic<unsigned long> made{0};

enum class Failure { none, armed, happened };
thread_local Failure failure = Failure::none;
thread_local unsigned long until_failure = 0;

bool must_fail() {
  if (failure != Failure::armed || until_failure-- > 0) {
    return false;
  }
  failure = Failure::happened;
  return true;
}

}  // namespace

// Replaces the operators of the whole process, the library's and the plug-ins' included.
void* operator new(std::size_t size) {
  void* block = must_fail() ? nullptr : std::malloc(size != 0 ? size : 1);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  live.fetch_add(1, std::memory_order_relaxed);
  made.fetch_add(1, std::memory_order_relaxed);
  return block;
}

void operator delete(void* block) noexcept {
  if (block != nullptr) {
    live.fetch_sub(1, std::memory_order_relaxed);
    std::free(block);
  }
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }

namespace oxa_test {

long live_allocations() { return live.load(); }

unsigned long made_allocations() { return made.load(); }

FailingAllocation::FailingAllocation(unsigned long passing) {
  until_failure = passing;
  failure = Failure::armed;
}

FailingAllocation::~FailingAllocation() { failure = Failure::none; }

bool FailingAllocation::happened() { return failure == Failure::happened; }

}  // namespace oxa_test
