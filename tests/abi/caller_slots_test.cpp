// Which slot each operation of each interface calls: the side of whoever holds the pointer.
#include <gtest/gtest.h>

#include <oxa/oxa.h>

#include "abi/slot_teller.h"

using namespace oxa_test;

namespace {

TEST(CallerSlotsTest, EveryInterfaceBeginsWithTheReferenceOperations) {
  expect_reference_slots<IOXAReference>();
  expect_reference_slots<IOXAContext>();
  expect_reference_slots<IOXADataElement>();
  expect_reference_slots<IOXADebugMessage>();
  expect_reference_slots<IOXADiagnostic>();
  expect_reference_slots<IOXADiagnosticCategory>();
  expect_reference_slots<IOXADiagnosticCategoryEnum>();
  expect_reference_slots<IOXADiagnosticsManager>();
  expect_reference_slots<IOXADirectoryScanner>();
  expect_reference_slots<IOXAInterfaceEnum>();
  expect_reference_slots<IOXAInterfaceManager>();
  expect_reference_slots<IOXAPlugin>();
  expect_reference_slots<IOXAPluginDataTypeNamespace>();
  expect_reference_slots<IOXAPluginLoader>();
  expect_reference_slots<IOXAPreferences>();
  expect_reference_slots<IOXAProgressIndicator>();
  expect_reference_slots<IOXAProperty>();
  expect_reference_slots<IOXAPropertyDataTypeTranslator>();
  expect_reference_slots<IOXAPropertyEnum>();
  expect_reference_slots<IOXAPropertyManager>();
  expect_reference_slots<IOXAUserDefinedDataType>();
  expect_reference_slots<IOXAUserDefinedDataTypeManager>();
  expect_reference_slots<IOXAXMLAttributeEnum>();
  expect_reference_slots<IOXAXMLDocument>();
  expect_reference_slots<IOXAXMLElement>();
  expect_reference_slots<IOXAXMLElementEnum>();
  expect_reference_slots<IOXAXMLParser>();
}

TEST(CallerSlotsTest, Context) {
  SlotTeller<IOXAContext> context;
  EXPECT_EQ(context->GetInterface(IID_IOXAContext, nullptr), 4);
  EXPECT_EQ(context->AddToContext(IID_IOXAContext, nullptr), 5);
}

TEST(CallerSlotsTest, InterfaceManager) {
  SlotTeller<IOXAInterfaceManager> manager;
  EXPECT_EQ(manager->GetInterfaceEnumByGUID(IID_IOXAPlugin, nullptr), 4);
  EXPECT_EQ(manager->GetInterfaceEnumByNamespace("", nullptr), 5);
  EXPECT_EQ(manager->RegisterInterface("", IID_IOXAPlugin, nullptr), 6);
  EXPECT_EQ(manager->UnRegisterInterface("", IID_IOXAPlugin, nullptr), 7);
}

TEST(CallerSlotsTest, InterfaceEnum) {
  SlotTeller<IOXAInterfaceEnum> enumerator;
  _GUID iid{};
  EXPECT_EQ(enumerator->GetFirst(iid, nullptr), 4);
  EXPECT_EQ(enumerator->GetNext(iid, nullptr), 5);
}

template <class Enumerator>
void expect_list_enumerator_slots() {
  SlotTeller<Enumerator> enumerator;
  EXPECT_EQ(enumerator->GetFirst(nullptr), 4);
  EXPECT_EQ(enumerator->GetNext(nullptr), 5);
  EXPECT_EQ(enumerator->Clone(nullptr), 6);
  EXPECT_EQ(enumerator->Count(), 7);
}

TEST(CallerSlotsTest, ListEnumerators) {
  expect_list_enumerator_slots<IOXAPropertyEnum>();
  expect_list_enumerator_slots<IOXADiagnosticCategoryEnum>();
}

TEST(CallerSlotsTest, Id) {
  SlotTeller<IOXAId> id;
  EXPECT_EQ(id->CreateID(), 1);
  id->Reset();
  EXPECT_EQ(called, 2);
  id->Reset(7);
  EXPECT_EQ(called, 3);
  EXPECT_EQ(id->CurrentValue(), 4);
}

TEST(CallerSlotsTest, DebugMessage) {
  SlotTeller<IOXADebugMessage> sink;
  EXPECT_EQ(slot_called_by([&] { sink->EmitError("x"); }), 4);
  EXPECT_EQ(slot_called_by([&] { sink->EmitMessage("x"); }), 5);
  EXPECT_EQ(slot_called_by([&] { sink->EmitWarning("x"); }), 6);
  EXPECT_EQ(slot_called_by([&] { sink->Clear(); }), 7);
  EXPECT_EQ(slot_called_by([&] { sink->SetDefaultWarningLevel(1); }), 8);
  EXPECT_EQ(slot_called_by([&] { sink->SetDefaultMessageLevel(1); }), 9);
  EXPECT_EQ(slot_called_by([&] { sink->EmitMessage(1, "x"); }), 10);
  EXPECT_EQ(slot_called_by([&] { sink->EmitWarning(1, "x"); }), 11);
}

TEST(CallerSlotsTest, ProgressIndicator) {
  SlotTeller<IOXAProgressIndicator> progress;
  EXPECT_EQ(progress->Begin(), 4);
  EXPECT_EQ(progress->End(), 5);
  EXPECT_EQ(progress->UpdateMessage("x"), 6);
  EXPECT_EQ(progress->UpdateTitle("x"), 7);
  EXPECT_EQ(progress->SetHeartbeatFrequency(1), 8);
  EXPECT_EQ(slot_called_by([&] { static_cast<void>(progress->IsActive()); }), 9);
}

TEST(CallerSlotsTest, DirectoryScanner) {
  SlotTeller<IOXADirectoryScanner> scanner;
  EXPECT_EQ(scanner->Scan(L"", ""), 4);
  EXPECT_EQ(scanner->GetFirst(nullptr), 5);
  EXPECT_EQ(scanner->GetNext(nullptr), 6);
}

TEST(CallerSlotsTest, Plugin) {
  SlotTeller<IOXAPlugin> plugin;
  EXPECT_EQ(slot_called_by([&] { plugin->GetName(); }), 4);
  EXPECT_EQ(slot_called_by([&] { plugin->GetVersion(); }), 5);
  EXPECT_EQ(plugin->GetInterfaceEnum(nullptr), 6);
}

TEST(CallerSlotsTest, PluginLoader) {
  SlotTeller<IOXAPluginLoader> loader;
  EXPECT_EQ(loader->Load(L""), 4);
  EXPECT_EQ(loader->LoadAll(L""), 5);
  EXPECT_EQ(loader->Unload(L""), 6);
  EXPECT_EQ(loader->UnloadAll(), 7);
}

TEST(CallerSlotsTest, XMLElement) {
  SlotTeller<IOXAXMLElement> element;
  char* text = nullptr;
  EXPECT_EQ(slot_called_by([&] { element->Name(); }), 4);
  EXPECT_EQ(element->SetName(""), 5);
  EXPECT_EQ(element->SetText(""), 6);
  EXPECT_EQ(slot_called_by([&] { static_cast<void>(element->HasChildren()); }), 7);
  EXPECT_EQ(slot_called_by([&] { static_cast<void>(element->hasText()); }), 8);
  EXPECT_EQ(element->GetText(text), 9);
  EXPECT_EQ(element->GetHTMLEscapedText(text), 10);
  EXPECT_EQ(element->GetPlainText(text), 11);
  EXPECT_EQ(element->AddAttribute("", ""), 12);
  EXPECT_EQ(element->GetAttribute("", nullptr), 13);
  EXPECT_EQ(element->GetAttributes(nullptr), 14);
  EXPECT_EQ(element->AddChild(nullptr), 15);
  EXPECT_EQ(element->RemoveChild(nullptr), 16);
  EXPECT_EQ(element->GetChild("", nullptr), 17);
  EXPECT_EQ(element->GetChildren("", "", "", nullptr), 18);
  EXPECT_EQ(element->GetImmediateChildren("", "", "", nullptr), 19);
  EXPECT_EQ(element->FirstChild(nullptr), 20);
  EXPECT_EQ(element->FirstChild("", "", "", nullptr), 21);
}

TEST(CallerSlotsTest, XMLElementEnum) {
  SlotTeller<IOXAXMLElementEnum> enumerator;
  EXPECT_EQ(enumerator->GetFirst(nullptr), 4);
  EXPECT_EQ(enumerator->GetNext(nullptr), 5);
  EXPECT_EQ(enumerator->Count(), 6);
}

TEST(CallerSlotsTest, XMLAttributeEnum) {
  SlotTeller<IOXAXMLAttributeEnum> enumerator;
  EXPECT_EQ(enumerator->GetFirst(nullptr, nullptr), 4);
  EXPECT_EQ(enumerator->GetNext(nullptr, nullptr), 5);
}

TEST(CallerSlotsTest, XMLDocument) {
  SlotTeller<IOXAXMLDocument> document;
  EXPECT_EQ(document->CreateElement("", nullptr), 4);
  EXPECT_EQ(document->Open(L""), 5);
  EXPECT_EQ(document->SetBuffer(""), 6);
  EXPECT_EQ(document->Serialize(L""), 7);
  EXPECT_EQ(document->Parse(), 8);
  EXPECT_EQ(document->GetElementByID("", nullptr), 9);
  EXPECT_EQ(document->GetElementEnumByName("", nullptr), 10);
  EXPECT_EQ(document->GetElementEnumByKeyValue("", "", nullptr), 11);
  EXPECT_EQ(document->GetElementEnumByNameKeyValue("", "", "", nullptr), 12);
  EXPECT_EQ(document->SetRoot(nullptr), 13);
  EXPECT_EQ(document->GetRoot(nullptr), 14);
}

TEST(CallerSlotsTest, XMLParser) {
  SlotTeller<IOXAXMLParser> parser;
  EXPECT_EQ(parser->CreateDocument(L"", nullptr), 4);
  EXPECT_EQ(parser->CreateDocumentFromBuffer("", nullptr), 5);
  EXPECT_EQ(parser->CreateEmptyDocument(nullptr), 6);
}

TEST(CallerSlotsTest, PropertyDataTypeTranslator) {
  SlotTeller<IOXAPropertyDataTypeTranslator> translator;
  const auto type = OXA::Property::DataType::Int;
  EXPECT_EQ(slot_called_by([&] { translator->ToGraphml(type); }), 4);
  EXPECT_EQ(slot_called_by([&] { translator->ToString(type); }), 5);
  EXPECT_EQ(translator->ToType(""), static_cast<OXA::Property::DataType>(6));
  EXPECT_EQ(translator->Register(type, "", ""), 7);
}

TEST(CallerSlotsTest, DataElement) {
  SlotTeller<IOXADataElement> element;
  EXPECT_EQ(slot_called_by([&] { element->Name(); }), 4);
  EXPECT_EQ(slot_called_by([&] { element->Namespace(); }), 5);
  EXPECT_EQ(element->Type(), static_cast<OXA::Property::DataType>(6));
  EXPECT_EQ(slot_called_by([&] { element->Tooltip(); }), 7);
  EXPECT_EQ(slot_called_by([&] { element->UserDefinedType(); }), 8);
  EXPECT_EQ(slot_called_by([&] { element->DefaultValue(); }), 9);
  EXPECT_EQ(slot_called_by([&] { element->MinimumValue(); }), 10);
  EXPECT_EQ(slot_called_by([&] { element->MaximumValue(); }), 11);
  EXPECT_EQ(slot_called_by([&] { static_cast<void>(element->IsRangeSet()); }), 12);
  EXPECT_EQ(element->SetName(""), 13);
  EXPECT_EQ(element->SetDataType(OXA::Property::DataType::Int), 14);
  EXPECT_EQ(element->SetTooltip(""), 15);
  EXPECT_EQ(element->SetRange(0, 1), 16);
  EXPECT_EQ(element->SetDefaultValue(""), 17);
  EXPECT_EQ(element->SetUserDefinedTypeString(""), 18);
}

TEST(CallerSlotsTest, UserDefinedDataType) {
  SlotTeller<IOXAUserDefinedDataType> type;
  EXPECT_EQ(slot_called_by([&] { type->Name(); }), 4);
  EXPECT_EQ(slot_called_by([&] { type->Namespace(); }), 5);
  EXPECT_EQ(slot_called_by([&] { type->Type(); }), 6);
  EXPECT_EQ(type->CreateElement(nullptr), 7);
  EXPECT_EQ(type->AddElement(nullptr), 8);
  EXPECT_EQ(type->GetFirstElement(nullptr), 9);
  EXPECT_EQ(type->GetNextElement(nullptr), 10);
  EXPECT_EQ(type->ElementCount(), 11);
}

TEST(CallerSlotsTest, PluginDataTypeNamespace) {
  SlotTeller<IOXAPluginDataTypeNamespace> name_space;
  EXPECT_EQ(slot_called_by([&] { name_space->Name(); }), 4);
  EXPECT_EQ(name_space->AddUserDefinedType("", "", nullptr), 5);
  EXPECT_EQ(name_space->GetFirstType(nullptr), 6);
  EXPECT_EQ(name_space->GetNextType(nullptr), 7);
  EXPECT_EQ(name_space->FindUserDefinedType("", nullptr), 8);
}

TEST(CallerSlotsTest, UserDefinedDataTypeManager) {
  SlotTeller<IOXAUserDefinedDataTypeManager> manager;
  EXPECT_EQ(manager->Load(L""), 4);
  EXPECT_EQ(manager->LoadAll(L""), 5);
  EXPECT_EQ(manager->NewNamespace("", nullptr), 6);
  EXPECT_EQ(manager->GetFirstNamespace(nullptr), 7);
  EXPECT_EQ(manager->GetNextNamespace(nullptr), 8);
  EXPECT_EQ(manager->FindNamespace("", nullptr), 9);
  EXPECT_EQ(slot_called_by([&] { static_cast<void>(manager->TypeDefined("")); }), 10);
  EXPECT_EQ(manager->GetUserType("", nullptr), 11);
}

}  // namespace
