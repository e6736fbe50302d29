// Files and folders.
#pragma once

#include <dirent.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace oxa_test {

// Returns a path the way that the library takes it.
inline std::wstring wide(const std::filesystem::path& path) {
  const std::u32string text = path.u32string();
  return {text.begin(), text.end()};
}

// A new empty folder, removed with what is in it at the end.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "oxa-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
      throw std::runtime_error("cannot make a temporary folder");
    }
    path_ = name;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

  // Lists what is in here, in the order in which the system lists it.
  std::vector<std::string> names() const {
    std::vector<std::string> found;
    DIR* directory = opendir(path_.c_str());
    while (const dirent* entry = readdir(directory)) {
      found.emplace_back(entry->d_name);
    }
    closedir(directory);
    return found;
  }

  // Makes a file with the given content and returns its path.
  std::filesystem::path write(const std::string& name, const std::string& content) const {
    std::ofstream(path_ / name, std::ios::binary) << content;
    return path_ / name;
  }

 private:
  std::filesystem::path path_;
};

// Returns all of a file.
inline std::string content(const std::filesystem::path& path) {
  std::ostringstream all;
  all << std::ifstream(path, std::ios::binary).rdbuf();
  return all.str();
}

}  // namespace oxa_test
