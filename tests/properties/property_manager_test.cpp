// The registry of properties.
#include "properties/OXAPropertyManager.h"

#include <utility>

#include "support.h"
#include "support/allocations.h"

using namespace oxa_test;

namespace {

class PropertyManagerTest : public testing::Test {
 protected:
  // Registers a property, or finds that it is there.
  IOXAProperty* registered(const char* ns, const char* name, OXAResult expected) const {
    IOXAProperty* property = marker();
    EXPECT_EQ(properties_.manager->Register(ns, name, &property), expected) << ns << " " << name;
    return property;
  }

  // Finds a property, with the output set to something else before.
  IOXAProperty* found(const char* ns, const char* name, OXAResult expected) const {
    IOXAProperty* property = marker();
    EXPECT_EQ(manager_.FindProperty(ns, name, &property), expected) << ns << " " << name;
    return property;
  }
  IOXAProperty* found(unsigned long id, OXAResult expected) const {
    IOXAProperty* property = marker();
    EXPECT_EQ(manager_.FindProperty(id, &property), expected) << id;
    return property;
  }

  Lines in(const char* ns, bool recursive) const {
    oxa::Ref<IOXAPropertyEnum> all;
    EXPECT_EQ(manager_.GetPropertyEnum(ns, recursive, oxa::adopt_into(all)), S_OK);
    return listed(*all);
  }

  static IOXAProperty* marker() { return reinterpret_cast<IOXAProperty*>(&marked); }

