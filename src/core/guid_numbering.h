// The numbering of interface ids.
#pragma once

#include <cstdint>

#include "core/OXAId.h"
#include "core/guid_table.h"

// Gives each distinct interface id a number: 0, 1, 2, ... in the order of arrival, never reused.
// The interface manager and the plug-in loader each number ids on their own.
class guid_numbering {
 public:
  // Returns the number of an id, numbering it first if it has none. Throws std::bad_alloc with
  // nothing changed.
  std::uint32_t number(const _GUID& id) {
    const std::uint32_t known = one_more_.find(id);
    if (known != 0) {
      return known - 1;
    }
    one_more_.set(id, static_cast<std::uint32_t>(counter_.CurrentValue()) + 1);
    return static_cast<std::uint32_t>(counter_.CreateID());
  }

 private:
  guid_table<std::uint32_t> one_more_;  // the numbers plus 1, since 0 stands for none
  OXAId counter_;
};
