#include "support/allocations.h"

#include <malloc.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>

namespace {

std::atomic<bool> counting{false};
std::atomic<std::size_t> blocks{0};
std::atomic<std::ptrdiff_t> live_bytes{0};

std::ptrdiff_t bytes_of(void* block) {
  return static_cast<std::ptrdiff_t>(malloc_usable_size(block) + sizeof(std::size_t));
}

void* taken(void* block) {
  if (counting.load(std::memory_order_relaxed) && block != nullptr) {
    blocks.fetch_add(1, std::memory_order_relaxed);
    live_bytes.fetch_add(bytes_of(block), std::memory_order_relaxed);
  }
  return block;
}

void given_back(void* block) {
  if (counting.load(std::memory_order_relaxed) && block != nullptr) {
    live_bytes.fetch_sub(bytes_of(block), std::memory_order_relaxed);
  }
}

}  // namespace

// The names under which the C library keeps its own.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);

// Replace those of the whole process, the libraries' included; operator new is made of them.
void* malloc(std::size_t size) { return taken(__libc_malloc(size)); }

void* calloc(std::size_t count, std::size_t size) { return taken(__libc_calloc(count, size)); }

void* realloc(void* block, std::size_t size) {
  given_back(block);
  return taken(__libc_realloc(block, size));
}

void* memalign(std::size_t alignment, std::size_t size) {
  return taken(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) { return memalign(alignment, size); }

int posix_memalign(void** out, std::size_t alignment, std::size_t size) {
  *out = memalign(alignment, size);
  return *out == nullptr ? ENOMEM : 0;
}

void free(void* block) {
  given_back(block);
  __libc_free(block);
}

// What a library maps by itself; the C library's own blocks do not come this way.
void* mmap(void* address, std::size_t size, int protection, int flags, int file,
           off_t offset) noexcept {
  const long mapped = syscall(SYS_mmap, address, size, protection, flags, file, offset);
  if (counting && mapped != -1) {
    ++blocks;
    live_bytes += static_cast<std::ptrdiff_t>(size);
  }
  // NOLINTNEXTLINE(performance-no-int-to-ptr): a system call gives numbers.
  return reinterpret_cast<void*>(mapped);
}

int munmap(void* address, std::size_t size) noexcept {
  if (counting) {
    live_bytes -= static_cast<std::ptrdiff_t>(size);
  }
  return static_cast<int>(syscall(SYS_munmap, address, size));
}
}

namespace bench {

void begin_counting() {
  blocks = 0;
  live_bytes = 0;
  counting = true;
}

allocation_count end_counting() {
  counting = false;
  return {blocks, live_bytes};
}

}  // namespace bench
