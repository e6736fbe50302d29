// Which slot each operation of properties and settings calls.
#include <gtest/gtest.h>

#include <oxa/oxa.h>

#include "abi/slot_teller.h"

using namespace oxa_test;

namespace {

TEST(CallerPropertySlotsTest, PropertyReads) {
  SlotTeller<IOXAProperty> property;
  EXPECT_EQ(property->Clone(nullptr), 4);
  EXPECT_EQ(property->ID(), 5);
  EXPECT_EQ(slot_called_by([&] { property->Name(); }), 6);
  EXPECT_EQ(slot_called_by([&] { property->Namespace(); }), 7);
  EXPECT_EQ(property->Type(), OXA::Property::Type{8});
  EXPECT_EQ(property->DataType(), static_cast<OXA::Property::DataType>(9));
  EXPECT_EQ(slot_called_by([&] { property->UserDefinedDataType(); }), 10);
  EXPECT_EQ(slot_called_by([&] { property->DefaultValue(); }), 11);
  EXPECT_EQ(slot_called_by([&] { static_cast<void>(property->HasDependency()); }), 12);
  EXPECT_EQ(slot_called_by([&] { static_cast<void>(property->IsRangeSet()); }), 13);
  EXPECT_EQ(slot_called_by([&] { property->MinimumValue(); }), 14);
  EXPECT_EQ(slot_called_by([&] { property->MaximumValue(); }), 15);
  EXPECT_EQ(slot_called_by([&] { property->FullNamespace(); }), 16);
  EXPECT_EQ(slot_called_by([&] { static_cast<void>(property->IsMutable()); }), 17);
}

TEST(CallerPropertySlotsTest, PropertyWrites) {
  SlotTeller<IOXAProperty> property;
  EXPECT_EQ(slot_called_by([&] { property->SetID(1); }), 18);
  EXPECT_EQ(property->SetRange(0, 1), 19);
  EXPECT_EQ(property->SetUserDefinedDataType(""), 20);
  EXPECT_EQ(property->SetDefaultValue(""), 21);
  EXPECT_EQ(slot_called_by([&] { property->SetDependency(true); }), 22);
  EXPECT_EQ(slot_called_by([&] { property->SetPropertyType({}); }), 23);
  EXPECT_EQ(slot_called_by([&] { property->SetDataType({}); }), 24);
  EXPECT_EQ(slot_called_by([&] { property->SetSupportAllNodes(true); }), 25);
  EXPECT_EQ(slot_called_by([&] { property->SetMutable(true); }), 26);
}

TEST(CallerPropertySlotsTest, PropertyHintsAttributesAndSupport) {
  SlotTeller<IOXAProperty> property;
  char* text = nullptr;
  EXPECT_EQ(slot_called_by([&] { property->ViewHints(); }), 27);
  EXPECT_EQ(property->GetAttributeCount(), 28);
  EXPECT_EQ(slot_called_by([&] { property->ClearAttributes(); }), 29);
  EXPECT_EQ(property->AddAttribute("", ""), 30);
  EXPECT_EQ(property->GetFirstAttribute(&text), 31);
  EXPECT_EQ(property->GetNextAttribute(&text), 32);
  EXPECT_EQ(property->GetAttributeValue("", &text), 33);
  EXPECT_EQ(property->GetAttributeFromValue("", &text), 34);
  EXPECT_EQ(slot_called_by([&] { static_cast<void>(property->Supports("", "")); }), 35);
  EXPECT_EQ(property->AddSupport("", ""), 36);
  EXPECT_EQ(slot_called_by([&] { static_cast<void>(property->SupportsAllNodes()); }), 37);
}

TEST(CallerPropertySlotsTest, ViewHintsHaveNoReferences) {
  SlotTeller<IOXAPropertyViewHints> hints;
  EXPECT_EQ(slot_called_by([&] { hints->Alias(); }), 1);
  EXPECT_EQ(hints->SetAlias(""), 2);
  EXPECT_EQ(slot_called_by([&] { hints->Tooltip(); }), 3);
  EXPECT_EQ(hints->SetTooltip(""), 4);
  EXPECT_EQ(hints->Editor(), 5);
  EXPECT_EQ(slot_called_by([&] { hints->SetEditor(1); }), 6);
  EXPECT_EQ(slot_called_by([&] { static_cast<void>(hints->Display()); }), 7);
  EXPECT_EQ(slot_called_by([&] { hints->SetDisplayFlag(true); }), 8);
  EXPECT_EQ(slot_called_by([&] { hints->Group(); }), 9);
  EXPECT_EQ(hints->SetGroup(""), 10);
}

TEST(CallerPropertySlotsTest, PropertyManager) {
  SlotTeller<IOXAPropertyManager> manager;
  IOXAProperty* property = nullptr;
  EXPECT_EQ(manager->Register("", "", &property), 4);
  EXPECT_EQ(manager->Unregister("", ""), 5);
  EXPECT_EQ(manager->Unregister(property), 6);
  EXPECT_EQ(manager->GetPropertyEnum(nullptr), 7);
  EXPECT_EQ(manager->GetPropertyEnum("", true, nullptr), 8);
  EXPECT_EQ(manager->FindProperty(1UL, &property), 9);
  EXPECT_EQ(manager->FindProperty("", "", &property), 10);
}

TEST(CallerPropertySlotsTest, PropertyModelHasNoReferences) {
  SlotTeller<IOXAPropertyModel> model;
  IOXAProperty* property = nullptr;
  char* text = nullptr;
  OXAVariant value;
  EXPECT_EQ(model->SetProperty("", "", ""), 1);
  EXPECT_EQ(model->SetProperty(property, value), 2);
  EXPECT_EQ(model->GetProperty("", "", &text), 3);
  EXPECT_EQ(model->GetProperty(property, value), 4);
  EXPECT_EQ(model->RemoveProperty("", ""), 5);
  EXPECT_EQ(model->RemoveProperty(property), 6);
  EXPECT_EQ(model->GetPropertyEnum(nullptr), 7);
}

TEST(CallerPropertySlotsTest, Preferences) {
  SlotTeller<IOXAPreferences> preferences;
  EXPECT_EQ(preferences->Add("", "", nullptr), 4);
  EXPECT_EQ(preferences->Set("", "", ""), 5);
  EXPECT_EQ(preferences->Get("", "", nullptr), 6);
  EXPECT_EQ(preferences->GetPreferencePropertiesEnum(nullptr), 7);
}

}  // namespace
