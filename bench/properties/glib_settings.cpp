#include <glib.h>

#include "properties/settings.h"

namespace bench {

namespace {

class key_file final : public settings {
 public:
  key_file(const std::vector<setting_key>& keys, number_kind /*kind*/)
      : keys_(keys), file_(g_key_file_new()) {}
  key_file(const key_file&) = delete;
  key_file& operator=(const key_file&) = delete;
  ~key_file() override { g_key_file_free(file_); }

  void set(std::size_t key, int value) override {
    g_key_file_set_integer(file_, keys_[key].ns.c_str(), keys_[key].name.c_str(), value);
  }
  void set(std::size_t key, double value) override {
    g_key_file_set_double(file_, keys_[key].ns.c_str(), keys_[key].name.c_str(), value);
  }
  int get_integer(std::size_t key) override {
    return g_key_file_get_integer(file_, keys_[key].ns.c_str(), keys_[key].name.c_str(), nullptr);
  }
  double get_real(std::size_t key) override {
    return g_key_file_get_double(file_, keys_[key].ns.c_str(), keys_[key].name.c_str(), nullptr);
  }

 private:
  const std::vector<setting_key>& keys_;
  GKeyFile* file_;
};

}  // namespace

settings_library glib_key_file() { return library_of<key_file>("GKeyFile"); }

}  // namespace bench
