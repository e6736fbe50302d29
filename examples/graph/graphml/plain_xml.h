// Makes of any XML file one that the library's documents read, and read right.
//
// They know a small dialect, and some files stop the process with a failed assertion (docs/xml.md).
// So the bytes of a file that somebody else wrote are looked at first: what is not well-formed is
// refused with its line, of which the library tells nothing, and what the dialect lacks is written
// in another way. Declarations of document types and CDATA sections are refused too.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace graph {

// Marks an element named "data" that held markup, in place of that.
inline constexpr const char* markup_attribute = "oxa:markup";

struct PlainXml {
  // The document on one line: elements in start tags with double quotes, or with `/>` if there is
  // nothing in them, and texts, in elements that have no others. All references are kept.
  std::string text;
  // The lines on which its elements began, in their order.
  std::vector<std::uint32_t> lines;
};

// The longest values and texts that the library reads.
inline constexpr std::size_t longest_value = 4095;
inline constexpr std::size_t longest_text = 99998;

// Throws a Failure with E_INVALIDDATA that names the line.
PlainXml plain_xml(std::string_view xml);

}  // namespace graph
