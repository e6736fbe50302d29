#include "xml/xml_attributes.h"

#include <cstring>
#include <functional>
#include <string_view>

namespace oxa {
xml_attribute* xml_attributes::find(const char* key) const {
  if (indexed()) {
    const std::uint32_t position = slot(key);
    return position == 0 ? nullptr : &items_[position - 1];
  }
  for (xml_attribute& attribute : *this) {
    if (same_text(attribute.key.c_str(), key)) {
      return &attribute;
    }
  }
  return nullptr;
}

std::uint32_t& xml_attributes::slot(const char* key) const {
  auto* const index = static_cast<std::uint32_t*>(items_.tail());
  const std::size_t mask = slots(items_.capacity()) - 1;
  std::size_t at = std::hash<std::string_view>()(key) & mask;
  while (index[at] != 0 && !same_text(items_[index[at] - 1].key.c_str(), key)) {
    at = (at + 1) & mask;
  }
  return index[at];
}

void xml_attributes::rebuild_index() {
  std::memset(items_.tail(), 0, index_bytes(items_.capacity()));
  std::uint32_t position = 0;
  for (const xml_attribute& attribute : *this) {
    slot(attribute.key.c_str()) = ++position;
  }
}

}  // namespace oxa
