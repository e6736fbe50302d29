// The attributes of an XML element.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "core/thin_string.h"
#include "xml/xml_array.h"

namespace oxa {

struct xml_attribute {
  thin_string key;
  thin_string value;
};

// Attributes in the order in which they were added, each key once. Elements with many find them
// through an open-addressed table of positions behind the items, so that a search takes the same
// time in one with a million.
class xml_attributes {
 public:
  std::size_t count() const { return items_.count(); }
  xml_attribute* begin() const { return items_.begin(); }
  xml_attribute* end() const { return items_.end(); }

  // Returns null when the key is not there.
  xml_attribute* find(const char* key) const;

  // The same for a copy that a builder gives for every equal key of its parse.
  xml_attribute* find_known(const char* key) const {
    if (indexed()) {
      return find(key);
    }
    for (xml_attribute& attribute : *this) {
      if (attribute.key.borrows(key) ||
          (attribute.key.on_heap() && same_text(attribute.key.c_str(), key))) {
        return &attribute;
      }
    }
    return nullptr;
  }

  // Makes room for another `more`, in the arena of `builder` if there is one. Throws as
  // xml_array::reserve does.
  void reserve(std::size_t more, xml_builder* builder) {
    if (items_.reserve(more, builder) && indexed()) {
      rebuild_index();
    }
  }

  // Appends an attribute whose key is not there yet, without allocating: reserve has made room.
  xml_attribute& append(thin_string key, thin_string value) {
    xml_attribute& added = items_.append({std::move(key), std::move(value)});
    if (indexed()) {
      slot(added.key.c_str()) = static_cast<std::uint32_t>(items_.count());
    }
    return added;
  }

  void clear() { items_.clear(); }

 private:
  // Up to so many are searched one by one.
  static constexpr std::size_t largest_unindexed = 16;

  static std::size_t slots(std::size_t capacity) {
    return capacity > largest_unindexed ? capacity * 2 : 0;
  }
  static std::size_t index_bytes(std::size_t capacity) {
    return slots(capacity) * sizeof(std::uint32_t);
  }

  bool indexed() const { return items_.capacity() > largest_unindexed; }
  // Returns the slot of a key: it holds a position plus one, or 0 when the key is not there.
  std::uint32_t& slot(const char* key) const;
  void rebuild_index();

  xml_array<xml_attribute, index_bytes> items_;
};

}  // namespace oxa
