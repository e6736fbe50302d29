#include "properties/property_attributes.h"

#include <algorithm>

// The copy has its position at the first one.
property_attributes::property_attributes(const property_attributes& other) {
  for (const pair* each : other.in_order_) {
    add(each->first, each->second);
  }
}

void property_attributes::add(std::string_view name, std::string_view value) {
  if (in_order_.size() == in_order_.capacity()) {
    in_order_.reserve(in_order_.size() * 2 + 4);
  }
  in_order_.push_back(&*values_.emplace(name, value).first);
}

property_attributes::pair* property_attributes::find(std::string_view name) {
  const auto found = values_.find(name);
  return found == values_.end() ? nullptr : &*found;
}

property_attributes::pair* property_attributes::find_value(std::string_view value) {
  const auto found = std::find_if(in_order_.begin(), in_order_.end(),
                                  [value](const pair* each) { return each->second == value; });
  return found == in_order_.end() ? nullptr : *found;
}

property_attributes::pair* property_attributes::first() {
  at_ = 0;
  return present();
}

property_attributes::pair* property_attributes::next() {
  at_ += at_ < in_order_.size() ? 1 : 0;
  return present();
}
