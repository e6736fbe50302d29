#include "text.h"

#include <algorithm>
#include <cstdio>

namespace {

// The number of insertions, deletions and replacements between two words.
std::size_t distance(std::string_view left, std::string_view right) {
  std::vector<std::size_t> row(right.size() + 1);
  for (std::size_t column = 0; column < row.size(); ++column) {
    row[column] = column;
  }
  for (std::size_t line = 0; line < left.size(); ++line) {
    std::size_t diagonal = row[0]++;
    for (std::size_t column = 0; column < right.size(); ++column) {
      const std::size_t replaced = diagonal + (left[line] == right[column] ? 0 : 1);
      diagonal = row[column + 1];
      row[column + 1] = std::min({replaced, row[column] + 1, diagonal + 1});
    }
  }
  return row.back();
}

}  // namespace

std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> pieces;
  while (!text.empty()) {
    const std::size_t length = std::min(text.find(separator), text.size());
    if (length > 0) {
      pieces.emplace_back(text.substr(0, length));
    }
    text.remove_prefix(std::min(length + 1, text.size()));
  }
  return pieces;
}

std::string join(const std::vector<std::string>& pieces, const char* separator) {
  std::string joined;
  for (const std::string& piece : pieces) {
    joined += (joined.empty() ? "" : separator) + piece;
  }
  return joined;
}

std::string in_quotes(std::string_view text) {
  std::string result = "\"";
  result += text;
  return result += '"';
}

std::string one_line(std::string_view text) {
  std::string line;
  for (const char c : text) {
    const bool blank = c == ' ' || (c >= '\t' && c <= '\r');
    if (!blank) {
      line += c;
    } else if (line.empty() || line.back() != ' ') {
      line += ' ';
    }
  }
  return line;
}

std::string text_of(const char* text) { return text != nullptr ? one_line(text) : std::string(); }

std::string in_small_letters(std::string text) {
  for (char& letter : text) {
    if (letter >= 'A' && letter <= 'Z') {
      letter = static_cast<char>(letter - 'A' + 'a');
    }
  }
  return text;
}

std::string in_capital_letters(std::string text) {
  for (char& letter : text) {
    if (letter >= 'a' && letter <= 'z') {
      letter = static_cast<char>(letter - 'a' + 'A');
    }
  }
  return text;
}

bool is_blank(std::string_view text) {
  return text.find_first_not_of(" \t\n\r") == std::string_view::npos;
}

std::string counted(std::uint64_t number, const char* thing) {
  return std::to_string(number) + " " + thing + (number == 1 ? "" : "s");
}

std::string closest(std::string_view text, const std::vector<std::string>& known) {
  std::string best;
  std::size_t least = std::max<std::size_t>(2, text.size() / 3) + 1;
  for (const std::string& candidate : known) {
    const std::size_t changes = distance(text, candidate);
    if (changes < least) {
      least = changes;
      best = candidate;
    }
  }
  return best;
}

void print_table(const std::vector<std::vector<std::string>>& rows) {
  const auto width_of = [](const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
      return (static_cast<unsigned char>(c) & 0xC0U) != 0x80;
    }));
  };
  std::vector<std::size_t> widths;
  for (const auto& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t column = 0; column < row.size(); ++column) {
      widths[column] = std::max(widths[column], width_of(row[column]));
    }
  }
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t column = 0; column < row.size(); ++column) {
      line += row[column];
      if (column + 1 < row.size()) {
        line.append(widths[column] - width_of(row[column]) + 2, ' ');
      }
    }
    std::printf("%s\n", line.c_str());
  }
}
