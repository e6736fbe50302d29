// Tables of properties that only code inside the library sees.
#include <gtest/gtest.h>

#include <oxa/sdk/variant.h>

#include <string>

#include "abi/destructors.h"
#include "abi/raw.h"
#include "properties/OXAPropertyManager.h"
#include "properties/OXAPropertyModel.h"

using namespace oxa_test;

namespace {

TEST(InternalPropertySlotsTest, ThePrimaryTableOfAPropertyHasTheDestructorsBeforeItsOperations) {
  OXAPropertyManager manager;
  IOXAProperty* property = nullptr;
  manager.Register("a", "x", &property);
  void* object = static_cast<OXAProperty*>(property);
  void* clone = nullptr;
  EXPECT_EQ(static_cast<char*>(static_cast<void*>(property)) - static_cast<char*>(object), 16);
  EXPECT_EQ(call_slot<OXAResult>(object, 6, &clone), S_OK);
  EXPECT_EQ(call_slot<std::int64_t>(clone, 2), 0);
  EXPECT_EQ(text_in(object, 8), "x");
  EXPECT_FALSE(call_slot<bool>(object, 39));
}

// The preferences keep it to themselves.
TEST(InternalPropertySlotsTest, PropertyManager) {
  void* manager = new OXAPropertyManager();
  void* property = nullptr;
  void* found = nullptr;
  EXPECT_EQ(call_slot<std::int64_t>(manager, check_slot), 1);
  EXPECT_EQ(call_slot<OXAResult>(manager, 4, "a::b", "x", &property), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(manager, 9, 0UL, &found), S_OK);
  EXPECT_EQ(found, property);
  EXPECT_EQ(call_slot<OXAResult>(manager, 10, "a::b", "x", &found), S_ALREADYEXISTS);
  EXPECT_EQ(found, property);
  EXPECT_EQ(call_slot<OXAResult>(manager, 5, "a::b", "y"), E_UNEXPECTED);
  EXPECT_EQ(call_slot<OXAResult>(manager, 6, property), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(manager, 10, "a::b", "x", &found), E_NOTFOUND);
  EXPECT_EQ(call_slot<OXAResult>(manager, 4, "a", "y", &property), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(manager, 5, "a", "y"), S_OK);
  EXPECT_EQ(call_slot<std::int64_t>(manager, release_slot), 0);
}

unsigned long count_and_release(void* enumerator) {
  const auto count = call_slot<unsigned long>(enumerator, 7);
  EXPECT_EQ(call_slot<std::int64_t>(enumerator, release_slot), 0);
  return count;
}

TEST(InternalPropertySlotsTest, PropertyManagerEnumerators) {
  OXAPropertyManager manager;
  IOXAProperty* property = nullptr;
  void* list = nullptr;
  manager.Register("a", "x", &property);
  manager.Register("a::b", "y", &property);
  EXPECT_EQ(call_slot<OXAResult>(&manager, 7, &list), S_OK);
  EXPECT_EQ(count_and_release(list), 2);
  EXPECT_EQ(call_slot<OXAResult>(&manager, 8, "a", false, &list), S_OK);
  EXPECT_EQ(count_and_release(list), 1);
  EXPECT_EQ(call_slot<OXAResult>(&manager, 8, "a", true, &list), S_OK);
  EXPECT_EQ(count_and_release(list), 2);
}

TEST(InternalPropertySlotsTest, TheDestructorsFollowThePropertyManager) {
  expect_destructors_at(11, [] {
    auto* manager = new OXAPropertyManager();
    IOXAProperty* property = nullptr;
    manager->Register("a", "x", &property);
    return static_cast<void*>(manager);
  });
}

TEST(InternalPropertySlotsTest, TheDestructorsFollowTheViewHints) {
  expect_destructors_at(11, [] {
    auto* hints = new OXAPropertyViewHints();
    hints->SetAlias("a text that is long enough to need memory");
    return static_cast<void*>(hints);
  });
}

// A model over a manager with the property "x" of "a", an Int.
struct Model {
  Model() {
    manager->Register("a", "x", &property);
    property->SetDataType(OXA::Property::DataType::Int);
  }

  oxa::Ref<OXAPropertyManager> manager = oxa::make<OXAPropertyManager>();
  IOXAProperty* property = nullptr;
  OXAPropertyModel model{manager.get()};
};

TEST(InternalPropertySlotsTest, PropertyModelHasNoReferences) {
  Model values;
  void* model = &values.model;
  const char* text = nullptr;
  OXAVariant value = oxa::make_variant(7);
  EXPECT_EQ(call_slot<OXAResult>(model, 1, "a", "x", "5"), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(model, 3, "a", "x", &text), S_OK);
  EXPECT_STREQ(text, "5");
  EXPECT_EQ(call_slot<OXAResult>(model, 2, values.property, &value), S_OK);
  value.int_value = 0;
  EXPECT_EQ(call_slot<OXAResult>(model, 4, values.property, &value), S_OK);
  EXPECT_EQ(value.int_value, 7);
  EXPECT_EQ(call_slot<OXAResult>(model, 5, "a", "x"), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(model, 6, values.property), E_NOTFOUND);
}

TEST(InternalPropertySlotsTest, PropertyModelEnumerator) {
  Model values;
  void* list = nullptr;
  values.model.SetProperty("a", "x", "5");
  EXPECT_EQ(call_slot<OXAResult>(&values.model, 7, &list), S_OK);
  EXPECT_EQ(count_and_release(list), 1);
}

TEST(InternalPropertySlotsTest, TheDestructorsFollowThePropertyModel) {
  const Model values;
  expect_destructors_at(8, [&] {
    auto* model = new OXAPropertyModel(values.manager.get());
    model->SetProperty("a", "x", "5");
    return static_cast<void*>(model);
  });
}

TEST(InternalPropertySlotsTest, TheTwoConversionsFollowTheDestructorsOfThePropertyModel) {
  Model values;
  void* model = &values.model;
  OXAVariant value;
  const char* text = nullptr;
  alignas(char*) char six[sizeof(char*)] = "6";
  values.model.SetProperty("a", "x", "5");
  EXPECT_EQ(call_slot<OXAResult>(model, 10, values.property, &text, &value), S_OK);
  EXPECT_EQ(std::string(text != nullptr ? text : "null"), "5");
  EXPECT_EQ(call_slot<OXAResult>(model, 11, values.property, &six[0], &value), S_OK);
  EXPECT_EQ(value.int_value, 6);
}

}  // namespace
