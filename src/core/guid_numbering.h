// The numbering of interface ids.
#pragma once

#include <oxa/guid.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/OXAId.h"

// Gives each distinct interface id a number: 0, 1, 2, ... in the order of arrival, never reused.
// The context, the interface manager and the plug-in loader each number ids on their own. A hash
// table with open addressing: looking up costs the same however many ids there are, and allocates
// nothing.
class guid_numbering {
 public:
  static constexpr std::uint32_t none = UINT32_MAX;

  // Returns the number of an id, or `none`.
  std::uint32_t find(const _GUID& id) const noexcept;

  // Returns the number of an id, numbering it first if it has none. Throws std::bad_alloc with
  // nothing changed.
  std::uint32_t number(const _GUID& id);

 private:
  struct slot {
    _GUID id;
    std::uint32_t number = none;
  };

  std::size_t probe(const _GUID& id) const noexcept;
  void grow();

  std::vector<slot> slots_;  // empty, or a power of two with at least a quarter of it free
  int shift_ = 0;            // leaves as many of the hash's high bits as tell the slots apart
  OXAId counter_;
};
