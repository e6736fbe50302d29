#include "support/allocations.h"

#include <atomic>
#include <cstddef>
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

// Returns null when the allocation fails or is made to fail.
void* allocate(std::size_t size, std::size_t alignment = alignof(std::max_align_t)) {
  void* block = nullptr;
  if (must_fail() || posix_memalign(&block, alignment, size != 0 ? size : 1) != 0) {
    return nullptr;
  }
  live.fetch_add(1, std::memory_order_relaxed);
  made.fetch_add(1, std::memory_order_relaxed);
  return block;
}

void* or_throw(void* block) { return block != nullptr ? block : throw std::bad_alloc(); }

void release(void* block) {
  if (block != nullptr) {
    live.fetch_sub(1, std::memory_order_relaxed);
    std::free(block);
  }
}

}  // namespace

// Replaces the operators of the whole process, the library's and the plug-ins' included: all of
// them, since a sanitizer's runtime brings its own of each.
using std::align_val_t;
using std::nothrow_t;
using std::size_t;
void* operator new(size_t size) { return or_throw(allocate(size)); }
void* operator new[](size_t size) { return or_throw(allocate(size)); }
void* operator new(size_t size, const nothrow_t&) noexcept { return allocate(size); }
void* operator new[](size_t size, const nothrow_t&) noexcept { return allocate(size); }
void* operator new(size_t size, align_val_t alignment) {
  return or_throw(allocate(size, static_cast<size_t>(alignment)));
}
void* operator new[](size_t size, align_val_t alignment) {
  return or_throw(allocate(size, static_cast<size_t>(alignment)));
}
void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, size_t) noexcept { release(block); }
void operator delete[](void* block, size_t) noexcept { release(block); }
void operator delete(void* block, const nothrow_t&) noexcept { release(block); }
void operator delete[](void* block, const nothrow_t&) noexcept { release(block); }
void operator delete(void* block, align_val_t) noexcept { release(block); }
void operator delete[](void* block, align_val_t) noexcept { release(block); }
void operator delete(void* block, size_t, align_val_t) noexcept { release(block); }
void operator delete[](void* block, size_t, align_val_t) noexcept { release(block); }

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
