// What plug-ins offer, and what they say of it.
#pragma once

#include <oxa/guid.h>

#include <stdexcept>
#include <string>
#include <vector>

// An entry of the interface registry, with where it came from.
struct Offered {
  std::string name_space;
  _GUID iid{};
  // Borrowed from the plug-in.
  void* object = nullptr;
  // The plug-in's name and version, and its file.
  std::string plugin;
  std::string file;
  // What a reader, writer, algorithm or layout says of itself: its name, and its description or
  // file name extensions. Empty for other objects.
  std::string name;
  std::string details;

  // The object, which must have been registered under the id of `Interface`.
  template <class Interface>
  Interface& as() const {
    return *static_cast<Interface*>(object);
  }
};

// A plug-in breaks the contract; what() tells how, to follow "skipped the plug-in: ".
class BadPlugin : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Fills in the texts of all entries of one plug-in by asking it this once; nobody asks again.
// Throws BadPlugin when it returns null for one that is never null, or lets an exception out.
void describe(std::vector<Offered>& entries);
