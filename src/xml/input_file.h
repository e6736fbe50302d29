// A file that is read from its beginning to its end.
#pragma once

#include <cstddef>
#include <string>

namespace oxa {

class input_file {
 public:
  explicit input_file(const std::string& path);
  input_file(const input_file&) = delete;
  input_file& operator=(const input_file&) = delete;
  ~input_file();

  bool is_open() const { return file_ >= 0; }

  // Returns how much a regular file holds; 0 for anything else.
  std::size_t size() const;

  // Reads up to `room` bytes and returns how many; less only where the file ends. An error ends it
  // too: what was read before it counts.
  std::size_t read(char* to, std::size_t room);

 private:
  int file_;
};

}  // namespace oxa
