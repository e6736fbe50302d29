// Colours of the picture.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace graph {

// Classes that have a colour of their own; the smaller ones share a grey.
inline constexpr std::size_t category_colours = 7;
// Steps of the ramp for measures.
inline constexpr std::size_t ramp_steps = 9;

enum class Theme { automatic, light, dark };

// Returns the style sheet. A fill class is "c0".."c6" for categories, "r0".."r8" for the ramp, "cn"
// for the rest; "e" with the same ending colours a line.
std::string style_sheet(Theme theme);

}  // namespace graph
