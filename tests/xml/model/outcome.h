// What a parse gives, from the library and from the model, in one comparable form.
#pragma once

#include <oxa/result.h>

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "xml/model/model_document.h"
#include "xml/oxa_xml_element.h"

namespace oxa_test::model {

// How a source is taken through the parser.
struct Way {
  bool from_file = false;
  bool to_file = false;
  bool queries = false;
  bool second_parse = false;
};

struct Outcome {
  OXAResult result = S_OK;
  std::vector<std::string> messages;
  std::int64_t root_count = 0;
  std::string tree;
  std::string dumped;
  std::string file;
  std::string queried;
};

bool operator==(const Outcome& a, const Outcome& b);
std::ostream& operator<<(std::ostream& os, const Outcome& outcome);

// Throws Stop.
Outcome model_outcome(const std::string& source, Way way);
Outcome library_outcome(const std::string& source, Way way);

// Append names, texts, attributes and counts of a whole tree.
void describe(const Element& element, std::string& out);
void describe(oxa_xml_element& element, std::string& out);

// What dump writes, and the level that it leaves.
std::string dumped(const Element& element, int level);
std::string dumped(oxa_xml_element& element, int level);

}  // namespace oxa_test::model
