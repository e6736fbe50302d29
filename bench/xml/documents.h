// The documents that the XML benchmarks read: made up, the same in every run.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace bench {

// Searches for elements by name and by the value of an attribute.
struct xml_query {
  const char* name;
  const char* key;
  const char* value;
};

struct xml_document {
  std::string text;
  std::size_t elements = 0;
  // All elements of that name have the key; `matches` of them have the value.
  xml_query query{};
  std::size_t matches = 0;
};

// Where a document ends: after so many bytes or so many units, whichever comes first.
struct xml_extent {
  std::size_t bytes;
  std::size_t units;
};

struct xml_document_kind {
  const char* name;
  xml_extent small;
  xml_extent large;
  // Elements are nested, not merely in a few levels.
  bool deep;
  xml_document (*make)(xml_extent extent);
};

// extension: types with eight members each, in attributes alone;
// graph: nodes and edges with texts in elements named "data";
// text: elements with texts of 1 to 50 KB;
// deep: each element in the one before; wide: all in one.
const std::vector<xml_document_kind>& xml_document_kinds();

}  // namespace bench
