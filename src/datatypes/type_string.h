// The strings by which types are named.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

// Splits a text at each occurrence of a separator. The pieces may be empty, and there is at least
// one. Type strings need the first two alone, and whether there are more, so that is what is kept;
// they point into the text.
class OXASimpleStringDecoder {
 public:
  OXASimpleStringDecoder(std::string_view separator, std::string_view text);

  // Returns the number of pieces: 1, 2, or 3 for any number above that.
  std::size_t count() const { return count_; }

  // Return a piece, which is empty where there is none.
  std::string_view first() const { return pieces_[0]; }
  std::string_view second() const { return pieces_[1]; }

 private:
  std::array<std::string_view, 3> pieces_;
  std::size_t count_ = 0;
};

// Returns the part of a type string that names a type: "p::point" of "x$p::point%2".
std::string_view named_type(std::string_view type_string);
