// Hashing texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace oxa {

// Hashes a text eight bytes at a time: names and paths are short, so that a call of the standard
// library's function takes longer than this.
inline std::size_t hash_text(std::string_view text) noexcept {
  constexpr std::uint64_t factor = 0x9E3779B97F4A7C15U;
  std::uint64_t hash = (text.size() + 1) * factor;
  const auto mix = [&](std::uint64_t word) {
    hash = (hash ^ word) * factor;
    hash ^= hash >> 32U;
  };
  const char* at = text.data();
  std::size_t left = text.size();
  for (; left >= sizeof(std::uint64_t); left -= sizeof(std::uint64_t)) {
    std::uint64_t word = 0;
    std::memcpy(&word, at, sizeof word);
    mix(word);
    at += sizeof word;
  }
  std::uint64_t rest = 0;
  for (; left > 0; --left) {
    rest = rest << 8U | static_cast<unsigned char>(*at++);
  }
  mix(rest);
  return hash;
}

}  // namespace oxa
