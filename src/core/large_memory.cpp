#include "core/large_memory.h"

#include <sys/mman.h>

#include <cstdint>
#include <new>

// Where a leak checker is part of the process, it must know where else to look for pointers.
extern "C" {
__attribute__((weak)) void __lsan_register_root_region(const void* begin, std::size_t size);
__attribute__((weak)) void __lsan_unregister_root_region(const void* begin, std::size_t size);
}

namespace oxa {
namespace {

// Maps so many bytes, a multiple of a huge page, that begin at one.
void* map_huge(std::size_t bytes) {
  const std::size_t mapped = bytes + huge_page;
  void* const address =
      mmap(nullptr, mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (address == MAP_FAILED) {
    throw std::bad_alloc();
  }
  auto* const begin = static_cast<char*>(address);
  const std::size_t before = -reinterpret_cast<std::uintptr_t>(begin) % huge_page;
  if (before != 0) {
    munmap(begin, before);
  }
  munmap(begin + before + bytes, huge_page - before);
  // A system that has no huge pages gives small ones.
  madvise(begin + before, bytes, MADV_HUGEPAGE);
  return begin + before;
}

}  // namespace

void* allocate_large(std::size_t& bytes) {
  if (bytes < huge_page) {
    return ::operator new(bytes);
  }
  bytes = (bytes + huge_page - 1) / huge_page * huge_page;
  void* const memory = map_huge(bytes);
  if (__lsan_register_root_region != nullptr) {
    __lsan_register_root_region(memory, bytes);
  }
  return memory;
}

void free_large(void* memory, std::size_t bytes) {
  if (bytes < huge_page) {
    ::operator delete(memory);
    return;
  }
  if (__lsan_unregister_root_region != nullptr) {
    __lsan_unregister_root_region(memory, bytes);
  }
  munmap(memory, bytes);
}

}  // namespace oxa
