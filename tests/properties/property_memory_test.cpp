// Properties and their values when memory runs out, and where they need none.
#include <functional>

#include "datatypes/support.h"
#include "model.h"
#include "properties/OXAPreferences.h"
#include "support.h"
#include "support/allocations.h"

using namespace oxa_test;

namespace {

// Runs an operation on a property with each of its allocations failing: it must give the result and
// leave the property as it was. Then it succeeds and changes it.
struct Change {
  std::function<OXAResult(IOXAProperty&)> run;
  OXAResult failure;
  unsigned long failures;  // at least
};

void expect_unchanged_by_failures(IOXAProperty& property, const Change& change) {
  const std::string before = described(property);
  OXAResult result = S_OK;
  unsigned long failures = 0;
  for (bool failed = true; failed; failures += failed ? 1 : 0) {
    {
      const FailingAllocation failing(failures);
      result = change.run(property);
      failed = FailingAllocation::happened();
    }
    EXPECT_EQ(result, failed ? change.failure : S_OK);
    EXPECT_EQ(described(property) == before, failed);
  }
  EXPECT_GE(failures, change.failures);
}

const Change changes[] = {
    {[](auto& property) { return property.SetDefaultValue(long_text); }, E_OUTOFMEMORY, 1},
    {[](auto& property) { return property.AddAttribute("a name as long as any", long_text); },
     E_UNEXPECTED, 3},
    {[](auto& property) { return property.AddSupport("b", "2"); }, E_OUTOFMEMORY, 1},
    {[](auto& property) { return property.ViewHints()->SetAlias(long_text); }, E_OUTOFMEMORY, 1},
    {[](auto& property) { return property.ViewHints()->SetTooltip(long_text); }, E_OUTOFMEMORY, 1},
    {[](auto& property) { return property.ViewHints()->SetGroup(long_text); }, E_OUTOFMEMORY, 1},
};

TEST(PropertyMemoryTest, AFailureLeavesANewProperty) {
  for (const Change& each : changes) {
    const Properties properties;
    expect_unchanged_by_failures(properties.add("a", "x"), each);
  }
}

TEST(PropertyMemoryTest, AFailureLeavesAFilledProperty) {
  for (const Change& each : changes) {
    const Properties properties;
    IOXAProperty& property = properties.add("a", "x");
    fill(property);
    property.SetDefaultValue("7");
    property.ViewHints()->SetTooltip("a tooltip");
    expect_unchanged_by_failures(property, each);
  }
}

TEST(PropertyMemoryTest, AFailureLeavesTheAttributes) {
  const Properties properties;
  IOXAProperty& property = properties.add("a", "x");
  for (int number = 0; number < 70; ++number) {
    const std::string name = std::to_string(number);
    const unsigned long failures = fail_each_allocation([&] {
      const OXAResult result = property.AddAttribute(name.c_str(), long_text);
      EXPECT_EQ(result, FailingAllocation::happened() ? E_UNEXPECTED : S_OK);
      EXPECT_EQ(oxa::attribute(property, name.c_str()) == nullptr, result != S_OK);
      EXPECT_EQ(property.GetAttributeCount(), number + (result == S_OK ? 1 : 0));
    });
    EXPECT_GE(failures, 2);
  }
}

TEST(PropertyMemoryTest, AFailureLeavesTheSupports) {
  const Properties properties;
  IOXAProperty& property = properties.add("a", "x");
  for (int number = 0; number < 70; ++number) {
    const std::string category = std::to_string(number % 7);
    const std::string name = std::to_string(number);
    fail_each_allocation([&] {
      const OXAResult result = property.AddSupport(category.c_str(), name.c_str());
      EXPECT_EQ(result, FailingAllocation::happened() ? E_OUTOFMEMORY : S_OK);
      EXPECT_EQ(property.Supports(category.c_str(), name.c_str()), result == S_OK);
    });
  }
  EXPECT_TRUE(property.Supports("0", "0"));
}

TEST(PropertyMemoryTest, AFailureLeavesTheRecordType) {
  const Host host;
  const Properties properties;
  IOXAProperty& property = properties.add("a", "x", DataType::UserDefined);
  property.SetUserDefinedDataType("int");
  const auto references = host.manager->CheckReference();
  expect_unchanged_by_failures(
      property,
      {[](auto& each) { return each.SetUserDefinedDataType("a name as long as any other$float"); },
       E_OUTOFMEMORY, 1});
  EXPECT_EQ(host.manager->CheckReference(), references);
}

TEST(PropertyMemoryTest, ACloneIsMadeWholeOrNotAtAll) {
  const Properties properties;
  IOXAProperty& property = properties.add("a namespace as long as any other", "x");
  fill(property);
  const std::string before = described(property);
  const unsigned long failures = fail_each_allocation([&] {
    IOXAProperty* clone = &property;
    const OXAResult result = property.Clone(&clone);
    if (FailingAllocation::happened()) {
      EXPECT_EQ(result, E_UNEXPECTED);
      EXPECT_EQ(clone, nullptr);
    } else {
      EXPECT_EQ(result, S_OK);
      EXPECT_EQ(clone->ReleaseReference(), 0);
    }
  });
  EXPECT_GT(failures, 20);
  EXPECT_EQ(described(property), before);
}

TEST(PropertyMemoryTest, APropertyIsRegisteredWholeOrNotAtAll) {
  const Properties properties;
  for (int number = 0; number < 70; ++number) {
    const std::string ns = "a::" + std::to_string(number / 2) + "::a part as long as any other";
    IOXAProperty* property = nullptr;
    const unsigned long failures = fail_each_allocation([&] {
      const OXAResult result =
          properties.manager->Register(ns.c_str(), std::to_string(number).c_str(), &property);
      EXPECT_EQ(result, FailingAllocation::happened() ? E_OUTOFMEMORY : S_OK);
      EXPECT_EQ(property == nullptr, FailingAllocation::happened());
    });
    EXPECT_GE(failures, 2);
    EXPECT_EQ(property->ID(), number);
    EXPECT_EQ(properties.find(ns.c_str(), property->Name()), property);
  }
  EXPECT_EQ(properties.listed().size(), 70);
}

// The results of operations that fail for want of memory while they make a namespace.
TEST(PropertyMemoryTest, ANamespaceThatCannotBeMadeIsReported) {
  const Properties properties;
  IOXAProperty* property = nullptr;
  IOXAPropertyEnum* all = nullptr;
  const auto expect = [](OXAResult result, OXAResult failure, OXAResult otherwise) {
    EXPECT_EQ(result, FailingAllocation::happened() ? failure : otherwise);
  };
  IOXAPropertyManager& manager = *properties.manager;
  const unsigned long failures = fail_each_allocation([&] {
    expect(manager.FindProperty("1::a", "x", &property), E_OUTOFMEMORY, E_NOTFOUND);
    EXPECT_EQ(property, nullptr);
  });
  EXPECT_GE(failures, 3);
  EXPECT_GE(fail_each_allocation(
                [&] { expect(manager.Unregister("2::a", "x"), E_OUTOFMEMORY, E_UNEXPECTED); }),
            2);
  EXPECT_GE(fail_each_allocation(
                [&] { expect(manager.Unregister("3::a", ""), E_OUTOFMEMORY, E_INVALIDARG); }),
            2);
  const FailingAllocation failing(0);
  EXPECT_EQ(manager.GetPropertyEnum("4::a", true, &all), E_UNEXPECTED);
  EXPECT_EQ(all, nullptr);
}

// Runs an operation that stores an enumerator, of which each allocation fails.
template <class Operation>
void expect_whole_lists(Operation operation, unsigned long least) {
  const unsigned long failures = fail_each_allocation([&] {
    auto* all = reinterpret_cast<IOXAPropertyEnum*>(&operation);
    const OXAResult result = operation(&all);
    if (FailingAllocation::happened()) {
      EXPECT_EQ(result, E_OUTOFMEMORY);
      EXPECT_EQ(all, nullptr);
    } else {
      EXPECT_EQ(result, S_OK);
      EXPECT_EQ(all->Count(), 3);
      all->ReleaseReference();
    }
  });
  EXPECT_GE(failures, least);
}

TEST(PropertyMemoryTest, AListIsMadeWholeOrNotAtAll) {
  const Properties properties;
  OXAPropertyModel model(properties.manager.get());
  for (const char* name : {"x", "y", "z"}) {
    properties.add("a", name, DataType::Int);
    model.SetProperty("a", name, "1");
  }
  IOXAPropertyManager& manager = *properties.manager;
  expect_whole_lists([&](auto** out) { return manager.GetPropertyEnum(out); }, 5);
  expect_whole_lists([&](auto** out) { return manager.GetPropertyEnum("a", true, out); }, 5);
  expect_whole_lists([&](auto** out) { return manager.GetPropertyEnum("a", false, out); }, 5);
  expect_whole_lists([&](auto** out) { return model.GetPropertyEnum(out); }, 5);
}

class ModelMemoryTest : public testing::Test {
 protected:
  // Runs an operation with each of its allocations failing, after which the value must be what it
  // was, or what else is allowed.
  void expect_kept(const std::function<OXAResult()>& operation, const char* other = "") {
    const std::string before = stored(model_, x_);
    bool failed = true;
    for (unsigned long passing = 0; failed; ++passing) {
      OXAResult result = S_OK;
      {
        const FailingAllocation failing(passing);
        result = operation();
        failed = FailingAllocation::happened();
      }
      EXPECT_EQ(result, failed ? E_OUTOFMEMORY : S_OK);
      const std::string after = stored(model_, x_);
      EXPECT_EQ(after == before || after == other, failed) << after;
      EXPECT_TRUE(failed || passing > 0);
    }
  }

