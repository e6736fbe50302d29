// The values of properties.
#include "model.h"
#include "support/allocations.h"

using namespace oxa_test;

namespace {

TEST_F(PropertyModelTest, AllOfAValueIsStored) {
  IOXAProperty& property = add("x", DataType::Int);
  OXAVariant value = oxa::make_variant(5);
  value.bits = 0x123456789ABCDEF0;
  value.text = long_text;
  EXPECT_EQ(model_.SetProperty(&property, value), S_OK);
  EXPECT_EQ(stored(property), described(value));
  EXPECT_EQ(get("x"), "'-1698898192'");
}

TEST_F(PropertyModelTest, AnEarlierValueIsReplaced) {
  IOXAProperty& property = add("x", DataType::String);
  for (const char* text : {"a", long_text, "b"}) {
    EXPECT_EQ(model_.SetProperty(&property, oxa::make_variant(text)), S_OK);
    EXPECT_EQ(get("x"), shown(text));
    EXPECT_EQ(set("x", "by path"), S_OK);
    EXPECT_EQ(get("x"), "'by path'");
  }
  EXPECT_EQ(with_values(), Lines{"ns::x"});
}

struct Blank {
  std::string text;
  bool refused;
};

const Blank blanks[] = {
    {"", true},      {" ", true},        {"   ", true},    {"\t", true},    {"\n", true},
    {"\r", true},    {" \t\r\n ", true}, {"\v", false},    {"\f", false},   {" x", false},
    {"\t x", false}, {"x ", false},      {"\n\n.", false}, {"\xA0", false}, {"\x01", false},
};

TEST_F(PropertyModelTest, ABlankTextIsRefused) {
  for (const Blank& each : blanks) {
    const std::string name = std::to_string(++number_);
    IOXAProperty& property = add(name.c_str(), DataType::String);
    EXPECT_EQ(set(name.c_str(), each.text.c_str()), each.refused ? E_INVALIDARG : S_OK);
    EXPECT_EQ(stored(property), each.refused ? "-" : "4096 0 " + each.text);
    model_.RemoveProperty(&property);
    EXPECT_EQ(model_.SetProperty(&property, oxa::make_variant(each.text)),
              each.refused ? E_INVALIDARG : S_OK);
    EXPECT_EQ(stored(property), each.refused ? "-" : "4096 0 " + each.text);
  }
}

TEST_F(PropertyModelTest, ZeroBytesAreBlank) {
  IOXAProperty& property = add("x", DataType::String);
  const auto text = [](const char* characters, std::size_t size) {
    return oxa::make_variant(std::string(characters, size));
  };
  EXPECT_EQ(model_.SetProperty(&property, text("\0\0 ", 3)), E_INVALIDARG);
  EXPECT_EQ(model_.SetProperty(&property, text("a\0b", 3)), S_OK);
  EXPECT_EQ(stored(property), described(text("a\0b", 3)));
  EXPECT_EQ(get("x"), "'a'");
  EXPECT_EQ(model_.SetProperty(&property, text("\0a", 2)), S_OK);
  EXPECT_EQ(get("x"), "''");
}

TEST_F(PropertyModelTest, ATextThatIsRefusedLeavesAValueOfNoKind) {
  IOXAProperty& property = add("x", DataType::Int);
  EXPECT_EQ(set("x", "none"), E_INVALIDARG);
  EXPECT_EQ(get("x", E_UNEXPECTED), "-");
  EXPECT_EQ(stored(property), "0 0 ");
  EXPECT_EQ(with_values(), Lines{"ns::x"});
  EXPECT_EQ(set("x", "5"), S_OK);
  EXPECT_EQ(get("x"), "'5'");
}

TEST_F(PropertyModelTest, ATextThatIsRefusedLeavesAnOldValue) {
  IOXAProperty& property = add("x", DataType::Int);
  set("x", "5");
  for (const char* text : {"none", "99999999999999999999", "-", "\v"}) {
    EXPECT_EQ(set("x", text), E_INVALIDARG) << text;
    EXPECT_EQ(stored(property), "16 5 ");
  }
}

TEST_F(PropertyModelTest, ABlankTextRegistersNothing) {
  EXPECT_EQ(set("x", " "), E_INVALIDARG);
  EXPECT_EQ(properties_.listed(), Lines());
  EXPECT_EQ(with_values(), Lines());
}

TEST_F(PropertyModelTest, AnUnknownNameIsRegistered) {
  EXPECT_EQ(get("x", E_NOTFOUND), "-");
  EXPECT_EQ(set("y", "1"), E_UNEXPECTED);
  EXPECT_EQ(model_.RemoveProperty("ns", "z"), E_NOTFOUND);
  EXPECT_EQ(properties_.listed(), (Lines{"ns::x", "ns::y", "ns::z"}));
  EXPECT_EQ(properties_.find("ns", "x")->DataType(), NoDataType);
  EXPECT_EQ(with_values(), Lines{"ns::y"});
  EXPECT_EQ(get("y", E_UNEXPECTED), "-");
}

TEST_F(PropertyModelTest, WithoutAValueThereIsNothingToGive) {
  IOXAProperty& property = add("x", DataType::Int);
  property.SetDefaultValue("5");
  OXAVariant value = oxa::make_variant("before");
  EXPECT_EQ(get("x", E_NOTFOUND), "-");
  EXPECT_EQ(model_.GetProperty(&property, value), E_NOTFOUND);
  EXPECT_EQ(described(value), "4096 0 before");
}

TEST_F(PropertyModelTest, AValueMayBeReplacedByOneOfAnotherDataType) {
  IOXAProperty& property = add("x", DataType::String);
  set("x", long_text);
  property.SetDataType(DataType::Int);
  EXPECT_EQ(set("x", "none"), E_INVALIDARG);
  EXPECT_EQ(stored(property), "4096 0 " + std::string(long_text));
  EXPECT_EQ(set("x", "7"), S_OK);
  EXPECT_EQ(get("x"), "'7'");
  property.SetDataType(DataType::Double);
  EXPECT_EQ(model_.SetProperty(&property, oxa::make_variant(0.5)), S_OK);
  EXPECT_EQ(get("x"), "'0.5'");
}

// Memory of values that were removed used to stay until the model ended.
TEST_F(PropertyModelTest, RemovedValuesLeaveNothingBehind) {
  IOXAProperty& property = add("x", DataType::Int);
  const long before = oxa_test::live_allocations();
  for (int id = 0; id < 1000; ++id) {
    property.SetID(id * 1000);
    model_.SetProperty(&property, oxa::make_variant(id));
  }
  EXPECT_GE(oxa_test::live_allocations(), before + 1000);
  for (int id = 0; id < 1000; ++id) {
    property.SetID(id * 1000);
    EXPECT_EQ(model_.RemoveProperty(&property), S_OK);
  }
  EXPECT_LE(oxa_test::live_allocations(), before + 1);  // the table of pages
}

TEST_F(PropertyModelTest, ATextIsOverwrittenByTheNext) {
  add("x", DataType::Int);
  add("y", DataType::Int);
  set("x", "12");
  set("y", "34");
  char* first = nullptr;
  char* second = nullptr;
  model_.GetProperty("ns", "x", &first);
  EXPECT_STREQ(first, "12");
  model_.GetProperty("ns", "y", &second);
  EXPECT_EQ(first, second);
  EXPECT_STREQ(first, "34");
}

TEST_F(PropertyModelTest, ATextThatItGaveCanBeSet) {
  add("x", DataType::String);
  add("y", DataType::String);
  set("x", long_text);
  char* text = nullptr;
  model_.GetProperty("ns", "x", &text);
  EXPECT_EQ(set("y", text), S_OK);
  EXPECT_EQ(set("x", text), S_OK);
  EXPECT_EQ(get("x"), shown(long_text));
  EXPECT_EQ(get("y"), shown(long_text));
}

TEST_F(PropertyModelTest, RangeAndEnumerationAreNotConsulted) {
  IOXAProperty& number = add("x", DataType::Int);
  number.SetRange(1, 2);
  EXPECT_EQ(set("x", "5"), S_OK);
  EXPECT_EQ(model_.SetProperty(&number, oxa::make_variant(-5)), S_OK);
  EXPECT_EQ(get("x"), "'-5'");
  IOXAProperty& color = add("y", DataType::Enum);
  color.AddAttribute("red", "1");
  EXPECT_EQ(set("y", "red"), S_OK);
  EXPECT_EQ(get("y"), "'red'");
  EXPECT_EQ(set("y", "blue"), S_OK);
}

TEST_F(PropertyModelTest, RemovingTakesTheValueAlone) {
  IOXAProperty& property = add("x", DataType::Int);
  add("y", DataType::Int);
  set("x", "1");
  set("y", "2");
  EXPECT_EQ(model_.RemoveProperty("ns", "x"), S_OK);
  EXPECT_EQ(model_.RemoveProperty("ns", "x"), E_NOTFOUND);
  EXPECT_EQ(model_.RemoveProperty(&property), E_NOTFOUND);
  EXPECT_EQ(get("x", E_NOTFOUND), "-");
  EXPECT_EQ(with_values(), Lines{"ns::y"});
  EXPECT_EQ(properties_.listed(), (Lines{"ns::x", "ns::y"}));
  set("x", "3");
  EXPECT_EQ(model_.RemoveProperty(&property), S_OK);
  EXPECT_EQ(get("y"), "'2'");
}

TEST_F(PropertyModelTest, ValuesAreFoundByTheId) {
  IOXAProperty& property = add("x", DataType::Int);
  set("x", "1");
  for (const int id : {-1, 1000, 2147483647}) {
    property.SetID(id);
    EXPECT_EQ(get("x", E_NOTFOUND), "-");
    set("x", "2");
  }
  property.SetID(0);
  EXPECT_EQ(get("x"), "'1'");
  property.SetID(-1);
  EXPECT_EQ(get("x"), "'2'");
}

TEST_F(PropertyModelTest, ACloneHasTheValueOfItsProperty) {
  IOXAProperty& property = add("x", DataType::Int);
  oxa::Ref<IOXAProperty> clone;
  property.Clone(oxa::adopt_into(clone));
  EXPECT_EQ(model_.SetProperty(clone.get(), oxa::make_variant(5)), S_OK);
  EXPECT_EQ(get("x"), "'5'");
  EXPECT_EQ(model_.RemoveProperty(clone.get()), S_OK);
  EXPECT_EQ(get("x", E_NOTFOUND), "-");
}

TEST_F(PropertyModelTest, OnlyRegisteredPropertiesWithAValueAreListed) {
  add("x", DataType::Int);
  add("y", DataType::Int);
  IOXAProperty& other = add("z", DataType::Int);
  EXPECT_EQ(with_values(), Lines());
  set("y", "1");
  set("x", "1");
  other.SetID(1000);
  set("z", "1");
  EXPECT_EQ(with_values(), (Lines{"ns::x", "ns::y"}));
}

TEST_F(PropertyModelTest, AnEnumeratorIsACopyThatTheCallerOwns) {
  add("x", DataType::Int);
  set("x", "1");
  oxa::Ref<IOXAPropertyEnum> all;
  model_.GetPropertyEnum(oxa::adopt_into(all));
  EXPECT_EQ(all->CheckReference(), 1);
  model_.RemoveProperty("ns", "x");
  EXPECT_EQ(listed(*all), Lines{"ns::x"});
  EXPECT_EQ(properties_.find("ns", "x")->CheckReference(), 1);
}

TEST_F(PropertyModelTest, NullIsRefused) {
  char* text = marker_;
  OXAVariant value = oxa::make_variant(1);
  EXPECT_EQ(model_.SetProperty(nullptr, "x", "1"), E_INVALIDARG);
  EXPECT_EQ(model_.SetProperty("ns", nullptr, "1"), E_INVALIDARG);
  EXPECT_EQ(model_.SetProperty("ns", "x", nullptr), E_INVALIDARG);
  EXPECT_EQ(model_.SetProperty(nullptr, value), E_INVALIDARG);
  EXPECT_EQ(model_.GetProperty(nullptr, "x", &text), E_INVALIDARG);
  EXPECT_EQ(model_.GetProperty("ns", nullptr, &text), E_INVALIDARG);
  EXPECT_EQ(model_.GetProperty("ns", "x", nullptr), E_INVALIDARG);
  EXPECT_EQ(model_.GetProperty(nullptr, value), E_INVALIDARG);
  EXPECT_EQ(model_.RemoveProperty(nullptr, "x"), E_INVALIDARG);
  EXPECT_EQ(model_.RemoveProperty("ns", nullptr), E_INVALIDARG);
  EXPECT_EQ(model_.RemoveProperty(nullptr), E_INVALIDARG);
  EXPECT_EQ(model_.GetPropertyEnum(nullptr), E_INVALIDARG);
  EXPECT_EQ(text, marker_);
  EXPECT_EQ(described(value), "16 1 ");
  EXPECT_EQ(properties_.listed(), Lines());
}

// No operation by path succeeds, whatever else there is.
void expect_no_paths(OXAPropertyModel& model) {
  char marker[] = "";
  char* text = marker;
  EXPECT_EQ(model.SetProperty("ns", "x", " "), E_INVALIDARG);
  EXPECT_EQ(model.SetProperty("ns", "x", "1"), E_UNEXPECTED);
  EXPECT_EQ(model.GetProperty("ns", "x", &text), E_UNEXPECTED);
  EXPECT_EQ(text, nullptr);
  EXPECT_EQ(model.RemoveProperty("ns", "x"), E_UNEXPECTED);
}

TEST_F(PropertyModelTest, WithoutAManagerPropertiesAreGivenThemselves) {
  OXAPropertyModel model(nullptr);
  expect_no_paths(model);
  IOXAProperty& property = add("x", DataType::Int);
  OXAVariant value;
  EXPECT_EQ(model.SetProperty(&property, oxa::make_variant(5)), S_OK);
  EXPECT_EQ(model.GetProperty(&property, value), S_OK);
  EXPECT_EQ(described(value), "16 5 ");
  oxa::Ref<IOXAPropertyEnum> all;
  EXPECT_EQ(model.GetPropertyEnum(oxa::adopt_into(all)), S_OK);
  EXPECT_EQ(all->Count(), 0);
  EXPECT_EQ(model.RemoveProperty(&property), S_OK);
}

// A manager that registers nothing.
class StubManager final : public oxa::Implements<IOXAPropertyManager> {
 public:
  explicit StubManager(OXAResult result) : result_(result) {}
  OXAResult Register(const char*, const char*, IOXAProperty** out) override {
    *out = nullptr;
    return result_;
  }
  OXAResult Unregister(const char*, const char*) override { return E_FAIL; }
  OXAResult Unregister(IOXAProperty*) override { return E_FAIL; }
  OXAResult GetPropertyEnum(IOXAPropertyEnum**) override { return E_FAIL; }
  OXAResult GetPropertyEnum(const char*, bool, IOXAPropertyEnum**) override { return E_FAIL; }
  OXAResult FindProperty(unsigned long, IOXAProperty**) override { return E_FAIL; }
  OXAResult FindProperty(const char*, const char*, IOXAProperty**) override { return E_FAIL; }

 private:
  OXAResult result_;
};

TEST_F(PropertyModelTest, WhatCannotBeRegisteredIsUnexpected) {
  for (const OXAResult result : {E_OUTOFMEMORY, E_INVALIDARG, E_NOTFOUND, S_OK, S_ALREADYEXISTS}) {
    const auto manager = oxa::make<StubManager>(result);
    OXAPropertyModel model(manager.get());
    expect_no_paths(model);
  }
}

TEST_F(PropertyModelTest, ReferencesItsManagerAsLongAsItLives) {
  const auto manager = oxa::make<OXAPropertyManager>();
  {
    const OXAPropertyModel model(manager.get());
    EXPECT_EQ(manager->CheckReference(), 2);
  }
  EXPECT_EQ(manager->CheckReference(), 1);
}

}  // namespace
