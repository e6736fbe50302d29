// The stores of settings that are compared, behind one interface.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "properties/keys.h"

namespace bench {

enum class number_kind { integer, real };

// Settings with a number each. They are named by their position in the keys that the store was made
// for, which it has brought into its own form: a program has its keys as constants.
class settings {
 public:
  settings() = default;
  settings(const settings&) = delete;
  settings& operator=(const settings&) = delete;
  virtual ~settings() = default;

  virtual void set(std::size_t key, int value) = 0;
  virtual void set(std::size_t key, double value) = 0;
  virtual int get_integer(std::size_t key) = 0;
  virtual double get_real(std::size_t key) = 0;
};

struct settings_library {
  const char* name;
  std::unique_ptr<settings> (*make)(const std::vector<setting_key>& keys, number_kind kind);
};

template <class Settings>
settings_library library_of(const char* name) {
  return {name, [](const std::vector<setting_key>& keys, number_kind kind) {
            return std::unique_ptr<settings>(std::make_unique<Settings>(keys, kind));
          }};
}

// The number goes in as text and comes out as text, as the interface has it, and the program
// converts it; `oxa_text` is for programs that have, and want, the text.
settings_library oxa_numbers();
settings_library oxa_text();
settings_library glib_key_file();
settings_library qt_settings();
settings_library boost_property_tree();
// The key is joined at each call, or was beforehand.
settings_library map_of_strings();
settings_library map_of_joined_strings();

}  // namespace bench
