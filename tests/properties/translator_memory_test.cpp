// The translator when memory runs out, and where it needs none.
#include <gtest/gtest.h>
#include <oxa/oxa.h>

#include <string>

#include "properties/OXAPropertyDataTypeTranslator.h"
#include "support/allocations.h"

using namespace oxa_test;
using OXA::Property::DataType;
using OXA::Property::NoDataType;

namespace {

TEST(TranslatorMemoryTest, MakingOneThrows) {
  const unsigned long failures = fail_each_allocation([] {
    try {
      oxa::make<OXAPropertyDataTypeTranslator>();
      EXPECT_FALSE(FailingAllocation::happened());
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(FailingAllocation::happened());
    }
  });
  EXPECT_GT(failures, 20);
}

const char* const new_name = "a name that is longer than short ones";
const char* const new_graphml_name = "another name of that kind, for GraphML";

struct Registration {
  DataType type;
  const char* graphml_name;
  unsigned long failures;  // at least
};

class RegisterMemoryTest : public testing::TestWithParam<Registration> {};

TEST_P(RegisterMemoryTest, AFailureChangesNothing) {
  const auto translator = oxa::make<OXAPropertyDataTypeTranslator>();
  const auto text = [](const char* stored) {
    return std::string(stored != nullptr ? stored : "-");
  };
  const DataType type = GetParam().type;
  const std::string name = text(translator->ToString(type));
  const std::string graphml_name = text(translator->ToGraphml(type));
  const unsigned long failures = fail_each_allocation([&] {
    const OXAResult result = translator->Register(type, new_name, GetParam().graphml_name);
    if (!FailingAllocation::happened()) {
      EXPECT_EQ(result, S_OK);
      return;
    }
    EXPECT_EQ(result, E_OUTOFMEMORY);
    EXPECT_EQ(translator->ToType(new_name), NoDataType);
    EXPECT_EQ(text(translator->ToString(type)), name);
    EXPECT_EQ(text(translator->ToGraphml(type)), graphml_name);
  });
  EXPECT_GE(failures, GetParam().failures);
  EXPECT_EQ(translator->ToType(new_name), type);
}

const Registration registrations[] = {
    {DataType::Int, nullptr, 2},           // an alias
    {DataType::Int, new_graphml_name, 4},  // in place of "int"
    {DataType{17}, new_graphml_name, 5},   // where there was nothing
};

INSTANTIATE_TEST_SUITE_P(Kinds, RegisterMemoryTest, testing::ValuesIn(registrations));

TEST(TranslatorMemoryTest, TranslatingNeedsNone) {
  const auto translator = oxa::make<OXAPropertyDataTypeTranslator>();
  const unsigned long before = made_allocations();
  for (const char* name : {"unsigned long long", "int", "no data type, and long enough",
                           "a_long_namespace::a_type_with_a_long_name"}) {
    translator->ToType(name);
  }
  translator->ToString(DataType::UnsignedLongLong);
  translator->ToGraphml(DataType::UnsignedLongLong);
  EXPECT_EQ(translator->Register(DataType::Int, "unsigned long long", "number"), E_ALREADYEXISTS);
  EXPECT_EQ(made_allocations(), before);
}

}  // namespace
