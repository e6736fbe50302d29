// A file without a name, which is gone with the object.
#pragma once

#include <graph_plugin.h>

#include <string>

namespace graph {

// The library's documents are written to files, and outputs take bytes: this is what lies between.
class MemoryFile {
 public:
  // Throws a Failure when the system gives none.
  MemoryFile();
  ~MemoryFile();
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  // Returns a path by which this process opens it.
  std::string path() const;

  // Returns the `size` bytes from `position` on, fewer at the end. Throws a Failure.
  std::string read(std::uint64_t position, std::size_t size) const;

  std::uint64_t size() const;

 private:
  int descriptor_;
};

}  // namespace graph
