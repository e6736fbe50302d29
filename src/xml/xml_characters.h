// What the characters of an XML source mean to the tokenizer.
#pragma once

#include <emmintrin.h>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace oxa {

// The byte that stands for the end of the source, and may stand in it.
inline constexpr char end_mark = '\xFF';

// How many characters are looked at in one go; behind the end of a source there are as many end
// marks.
inline constexpr std::size_t vector_bytes = 16;

enum character_class : std::uint8_t {
  whitespace = 1,
  special = 2,      // what begins or is another token than a name, and an end mark
  ends_name = 4,    // whitespace, one of = > ? /, or an end mark
  ends_string = 8,  // a quote, a backslash, or an end mark
};

inline constexpr auto character_classes = [] {
  std::array<std::uint8_t, 256> classes{};
  for (std::size_t ch = 0; ch < classes.size(); ++ch) {
    const bool printable = ch >= 33 && ch <= 126;
    const bool mark = ch == 0xFF;
    if (!printable && !mark) {
      classes[ch] |= whitespace;
    }
    if (mark || ch == '=' || ch == '>' || ch == '?' || ch == '/' || ch == '<' || ch == '"') {
      classes[ch] |= special;
    }
    if (!printable || ch == '=' || ch == '>' || ch == '?' || ch == '/') {
      classes[ch] |= ends_name;
    }
    if (ch == '"' || ch == '\\' || mark) {
      classes[ch] |= ends_string;
    }
  }
  return classes;
}();

inline bool has_class(char ch, character_class wanted) {
  return (character_classes[static_cast<unsigned char>(ch)] & wanted) != 0;
}

using character_vector = __m128i;

inline character_vector load(const char* from) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}

inline character_vector equal(character_vector characters, char wanted) {
  return _mm_cmpeq_epi8(characters, _mm_set1_epi8(wanted));
}

template <class... More>
character_vector either(character_vector first, More... more) {
  if constexpr (sizeof...(more) == 0) {
    return first;
  } else {
    return _mm_or_si128(first, either(more...));
  }
}

// Returns a bit for each character that a comparison holds for, the first one lowest.
inline unsigned positions(character_vector compared) {
  return static_cast<unsigned>(_mm_movemask_epi8(compared));
}

// Returns the first character at `from` or behind it that has a class.
inline const char* find_class(const char* from, character_class wanted) {
  for (;; from += 4) {
    if (has_class(from[0], wanted)) {
      return from;
    }
    if (has_class(from[1], wanted)) {
      return from + 1;
    }
    if (has_class(from[2], wanted)) {
      return from + 2;
    }
    if (has_class(from[3], wanted)) {
      return from + 3;
    }
  }
}

// Returns the end of a name: whitespace, one of = > ? /, or an end mark.
inline const char* find_name_end(const char* from) { return find_class(from, ends_name); }

// Returns the first quote, backslash or end mark.
inline const char* find_string_end(const char* from) { return find_class(from, ends_string); }

// Returns the first `<`, `/` or end mark. Texts are long, so this looks at many characters at once;
// names and values are short and regular, and there the processor guesses each length rightly.
inline const char* find_text_stop(const char* from) {
  for (;; from += vector_bytes) {
    const character_vector part = load(from);
    const unsigned found =
        positions(either(equal(part, '<'), equal(part, '/'), equal(part, end_mark)));
    if (found != 0) {
      return from + std::countr_zero(found);
    }
  }
}

// Returns the characters of a text of at most 16, filled up with zeros.
inline std::array<std::uint64_t, 2> first_characters(std::string_view text) {
  static constexpr auto masks = [] {
    std::array<char, 2 * vector_bytes> bytes{};
    for (std::size_t at = 0; at < vector_bytes; ++at) {
      bytes[at] = '\xFF';
    }
    return bytes;
  }();
  const character_vector kept =
      _mm_and_si128(load(text.data()), load(&masks[vector_bytes - text.size()]));
  return std::bit_cast<std::array<std::uint64_t, 2>>(kept);
}

}  // namespace oxa