  OXAVariant long_value_ = oxa::make_variant(long_text);
  const Properties properties_;
  OXAPropertyModel model_{properties_.manager.get()};
  IOXAProperty& x_ = properties_.add("a", "x", DataType::String);
};

TEST_F(ModelMemoryTest, AFailureStoresNoValue) {
  expect_kept([&] { return model_.SetProperty(&x_, long_value_); });
}

TEST_F(ModelMemoryTest, AFailureStoresAValueOfNoKindAtMost) {
  expect_kept([&] { return model_.SetProperty("a", "x", long_text); }, "0 0 ");
}

TEST_F(ModelMemoryTest, AFailureKeepsTheText) {
  model_.SetProperty("a", "x", "short");
  expect_kept([&] { return model_.SetProperty("a", "x", long_text); });
  model_.SetProperty("a", "x", "short");
}

TEST_F(ModelMemoryTest, AFailureKeepsTheTextOfAVariant) {
  model_.SetProperty("a", "x", "short");
  long_value_.bits = 5;
  expect_kept([&] { return model_.SetProperty(&x_, long_value_); });
}

TEST_F(ModelMemoryTest, AFailureKeepsANumber) {
  x_.SetDataType(DataType::Int);
  model_.SetProperty("a", "x", "5");
  x_.SetDataType(DataType::String);
  expect_kept([&] { return model_.SetProperty("a", "x", long_text); });
}

TEST_F(ModelMemoryTest, AFailureKeepsANumberFromAVariant) {
  x_.SetDataType(DataType::Int);
  model_.SetProperty("a", "x", "5");
  x_.SetDataType(DataType::String);
  expect_kept([&] { return model_.SetProperty(&x_, long_value_); });
}

TEST_F(ModelMemoryTest, AFailureKeepsTheVariantOfTheCaller) {
  model_.SetProperty(&x_, long_value_);
  const unsigned long failures = fail_each_allocation([&] {
    OXAVariant value = oxa::make_variant(5);
    const OXAResult result = model_.GetProperty(&x_, value);
    if (FailingAllocation::happened()) {
      EXPECT_EQ(result, E_OUTOFMEMORY);
      EXPECT_EQ(oxa::value_of<int>(value), 5);
      EXPECT_EQ(value.text, "");
    }
  });
  EXPECT_EQ(failures, 1);
}

TEST_F(ModelMemoryTest, AFailureGivesNoText) {
  model_.SetProperty(&x_, long_value_);
  const unsigned long failures = fail_each_allocation([&] {
    char* text = nullptr;
    const OXAResult result = model_.GetProperty("a", "x", &text);
    EXPECT_EQ(result, FailingAllocation::happened() ? E_OUTOFMEMORY : S_OK);
    EXPECT_EQ(text == nullptr, FailingAllocation::happened());
  });
  EXPECT_EQ(failures, 1);
}

// The model tells no reason why a property cannot be registered.
TEST_F(ModelMemoryTest, WithoutMemoryToRegisterTheResultIsUnexpected) {
  char* text = nullptr;
  const FailingAllocation failing(0);
  EXPECT_EQ(model_.SetProperty("a", "a new name", "1"), E_UNEXPECTED);
  EXPECT_TRUE(FailingAllocation::happened());
  const auto expect_failures = [](auto operation) {
    const unsigned long failures = fail_each_allocation([&] {
      const OXAResult result = operation();
      EXPECT_EQ(result, FailingAllocation::happened() ? E_UNEXPECTED : E_NOTFOUND);
    });
    EXPECT_GE(failures, 2);
  };
  expect_failures([&] { return model_.GetProperty("b", "x", &text); });
  expect_failures([&] { return model_.RemoveProperty("c", "x"); });
}

struct Value {
  DataType type;
  const char* text;
};

const Value plain_values[] = {
    {DataType::Bool, "false"},
    {DataType::Char, "-128"},
    {DataType::UnsignedChar, "255"},
    {DataType::Short, "-32768"},
    {DataType::UnsignedShort, "65535"},
    {DataType::Int, "-2147483648"},
    {DataType::UnsignedInt, "4294967295"},
    {DataType::LongLong, "-9223372036854775808"},
    {DataType::UnsignedLongLong, "18446744073709551615"},
    {DataType::Float, "-1.2345678e-30"},
    {DataType::Double, "-1.234567890123456e-300"},
    {DataType::String, long_text},
    {DataType::UserDefined, "short"},
};

// Sets each value by its path, and gives it as text and as a variant.
void set_and_get(IOXAPropertyModel& model, const Properties& properties, OXAVariant& value) {
  const char* const ns = "a::deep::path::that::is::longer::than::short::ones";
  for (const Value& each : plain_values) {
    char* text = nullptr;
    IOXAProperty* property = properties.find(ns, each.text);
    EXPECT_EQ(model.SetProperty(ns, each.text, each.text), S_OK);
    EXPECT_EQ(model.GetProperty(ns, each.text, &text), S_OK);
    EXPECT_STREQ(text, each.text);
    EXPECT_EQ(model.GetProperty(property, value), S_OK);
    EXPECT_EQ(model.SetProperty(property, value), S_OK);
    EXPECT_EQ(
        properties.manager->FindProperty(static_cast<unsigned long>(property->ID()), &property),
        S_OK);
    EXPECT_EQ(properties.manager->Register(ns, each.text, &property), S_ALREADYEXISTS);
  }
}

TEST(PropertyMemoryTest, WhatIsThereIsFoundReadAndWrittenWithoutAny) {
  const Properties properties;
  for (const Value& each : plain_values) {
    properties.add("a::deep::path::that::is::longer::than::short::ones", each.text, each.type);
  }
  OXAPropertyModel model(properties.manager.get());
  OXAVariant value;
  set_and_get(model, properties, value);
  const unsigned long before = made_allocations();
  set_and_get(model, properties, value);
  EXPECT_EQ(made_allocations(), before);
}

TEST(PropertyMemoryTest, SettingsAreReadAndWrittenWithoutAny) {
  OXAResult result = S_OK;
  const auto preferences = oxa::make<OXAPreferences>(result);
  char* text = nullptr;
  const auto run = [&](const char* value) {
    EXPECT_EQ(preferences->Set("a::b", "x", value), S_OK);
    EXPECT_EQ(preferences->Get("a::b", "x", &text), S_OK);
  };
  oxa::add_setting(*preferences, "a::b", "x", DataType::String);
  run(long_text);
  const unsigned long before = made_allocations();
  run("short");
  run(long_text);
  EXPECT_STREQ(text, long_text);
  EXPECT_EQ(made_allocations(), before);
}

TEST(PropertyMemoryTest, RemovingAndUnregisteringNeedNone) {
  const Properties properties;
  OXAPropertyModel model(properties.manager.get());
  for (int number = 0; number < 1000; ++number) {
    properties.add("a", std::to_string(number).c_str(), DataType::Int);
    model.SetProperty("a", std::to_string(number).c_str(), "1");
  }
  const unsigned long before = made_allocations();
  EXPECT_EQ(model.RemoveProperty("a", "500"), S_OK);
  EXPECT_EQ(properties.manager->Unregister("a", "500"), S_OK);
  EXPECT_EQ(made_allocations(), before);
}

}  // namespace