  inline static int marked = 0;
  const Properties properties_;
  IOXAPropertyManager& manager_ = *properties_.manager;
};

TEST_F(PropertyManagerTest, ANameIsRegisteredOnce) {
  IOXAProperty* first = registered("a::b", "x", S_OK);
  fill(*first);
  const std::string before = described(*first);
  EXPECT_EQ(registered("a::b", "x", S_ALREADYEXISTS), first);
  EXPECT_EQ(described(*first), before);
  EXPECT_EQ(first->CheckReference(), 1);
  EXPECT_EQ(properties_.listed().size(), 1);
}

struct Place {
  const char* ns;
  const char* name;
  const char* full;
};

// No two of them are the same property, although some have the same full namespace.
const Place places[] = {
    {"a", "x", "a::x"},
    {"a::b", "x", "a::b::x"},
    {"a::b", "X", "a::b::X"},
    {"a::B", "x", "a::B::x"},
    {"a", "b::x", "a::b::x"},
    {"", "x", "::x"},
    {"", "a::x", "::a::x"},
    {"::a", "x", "::a::x"},
    {"::", "x", "::::x"},
    {"", "::x", "::::x"},
    {"::::", "x", "::::::x"},
    {"a::", "x", "a::::x"},
    {"a::::b", "x", "a::::b::x"},
    {":", "x", ":::x"},
    {":::", "x", ":::::x"},
    {"a:b", "x", "a:b::x"},
    {"a:::b", "x", "a:::b::x"},
    {"a", "", "a::"},
    {"", "", "::"},
    {" a", "x", " a::x"},
    {"a", " ", "a:: "},
    {"\xC3\xA4::\xFF", "x", "\xC3\xA4::\xFF::x"},
    {"a namespace whose name is longer than short ones", "x",
     "a namespace whose name is longer than short ones::x"},
};

TEST_F(PropertyManagerTest, EveryPathAndNameIsAPropertyOfItsOwn) {
  std::vector<IOXAProperty*> properties;
  for (const Place& each : places) {
    properties.push_back(registered(each.ns, each.name, S_OK));
    EXPECT_STREQ(properties.back()->Namespace(), each.ns);
    EXPECT_STREQ(properties.back()->Name(), each.name);
    EXPECT_STREQ(properties.back()->FullNamespace(), each.full);
  }
  for (std::size_t number = 0; number < std::size(places); ++number) {
    EXPECT_EQ(properties[number]->ID(), number);
    EXPECT_EQ(found(places[number].ns, places[number].name, S_ALREADYEXISTS), properties[number]);
    EXPECT_EQ(found(number, S_OK), properties[number]);
  }
}

TEST_F(PropertyManagerTest, FindingGivesWhatIsThereOnly) {
  IOXAProperty* property = registered("a::b", "x", S_OK);
  EXPECT_EQ(found("a::b", "x", S_ALREADYEXISTS), property);
  EXPECT_EQ(property->CheckReference(), 1);
  const std::pair<const char*, const char*> others[] = {
      {"a::b", "y"}, {"a::b", ""},  {"a", "x"},    {"b", "x"},    {"a::b::c", "x"},
      {"", "x"},     {"a", "b::x"}, {"A::b", "x"}, {"a::b", "X"}, {"a::b", "xx"}};
  for (const auto& [ns, name] : others) {
    EXPECT_EQ(found(ns, name, E_NOTFOUND), nullptr);
    EXPECT_EQ(found(ns, name, E_NOTFOUND), nullptr);
  }
  EXPECT_EQ(properties_.listed(), Lines{"a::b::x"});
}

TEST_F(PropertyManagerTest, IdsAreConsecutiveOverAllNamespaces) {
  EXPECT_EQ(found(0, E_NOTFOUND), nullptr);
  EXPECT_EQ(registered("a", "x", S_OK)->ID(), 0);
  EXPECT_EQ(registered("b", "x", S_OK)->ID(), 1);
  EXPECT_EQ(registered("a", "x", S_ALREADYEXISTS)->ID(), 0);
  EXPECT_EQ(registered("a", "y", S_OK)->ID(), 2);
  EXPECT_EQ(found(3, E_NOTFOUND), nullptr);
  EXPECT_EQ(found(~0UL, E_NOTFOUND), nullptr);
}

TEST_F(PropertyManagerTest, AnIdIsTheOneThatWasGiven) {
  IOXAProperty* first = registered("a", "x", S_OK);
  IOXAProperty* second = registered("a", "y", S_OK);
  first->SetID(1);
  second->SetID(7);
  EXPECT_EQ(found(0, S_OK), first);
  EXPECT_EQ(found(1, S_OK), second);
  EXPECT_EQ(found(7, E_NOTFOUND), nullptr);
  EXPECT_EQ(registered("a", "z", S_OK)->ID(), 2);
}

// A namespace that is there is found without memory, one that is not is made.
template <class Operation>
void expect_to_make_a_namespace(Operation operation) {
  const unsigned long before = made_allocations();
  operation();
  const unsigned long after = made_allocations();
  EXPECT_GT(after, before);
  operation();
  EXPECT_EQ(made_allocations(), after);
}

TEST_F(PropertyManagerTest, FindingMakesTheNamespace) {
  IOXAProperty* property = nullptr;
  expect_to_make_a_namespace([&] { manager_.FindProperty("a::b", "x", &property); });
  const unsigned long before = made_allocations();
  manager_.FindProperty("a", "x", &property);
  EXPECT_EQ(made_allocations(), before);
}

TEST_F(PropertyManagerTest, UnregisteringMakesTheNamespace) {
  expect_to_make_a_namespace([&] { EXPECT_EQ(manager_.Unregister("a::b", "x"), E_UNEXPECTED); });
  expect_to_make_a_namespace([&] { EXPECT_EQ(manager_.Unregister("a::c", ""), E_INVALIDARG); });
}

TEST_F(PropertyManagerTest, UnregisteringDestroysTheProperty) {
  registered("a", "x", S_OK);
  registered("a", "y", S_OK);
  EXPECT_EQ(manager_.Unregister("a", "x"), S_OK);
  EXPECT_EQ(found("a", "x", E_NOTFOUND), nullptr);
  EXPECT_EQ(manager_.Unregister("a", "x"), E_UNEXPECTED);
  EXPECT_EQ(properties_.listed(), Lines{"a::y"});
}

TEST_F(PropertyManagerTest, WhatIsReferencedOutlivesUnregistering) {
  const auto kept = oxa::Ref<IOXAProperty>::share(registered("a", "x", S_OK));
  EXPECT_EQ(manager_.Unregister("a", "x"), S_FALSE);
  EXPECT_EQ(kept->CheckReference(), 1);
  EXPECT_STREQ(kept->FullNamespace(), "a::x");
  EXPECT_EQ(found("a", "x", E_NOTFOUND), nullptr);
  EXPECT_EQ(properties_.listed(), Lines());
}

TEST_F(PropertyManagerTest, TheIdOfAnUnregisteredPropertyStillLeadsToIt) {
  IOXAProperty* gone = registered("a", "x", S_OK);
  const auto kept = oxa::Ref<IOXAProperty>::share(registered("a", "y", S_OK));
  EXPECT_EQ(manager_.Unregister("a", "x"), S_OK);
  EXPECT_EQ(manager_.Unregister("a", "y"), S_FALSE);
  EXPECT_EQ(found(0, S_OK), gone);  // destroyed: it must not be used
  EXPECT_EQ(found(1, S_OK), kept.get());
}

TEST_F(PropertyManagerTest, ANameThatWasUnregisteredGetsANewId) {
  const auto kept = oxa::Ref<IOXAProperty>::share(registered("a", "x", S_OK));
  kept->SetDataType(DataType::Int);
  manager_.Unregister("a", "x");
  IOXAProperty* again = registered("a", "x", S_OK);
  EXPECT_NE(again, kept.get());
  EXPECT_EQ(again->ID(), 1);
  EXPECT_EQ(again->DataType(), NoDataType);
  EXPECT_EQ(found(0, S_OK), kept.get());
  EXPECT_EQ(found(1, S_OK), again);
}

TEST_F(PropertyManagerTest, WhatHasNoNameIsNeverUnregistered) {
  IOXAProperty* property = registered("a", "", S_OK);
  EXPECT_EQ(manager_.Unregister("a", ""), E_INVALIDARG);
  EXPECT_EQ(manager_.Unregister(property), E_INVALIDARG);
  EXPECT_EQ(found("a", "", S_ALREADYEXISTS), property);
}

TEST_F(PropertyManagerTest, APropertyIsUnregisteredByItself) {
  for (const char* ns : {"a::b", "", "::", "a::"}) {
    IOXAProperty* property = registered(ns, "x", S_OK);
    EXPECT_EQ(manager_.Unregister(property), S_OK) << ns;
    found(ns, "x", E_NOTFOUND);
  }
}

// By its namespace and name: a copy stands for the property that it was copied from.
TEST_F(PropertyManagerTest, APropertyIsUnregisteredByItsClone) {
  oxa::Ref<IOXAProperty> clone;
  registered("a", "x", S_OK)->Clone(oxa::adopt_into(clone));
  EXPECT_EQ(manager_.Unregister(clone.get()), S_OK);
  EXPECT_EQ(manager_.Unregister(clone.get()), E_UNEXPECTED);
  EXPECT_EQ(clone->CheckReference(), 1);
}

TEST_F(PropertyManagerTest, UnregisteringTakesOneOfMany) {
  for (const char* name : {"1", "2", "3", "4"}) {
    registered("a", name, S_OK);
  }
  manager_.Unregister("a", "2");
  EXPECT_EQ(in("a", false), (Lines{"a::1", "a::3", "a::4"}));
  manager_.Unregister("a", "4");
  EXPECT_EQ(in("a", false), (Lines{"a::1", "a::3"}));
  manager_.Unregister("a", "1");
  registered("a", "5", S_OK);
  EXPECT_EQ(in("a", false), (Lines{"a::3", "a::5"}));
}

TEST_F(PropertyManagerTest, NamespacesComeBeforeThoseInThem) {
  for (const char* path : {"a::b::c", "a", "a::b", "d", "a::e", "a::b"}) {
    registered(path, std::to_string(properties_.listed().size()).c_str(), S_OK);
  }
  EXPECT_EQ(properties_.listed(),
            (Lines{"a::1", "a::b::2", "a::b::5", "a::b::c::0", "a::e::4", "d::3"}));
  EXPECT_EQ(in("a", true), (Lines{"a::1", "a::b::2", "a::b::5", "a::b::c::0", "a::e::4"}));
  EXPECT_EQ(in("a::b", true), (Lines{"a::b::2", "a::b::5", "a::b::c::0"}));
  EXPECT_EQ(in("a::b::c", true), Lines{"a::b::c::0"});
  EXPECT_EQ(in("a", false), Lines{"a::1"});
  EXPECT_EQ(in("a::b", false), (Lines{"a::b::2", "a::b::5"}));
}

TEST_F(PropertyManagerTest, EmptyPartsAreNamespacesToo) {
  for (const char* path : {"", "::", "::a", "a", "a::", "a::::b"}) {
    registered(path, "x", S_OK);
  }
  EXPECT_EQ(in("", false), Lines{"::x"});
  EXPECT_EQ(in("", true), (Lines{"::x", "::::x", "::a::x"}));
  EXPECT_EQ(in("::", true), Lines{"::::x"});
  EXPECT_EQ(in("a", true), (Lines{"a::x", "a::::x", "a::::b::x"}));
  EXPECT_EQ(in("a::", true), (Lines{"a::::x", "a::::b::x"}));
}

TEST_F(PropertyManagerTest, AnEmptyNamespaceHasNothingToList) {
  EXPECT_EQ(properties_.listed(), Lines());
  EXPECT_EQ(in("a", true), Lines());
  EXPECT_EQ(in("a", false), Lines());
  expect_to_make_a_namespace([&] {
    IOXAProperty* property = nullptr;
    manager_.FindProperty("b", "x", &property);
  });
}

TEST_F(PropertyManagerTest, ListingMakesTheNamespace) {
  in("a::b", false);
  const unsigned long before = made_allocations();
  found("a::b", "x", E_NOTFOUND);
  EXPECT_EQ(made_allocations(), before);
}

TEST_F(PropertyManagerTest, AnEnumeratorIsACopyThatTheCallerOwns) {
  registered("a", "x", S_OK);
  oxa::Ref<IOXAPropertyEnum> all;
  oxa::Ref<IOXAPropertyEnum> some;
  manager_.GetPropertyEnum(oxa::adopt_into(all));
  manager_.GetPropertyEnum("a", true, oxa::adopt_into(some));
  EXPECT_EQ(all->CheckReference(), 1);
  EXPECT_EQ(some->CheckReference(), 1);
  EXPECT_EQ(found("a", "x", S_ALREADYEXISTS)->CheckReference(), 1);
  registered("a", "y", S_OK);
  EXPECT_EQ(listed(*all), Lines{"a::x"});
  EXPECT_EQ(listed(*some), Lines{"a::x"});
}

TEST_F(PropertyManagerTest, AnEnumeratorStartsOnItsFirstItem) {
  registered("a", "x", S_OK);
  IOXAProperty* second = registered("a", "y", S_OK);
  oxa::Ref<IOXAPropertyEnum> all;
  manager_.GetPropertyEnum(oxa::adopt_into(all));
  IOXAProperty* property = nullptr;
  EXPECT_EQ(all->GetNext(&property), S_OK);
  EXPECT_EQ(property, second);
}

TEST_F(PropertyManagerTest, NullIsRefused) {
  IOXAProperty* property = marker();
  EXPECT_EQ(manager_.Register(nullptr, "x", &property), E_INVALIDARG);
  EXPECT_EQ(manager_.Register("a", nullptr, &property), E_INVALIDARG);
  EXPECT_EQ(manager_.Register("a", "x", nullptr), E_INVALIDARG);
  EXPECT_EQ(manager_.FindProperty(nullptr, "x", &property), E_INVALIDARG);
  EXPECT_EQ(manager_.FindProperty("a", nullptr, &property), E_INVALIDARG);
  EXPECT_EQ(manager_.FindProperty("a", "x", nullptr), E_INVALIDARG);
  EXPECT_EQ(manager_.FindProperty(0, nullptr), E_INVALIDARG);
  EXPECT_EQ(manager_.Unregister(nullptr, "x"), E_INVALIDARG);
  EXPECT_EQ(manager_.Unregister("a", nullptr), E_INVALIDARG);
  EXPECT_EQ(manager_.Unregister(nullptr), E_INVALIDARG);
  EXPECT_EQ(property, marker());
  EXPECT_EQ(properties_.listed(), Lines());
}

TEST_F(PropertyManagerTest, NothingIsListedForNobody) {
  auto* out = reinterpret_cast<IOXAPropertyEnum*>(&marked);
  EXPECT_EQ(manager_.GetPropertyEnum(nullptr), E_INVALIDARG);
  EXPECT_EQ(manager_.GetPropertyEnum("a", true, nullptr), E_INVALIDARG);
  EXPECT_EQ(manager_.GetPropertyEnum(nullptr, true, nullptr), E_INVALIDARG);
  EXPECT_EQ(manager_.GetPropertyEnum(nullptr, true, &out), E_UNEXPECTED);
  EXPECT_EQ(out, nullptr);
}

TEST_F(PropertyManagerTest, StartsWithOneReference) {
  EXPECT_EQ(manager_.CheckReference(), 1);
  registered("a", "x", S_OK);
  EXPECT_EQ(manager_.CheckReference(), 1);
}

}  // namespace
