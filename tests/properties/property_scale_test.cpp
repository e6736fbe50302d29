// Deep paths, which recursion would not survive, and many properties, which a cost that grows with
// the square would not let end.
#include <functional>

#include "properties/OXAPropertyModel.h"
#include "support.h"
#include "support/random.h"
#include "support/small_stack.h"

using namespace oxa_test;

namespace {

constexpr int many = runs(100000);

std::string repeated(const char* part, std::size_t count) {
  std::string text;
  for (std::size_t number = 0; number < count; ++number) {
    text += part;
  }
  return text;
}

void expect_one_below(const std::string& top, const std::string& path) {
  on_small_stack([&] {
    const Properties properties;
    IOXAProperty& property = properties.add(path.c_str(), "x");
    EXPECT_EQ(path, property.Namespace());
    EXPECT_EQ(properties.find(path.c_str(), "x"), &property);
    EXPECT_EQ(properties.find((path + "::").c_str(), "x"), nullptr);
    oxa::Ref<IOXAPropertyEnum> all;
    properties.manager->GetPropertyEnum(top.c_str(), true, oxa::adopt_into(all));
    EXPECT_EQ(all->Count(), 1);
    properties.manager->GetPropertyEnum(oxa::adopt_into(all));
    EXPECT_EQ(all->Count(), 1);
    EXPECT_EQ(properties.manager->Unregister(path.c_str(), "x"), S_OK);
  });
}

TEST(PropertyScaleTest, APathMayBeDeep) { expect_one_below("a", "a" + repeated("::b", deep / 10)); }

TEST(PropertyScaleTest, APathMayHaveManyEmptyParts) {
  expect_one_below("", repeated("::", deep / 10));
}

using NamespaceOf = std::string (*)(int);

// Calls `each` with the namespace, the name, and the number of each of many properties.
void for_many(NamespaceOf ns, const std::function<void(const char*, const char*, int)>& each) {
  for (int number = 0; number < many && !testing::Test::HasFailure(); ++number) {
    each(ns(number).c_str(), std::to_string(number).c_str(), number);
  }
}

void register_find_list_and_unregister(NamespaceOf of) {
  const Properties properties;
  for_many(of, [&](auto* ns, auto* name, int number) {
    EXPECT_EQ(properties.add(ns, name).ID(), number);
  });
  for_many(of, [&](auto* ns, auto* name, int number) {
    IOXAProperty* property = properties.find(ns, name);
    ASSERT_NE(property, nullptr);
    EXPECT_EQ(property->ID(), number);
  });
  oxa::Ref<IOXAPropertyEnum> all;
  properties.manager->GetPropertyEnum(oxa::adopt_into(all));
  EXPECT_EQ(all->Count(), many);
  for_many(of, [&](auto* ns, auto* name, int) {
    EXPECT_EQ(properties.manager->Unregister(ns, name), S_OK);
  });
  EXPECT_EQ(properties.listed(), Lines());
}

TEST(PropertyScaleTest, ANamespaceMayHaveManyProperties) {
  register_find_list_and_unregister([](int) -> std::string { return "a"; });
}

TEST(PropertyScaleTest, ANamespaceMayHaveManyNamespaces) {
  register_find_list_and_unregister([](int number) { return "a::" + std::to_string(number); });
}

TEST(PropertyScaleTest, ManyPropertiesHaveValues) {
  const Properties properties;
  OXAPropertyModel model(properties.manager.get());
  const NamespaceOf of = [](int number) { return std::to_string(number % 100) + "::a"; };
  for_many(of, [&](auto* ns, auto* name, int) {
    properties.add(ns, name, DataType::Int);
    EXPECT_EQ(model.SetProperty(ns, name, name), S_OK);
  });
  for_many(of, [&](auto* ns, auto* name, int) {
    char* text = nullptr;
    ASSERT_EQ(model.GetProperty(ns, name, &text), S_OK);
    EXPECT_STREQ(text, name);
  });
  oxa::Ref<IOXAPropertyEnum> all;
  model.GetPropertyEnum(oxa::adopt_into(all));
  EXPECT_EQ(all->Count(), many);
  for_many(of, [&](auto* ns, auto* name, int) { EXPECT_EQ(model.RemoveProperty(ns, name), S_OK); });
}

}  // namespace
