// What a property may have many of.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/text_map.h"

// Names with a value each, found by either, and a position among them.
class property_attributes {
 public:
  using pair = oxa::text_map<std::string>::value_type;

  property_attributes() = default;
  property_attributes(const property_attributes& other);
  property_attributes& operator=(const property_attributes&) = delete;

  std::size_t size() const { return in_order_.size(); }

  // Appends a name that is not there yet. Throws std::bad_alloc with nothing changed.
  void add(std::string_view name, std::string_view value);

  // Null when there is none.
  pair* find(std::string_view name);
  pair* find_value(std::string_view value);

  // Move to the first and to the next one, and return it; null at the end, which they do not leave.
  pair* first();
  pair* next();

 private:
  pair* present() const { return at_ < in_order_.size() ? in_order_[at_] : nullptr; }

  oxa::text_map<std::string> values_;
  std::vector<pair*> in_order_;
  std::size_t at_ = 0;
};

// Names by their category.
using property_supports = oxa::text_map<oxa::text_set>;
