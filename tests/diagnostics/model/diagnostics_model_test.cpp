#include <gtest/gtest.h>

#include <string>

#include "diagnostics/model/diagnostics_program.h"
#include "properties/model/random_program.h"

namespace oxa_test::model {
namespace {

using Results = std::set<OXAResult>;

TEST(DiagnosticsModelTest, RandomProgramsRunAsInTheModel) {
  Random random(1);
  Account account;
  for (int run = 0; run < runs(800); ++run) {
    const std::string program = random_program(random, diagnostics_letters, 150);
    ASSERT_EQ(difference([&] { run_diagnostics_program(program, account); }), "")
        << "'" << printable(program) << "'";
  }
  // Programs that always fail in the same way would prove nothing.
  EXPECT_EQ(account.results["SetColumnCount"], (Results{S_OK, E_INVALIDARG}));
  EXPECT_EQ(account.results["SetColumnHeader"], (Results{S_OK, E_INVALIDARG}));
  EXPECT_EQ(account.results["CreateCategory"], (Results{S_OK, E_INVALIDARG, E_ALREADYEXISTS}));
  EXPECT_EQ(account.results["GetFirst, GetNext of categories"], (Results{S_OK, S_FALSE}));
  EXPECT_EQ(account.results["GetDiagnosticToolTip"], (Results{S_OK, S_FALSE, E_INVALIDARG}));
  EXPECT_EQ(account.results["AddDiagnostic"], (Results{S_OK, E_INVALIDARG}));
  EXPECT_EQ(account.results["GetFirst"], (Results{S_OK, S_FALSE, E_INVALIDARG}));
  EXPECT_EQ(account.results["GetNext"], (Results{S_OK, S_FALSE, E_INVALIDARG}));
  EXPECT_EQ(account.results["SetValue"], (Results{S_OK, E_INVALIDARG}));
  EXPECT_EQ(account.results["SetDiagnostic(texts)"], (Results{S_OK, E_INVALIDARG}));
}

// Letters for categories in categories, which are dropped and released.
constexpr std::string_view tree_letters = "cccCCCCDDAAAbBBBn+-eEwWfFFqQNZ";

TEST(DiagnosticsModelTest, RandomTreesOfCategoriesEndAsInTheModel) {
  Random random(2);
  Account account;
  for (int run = 0; run < runs(800); ++run) {
    const std::string program = random_program(random, tree_letters, 150);
    ASSERT_EQ(difference([&] { run_diagnostics_program(program, account); }), "")
        << "'" << printable(program) << "'";
  }
}

}  // namespace
}  // namespace oxa_test::model
