#include <boost/property_tree/ptree.hpp>
#include <string>
#include <vector>

#include "properties/settings.h"

namespace bench {

namespace {

class property_tree final : public settings {
 public:
  property_tree(const std::vector<setting_key>& keys, number_kind /*kind*/) {
    keys_.reserve(keys.size());
    for (const setting_key& key : keys) {
      keys_.push_back(joined(key, "."));
    }
  }

  void set(std::size_t key, int value) override { tree_.put(keys_[key], value); }
  void set(std::size_t key, double value) override { tree_.put(keys_[key], value); }
  int get_integer(std::size_t key) override { return tree_.get<int>(keys_[key]); }
  double get_real(std::size_t key) override { return tree_.get<double>(keys_[key]); }

 private:
  std::vector<std::string> keys_;
  boost::property_tree::ptree tree_;
};

}  // namespace

settings_library boost_property_tree() { return library_of<property_tree>("property_tree"); }

}  // namespace bench
