// Numbers as text, by the standard library's fastest means.
#pragma once

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <string_view>

namespace bench {

// The text of a number, ended by a zero, with a few characters in front of it if given.
class number_text {
 public:
  template <class Number>
  explicit number_text(Number number) : number_text("", number) {}
  template <class Number>
  number_text(std::string_view front, Number number)
      : end_(std::to_chars(std::copy(front.begin(), front.end(), text_), text_ + sizeof text_ - 1,
                           number)
                 .ptr) {
    *end_ = '\0';
  }
  number_text(const number_text&) = delete;
  number_text& operator=(const number_text&) = delete;

  const char* c_str() const { return text_; }
  std::string_view view() const { return {text_, static_cast<std::size_t>(end_ - text_)}; }

 private:
  char text_[48];
  char* end_;
};

template <class Number>
Number number_in(std::string_view text) {
  Number number{};
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace bench
