// Sizes, offsets, ids and the shape of the factories.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>

#include <oxa/oxa.h>

#include "support/fakes.h"

using namespace oxa_test;

namespace {

TEST(LayoutTest, InterfaceId) {
  EXPECT_EQ(sizeof(_GUID), 24);
  EXPECT_EQ(alignof(_GUID), 8);
  EXPECT_EQ(offsetof(_GUID, Data1), 0);
  EXPECT_EQ(offsetof(_GUID, Data2), 8);
  EXPECT_EQ(offsetof(_GUID, Data3), 10);
  EXPECT_EQ(offsetof(_GUID, Data4), 12);
}

TEST(LayoutTest, ListElement) {
  using Element = OXAInterfaceList::value_type;
  EXPECT_EQ(sizeof(Element), 32);
  EXPECT_EQ(offsetof(Element, first), 0);
  EXPECT_EQ(offsetof(Element, second), 24);
}

TEST(LayoutTest, Scalars) {
  EXPECT_EQ(sizeof(OXAResult), 4);
  EXPECT_EQ(sizeof(wchar_t), 4);
  EXPECT_EQ(sizeof(IOXAReference), 8);
}

struct IdCase {
  const _GUID* iid;
  const char* bytes;  // as they lie in memory, by field
};

const IdCase ids[] = {
    {&IID_IOXAContext, "61AC540100000000 916A 9547 9CA3E7B6092FA95F 00000000"},
    {&IID_IOXADebugMessage, "8361844800000000 DB88 4441 A4E11688739A7FC0 00000000"},
    {&IID_IOXAProgressIndicator, "CEC122D200000000 4999 844D B6BB224C18FC4CD7 00000000"},
    {&IID_IOXADirectoryScanner, "0E7A954500000000 BADF F842 93335305FE966F52 00000000"},
    {&IID_IOXADiagnosticsManager, "ED6964DE00000000 3567 E14D 9B41015DB70A278B 00000000"},
    {&IID_IOXADiagnosticCategoryEnum, "DEBE25AA00000000 FDE3 0548 A3E2C17A1542CB55 00000000"},
    {&IID_IOXADiagnosticCategory, "6662CF4900000000 9F41 FF40 BA887A83475F86D0 00000000"},
    {&IID_IOXADiagnostic, "885702C900000000 E7A6 B447 980BB1416DF21126 00000000"},
    {&IID_IOXAXMLParser, "D862752500000000 A262 2F4E 820B495FED01D186 00000000"},
    {&IID_IOXAPropertyDataTypeTranslator, "8221D8AC00000000 39C1 274E 88C69B83FF901D55 00000000"},
    {&IID_IOXAPropertyManager, "2B417DA300000000 CEA7 4C4D 8839E7A3FDE89AD1 00000000"},
    {&IID_IOXAPropertyModel, "180587A800000000 3AFE 7D43 85C083758182AA43 00000000"},
    {&IID_IOXAPropertyEnum, "13712AB400000000 C639 F646 848C9DB53918B7E8 00000000"},
    {&IID_IOXAProperty, "C169BDB100000000 2566 1A4D 98FB452EC5064168 00000000"},
    {&IID_IOXAPropertyViewHints, "291B364600000000 7195 CF47 90C5639862CABE64 00000000"},
    {&IID_IOXAPreferences, "3A2B941300000000 30F5 254F A295CBB5AC580C72 00000000"},
    {&IID_IOXAInterfaceManager, "96DF6A7B00000000 39B2 5D4A A0BD31E8AA0E462A 00000000"},
    {&IID_IOXAInterfaceEnum, "824D7AC000000000 2294 8D4E A61100BB4447E31A 00000000"},
    {&IID_IOXAPluginLoader, "179662C000000000 B9A2 4A4D 8C5C14DE19DC0E5A 00000000"},
    {&IID_IOXAPlugin, "C673F85500000000 6435 754A A9675CF76C5E8D44 00000000"},
    {&IID_IOXAUserDefinedDataTypeManager, "7D14FEA100000000 57A0 E345 9C4A16822C126309 00000000"},
    {&IID_IOXAFileReader, "18704D5500000000 E0D0 FF46 9052B6D4D228460A 00000000"},
    {&IID_IOXAFileWriter, "F7E16DA600000000 9665 EF44 BA4CECA79E720DC2 00000000"},
    {&IID_IOXAAlgorithm, "111C234600000000 C40C 684B 92B0B4C4E0C7A0A9 00000000"},
    {&IID_IOXALayout, "16699B9D00000000 4C6D A447 AB307BA17EB91D89 00000000"},
    {&IID_IOXALayoutCompute, "B8F743AB00000000 F926 A744 BDFD440DBF5405D1 00000000"},
};

// Returns the 24 bytes of an id, by field.
std::string bytes_of(const _GUID& iid) {
  unsigned char bytes[sizeof iid];
  std::memcpy(bytes, &iid, sizeof iid);
  std::string text;
  for (std::size_t index = 0; index < sizeof iid; ++index) {
    char digits[3];
    std::snprintf(digits, sizeof digits, "%02X", bytes[index]);
    const bool begins_a_field = index == 8 || index == 10 || index == 12 || index == 20;
    text += (begins_a_field ? " " : "") + std::string(digits);
  }
  return text;
}

TEST(LayoutTest, EveryIdLiesInMemoryAsAgreed) {
  for (const IdCase& one : ids) {
    EXPECT_EQ(bytes_of(*one.iid), one.bytes) << oxa::to_string(*one.iid);
  }
}

TEST(LayoutTest, ResultCodes) {
  const std::pair<OXAResult, std::uint32_t> codes[] = {{S_OK, 0},
                                                       {S_FALSE, 1},
                                                       {S_ALREADYEXISTS, 5},
                                                       {E_INVALIDARG, 0x80070057},
                                                       {E_POINTER, 0x80004003},
                                                       {E_NOINTERFACE, 0x80004002},
                                                       {E_OUTOFMEMORY, 0x8007000E},
                                                       {E_NOTFOUND, 0x80004008},
                                                       {E_ALREADYEXISTS, 0x80004007},
                                                       {E_INVALIDDATA, 0x80004009},
                                                       {E_UNEXPECTED, 0x8000FFFF},
                                                       {E_FAIL, 0x80004005},
                                                       {E_HANDLE, 0x80070006},
                                                       {E_BADENVIRONMENT, 0x8007000A},
                                                       {E_OPENFAILED, 0x80004006},
                                                       {E_TYPEMISMATCH, 0x8000400C}};
  for (const auto& [code, value] : codes) {
    EXPECT_EQ(static_cast<std::uint32_t>(code), value);
  }
}

// Returns an id whose padding is not zero.
_GUID with_padding(_GUID iid) {
  std::memset(reinterpret_cast<char*>(&iid) + 20, 0xAB, 4);
  return iid;
}

TEST(IdEqualityTest, PaddingIsNotCompared) {
  EXPECT_EQ(with_padding(IID_IOXAPlugin), IID_IOXAPlugin);
}

TEST(IdEqualityTest, EachOfTheOtherBytesIsCompared) {
  for (std::size_t index = 0; index < 20; ++index) {
    _GUID other = IID_IOXAPlugin;
    reinterpret_cast<unsigned char*>(&other)[index] ^= 1U;
    EXPECT_NE(other, IID_IOXAPlugin) << index;
  }
}

TEST(IdEqualityTest, FactoriesAndServicesIgnorePadding) {
  oxa::Ref<IOXAContext> context;
  oxa::Ref<IOXADebugMessage> sink;
  EXPECT_EQ(OXACreateContext(with_padding(IID_IOXAContext), oxa::adopt_into(context)), S_FALSE);
  EXPECT_EQ(context->GetInterface(with_padding(IID_IOXADebugMessage), oxa::adopt_into(sink)), S_OK);
  oxa::Ref<IOXAXMLParser> parser;
  EXPECT_EQ(OXACreateXMLParser(with_padding(IID_IOXAXMLParser), oxa::adopt_into(parser)), S_OK);
  oxa::Ref<IOXAUserDefinedDataTypeManager> manager;
  EXPECT_EQ(OXACreateUserDefinedDataTypeManager(context.get(),
                                                with_padding(IID_IOXAUserDefinedDataTypeManager),
                                                oxa::adopt_into(manager)),
            S_OK);
}

TEST(FactoryTest, ANullOutputComesBeforeAForeignId) {
  OXAInterfaceList list;
  EXPECT_EQ(OXACreateContext(IID_IOXAPlugin, nullptr), E_INVALIDARG);
  EXPECT_EQ(OXACreateInterfaceEnum(&list, false, IID_IOXAPlugin, nullptr), E_INVALIDARG);
  EXPECT_EQ(OXACreateInterfaceEnum(nullptr, false, IID_IOXAPlugin, nullptr), E_INVALIDARG);
  EXPECT_EQ(OXACreatePluginLoader(nullptr, nullptr), E_INVALIDARG);
  EXPECT_EQ(OXACreateXMLParser(IID_IOXAPlugin, nullptr), E_INVALIDARG);
  EXPECT_EQ(OXACreateUserDefinedDataTypeManager(nullptr, IID_IOXAPlugin, nullptr), E_INVALIDARG);
}

TEST(FactoryTest, ANullOutputIsRefusedWhereThereIsNoId) {
  EXPECT_EQ(OXACreateDiagnosticsManager(nullptr), E_INVALIDARG);
}

TEST(FactoryTest, AForeignIdIsRefusedWithANullOutput) {
  OXAInterfaceList list;
  void* out = &list;
  EXPECT_EQ(OXACreateContext(IID_IOXAPlugin, &out), E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);
  out = &list;
  EXPECT_EQ(OXACreateInterfaceEnum(nullptr, false, IID_IOXAPlugin, &out), E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);
  out = &list;
  EXPECT_EQ(OXACreateXMLParser(IID_IOXAPlugin, &out), E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);
  out = &list;
  EXPECT_EQ(OXACreateUserDefinedDataTypeManager(nullptr, IID_IOXAPlugin, &out), E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);
}

TEST(FactoryTest, AnEnumeratorWithoutAListIsRefusedWithANullOutput) {
  void* out = &out;
  EXPECT_EQ(OXACreateInterfaceEnum(nullptr, true, IID_IOXAInterfaceEnum, &out), E_POINTER);
  EXPECT_EQ(out, nullptr);
}

TEST(FactoryTest, WhatAFactoryMadeHasOneReferenceOfTheCaller) {
  OXAInterfaceList list;
  oxa::Ref<IOXAInterfaceEnum> enumerator;
  oxa::Ref<IOXAContext> context;
  oxa::Ref<IOXAXMLParser> parser;
  oxa::Ref<IOXADiagnosticsManager> diagnostics;
  OXACreateXMLParser(IID_IOXAXMLParser, oxa::adopt_into(parser));
  EXPECT_EQ(parser->CheckReference(), 1);
  OXACreateDiagnosticsManager(oxa::adopt_into(diagnostics));
  EXPECT_EQ(diagnostics->CheckReference(), 1);
  OXACreateInterfaceEnum(&list, false, IID_IOXAInterfaceEnum, oxa::adopt_into(enumerator));
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  EXPECT_EQ(enumerator->CheckReference(), 1);
  EXPECT_EQ(context->CheckReference(), 1);
}

}  // namespace
