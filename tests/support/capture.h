// What a piece of code writes to the real standard streams.
#pragma once

#include <unistd.h>

#include <array>
#include <cstdio>
#include <stdexcept>
#include <string>

namespace oxa_test {

// Sends one of the process's standard streams to a file while it lives.
class StreamCapture {
 public:
  explicit StreamCapture(std::FILE* stream) : stream_(stream), file_(std::tmpfile()) {
    std::fflush(stream_);
    saved_ = dup(fileno(stream_));
    if (file_ == nullptr || saved_ < 0 || dup2(fileno(file_), fileno(stream_)) < 0) {
      throw std::runtime_error("cannot capture a standard stream");
    }
  }
  StreamCapture(const StreamCapture&) = delete;
  StreamCapture& operator=(const StreamCapture&) = delete;
  ~StreamCapture() {
    restore();
    std::fclose(file_);
  }

  // Ends the capture and returns every byte that was written.
  std::string text() {
    restore();
    std::rewind(file_);
    std::string text;
    std::array<char, 4096> part;
    while (const std::size_t length = std::fread(part.data(), 1, part.size(), file_)) {
      text.append(part.data(), length);
    }
    return text;
  }

 private:
  void restore() {
    if (saved_ >= 0) {
      std::fflush(stream_);
      dup2(saved_, fileno(stream_));
      close(saved_);
      saved_ = -1;
    }
  }

  std::FILE* stream_;
  std::FILE* file_;
  int saved_ = -1;
};

// What one run wrote.
struct Written {
  std::string out;
  std::string err;
};

// Runs `operation` and returns what it wrote to standard output and standard error.
template <class Operation>
Written written_by(Operation operation) {
  StreamCapture out(stdout);
  StreamCapture err(stderr);
  operation();
  return {out.text(), err.text()};
}

}  // namespace oxa_test
