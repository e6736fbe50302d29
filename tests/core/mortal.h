// A service of which nothing is asked.
#pragma once

#include <oxa/sdk/OXAReference.h>

#include <vector>

namespace oxa_test {

// Tells when it ends, by its name.
class Mortal final : public OXAReference {
 public:
  Mortal(int name, std::vector<int>& deaths) : name_(name), deaths_(deaths) { AddReference(); }
  ~Mortal() override { deaths_.push_back(name_); }

 private:
  int name_;
  std::vector<int>& deaths_;
};

}  // namespace oxa_test
