// Extension files under a locale whose numbers have a comma.
#include "support/comma_locale.h"

#include "support.h"

using namespace oxa_test;

namespace {

TEST(ExtensionLocaleTest, BoundsAreReadByTheLocaleOfTheProcess) {
  const CommaCLocale locale;
  const Host host;
  EXPECT_EQ(host.load(point(R"(<member name="x" type="int" range_min="1.5" range_max="2,5"/>)")),
            S_FALSE);
  IOXADataElement* member = nullptr;
  EXPECT_EQ(host.type("p::point")->GetFirstElement(&member), S_OK);
  EXPECT_EQ(member->MinimumValue(), 1.0);
  EXPECT_EQ(member->MaximumValue(), 2.5);
}

}  // namespace
