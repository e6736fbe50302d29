// What stands for characters in XML: reading all of it, and writing what the library's documents do
// not write by themselves.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace graph {

// Whether XML can hold a character, by itself or by number.
bool allowed_in_xml(char32_t code);

// The longest that a reference is taken for one, with its & and ;.
inline constexpr std::size_t longest_reference = 33;

// Returns the character of the reference at `position`, where there is a `&`, and moves past it;
// nothing for what is no reference, or names no character.
std::optional<char32_t> decode_reference(std::string_view text, std::size_t& position);

// Returns a text with its references decoded; what is none stays. The library knows but three of
// them, and decodes some texts twice.
std::string decoded(std::string_view text);

// Appends the number of a character: "&#10;".
void append_reference(std::string& text, char32_t code);

// Return UTF-8 as character data and as a value in double quotes, which the library's documents
// write as it is. Carriage returns stay: no reference to one can be in a text of these documents.
std::string as_text(std::string_view text);
std::string as_attribute(std::string_view text);

}  // namespace graph
