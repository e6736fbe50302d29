// What the first line of an XML file declares.
#pragma once

#include <graph_values.h>

#include <algorithm>
#include <string_view>

namespace graph {

// Whether what stands between <? and ?> is a declaration that names an encoding of which UTF-8 is
// no extension.
inline bool declares_other_encoding(std::string_view content) {
  constexpr std::string_view key = "encoding";
  const std::size_t found = content.find(key);
  if (content.substr(0, 4) != "xml " || found == std::string_view::npos) {
    return false;
  }
  content = trimmed(content.substr(found + key.size()));
  content = trimmed(content.substr(std::min<std::size_t>(1, content.size())));
  if (content.size() < 2) {
    return false;
  }
  const std::string_view name = content.substr(1, content.find(content[0], 1) - 1);
  return !is_word(name, "utf-8") && !is_word(name, "utf8") && !is_word(name, "us-ascii");
}

}  // namespace graph
