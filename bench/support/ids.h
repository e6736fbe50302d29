// Interface ids as a host has them.
#pragma once

#include <oxa/guid.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

namespace bench {

inline std::vector<_GUID> random_ids(std::size_t count) {
  std::mt19937_64 random(1);
  std::vector<_GUID> ids(count);
  for (_GUID& id : ids) {
    id.Data1 = static_cast<std::uint32_t>(random());
    const std::uint64_t rest = random();
    std::memcpy(id.Data4, &rest, sizeof rest);
  }
  return ids;
}

// The same ids in an order in which nobody inserted them.
inline std::vector<_GUID> shuffled(std::vector<_GUID> ids) {
  std::shuffle(ids.begin(), ids.end(), std::mt19937(2));
  return ids;
}

// As good as any for such ids, and the fastest.
struct id_hash {
  std::size_t operator()(const _GUID& id) const {
    std::uint64_t tail = 0;
    std::memcpy(&tail, id.Data4, sizeof tail);
    return id.Data1 ^ tail;
  }
};

}  // namespace bench
