// A model and what it holds.
#pragma once

#include <algorithm>
#include <string>

#include "properties/OXAPropertyModel.h"
#include "support.h"

namespace oxa_test {

// Shows a value: its kind, its 64 bits, and its text.
inline std::string described(const OXAVariant& value) {
  return std::to_string(static_cast<unsigned>(value.kind)) + " " + std::to_string(value.bits) +
         " " + value.text;
}

// Shows the value of a property, "-" when there is none.
inline std::string stored(IOXAPropertyModel& model, IOXAProperty& property) {
  OXAVariant value;
  const OXAResult result = model.GetProperty(&property, value);
  EXPECT_TRUE(result == S_OK || result == E_NOTFOUND);
  return result == S_OK ? described(value) : "-";
}

class PropertyModelTest : public testing::Test {
 protected:
  IOXAProperty& add(const char* name, DataType type) const {
    return properties_.add("ns", name, type);
  }

  OXAResult set(const char* name, const char* text) { return model_.SetProperty("ns", name, text); }

  // The value as text; the output must be null if that is not what is expected.
  std::string get(const char* name, OXAResult expected = S_OK) {
    char* text = marker_;
    EXPECT_EQ(model_.GetProperty("ns", name, &text), expected) << name;
    return shown(text);
  }

  std::string stored(IOXAProperty& property) { return oxa_test::stored(model_, property); }

  // The properties with values, sorted.
  Lines with_values() {
    oxa::Ref<IOXAPropertyEnum> all;
    EXPECT_EQ(model_.GetPropertyEnum(oxa::adopt_into(all)), S_OK);
    Lines names = listed(*all);
    std::sort(names.begin(), names.end());
    return names;
  }

  char marker_[1] = "";
  int number_ = 0;  // of names made
  const Properties properties_;
  OXAPropertyModel implementation_{properties_.manager.get()};
  IOXAPropertyModel& model_ = implementation_;
};

}  // namespace oxa_test
