// Text for SVG files: escaping, numbers that no locale changes, and how wide a label will be.
#pragma once

#include <string>
#include <string_view>

namespace graph {

// Returns `text` for use as XML character data or attribute value. Bytes that are not UTF-8 and
// characters that XML does not allow are left out.
std::string xml_escaped(std::string_view text);

// Returns a number for people: four significant digits, whole numbers from a thousand on.
std::string number_text(double value);

// Returns "1 node" or "77 nodes".
std::string count_text(std::size_t count, const char* one);

// Estimates the width of a text set in a sans-serif font of size 1.
double text_width(std::string_view text);

// Returns `text`, shortened with an ellipsis if it is wider than `width` at font size 1.
std::string shortened(std::string_view text, double width);

}  // namespace graph
