#include "properties/keys.h"

#include <algorithm>
#include <array>
#include <random>

namespace bench {

std::vector<setting_key> shuffled_keys(std::size_t count) {
  constexpr std::size_t names = 20;
  constexpr std::array<const char*, 5> areas{"layout", "reader", "writer", "algorithm", "view"};
  constexpr std::array<const char*, 5> parts{"force", "hierarchy", "circle", "spectral", "tree"};
  std::vector<setting_key> keys;
  keys.reserve(count);
  for (std::size_t number = 0; number < count; ++number) {
    const std::size_t ns = number / names;
    const std::size_t plugin = ns / (areas.size() * parts.size());
    keys.push_back({"plugin_" + std::to_string(plugin) + "::" + areas[ns % areas.size()] +
                        "::" + parts[ns / areas.size() % parts.size()],
                    "iterations_" + std::to_string(number % 1000)});
  }
  std::shuffle(keys.begin(), keys.end(), std::mt19937(1));
  return keys;
}

std::string joined(const setting_key& key, const std::string& separator) {
  std::string path = key.ns + "::" + key.name;
  for (std::size_t at = path.find("::"); at != std::string::npos; at = path.find("::", at)) {
    path.replace(at, 2, separator);
    at += separator.size();
  }
  return path;
}

}  // namespace bench
