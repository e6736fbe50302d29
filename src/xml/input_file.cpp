#include "xml/input_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace oxa {

input_file::input_file(const std::string& path) : file_(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}

input_file::~input_file() {
  if (is_open()) {
    close(file_);
  }
}

std::size_t input_file::size() const {
  struct stat status {};
  const bool regular = fstat(file_, &status) == 0 && S_ISREG(status.st_mode);
  return regular ? static_cast<std::size_t>(status.st_size) : 0;
}

std::size_t input_file::read(char* to, std::size_t room) {
  std::size_t length = 0;
  while (length < room) {
    const ssize_t got = ::read(file_, to + length, room - length);
    if (got > 0) {
      length += static_cast<std::size_t>(got);
    } else if (got == 0 || errno != EINTR) {
      break;
    }
  }
  return length;
}

}  // namespace oxa
