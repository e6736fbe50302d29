// Hand-made rows and managers among the library's diagnostics: which of their slots it calls.
#include <gtest/gtest.h>

#include <oxa/IOXADiagnostic.h>

#include <string>

#include "abi/raw.h"
#include "abi/raw_object.h"
#include "diagnostics/OXADiagnosticCategory.h"
#include "diagnostics/OXADiagnosticsManager.h"

using namespace oxa_test;

namespace {

void resize(RawObject* self, int count) { note(self, "17 " + std::to_string(count)); }

const auto row_table = raw_table(typeid(IOXADiagnostic), no, release, no, no, no, no, no, no, no,
                                 no, no, no, no, no, no, no, resize);

TEST(RawDiagnosticTest, ARowIsResizedAndReleased) {
  std::string calls;
  RawObject row{row_table.slots.data(), 'r', &calls};
  auto manager = oxa::make<OXADiagnosticsManager>();
  IOXADiagnosticCategory* category = nullptr;
  manager->CreateCategory("findings", &category);
  EXPECT_EQ(category->AddDiagnostic(reinterpret_cast<IOXADiagnostic*>(&row)), S_OK);
  EXPECT_EQ(calls, "");
  EXPECT_EQ(manager->SetColumnCount(5), S_OK);
  manager.reset();
  EXPECT_EQ(calls, "r17 5 r2 ");
}

int column_count(RawObject* self) {
  note(self, "6");
  return 3;
}

OXAResult register_type(RawObject* self, const char* tool_tip, const char* status_tip, int* id) {
  note(self, "11 " + std::string(tool_tip) + " " + status_tip);
  *id = 7;
  return S_OK;
}

OXAResult tool_tip(RawObject* self, int id, const char** text) {
  note(self, "13 " + std::to_string(id));
  *text = "short";
  return S_OK;
}

OXAResult status_tip(RawObject* self, int id, const char** text) {
  note(self, "14 " + std::to_string(id));
  *text = "long";
  return S_OK;
}

const auto manager_table =
    raw_table(typeid(IOXADiagnosticsManager), no, no, no, no, no, column_count, no, no, no, no,
              register_type, no, tool_tip, status_tip, no);

TEST(RawDiagnosticTest, ARowAsksItsManagerForCellsAndTexts) {
  std::string calls;
  RawObject manager{manager_table.slots.data(), 'm', &calls};
  OXAResult result = E_FAIL;
  const auto category =
      oxa::make<OXADiagnosticCategory>(reinterpret_cast<IOXADiagnosticsManager*>(&manager), result);
  oxa::Ref<IOXADiagnostic> row;
  EXPECT_EQ(category->CreateDiagnostic(oxa::adopt_into(row)), S_OK);
  EXPECT_EQ(row->GetValue(2).text, "");
  EXPECT_EQ(row->GetValue(3).text, "unset");
  EXPECT_EQ(row->SetDiagnostic("terse", "verbose"), S_OK);
  EXPECT_EQ(row->GetDiagnostic(), 7);
  EXPECT_STREQ(row->GetTerseString(), "short");
  EXPECT_STREQ(row->GetVerboseString(), "long");
  EXPECT_EQ(calls, "m6 m11 terse verbose m13 7 m14 7 ");
}

}  // namespace
