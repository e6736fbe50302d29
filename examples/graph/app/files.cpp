#include "files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "interrupt.h"
#include "problem.h"
#include "text.h"

namespace {

std::string advice(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return "check the path";
    case EACCES:
    case EPERM:
    case EROFS:
      return "check its permissions";
    case EISDIR:
      return "name a file";
    case ENOSPC:
    case EFBIG:
    case EDQUOT:
      return "make room or write elsewhere";
    default:
      return "try again or use another file";
  }
}

[[noreturn]] void fail_with(const char* what, const std::string& path, int error) {
  throw Problem(std::string("cannot ") + what + " " + in_quotes(path) + ": " +
                std::generic_category().message(error) + "; " + advice(error));
}

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() { close(number_); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

 private:
  int number_;
};

}  // namespace

std::string read_file(const std::string& path) {
  constexpr std::size_t piece = std::size_t{1} << 20;
  const int number = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (number < 0) {
    const int error = errno;
    stop_if_interrupted();
    fail_with("read", path, error);
  }
  const Descriptor closer(number);
  std::string content;
  while (true) {
    stop_if_interrupted();
    const std::size_t used = content.size();
    content.resize(used + piece);
    const ssize_t got = read(number, content.data() + used, piece);
    if (got < 0 && errno != EINTR) {
      fail_with("read", path, errno);
    }
    content.resize(used + (got > 0 ? static_cast<std::size_t>(got) : 0));
    if (got == 0) {
      return content;
    }
  }
}

OutputFile::OutputFile(const std::string& path) : path_(path), target_(path) {
  struct stat status {};
  const bool exists = stat(path.c_str(), &status) == 0;
  if (exists && S_ISDIR(status.st_mode)) {
    fail(EISDIR);
  }
  if (exists && !S_ISREG(status.st_mode)) {
    descriptor_ = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor_ < 0) {
      fail(errno);
    }
    return;
  }
  if (exists) {
    target_ = std::filesystem::canonical(path).string();
    if (access(target_.c_str(), W_OK) != 0) {
      fail(errno);
    }
  }
  open_beside();
  if (exists) {
    fchmod(descriptor_, status.st_mode & 07777U);
  }
}

void OutputFile::open_beside() {
  constexpr int most_attempts = 100;
  for (int attempt = 0; descriptor_ < 0 && attempt < most_attempts; ++attempt) {
    temporary_ = target_ + "." + std::to_string(getpid()) + "-" + std::to_string(attempt) + ".tmp";
    descriptor_ = open(temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor_ < 0 && errno != EEXIST) {
      fail(errno);
    }
  }
  if (descriptor_ < 0) {
    fail(EEXIST);
  }
}

OutputFile::~OutputFile() {
  if (descriptor_ >= 0) {
    close(descriptor_);
  }
  if (!temporary_.empty()) {
    unlink(temporary_.c_str());
  }
}

OXAResult OutputFile::Write(const char* data, std::uint64_t size) {
  if (data == nullptr) {
    return E_INVALIDARG;
  }
  while (size > 0 && error_ == 0) {
    const ssize_t written = write(descriptor_, data, size);
    if (written >= 0) {
      data += written;
      size -= static_cast<std::uint64_t>(written);
    } else if (errno != EINTR) {
      error_ = errno;
    }
  }
  return error_ == 0 ? S_OK : E_FAIL;
}

void OutputFile::commit() {
  check();
  stop_if_interrupted();
  if (close(std::exchange(descriptor_, -1)) != 0) {
    fail(errno);
  }
  if (!temporary_.empty()) {
    if (rename(temporary_.c_str(), target_.c_str()) != 0) {
      fail(errno);
    }
    temporary_.clear();
  }
}

void OutputFile::check() const {
  if (error_ != 0) {
    fail(error_);
  }
}

void OutputFile::fail(int error) const { fail_with("write", path_, error); }
