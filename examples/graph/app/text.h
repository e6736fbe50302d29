// Small things to do with text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Splits at `separator`, without empty pieces.
std::vector<std::string> split(std::string_view text, char separator);

std::string join(const std::vector<std::string>& pieces, const char* separator);

// Returns `text` in double quotes, for messages.
std::string in_quotes(std::string_view text);

// Returns `text` with a single blank in place of each run of blanks and line ends.
std::string one_line(std::string_view text);

// Returns a text that may be null as one_line does, empty for null.
std::string text_of(const char* text);

// Returns `text` with the capital letters of ASCII made small.
std::string in_small_letters(std::string text);

// Returns `text` with the small letters of ASCII made capital.
std::string in_capital_letters(std::string text);

// Tells whether there is nothing in `text` but blanks, tabs and ends of lines.
bool is_blank(std::string_view text);

// Returns a number of things: "1 node", "2 nodes".
std::string counted(std::uint64_t number, const char* thing);

// Returns the one of `known` that is most like `text`, or nothing when none is like it.
std::string closest(std::string_view text, const std::vector<std::string>& known);

// Prints rows as columns that line up, two blanks between them.
void print_table(const std::vector<std::vector<std::string>>& rows);
