// Files for what reads and writes thousands of them.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace oxa_test {

// A file that has a path while it lives, and no name in any directory.
class MemoryFile {
 public:
  explicit MemoryFile(std::string_view content = "")
      : file_(memfd_create("document", MFD_CLOEXEC)) {
    require(pwrite(file_, content.data(), content.size(), 0), content.size());
  }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  ~MemoryFile() { close(file_); }

  std::wstring path() const { return L"/proc/self/fd/" + std::to_wstring(file_); }

  std::string content() const {
    std::string text(static_cast<std::size_t>(lseek(file_, 0, SEEK_END)), '\0');
    require(pread(file_, text.data(), text.size(), 0), text.size());
    return text;
  }

 private:
  static void require(ssize_t moved, std::size_t size) {
    if (moved != static_cast<ssize_t>(size)) {
      throw std::runtime_error("cannot use a file in memory");
    }
  }

  int file_;
};

}  // namespace oxa_test
