#include "core/guid_numbering.h"

#include <bit>
#include <cstring>
#include <utility>

namespace {

// Hashes the 20 significant bytes: three products that do not wait for one another. The well-mixed
// bits of their sum are the high ones, from which the table takes its position.
std::uint64_t hash(const _GUID& id) noexcept {
  std::uint64_t middle = 0;
  std::uint32_t tail = 0;
  std::memcpy(&middle, &id.Data2, sizeof middle);
  std::memcpy(&tail, id.Data4 + 4, sizeof tail);
  return id.Data1 * 0x9E3779B97F4A7C15U + middle * 0xC2B2AE3D27D4EB4FU + tail * 0x165667B19E3779F9U;
}

}  // namespace

// Returns the slot that holds the id, or the free slot where it belongs. There must be a free one.
std::size_t guid_numbering::probe(const _GUID& id) const noexcept {
  const std::size_t mask = slots_.size() - 1;
  std::size_t position = hash(id) >> shift_;
  while (slots_[position].number != none && slots_[position].id != id) {
    position = (position + 1) & mask;
  }
  return position;
}

std::uint32_t guid_numbering::find(const _GUID& id) const noexcept {
  return slots_.empty() ? none : slots_[probe(id)].number;
}

std::uint32_t guid_numbering::number(const _GUID& id) {
  const std::uint32_t known = find(id);
  if (known != none) {
    return known;
  }
  if ((counter_.CurrentValue() + 1) * 4 > slots_.size() * 3) {
    grow();
  }
  slot& free = slots_[probe(id)];
  free.id = id;
  free.number = static_cast<std::uint32_t>(counter_.CreateID());
  return free.number;
}

void guid_numbering::grow() {
  std::vector<slot> previous(slots_.empty() ? 16 : slots_.size() * 2);
  previous.swap(slots_);
  shift_ = std::countl_zero(slots_.size()) + 1;
  for (const slot& taken : previous) {
    if (taken.number != none) {
      slots_[probe(taken.id)] = taken;
    }
  }
}
