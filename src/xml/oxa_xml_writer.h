// How an element and its subtree are written.
#pragma once

#include <string>
#include <vector>

#include "xml/oxa_xml_element.h"

namespace oxa {

// Appends the opening of an element to `line`: all of it when it has no children to be written,
// else its start tag. Tells whether children follow. Throws std::bad_alloc.
bool write_opening(const oxa_xml_element& element, int level, std::string& line);
void write_closing(const oxa_xml_element& element, int level, std::string& line);

// Appends the lines of an element and its subtree to `line`, and calls `end_line` after each. Uses
// `level` as it goes down, and leaves it as it was. Throws std::bad_alloc.
template <class EndLine>
void write_element(const oxa_xml_element& top, int& level, std::string& line, EndLine end_line) {
  struct open_element {
    const oxa_xml_element* element;
    std::size_t next_child;
  };
  std::vector<open_element> open;
  const auto begin = [&](const oxa_xml_element& element) {
    const bool children_follow = write_opening(element, level, line);
    end_line();
    if (children_follow) {
      ++level;
      open.push_back({&element, 0});
    }
  };
  begin(top);
  while (!open.empty()) {
    open_element& last = open.back();
    if (last.next_child < last.element->child_count()) {
      begin(*last.element->child(last.next_child++));
    } else {
      write_closing(*last.element, --level, line);
      end_line();
      open.pop_back();
    }
  }
}

}  // namespace oxa
