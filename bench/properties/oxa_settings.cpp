#include <oxa/oxa.h>

#include "properties/OXAPreferences.h"
#include "properties/settings.h"
#include "support/number_text.h"

namespace bench {

namespace {

using OXA::Property::DataType;

class base : public settings {
 public:
  base(const std::vector<setting_key>& keys, number_kind kind) : keys_(keys) {
    OXAResult result = S_OK;
    preferences_ = oxa::make<OXAPreferences>(result);
    for (const setting_key& key : keys) {
      oxa::add_setting(*preferences_, key.ns.c_str(), key.name.c_str(),
                       kind == number_kind::integer ? DataType::Int : DataType::Double);
    }
  }

 protected:
  void set_text(std::size_t key, const char* text) {
    preferences_->Set(keys_[key].ns.c_str(), keys_[key].name.c_str(), text);
  }
  const char* get_text(std::size_t key) {
    char* text = nullptr;
    preferences_->Get(keys_[key].ns.c_str(), keys_[key].name.c_str(), &text);
    return text;
  }

 private:
  const std::vector<setting_key>& keys_;
  oxa::Ref<IOXAPreferences> preferences_;
};

class numbers final : public base {
 public:
  using base::base;

  void set(std::size_t key, int value) override { set_text(key, number_text(value).c_str()); }
  void set(std::size_t key, double value) override { set_text(key, number_text(value).c_str()); }
  int get_integer(std::size_t key) override { return number_in<int>(get_text(key)); }
  double get_real(std::size_t key) override { return number_in<double>(get_text(key)); }
};

class texts final : public base {
 public:
  using base::base;

  void set(std::size_t key, int /*value*/) override { set_text(key, "345"); }
  void set(std::size_t key, double /*value*/) override { set_text(key, "345.625"); }
  int get_integer(std::size_t key) override { return *get_text(key); }
  double get_real(std::size_t key) override { return *get_text(key); }
};

}  // namespace

settings_library oxa_numbers() { return library_of<numbers>("oxa"); }
settings_library oxa_text() { return library_of<texts>("oxa, text"); }

}  // namespace bench
