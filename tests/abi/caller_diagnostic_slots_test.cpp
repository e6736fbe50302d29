// Which slot each operation of diagnostics calls.
#include <gtest/gtest.h>

#include <oxa/oxa.h>

#include <new>

#include "abi/raw_object.h"
#include "abi/slot_teller.h"

using namespace oxa_test;

namespace {

using Operation = IOXADiagnosticsManager::Operation;

TEST(CallerDiagnosticSlotsTest, DiagnosticsManager) {
  SlotTeller<IOXADiagnosticsManager> manager;
  Operation operation{};
  int id = 0;
  EXPECT_EQ(manager->SetColumnCount(1), 4);
  EXPECT_EQ(manager->SetColumnHeader(0, "", operation), 5);
  EXPECT_EQ(manager->GetColumnCount(), 6);
  EXPECT_EQ(manager->GetColumnHeader(0, nullptr), 7);
  EXPECT_EQ(manager->GetColumnOperation(0, operation), 8);
  EXPECT_EQ(manager->CreateCategory("", nullptr), 9);
  EXPECT_EQ(manager->GetDiagnosticCategoryEnum(nullptr), 10);
  EXPECT_EQ(manager->RegisterDiagnosticType("", "", &id), 11);
  EXPECT_EQ(manager->UnregisterDiagnosticType(id), 12);
  EXPECT_EQ(manager->GetDiagnosticToolTip(id, nullptr), 13);
  EXPECT_EQ(manager->GetDiagnosticStatusTip(id, nullptr), 14);
  EXPECT_EQ(slot_called_by([&] { manager->Clear(); }), 15);
}

TEST(CallerDiagnosticSlotsTest, DiagnosticCategory) {
  SlotTeller<IOXADiagnosticCategory> category;
  EXPECT_EQ(category->SetName(""), 4);
  EXPECT_EQ(slot_called_by([&] { category->GetName(); }), 5);
  EXPECT_EQ(category->CreateDiagnostic(nullptr), 6);
  EXPECT_EQ(category->AddDiagnostic(nullptr), 7);
  EXPECT_EQ(category->CreateCategory("", nullptr), 8);
  EXPECT_EQ(category->GetDiagnosticCategoryEnum(nullptr), 9);
  EXPECT_EQ(category->GetFirst(nullptr), 10);
  EXPECT_EQ(category->GetNext(nullptr), 11);
  EXPECT_EQ(category->GetCategoryKeyType(), OXA::Diagnostics::Type{12});
  EXPECT_EQ(category->GetCategoryKey(nullptr), 13);
  EXPECT_EQ(category->SetCategoryKeyType({}), 14);
  EXPECT_EQ(category->SetCategoryKey(nullptr), 15);
}

TEST(CallerDiagnosticSlotsTest, Diagnostic) {
  SlotTeller<IOXADiagnostic> diagnostic;
  OXAVariant value;
  EXPECT_EQ(slot_called_by([&] { diagnostic->GetVerboseString(); }), 4);
  EXPECT_EQ(slot_called_by([&] { diagnostic->GetTerseString(); }), 5);
  EXPECT_EQ(diagnostic->GetDiagnostic(), 6);
  EXPECT_EQ(diagnostic->GetDiagnosticKeyType(), OXA::Diagnostics::Type{8});
  EXPECT_EQ(slot_called_by([&] { diagnostic->GetDiagnosticKey(); }), 9);
  EXPECT_EQ(diagnostic->GetSeverity(), OXA::Diagnostics::Severity{10});
  EXPECT_EQ(diagnostic->SetDiagnostic(1), 11);
  EXPECT_EQ(diagnostic->SetDiagnostic("", ""), 12);
  EXPECT_EQ(diagnostic->SetValue(0, value), 13);
  EXPECT_EQ(diagnostic->SetDiagnosticKeyType({}), 14);
  EXPECT_EQ(diagnostic->SetDiagnosticKey(nullptr), 15);
  EXPECT_EQ(diagnostic->SetSeverity({}), 16);
  EXPECT_EQ(slot_called_by([&] { diagnostic->Resize(1); }), 17);
}

// An object with nothing but the seventh slot, which is asked for a cell.
struct RawRow {
  const void* table;
  int asked = -1;
};

// Makes the cell where the caller wants it: the place is the first argument, the object the second.
OXAVariant* get_value(OXAVariant* cell, RawRow* self, int column) {
  self->asked = column;
  new (cell) OXAVariant(oxa::make_variant("a text that is long enough to need memory"));
  return cell;
}

TEST(CallerDiagnosticSlotsTest, TheSeventhSlotMakesACellInThePlaceOfTheCaller) {
  const auto table = raw_table(typeid(IOXADiagnostic), no, no, no, no, no, no, get_value);
  RawRow row{table.slots.data()};
  const OXAVariant cell = reinterpret_cast<IOXADiagnostic*>(&row)->GetValue(3);
  EXPECT_EQ(row.asked, 3);
  EXPECT_EQ(oxa::value_of<std::string>(cell), "a text that is long enough to need memory");
}

}  // namespace
