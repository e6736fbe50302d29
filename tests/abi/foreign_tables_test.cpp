// Rows and properties that were compiled elsewhere and without type information, in the library's
// hands.
#include "abi/foreign_tables.h"

#include <gtest/gtest.h>
#include <oxa/oxa.h>

#include <string>

#include "properties/OXAPropertyModel.h"

namespace {

class ForeignTablesTest : public testing::TestWithParam<const char*> {
 protected:
  ForeignTablesTest() {
    handle_ = LoadPlugin((std::string(OXA_FOREIGN_TABLES "/") + GetParam() + ".so").c_str());
    const auto function = FindFunction(handle_, "GetForeignTables");
    tables = reinterpret_cast<const ForeignTables* (*)()>(function)();
  }
  ~ForeignTablesTest() override { UnloadPlugin(handle_); }

  const ForeignTables* tables = nullptr;

 private:
  void* handle_;
};

TEST_P(ForeignTablesTest, ACategoryTakesOverAForeignRow) {
  oxa::Ref<IOXADiagnosticsManager> manager;
  OXACreateDiagnosticsManager(oxa::adopt_into(manager));
  IOXADiagnosticCategory& category = oxa::category(*manager, "findings");
  const auto foreign = oxa::Ref<IOXADiagnostic>::adopt(tables->make_diagnostic());
  EXPECT_EQ(oxa::add_diagnostic(category, foreign), S_OK);
  EXPECT_EQ(foreign->CheckReference(), 2);
  EXPECT_EQ(manager->SetColumnCount(4), S_OK);
  for (IOXADiagnostic* row : oxa::diagnostics(category)) {
    EXPECT_EQ(row, foreign.get());
    EXPECT_EQ(oxa::value_of<std::string>(row->GetValue(3)), "of 4");
  }
  manager.reset();
  EXPECT_EQ(foreign->CheckReference(), 1);
}

TEST_P(ForeignTablesTest, AModelHoldsValuesOfForeignProperties) {
  auto foreign = oxa::Ref<IOXAPropertyManager>::adopt(tables->make_property_manager());
  OXAPropertyModel model(foreign.get());
  EXPECT_EQ(foreign->CheckReference(), 2);
  foreign.reset();
  EXPECT_EQ(model.SetProperty("any", "name", "42"), S_OK);
  EXPECT_EQ(model.SetProperty("any", "name", "text"), E_INVALIDARG);
  char* text = nullptr;
  EXPECT_EQ(model.GetProperty("other", "name", &text), S_OK);
  EXPECT_STREQ(text, "42");
  oxa::Ref<IOXAPropertyEnum> list;
  model.GetPropertyEnum(oxa::adopt_into(list));
  EXPECT_EQ(list->Count(), 1);
}

INSTANTIATE_TEST_SUITE_P(EachCompiler, ForeignTablesTest, testing::Values("g++", "clang++"),
                         [](const auto& tested) {
                           return std::string(tested.param[0] == 'g' ? "GCC" : "Clang");
                         });

}  // namespace
