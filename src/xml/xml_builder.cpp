#include "xml/xml_builder.h"

#include <new>

#include "core/large_memory.h"
#include "xml/oxa_xml_tokenizer.h"

namespace oxa {

void xml_builder::recycle_block(void* block, std::size_t bytes) {
  free_block*& head = free_blocks_[size_class(bytes)];
  head = new (block) free_block{head};
}

// A chunk is as large as what is left of the source will take, judged by what was read, so that
// little of the last one stays unused. A text takes as much in the tree as in the source, and an
// element more.
std::size_t xml_builder::expected_bytes() const {
  constexpr double least = std::size_t{1} << 10U;
  constexpr double most = std::size_t{1} << 24U;
  const auto left = static_cast<double>(source_.bytes_left());
  const auto read = std::max(static_cast<double>(source_.bytes_read()), 1.0);
  const double taken_by_byte = std::max(1.0, static_cast<double>(taken_) / read);
  return static_cast<std::size_t>(std::min(left * taken_by_byte + least, most));
}

void xml_builder::add_chunk(std::size_t bytes) {
  constexpr std::size_t step = alignof(std::max_align_t);
  if (arena_ == nullptr) {
    arena_ = object_arena::create();
  }
  std::size_t size = expected_bytes();
  // Whole huge pages, as far as they go; a smaller chunk follows.
  const std::size_t total = size + object_arena::header;
  size -= total > huge_page ? total % huge_page : 0;
  size = (std::max(size, bytes) + step - 1) / step * step;
  front_ = arena_->add_chunk(size);
  back_ = front_ + size;
  taken_ += size;
}

}  // namespace oxa
