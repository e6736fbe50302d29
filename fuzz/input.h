// How a fuzz target reads its input, which people can write as well.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace oxa_fuzz {

class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size)
      : rest_(reinterpret_cast<const char*>(data), size) {}
  explicit Input(std::string_view text) : rest_(text) {}

  bool empty() const { return rest_.empty(); }

  // Takes a character; 0 when there is none.
  char next() {
    if (rest_.empty()) {
      return 0;
    }
    const char taken = rest_.front();
    rest_.remove_prefix(1);
    return taken;
  }

  // Takes a number below `bound`: a digit stands for itself.
  unsigned below(unsigned bound) { return static_cast<unsigned char>(next() - '0') % bound; }

  // Takes the characters up to a mark and the mark, or all when it does not come.
  std::string_view until(char mark) {
    const std::string_view taken = rest_.substr(0, rest_.find(mark));
    rest_.remove_prefix(taken.size());
    next();
    return taken;
  }

  std::string_view rest() const { return rest_; }

  // Takes a terminated text that lives as long as the input: one in quotes as it is, else one of a
  // table. May be null.
  const char* text() {
    static constexpr std::array<const char*, 16> table{
        nullptr, "",     "a",       "b",   "id", "xml", "data", "text",
        "key",   "name", "version", "1.0", "x",  "y",   " x",   "a&lt;<&>&amp;"};
    if (rest_.empty() || rest_.front() != '"') {
      return table[below(table.size())];
    }
    next();
    return texts_.emplace_back(until('"')).c_str();
  }

 private:
  std::string_view rest_;
  std::deque<std::string> texts_;
};

}  // namespace oxa_fuzz
