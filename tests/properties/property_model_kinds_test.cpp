// Which kinds of values the data types take, and what becomes of others.
#include <optional>

#include "model.h"

using namespace oxa_test;

namespace {

// A value of each kind, none included.
const OXAVariant values[] = {
    OXAVariant(),
    oxa::make_variant('c'),
    oxa::make_variant<unsigned char>(200),
    oxa::make_variant<short>(-3),
    oxa::make_variant<unsigned short>(60000),
    oxa::make_variant(5),
    oxa::make_variant(-6LL),
    oxa::make_variant(7U),
    oxa::make_variant(8ULL),
    oxa::make_variant(9.5F),
    oxa::make_variant(-10.5),
    oxa::make_variant(true),
    oxa::make_variant("text"),
};

// The kind that each data type takes and how the value of that kind reads, in the order of both;
// nothing for the one that takes none.
struct Taken {
  DataType type;
  std::optional<Kind> kind;
  const char* text;
};

const Taken all_taken[] = {
    {DataType::Bool, Kind{0x400}, "true"},
    {DataType::String, Kind{0x1000}, "text"},
    {DataType::Char, Kind{0x1}, "99"},
    {DataType::UnsignedChar, Kind{0x2}, "200"},
    {DataType::Int, Kind{0x10}, "5"},
    {DataType::UnsignedInt, Kind{0x40}, "7"},
    {DataType::Short, Kind{0x4}, "-3"},
    {DataType::UnsignedShort, Kind{0x8}, "60000"},
    {DataType::LongLong, Kind{0x20}, "-6"},
    {DataType::UnsignedLongLong, Kind{0x80}, "8"},
    {DataType::Float, Kind{0x100}, "9.5"},
    {DataType::Double, Kind{0x200}, "-10.5"},
    {DataType::Enum, Kind{0x1000}, "text"},
    {DataType::Code, Kind{0x1000}, "text"},
    {DataType::Hexadecimal, Kind{0x1000}, "text"},
    {DataType::File, std::nullopt, nullptr},
    {DataType::UserDefined, Kind{0x1000}, "text"},
};

OXAResult expected_result(const Taken& taken, const OXAVariant& value) {
  if (value.kind == Kind::Nothing) {
    return E_INVALIDARG;
  }
  if (!taken.kind.has_value()) {
    return E_UNEXPECTED;
  }
  return value.kind == taken.kind ? S_OK : E_TYPEMISMATCH;
}

TEST_F(PropertyModelTest, ADataTypeTakesOneKind) {
  for (const Taken& taken : all_taken) {
    for (const OXAVariant& value : values) {
      const std::string name = std::to_string(++number_);
      IOXAProperty& property = add(name.c_str(), taken.type);
      const OXAResult expected = expected_result(taken, value);
      EXPECT_EQ(model_.SetProperty(&property, value), expected)
          << static_cast<int>(taken.type) << ", " << described(value);
      EXPECT_EQ(stored(property), expected == S_OK ? described(value) : "-");
      if (expected == S_OK) {
        EXPECT_EQ(get(name.c_str()), shown(taken.text));
      } else {
        EXPECT_EQ(get(name.c_str(), E_NOTFOUND), "-");
      }
    }
  }
}

TEST_F(PropertyModelTest, WhatIsRefusedLeavesTheOldValue) {
  for (const Taken& taken : all_taken) {
    IOXAProperty& property = add(std::to_string(++number_).c_str(), taken.type);
    model_.SetProperty("ns", property.Name(), taken.type == DataType::Bool ? "true" : "1");
    const std::string before = stored(property);
    for (const OXAVariant& value : values) {
      if (expected_result(taken, value) != S_OK) {
        EXPECT_LT(model_.SetProperty(&property, value), 0);
        EXPECT_EQ(stored(property), before);
      }
    }
  }
}

TEST_F(PropertyModelTest, WhatIsNoKindIsTakenByNoDataType) {
  for (const unsigned kind : {0x800U, 0x2000U, 0x11U, 0x1400U, 0xFFFFFFFFU}) {
    OXAVariant value = oxa::make_variant("1");
    value.kind = Kind{kind};
    for (const DataType type : data_types) {
      IOXAProperty& property = add(std::to_string(++number_).c_str(), type);
      EXPECT_EQ(model_.SetProperty(&property, value),
                type == DataType::File ? E_UNEXPECTED : E_TYPEMISMATCH);
    }
  }
}

TEST_F(PropertyModelTest, WhatIsNoDataTypeTakesNothing) {
  for (const DataType type : no_data_types) {
    const std::string name = std::to_string(++number_);
    IOXAProperty& property = add(name.c_str(), type);
    for (const OXAVariant& value : values) {
      EXPECT_EQ(model_.SetProperty(&property, value),
                value.kind == Kind::Nothing ? E_INVALIDARG : E_UNEXPECTED);
    }
    EXPECT_EQ(stored(property), "-");
    EXPECT_EQ(set(name.c_str(), "1"), E_UNEXPECTED);
    EXPECT_EQ(stored(property), "0 0 ");
    EXPECT_EQ(get(name.c_str(), E_UNEXPECTED), "-");
  }
}

TEST_F(PropertyModelTest, AFileTakesTextOnly) {
  IOXAProperty& property = add("x", DataType::File);
  EXPECT_EQ(model_.SetProperty(&property, oxa::make_variant("/a/file")), E_UNEXPECTED);
  EXPECT_EQ(stored(property), "-");
  EXPECT_EQ(set("x", "/a/file"), S_OK);
  EXPECT_EQ(stored(property), "4096 0 /a/file");
  EXPECT_EQ(get("x"), "'/a/file'");
  EXPECT_EQ(model_.SetProperty(&property, oxa::make_variant("/other")), E_UNEXPECTED);
  EXPECT_EQ(get("x"), "'/a/file'");
}

TEST_F(PropertyModelTest, EveryTextTypeRefusesABlankText) {
  for (const Taken& taken : all_taken) {
    IOXAProperty& property = add(std::to_string(++number_).c_str(), taken.type);
    if (taken.kind == Kind::Text) {
      EXPECT_EQ(model_.SetProperty(&property, oxa::make_variant(" \t")), E_INVALIDARG);
    }
    EXPECT_EQ(set(property.Name(), " \t"), E_INVALIDARG);
    EXPECT_EQ(stored(property), "-");
  }
}

TEST_F(PropertyModelTest, AValueIsOfNoUseToAnotherDataType) {
  for (const Taken& before : all_taken) {
    const std::string name = std::to_string(++number_);
    IOXAProperty& property = add(name.c_str(), before.type);
    set(name.c_str(), "1");
    const std::string value = stored(property);
    for (const Taken& after : all_taken) {
      property.SetDataType(after.type);
      const bool same = oxa::kind_of(after.type) == oxa::kind_of(before.type);
      const std::string text = before.type == DataType::Bool ? "'true'" : "'1'";
      EXPECT_EQ(get(name.c_str(), same ? S_OK : E_UNEXPECTED), same ? text : "-");
      EXPECT_EQ(stored(property), value);
    }
    property.SetDataType(NoDataType);
    EXPECT_EQ(get(name.c_str(), E_UNEXPECTED), "-");
  }
}

}  // namespace
