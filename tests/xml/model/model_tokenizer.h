// The tokenizer as a stream that is read byte by byte through three cells.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace oxa_test::model {

// What stands for a failed assertion: it would stop the process.
struct Stop {
  std::string expression;
};

// What a sink would be told.
struct Messages {
  void add(std::string line) {
    lines.push_back(std::move(line));
    on_message();
  }

  std::vector<std::string> lines;
  std::function<void()> on_message = [] {};
};

class Tokenizer {
 public:
  Tokenizer(std::string source, Messages& messages);

  static bool is_whitespace(int ch);
  int getc();
  int next_char();
  int look_ahead();
  int next_token(char* buffer, int size);
  void get_text(char* buffer, int size);
  int capture_string(char* buffer, int size);

 private:
  // A byte, and whether it stands for the end of the source rather than for a byte 0xFF.
  struct Cell {
    signed char byte = 0;
    bool end = false;
  };

  Cell read();
  void shift();
  void go_to_end();
  int read_name(char* buffer, int size);
  int read_string(char* buffer, int size, const std::string& complaint);
  int read_comment();

  std::string source_;
  std::size_t position_ = 0;
  Messages* messages_;
  Cell c_;
  Cell next_c_;
  Cell next_next_c_;
};

}  // namespace oxa_test::model
