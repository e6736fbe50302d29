#include "core/object_arena.h"

#include <new>

#include "core/large_memory.h"

namespace oxa {

char* object_arena::add_chunk(std::size_t& bytes) {
  std::size_t size = header + bytes;
  void* const memory = allocate_large(size);
  chunks_ = new (memory) chunk{chunks_, size};
  bytes = size - header;
  return static_cast<char*>(memory) + header;
}

object_arena::~object_arena() {
  while (chunks_ != nullptr) {
    chunk* const previous = chunks_->previous;
    free_large(chunks_, chunks_->bytes);
    chunks_ = previous;
  }
}

}  // namespace oxa
