#include "memory_file.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace graph {
namespace {

[[noreturn]] void fail() {
  throw Failure(E_FAIL, "the system has no room for the file in memory (" +
                            std::generic_category().message(errno) +
                            "); close other programs and try again");
}

}  // namespace

MemoryFile::MemoryFile() : descriptor_(memfd_create("oxa-graph", MFD_CLOEXEC)) {
  if (descriptor_ < 0) {
    fail();
  }
}

MemoryFile::~MemoryFile() { close(descriptor_); }

std::string MemoryFile::path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

std::string MemoryFile::read(std::uint64_t position, std::size_t size) const {
  std::string bytes(size, '\0');
  ssize_t got = -1;
  do {
    got = pread(descriptor_, bytes.data(), size, static_cast<off_t>(position));
  } while (got < 0 && errno == EINTR);
  if (got < 0) {
    fail();
  }
  bytes.resize(static_cast<std::size_t>(got));
  return bytes;
}

std::uint64_t MemoryFile::size() const {
  struct stat status {};
  if (fstat(descriptor_, &status) != 0) {
    fail();
  }
  return static_cast<std::uint64_t>(status.st_size);
}

}  // namespace graph
