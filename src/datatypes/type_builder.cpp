#include "datatypes/type_builder.h"

#include <algorithm>
#include <new>

#include "core/large_memory.h"

void type_builder::add_chunk(std::size_t bytes) {
  if (arena_ == nullptr) {
    arena_ = oxa::object_arena::create();
  }
  constexpr std::size_t most = oxa::huge_page - oxa::object_arena::header;
  std::size_t size = std::max(bytes, std::clamp(taken_, least_chunk, most));
  free_ = arena_->add_chunk(size);
  end_ = free_ + size;
  taken_ += size;
}

namespace {

constexpr std::size_t front = sizeof(oxa::object_arena*);

void* place(void* room, oxa::object_arena* arena) {
  auto* const at = static_cast<oxa::object_arena**>(room);
  *at = arena;
  return at + 1;
}

}  // namespace

void* arena_placed::operator new(std::size_t bytes) {
  return place(::operator new(bytes + front), nullptr);
}

void* arena_placed::operator new(std::size_t bytes, type_builder& builder) {
  void* const room = builder.add_object(bytes + front);
  return place(room, builder.arena());
}

void arena_placed::operator delete(void* object) {
  auto* const room = static_cast<oxa::object_arena**>(object) - 1;
  if (oxa::object_arena* const arena = *room) {
    arena->remove_objects(1);
  } else {
    ::operator delete(room);
  }
}
