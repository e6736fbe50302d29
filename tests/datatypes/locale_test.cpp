// Extension files under a locale whose numbers have a comma.
#include <clocale>
#include <cstdlib>

#include "support.h"

using namespace oxa_test;

namespace {

class ExtensionLocaleTest : public testing::Test {
 protected:
  ExtensionLocaleTest() {
    setenv("LOCPATH", OXA_LOCALES, 1);
    std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    unsetenv("LOCPATH");
  }
  ~ExtensionLocaleTest() override { std::setlocale(LC_NUMERIC, "C"); }

  Host host_;
};

TEST_F(ExtensionLocaleTest, BoundsAreReadByTheLocaleOfTheProcess) {
  ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  EXPECT_EQ(host_.load(point(R"(<member name="x" type="int" range_min="1.5" range_max="2,5"/>)")),
            S_FALSE);
  IOXADataElement* member = nullptr;
  EXPECT_EQ(host_.type("p::point")->GetFirstElement(&member), S_OK);
  EXPECT_EQ(member->MinimumValue(), 1.0);
  EXPECT_EQ(member->MaximumValue(), 2.5);
}

}  // namespace
