// A map from texts that is searched without copying one.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "core/hash_text.h"

namespace oxa {

struct text_hash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const noexcept { return hash_text(text); }
};

template <class Value>
using text_map = std::unordered_map<std::string, Value, text_hash, std::equal_to<>>;
using text_set = std::unordered_set<std::string, text_hash, std::equal_to<>>;

}  // namespace oxa
