#include <string>
#include <unordered_map>
#include <vector>

#include "properties/settings.h"
#include "support/number_text.h"

namespace bench {

namespace {

// The path and the name, put together where the memory for it is there already.
class joined_at_once {
 public:
  explicit joined_at_once(const std::vector<setting_key>& keys) : keys_(keys) {}

  const std::string& operator[](std::size_t key) {
    return path_.assign(keys_[key].ns.c_str()).append("::").append(keys_[key].name.c_str());
  }

 private:
  const std::vector<setting_key>& keys_;
  std::string path_;
};

class joined_before {
 public:
  explicit joined_before(const std::vector<setting_key>& keys) {
    paths_.reserve(keys.size());
    for (const setting_key& key : keys) {
      paths_.push_back(joined(key, "::"));
    }
  }

  const std::string& operator[](std::size_t key) { return paths_[key]; }

 private:
  std::vector<std::string> paths_;
};

template <class Paths>
class map_settings final : public settings {
 public:
  map_settings(const std::vector<setting_key>& keys, number_kind /*kind*/) : paths_(keys) {}

  void set(std::size_t key, int value) override { set_number(key, value); }
  void set(std::size_t key, double value) override { set_number(key, value); }
  int get_integer(std::size_t key) override { return get_number<int>(key); }
  double get_real(std::size_t key) override { return get_number<double>(key); }

 private:
  template <class Number>
  void set_number(std::size_t key, Number value) {
    values_[paths_[key]] = number_text(value).view();
  }
  template <class Number>
  Number get_number(std::size_t key) {
    return number_in<Number>(values_.find(paths_[key])->second);
  }

  Paths paths_;
  std::unordered_map<std::string, std::string> values_;
};

}  // namespace

settings_library map_of_strings() { return library_of<map_settings<joined_at_once>>("map"); }
settings_library map_of_joined_strings() {
  return library_of<map_settings<joined_before>>("map, joined keys");
}

}  // namespace bench
