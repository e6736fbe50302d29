// Reading files as a whole, and replacing them as a whole or not at all.
#pragma once

#include <graph_contract.h>
#include <oxa/sdk/implements.h>

#include <string>

// Returns the contents of the file at `path`. Throws Problem and Stopped.
std::string read_file(const std::string& path);

// Collects what goes to the file at `path` in a new file beside it, which takes its name in commit
// and is removed when there is no commit. What is not a plain file, such as a device, is written
// directly.
class OutputFile final : public oxa::Implements<IGraphOutput> {
 public:
  // Throws Problem when the file cannot be made.
  explicit OutputFile(const std::string& path);
  ~OutputFile() override;

  OXAResult Write(const char* data, std::uint64_t size) override;

  // Throws Problem for everything that kept the file from being complete, and Stopped.
  void commit();

  // Throws Problem when a Write has failed.
  void check() const;

 private:
  [[noreturn]] void fail(int error) const;
  void open_beside();

  std::string path_;
  // Empty when writing directly.
  std::string temporary_;
  // Where path_ leads after symbolic links.
  std::string target_;
  int descriptor_ = -1;
  int error_ = 0;
};
