// Tables that only code inside the library sees so far.
#include <gtest/gtest.h>

#include <oxa/IOXADiagnosticCategoryEnum.h>
#include <oxa/IOXAPropertyEnum.h>

#include <string>

#include "abi/destructors.h"
#include "abi/raw.h"
#include "core/OXAId.h"
#include "core/OXAListEnum.h"
#include "datatypes/OXAUserDefinedDataTypeManager.h"
#include "plugins/OXAPluginLoader.h"
#include "support/allocations.h"
#include "support/fakes.h"
#include "xml/oxa_xml_tokenizer.h"

using namespace oxa_test;

namespace {

// Items are never looked into, so any address will do.
int objects[2];

template <class Item>
Item* item(int index) {
  return reinterpret_cast<Item*>(&objects[index]);
}

template <class IEnum, class Item>
void expect_list_enumerator_slots() {
  void* enumerator =
      new OXAListEnum<IEnum, Item>(new std::list<Item*>{item<Item>(0), item<Item>(1)}, true);
  void* out = nullptr;
  EXPECT_EQ(call_slot<std::int64_t>(enumerator, 3), 1);
  EXPECT_EQ(call_slot<OXAResult>(enumerator, 4, &out), S_OK);
  EXPECT_EQ(out, &objects[0]);
  EXPECT_EQ(call_slot<OXAResult>(enumerator, 5, &out), S_OK);
  EXPECT_EQ(out, &objects[1]);
  EXPECT_EQ(call_slot<unsigned long>(enumerator, 7), 2);
  EXPECT_EQ(call_slot<OXAResult>(enumerator, 6, &out), S_OK);
  EXPECT_EQ(call_slot<std::int64_t>(out, 2), 0);
  call_slot<void>(enumerator, 9);  // the deleting destructor
}

TEST(InternalSlotsTest, PropertyEnum) {
  expect_list_enumerator_slots<IOXAPropertyEnum, IOXAProperty>();
}

TEST(InternalSlotsTest, DiagnosticCategoryEnum) {
  expect_list_enumerator_slots<IOXADiagnosticCategoryEnum, IOXADiagnosticCategory>();
}

TEST(InternalSlotsTest, Id) {
  void* id = new OXAId();
  EXPECT_EQ(call_slot<unsigned long>(id, 1), 0);
  EXPECT_EQ(call_slot<unsigned long>(id, 4), 1);
  call_slot<void>(id, 3, 10U);
  EXPECT_EQ(call_slot<unsigned long>(id, 4), 10);
  call_slot<void>(id, 2);
  EXPECT_EQ(call_slot<unsigned long>(id, 4), 0);
  call_slot<void>(id, 6);  // the deleting destructor
}

TEST(InternalSlotsTest, TheReferenceBaseGoesOnWithItsDestructors) {
  class Counted final : public OXAReference {};
  void* counted = static_cast<OXAReference*>(new Counted());
  EXPECT_EQ(call_slot<std::int64_t>(counted, 3), 0);
  EXPECT_EQ(call_slot<std::int64_t>(counted, 1), 1);
  call_slot<void>(counted, 5);  // the deleting destructor
}

TEST(InternalSlotsTest, TheLoaderHasItsReferenceCountFirstAndItsInterfaceSecond) {
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  const auto loader = oxa::service<IOXAPluginLoader>(context.get());
  void* object = static_cast<OXAPluginLoader*>(loader.get());
  EXPECT_EQ(static_cast<char*>(static_cast<void*>(loader.get())) - static_cast<char*>(object), 16);
  EXPECT_EQ(call_slot<std::int64_t>(object, 3), 2);
}

TEST(InternalSlotsTest, ThePrimaryTableOfTheLoaderHasTheDestructorsBeforeItsOperations) {
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  const auto loader = oxa::service<IOXAPluginLoader>(context.get());
  void* object = static_cast<OXAPluginLoader*>(loader.get());
  EXPECT_EQ(call_slot<OXAResult>(object, 6, L"/not/there"), E_FAIL);
  EXPECT_EQ(call_slot<OXAResult>(object, 7, static_cast<const wchar_t*>(nullptr)), E_INVALIDARG);
  EXPECT_EQ(call_slot<OXAResult>(object, 8, L"/not/there"), E_NOTFOUND);
  EXPECT_EQ(call_slot<OXAResult>(object, 9), S_OK);
}

// A type and a namespace belong to what made them, so only in here there is one that does not.
TEST(InternalSlotsTest, TheDestructorsFollowTheTypeAndTheNamespace) {
  const std::string name(100, 'n');
  const auto context = oxa::make<FakeContext>();
  OXAResult result = E_FAIL;
  const auto manager = oxa::make<OXAUserDefinedDataTypeManager>(context.get(), result);
  const auto make_namespace = [&] {
    return new OXAPluginDataTypeNamespace(context.get(), manager.get(), name.c_str(), result);
  };
  const auto owner = oxa::Ref<OXAPluginDataTypeNamespace>::adopt(make_namespace());
  expect_destructors_at(9, make_namespace);
  const auto make_type = [&] {
    return new OXAUserDefinedDataType(owner.get(), name.c_str(), "struct", result);
  };
  expect_destructors_at(12, make_type, sizeof(void*));
}

TEST(InternalSlotsTest, TheTokenizerHasGetcAndItsDestructors) {
  const long before = live_allocations();
  int result = E_FAIL;
  void* tokenizer = new oxa_xml_tokenizer("ab", nullptr, result);
  EXPECT_EQ(call_slot<int>(tokenizer, 1), 'a');
  EXPECT_EQ(call_slot<int>(tokenizer, 1), 'b');
  EXPECT_EQ(call_slot<int>(tokenizer, 1), -1);
  call_slot<void>(tokenizer, 2);  // the complete destructor
  EXPECT_EQ(live_allocations(), before + 1);
  operator delete(tokenizer);
  tokenizer = new oxa_xml_tokenizer("ab", nullptr, result);
  call_slot<void>(tokenizer, 3);  // the deleting destructor
  EXPECT_EQ(live_allocations(), before);
}

}  // namespace
