// Writing an SVG file piece by piece.
#pragma once

#include <graph_plugin.h>
#include <oxa/IOXAProgressIndicator.h>

#include <array>
#include <charconv>
#include <string>
#include <string_view>

#include "svg_text.h"

namespace graph {

// Text of the person's own: a label, a title.
struct Escaped {
  std::string_view text;
};

// Collects markup and hands it to the output in large pieces. Numbers get two decimals, whatever
// the locale. Throws a Failure when the output fails or the host wants to stop.
class SvgStream {
 public:
  SvgStream(IGraphOutput& output, IOXAProgressIndicator* progress)
      : output_(output), progress_(progress) {}

  SvgStream& operator<<(std::string_view markup) {
    buffer_ += markup;
    if (buffer_.size() >= piece) {
      flush();
    }
    return *this;
  }
  SvgStream& operator<<(const char* markup) { return *this << std::string_view(markup); }
  SvgStream& operator<<(Escaped escaped) { return *this << xml_escaped(escaped.text); }
  SvgStream& operator<<(std::size_t number) { return *this << std::to_string(number); }
  SvgStream& operator<<(double number) {
    std::array<char, 400> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                   std::chars_format::fixed, 2)
                         .ptr;
    std::string_view text(digits.data(), static_cast<std::size_t>(end - digits.data()));
    text.remove_suffix(text.size() - 1 - text.find_last_not_of('0'));
    text.remove_suffix(text.back() == '.' ? 1 : 0);
    return *this << text;
  }

  void flush() {
    stop_if_asked(progress_);
    check(output_.Write(buffer_.data(), buffer_.size()));
    buffer_.clear();
  }

 private:
  static constexpr std::size_t piece = std::size_t{1} << 16;

  IGraphOutput& output_;
  IOXAProgressIndicator* progress_;
  std::string buffer_;
};

}  // namespace graph
