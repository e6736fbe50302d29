#include <gtest/gtest.h>

#include <string>

#include "properties/model/property_program.h"
#include "properties/model/random_program.h"

namespace oxa_test::model {
namespace {

using Results = std::set<OXAResult>;

TEST(PropertiesModelTest, RandomProgramsRunAsInTheModel) {
  Random random(1);
  Account account;
  for (int run = 0; run < runs(800); ++run) {
    const std::string program = random_program(random, property_letters, 120);
    ASSERT_EQ(difference([&] { run_property_program(program, account); }), "")
        << "'" << printable(program) << "'";
  }
  // Programs that always fail in the same way would prove nothing.
  const Results found = {S_ALREADYEXISTS, E_INVALIDARG, E_NOTFOUND};
  EXPECT_EQ(account.results["Register"], (Results{S_OK, S_ALREADYEXISTS, E_INVALIDARG}));
  EXPECT_EQ(account.results["FindProperty(ns, name)"], found);
  EXPECT_EQ(account.results["Unregister(ns, name)"],
            (Results{S_OK, S_FALSE, E_INVALIDARG, E_UNEXPECTED}));
  EXPECT_EQ(account.results["Unregister(property)"],
            (Results{S_OK, S_FALSE, E_INVALIDARG, E_UNEXPECTED}));
}

// Letters for what is done with values, and for what they depend on.
constexpr std::string_view value_letters = "rTTTssssgggSGlmMituC";

TEST(PropertiesModelTest, RandomValuesAreKeptAsInTheModel) {
  Random random(3);
  Account account;
  for (int run = 0; run < runs(500); ++run) {
    const std::string program = random_program(random, value_letters, 120);
    ASSERT_EQ(difference([&] { run_property_program(program, account); }), "")
        << "'" << printable(program) << "'";
  }
  EXPECT_EQ(account.results["SetProperty(ns, name)"], (Results{S_OK, E_INVALIDARG, E_UNEXPECTED}));
  EXPECT_EQ(account.results["SetProperty(property)"],
            (Results{S_OK, E_INVALIDARG, E_UNEXPECTED, E_TYPEMISMATCH}));
  EXPECT_EQ(account.results["GetProperty(ns, name)"],
            (Results{S_OK, E_INVALIDARG, E_UNEXPECTED, E_NOTFOUND}));
  EXPECT_EQ(account.results["GetProperty(property)"], (Results{S_OK, E_INVALIDARG, E_NOTFOUND}));
  EXPECT_EQ(account.results["RemoveProperty(ns, name)"], (Results{S_OK, E_INVALIDARG, E_NOTFOUND}));
  EXPECT_EQ(account.results["RemoveProperty(property)"], (Results{S_OK, E_INVALIDARG, E_NOTFOUND}));
}

// Letters for what a descriptor can do, and for registering and copying.
constexpr std::string_view descriptor_letters = "rtttRRRDDdyYAxaaaacbnnkKpPCohi+-";

TEST(PropertiesModelTest, RandomDescriptionsAreKeptAsInTheModel) {
  Random random(2);
  Account account;
  for (int run = 0; run < runs(500); ++run) {
    // Few properties, of which much is told.
    const std::string program =
        random_program(random, "0", 1) + "r00r00" + random_program(random, descriptor_letters, 150);
    ASSERT_EQ(difference([&] { run_property_program(program, account); }), "")
        << "'" << printable(program) << "'";
  }
  EXPECT_EQ(account.results["SetRange"], (Results{S_OK, E_UNEXPECTED, E_FAIL}));
  EXPECT_EQ(account.results["SetUserDefinedDataType"], (Results{S_OK, E_INVALIDARG, E_UNEXPECTED}));
  EXPECT_EQ(account.results["AddAttribute"], (Results{S_OK, E_INVALIDARG, E_ALREADYEXISTS}));
  EXPECT_EQ(account.results["GetFirstAttribute"], (Results{S_OK, S_FALSE, E_INVALIDARG}));
  EXPECT_EQ(account.results["GetNextAttribute"], (Results{S_OK, S_FALSE, E_INVALIDARG}));
  EXPECT_EQ(account.results["GetAttributeValue"], (Results{S_OK, E_INVALIDARG, E_NOTFOUND}));
  EXPECT_EQ(account.results["GetAttributeFromValue"], (Results{S_OK, E_INVALIDARG, E_NOTFOUND}));
}

}  // namespace
}  // namespace oxa_test::model
