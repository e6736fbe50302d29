// The XML libraries that are compared, behind one interface.
#pragma once

#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "xml/documents.h"

namespace bench {

// A document in memory. Its destructor frees the tree and all that belongs to it.
class xml_tree {
 public:
  xml_tree() = default;
  xml_tree(const xml_tree&) = delete;
  xml_tree& operator=(const xml_tree&) = delete;
  virtual ~xml_tree() = default;

  // Gathers the elements that match, wherever they are below the root, and returns how many.
  virtual std::size_t find(const xml_query& query) = 0;
  // Writes an indented file.
  virtual void serialize(const std::string& path) = 0;
};

struct xml_library {
  const char* name;
  // The deepest nesting that it takes: what its parser allows, or what recursion leaves of a stack
  // of 8 MiB.
  std::size_t deepest;
  // Both return null for a document that the library refuses. `text` is left as it is.
  std::unique_ptr<xml_tree> (*parse)(const std::string& text);
  std::unique_ptr<xml_tree> (*parse_file)(const std::string& path);
};

// A library whose trees are of the class `Tree`, with members that parse and tell whether they
// could.
template <class Tree>
xml_library library_of(const char* name,
                       std::size_t deepest = std::numeric_limits<std::size_t>::max()) {
  return {name, deepest,
          [](const std::string& text) -> std::unique_ptr<xml_tree> {
            auto made = std::make_unique<Tree>();
            return made->parse(text) ? std::move(made) : nullptr;
          },
          [](const std::string& path) -> std::unique_ptr<xml_tree> {
            auto made = std::make_unique<Tree>();
            return made->parse_file(path) ? std::move(made) : nullptr;
          }};
}

xml_library oxa_library();
xml_library pugixml_library();
xml_library rapidxml_library();
xml_library tinyxml2_library();
xml_library expat_library();
xml_library libxml2_library();

}  // namespace bench
