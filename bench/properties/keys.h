// The settings that are read and written, the same in each store.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace bench {

// A path such as "plugin_12::layout::force" and a name such as "iterations_345".
struct setting_key {
  std::string ns;
  std::string name;
};

// So many keys, 20 to a namespace, in an order that has nothing to do with their names.
std::vector<setting_key> shuffled_keys(std::size_t count);

// The path and the name of a key with other separators: "plugin_12/layout/force/iterations_345".
std::string joined(const setting_key& key, const std::string& separator);

}  // namespace bench
