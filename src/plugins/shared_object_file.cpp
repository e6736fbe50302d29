#include "plugins/shared_object_file.h"

#include <elf.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstring>

namespace oxa {

namespace {

class open_file {
 public:
  // Without O_NONBLOCK, opening a named pipe would wait for a writer.
  explicit open_file(const char* path)
      : descriptor_(open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    struct stat status {};
    if (descriptor_ >= 0 && fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode)) {
      size_ = static_cast<std::uint64_t>(status.st_size);
    }
  }
  open_file(const open_file&) = delete;
  open_file& operator=(const open_file&) = delete;
  ~open_file() {
    if (descriptor_ >= 0) {
      close(descriptor_);
    }
  }

  bool is_open() const { return descriptor_ >= 0; }

  bool holds(std::uint64_t offset, std::uint64_t length) const {
    return offset <= size_ && length <= size_ - offset;
  }

  template <class Record>
  bool read(std::uint64_t offset, Record& record) const {
    return holds(offset, sizeof record) &&
           pread(descriptor_, &record, sizeof record, static_cast<off_t>(offset)) ==
               static_cast<ssize_t>(sizeof record);
  }

  // Reads so many bytes or as many as there are, and returns how many.
  std::size_t read_up_to(char* bytes, std::size_t most) const {
    const ssize_t length = size_ == 0 ? 0 : pread(descriptor_, bytes, most, 0);
    return length < 0 ? 0 : static_cast<std::size_t>(length);
  }

 private:
  int descriptor_;
  std::uint64_t size_ = 0;  // 0 for what is not a regular file
};

// The begin of a file: in practice it holds the header and all that describes the segments, so that
// one call of the system reads them.
class file_begin {
 public:
  explicit file_begin(const open_file& file)
      : file_(file), length_(file.read_up_to(bytes_.data(), bytes_.size())) {}

  template <class Record>
  bool read(std::uint64_t offset, Record& record) const {
    if (offset <= length_ && sizeof record <= length_ - offset) {
      std::memcpy(&record, bytes_.data() + offset, sizeof record);
      return true;
    }
    return file_.read(offset, record);
  }

 private:
  const open_file& file_;
  std::array<char, 4096> bytes_;
  std::size_t length_;
};

bool holds_segments(const open_file& file, const file_begin& begin, const Elf64_Ehdr& header) {
  for (unsigned index = 0; index < header.e_phnum; ++index) {
    Elf64_Phdr segment;
    if (!begin.read(header.e_phoff + index * sizeof segment, segment) ||
        !file.holds(segment.p_offset, segment.p_filesz)) {
      return false;
    }
  }
  return true;
}

bool holds_section_table(const open_file& file, const Elf64_Ehdr& header) {
  const std::uint64_t length = std::uint64_t{header.e_shnum} * header.e_shentsize;
  return header.e_shoff == 0 || file.holds(header.e_shoff, length);
}

}  // namespace

bool is_complete_shared_object(const char* path) {
  const open_file file(path);
  if (!file.is_open()) {
    return true;
  }
  const file_begin begin(file);
  Elf64_Ehdr header;
  return begin.read(0, header) && std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 &&
         header.e_ident[EI_CLASS] == ELFCLASS64 && header.e_phentsize == sizeof(Elf64_Phdr) &&
         holds_segments(file, begin, header) && holds_section_table(file, header);
}

}  // namespace oxa
