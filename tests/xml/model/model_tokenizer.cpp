#include "xml/model/model_tokenizer.h"

#include <stdexcept>
#include <utility>

namespace oxa_test::model {

namespace {

constexpr signed char end_byte = -1;

void check(bool holds, const char* expression) {
  if (!holds) {
    throw Stop{expression};
  }
}

void require(const char* buffer) {
  if (buffer == nullptr) {
    throw std::invalid_argument("Received null buffer");
  }
}

}  // namespace

Tokenizer::Tokenizer(std::string source, Messages& messages)
    : source_(std::move(source)), messages_(&messages) {}

bool Tokenizer::is_whitespace(int ch) { return !((ch >= 33 && ch <= 126) || ch == -1); }

int Tokenizer::getc() {
  if (position_ == source_.size()) {
    return -1;
  }
  return static_cast<unsigned char>(source_[position_++]);
}

Tokenizer::Cell Tokenizer::read() {
  const int ch = getc();
  return {static_cast<signed char>(ch), ch == -1};
}

void Tokenizer::shift() {
  c_ = next_c_;
  next_c_ = next_next_c_;
  next_next_c_ = read();
}

void Tokenizer::go_to_end() {
  position_ = source_.size();
  c_ = next_c_ = next_next_c_ = {end_byte, true};
}

int Tokenizer::next_char() {
  do {
    shift();
  } while (is_whitespace(c_.byte));
  return c_.byte;
}

int Tokenizer::look_ahead() {
  while (is_whitespace(next_c_.byte)) {
    next_c_ = next_next_c_;
    next_next_c_ = read();
  }
  return next_c_.byte;
}

int Tokenizer::next_token(char* buffer, int size) {
  if (c_.byte == 0 && next_c_.byte == 0) {
    next_c_ = read();
    next_next_c_ = read();
  }
  next_char();
  switch (c_.byte) {
    case end_byte:
      return -1;
    case '=':
    case '>':
      return c_.byte;
    case '/':
    case '?': {
      const int found = c_.byte == '/' ? 'E' : 'X';
      check(next_c_.byte == '>', "next_c == '>'");
      next_char();
      return found;
    }
    case '<':
      if (next_c_.byte == '!') {
        return read_comment();
      }
      if (next_c_.byte != '?' && next_c_.byte != '/') {
        return 'b';
      }
      return next_char() == '?' ? 'x' : 'e';
    case '"':
      return read_string(buffer, size,
                         "warning 5: buffer of sixe(" + std::to_string(size) +
                             ") is too small for string, truncating");
    default:
      return read_name(buffer, size);
  }
}

int Tokenizer::capture_string(char* buffer, int size) {
  return read_string(
      buffer, size,
      "warning 1: Buffer (size=" + std::to_string(size) + ") is too small for string, truncating");
}

int Tokenizer::read_string(char* buffer, int size, const std::string& complaint) {
  require(buffer);
  const int limit = size - 1;
  int n = 0;
  do {
    const bool escaped = c_.byte == '\\';
    shift();
    if (c_.end) {
      go_to_end();
      return -1;
    }
    if (!escaped && c_.byte == '"') {
      break;
    }
    if (n < limit) {
      buffer[n++] = static_cast<char>(c_.byte);
    } else {
      messages_->add(complaint);
    }
  } while (c_.byte != '"');
  buffer[n] = '\0';
  return '"';
}

int Tokenizer::read_name(char* buffer, int size) {
  require(buffer);
  const int limit = size - 1;
  buffer[0] = static_cast<char>(c_.byte);
  int n = 1;
  while (!is_whitespace(next_c_.byte) && next_c_.byte != '=' && next_c_.byte != '>' &&
         next_c_.byte != '?' && next_c_.byte != '/') {
    if (next_c_.end) {
      go_to_end();
      return -1;
    }
    shift();
    if (n < limit) {
      buffer[n++] = static_cast<char>(c_.byte);
      if (is_whitespace(next_c_.byte)) {
        break;
      }
    } else {
      messages_->add("message 5: Buffer too small for name, truncating");
    }
  }
  buffer[n] = '\0';
  return 'n';
}

int Tokenizer::read_comment() {
  check(next_next_c_.byte == '-', "next_next_c == '-'");
  const int chk = getc();
  check(chk == '-', "chk == '-'");
  for (;;) {
    int ch = getc();
    while (ch != '-' && ch != -1) {
      ch = getc();
    }
    int dashes = 0;
    while (ch == '-') {
      ++dashes;
      ch = getc();
    }
    if (ch == -1) {
      go_to_end();
      return -1;
    }
    if (ch == '>' && dashes >= 2) {
      break;
    }
  }
  next_c_ = {'>', false};
  next_next_c_ = read();
  next_char();
  return 'c';
}

void Tokenizer::get_text(char* buffer, int size) {
  shift();
  int depth = c_.byte == '<' ? 1 : 0;
  const int limit = size - 2;
  int n = 0;
  while (next_c_.byte != end_byte && next_next_c_.byte != end_byte) {
    if (n < limit) {
      buffer[n++] = static_cast<char>(c_.byte);
    } else {
      messages_->add("message 5: Buffer too small for data, truncating");
    }
    if (next_c_.byte == '<') {
      if (next_next_c_.byte != '/') {
        ++depth;
      } else if (depth > 0) {
        --depth;
      } else {
        buffer[n] = '\0';
        return;
      }
    } else if (next_c_.byte == '/' && next_next_c_.byte == '>') {
      --depth;
    }
    shift();
  }
}

}  // namespace oxa_test::model
