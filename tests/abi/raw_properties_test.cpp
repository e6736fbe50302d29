// A hand-made manager under the property model: which slots the model calls, and in which order.
#include <gtest/gtest.h>

#include <oxa/IOXAProperty.h>
#include <oxa/IOXAPropertyEnum.h>

#include <string>

#include "abi/raw.h"
#include "abi/raw_object.h"
#include "properties/OXAPropertyModel.h"

using namespace oxa_test;

namespace {

int id(RawObject* self) {
  note(self, "5");
  return 7;
}

std::int32_t data_type(RawObject* self) {
  note(self, "9");
  return 4;  // Int
}

const auto property_table = raw_table(typeid(IOXAProperty), no, no, no, no, id, no, no, no,
                                      data_type, no, no, no, no, no, no, no, no, no, no, no, no, no,
                                      no, no, no, no, no, no, no, no, no, no, no, no, no, no, no);

struct RawManager : RawObject {
  RawObject* property;
};

OXAResult register_property(RawManager* self, const char* ns, const char* name, RawObject** out) {
  note(self, "4 " + std::string(ns) + " " + name);
  *out = self->property;
  return self->property == nullptr ? E_FAIL : S_ALREADYEXISTS;
}

OXAResult find_property(RawManager* self, unsigned long wanted, RawObject** out) {
  note(self, "9 " + std::to_string(wanted));
  *out = self->property;
  return S_OK;
}

const auto manager_table = raw_table(typeid(IOXAPropertyManager), add, release, no,
                                     register_property, no, no, no, no, find_property, no);

class RawPropertiesTest : public testing::Test {
 protected:
  std::string calls;
  RawObject property{property_table.slots.data(), 'p', &calls};
  RawManager manager{{manager_table.slots.data(), 'm', &calls}, &property};
  IOXAPropertyManager* const given = reinterpret_cast<IOXAPropertyManager*>(&manager);
};

TEST_F(RawPropertiesTest, TheManagerIsReferencedAndReleased) {
  { const OXAPropertyModel model(given); }
  EXPECT_EQ(calls, "m1 m2 ");
}

TEST_F(RawPropertiesTest, APropertyIsFoundByRegisteringIt) {
  OXAPropertyModel model(given);
  calls.clear();
  EXPECT_EQ(model.SetProperty("a", "x", "5"), S_OK);
  char* text = nullptr;
  EXPECT_EQ(model.GetProperty("a", "x", &text), S_OK);
  EXPECT_STREQ(text, "5");
  EXPECT_EQ(model.RemoveProperty("a", "x"), S_OK);
  EXPECT_EQ(calls, "m4 a x p5 p9 m4 a x p5 p9 m4 a x p5 ");
}

TEST_F(RawPropertiesTest, AValueIsListedByItsId) {
  OXAPropertyModel model(given);
  model.SetProperty("a", "x", "5");
  calls.clear();
  oxa::Ref<IOXAPropertyEnum> list;
  EXPECT_EQ(model.GetPropertyEnum(oxa::adopt_into(list)), S_OK);
  EXPECT_EQ(calls, "m9 7 ");
  IOXAProperty* found = nullptr;
  EXPECT_EQ(list->GetFirst(&found), S_OK);
  EXPECT_EQ(static_cast<void*>(found), &property);
}

TEST_F(RawPropertiesTest, AManagerThatRefusesIsReportedAsUnexpected) {
  OXAPropertyModel model(given);
  manager.property = nullptr;
  char* text = nullptr;
  EXPECT_EQ(model.SetProperty("a", "x", "5"), E_UNEXPECTED);
  EXPECT_EQ(model.GetProperty("a", "x", &text), E_UNEXPECTED);
  EXPECT_EQ(model.RemoveProperty("a", "x"), E_UNEXPECTED);
}

}  // namespace
