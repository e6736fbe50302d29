#include "theme.h"

#include <array>
#include <cmath>

namespace graph {
namespace {

using Rgb = std::array<int, 3>;

struct Colours {
  const char* background;
  const char* text;
  const char* muted;
  const char* edge;
  const char* edge_opacity;
  const char* rest;
  // Told apart with all common forms of colour blindness; each theme shifts the same hues to where
  // they stand out from its background.
  std::array<const char*, category_colours> categories;
  // From low to high. The high end is the one farther from the background.
  std::array<Rgb, 5> ramp;
};

constexpr Colours light = {
    "#ffffff",
    "#1b1f24",
    "#59636e",
    "#8b949e",
    "0.4",
    "#9aa1a9",
    {"#0072b2", "#e69f00", "#009e73", "#d55e00", "#cc79a7", "#56b4e9", "#bfae00"},
    {{{205, 226, 233}, {127, 184, 196}, {53, 131, 155}, {20, 80, 111}, {8, 34, 56}}}};

constexpr Colours dark = {
    "#14181d",
    "#eef1f4",
    "#9aa4ae",
    "#6e7882",
    "0.45",
    "#737d87",
    {"#3d94d6", "#f0a92b", "#1fbf93", "#ee7434", "#dd8fb9", "#9bd7fb", "#f0e442"},
    {{{37, 70, 92}, {47, 122, 143}, {104, 180, 155}, {196, 220, 140}, {255, 246, 180}}}};

std::string hex(const Rgb& colour) {
  static constexpr char digits[] = "0123456789abcdef";
  std::string text = "#";
  for (const int part : colour) {
    text += digits[part / 16];
    text += digits[part % 16];
  }
  return text;
}

std::string ramp_colour(const Colours& colours, std::size_t step) {
  const double place = static_cast<double>(step) * static_cast<double>(colours.ramp.size() - 1) /
                       static_cast<double>(ramp_steps - 1);
  const auto low = static_cast<std::size_t>(place);
  const std::size_t high = low + 1 < colours.ramp.size() ? low + 1 : low;
  const double share = place - static_cast<double>(low);
  Rgb mixed{};
  for (std::size_t part = 0; part < mixed.size(); ++part) {
    mixed[part] = static_cast<int>(
        std::lround(colours.ramp[low][part] * (1 - share) + colours.ramp[high][part] * share));
  }
  return hex(mixed);
}

std::string rules(const Colours& colours) {
  std::string css;
  css += ".bg{fill:" + std::string(colours.background) + "}\n";
  css += ".t{fill:" + std::string(colours.text) + "}\n";
  css += ".m{fill:" + std::string(colours.muted) + "}\n";
  css +=
      ".e{stroke:" + std::string(colours.edge) + ";stroke-opacity:" + colours.edge_opacity + "}\n";
  css += ".n{stroke:" + std::string(colours.background) + "}\n";
  css += ".l{fill:" + std::string(colours.text) + ";stroke:" + colours.background + "}\n";
  css += ".k{stroke:" + std::string(colours.muted) + "}\n";
  const auto fill = [&css](const std::string& ending, const std::string& colour) {
    css += "." + ending + "{fill:" + colour + "}";
  };
  for (std::size_t index = 0; index < colours.categories.size(); ++index) {
    const std::string ending = "c" + std::to_string(index);
    fill(ending, colours.categories[index]);
    css += ".e" + ending + "{stroke:" + colours.categories[index] + "}";
  }
  for (std::size_t step = 0; step < ramp_steps; ++step) {
    fill("r" + std::to_string(step), ramp_colour(colours, step));
  }
  fill("cn", colours.rest);
  return css + "\n";
}

constexpr const char* common_rules =
    "text{font-family:'Helvetica Neue',Arial,'Liberation Sans',sans-serif}\n"
    ".e,.k{fill:none;stroke-linecap:round}\n"
    ".n{stroke-width:1.2}\n"
    ".l{stroke-width:3;stroke-linejoin:round;paint-order:stroke;text-anchor:middle}\n";

}  // namespace

std::string style_sheet(Theme theme) {
  std::string css = common_rules;
  css += rules(theme == Theme::dark ? dark : light);
  if (theme == Theme::automatic) {
    css += "@media (prefers-color-scheme:dark){\n" + rules(dark) + "}\n";
  }
  return css;
}

}  // namespace graph
