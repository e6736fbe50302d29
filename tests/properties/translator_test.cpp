// Names of data types, and back.
#include "properties/OXAPropertyDataTypeTranslator.h"

#include <gtest/gtest.h>
#include <oxa/oxa.h>

#include <limits>
#include <string>
#include <vector>

using OXA::Property::DataType;
using OXA::Property::NoDataType;

namespace {

class TranslatorTest : public testing::Test {
 protected:
  oxa::Ref<IOXAPropertyDataTypeTranslator> translator_ = oxa::make<OXAPropertyDataTypeTranslator>();
};

// What the translator tells about one data type.
struct Known {
  DataType type;
  int number;
  const char* name;
  const char* graphml_name;
  std::vector<const char*> accepted;
};

const Known known[] = {
    {DataType::Bool, 0, "bool", "boolean", {"bool", "boolean"}},
    {DataType::String, 1, "string", "string", {"string"}},
    {DataType::Char, 2, "char", "char", {"char"}},
    {DataType::UnsignedChar, 3, "unsigned char", "unsigned char", {"unsigned char"}},
    {DataType::Int, 4, "int", "int", {"int"}},
    {DataType::UnsignedInt, 5, "unsigned int", "unsigned int", {"unsigned int"}},
    {DataType::Short, 6, "short", "short", {"short"}},
    {DataType::UnsignedShort, 7, "unsigned short", "unsigned short", {"unsigned short"}},
    {DataType::LongLong, 8, "long long", "long long", {"long long", "long"}},
    {DataType::UnsignedLongLong,
     9,
     "unsigned long long",
     "unsigned long long",
     {"unsigned long long", "unsigned long"}},
    {DataType::Float, 10, "float", "float", {"float"}},
    {DataType::Double, 11, "double", "double", {"double"}},
    {DataType::Enum, 12, "enum", "string", {"enum", "mapped-string"}},
    {DataType::Code, 13, "code", "string", {"code"}},
    {DataType::Hexadecimal, 14, "hexadecimal", "string", {"hexadecimal"}},
    {DataType::File, 15, "file", "string", {"file"}},
    {DataType::UserDefined, 16, "user-defined", "string", {"user-defined"}},
};

TEST_F(TranslatorTest, KnowsSeventeenDataTypes) {
  int number = 0;
  for (const Known& each : known) {
    EXPECT_EQ(static_cast<int>(each.type), number);
    EXPECT_EQ(each.number, number++);
    EXPECT_STREQ(translator_->ToString(each.type), each.name);
    EXPECT_STREQ(translator_->ToGraphml(each.type), each.graphml_name);
  }
  EXPECT_EQ(number, 17);
}

TEST_F(TranslatorTest, AcceptsNamesAndAliases) {
  for (const Known& each : known) {
    for (const char* name : each.accepted) {
      EXPECT_EQ(translator_->ToType(name), each.type) << name;
    }
  }
}

TEST_F(TranslatorTest, OtherNumbersHaveNoNames) {
  EXPECT_EQ(static_cast<int>(NoDataType), -1);
  for (const int number :
       {-1, -2, 17, 18, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    EXPECT_EQ(translator_->ToString(DataType{number}), nullptr) << number;
    EXPECT_EQ(translator_->ToGraphml(DataType{number}), nullptr) << number;
  }
}

TEST_F(TranslatorTest, OtherNamesStandForNothing) {
  for (const char* name :
       {"", "Bool", "INT", " int", "int ", "long  long", "unsigned", "void", "p:point", ":", "%",
        "unsigned\tint", "real", "boolean[]", "mapped_string", "UserDefined"}) {
    EXPECT_EQ(translator_->ToType(name), NoDataType) << '"' << name << '"';
  }
}

TEST_F(TranslatorTest, QualifiedNamesAreUserDefined) {
  for (const char* name : {"$", "::", "p::point", "x$p::point", "a$", "$a", "::int",
                           "int::", "int$", ":::", "a b::c", "p::point%2"}) {
    EXPECT_EQ(translator_->ToType(name), DataType::UserDefined) << name;
  }
}

TEST_F(TranslatorTest, AnAliasIsOnlyAccepted) {
  EXPECT_EQ(translator_->Register(DataType::Int, "integer", nullptr), S_OK);
  EXPECT_EQ(translator_->ToType("integer"), DataType::Int);
  EXPECT_STREQ(translator_->ToString(DataType::Int), "int");
  EXPECT_STREQ(translator_->ToGraphml(DataType::Int), "int");
}

TEST_F(TranslatorTest, ANameWithAGraphmlNameReplacesBoth) {
  EXPECT_EQ(translator_->Register(DataType::Int, "integer", "number"), S_OK);
  EXPECT_STREQ(translator_->ToString(DataType::Int), "integer");
  EXPECT_STREQ(translator_->ToGraphml(DataType::Int), "number");
  EXPECT_EQ(translator_->ToType("integer"), DataType::Int);
  EXPECT_EQ(translator_->ToType("int"), DataType::Int);
  EXPECT_EQ(translator_->ToType("number"), NoDataType);
}

TEST_F(TranslatorTest, AKnownNameIsRefused) {
  for (const char* name : {"int", "long", "mapped-string", "user-defined"}) {
    for (const char* graphml_name : {"number", static_cast<const char*>(nullptr)}) {
      EXPECT_EQ(translator_->Register(DataType::Int, name, graphml_name), E_ALREADYEXISTS) << name;
    }
  }
  EXPECT_STREQ(translator_->ToString(DataType::Int), "int");
  EXPECT_STREQ(translator_->ToGraphml(DataType::Int), "int");
  EXPECT_EQ(translator_->ToType("mapped-string"), DataType::Enum);
}

TEST_F(TranslatorTest, ARegisteredNameIsKnown) {
  EXPECT_EQ(translator_->Register(DataType::Int, "integer", nullptr), S_OK);
  EXPECT_EQ(translator_->Register(DataType::Int, "integer", "number"), E_ALREADYEXISTS);
  EXPECT_EQ(translator_->Register(DataType::Short, "integer", nullptr), E_ALREADYEXISTS);
  EXPECT_STREQ(translator_->ToString(DataType::Int), "int");
}

TEST_F(TranslatorTest, NamesNeedATextAndAType) {
  EXPECT_EQ(translator_->Register(DataType::Int, nullptr, "number"), E_INVALIDARG);
  EXPECT_EQ(translator_->Register(DataType::Int, nullptr, nullptr), E_INVALIDARG);
  EXPECT_EQ(translator_->Register(NoDataType, "none", "none"), E_INVALIDARG);
  EXPECT_EQ(translator_->Register(NoDataType, "int", nullptr), E_INVALIDARG);
  EXPECT_EQ(translator_->Register(DataType{std::numeric_limits<int>::min()}, "least", nullptr),
            E_INVALIDARG);
  EXPECT_EQ(translator_->ToType("none"), NoDataType);
  EXPECT_EQ(translator_->ToType("least"), NoDataType);
  EXPECT_EQ(translator_->ToString(NoDataType), nullptr);
  EXPECT_STREQ(translator_->ToGraphml(DataType::Int), "int");
}

TEST_F(TranslatorTest, FurtherNumbersCanBeNamed) {
  EXPECT_EQ(translator_->Register(DataType{17}, "point", "string"), S_OK);
  EXPECT_STREQ(translator_->ToString(DataType{17}), "point");
  EXPECT_STREQ(translator_->ToGraphml(DataType{17}), "string");
  EXPECT_EQ(translator_->ToType("point"), DataType{17});
}

TEST_F(TranslatorTest, AnAliasAloneGivesANumberNoName) {
  EXPECT_EQ(translator_->Register(DataType{18}, "line", nullptr), S_OK);
  EXPECT_EQ(translator_->ToType("line"), DataType{18});
  EXPECT_EQ(translator_->ToString(DataType{18}), nullptr);
  EXPECT_EQ(translator_->ToGraphml(DataType{18}), nullptr);
}

TEST_F(TranslatorTest, AQualifiedNameCanBeRegistered) {
  EXPECT_EQ(translator_->Register(DataType::Int, "p::count", nullptr), S_OK);
  EXPECT_EQ(translator_->ToType("p::count"), DataType::Int);
  EXPECT_EQ(translator_->ToType("p::counts"), DataType::UserDefined);
}

TEST_F(TranslatorTest, EmptyNamesAreNames) {
  EXPECT_EQ(translator_->Register(DataType::Code, "", ""), S_OK);
  EXPECT_EQ(translator_->ToType(""), DataType::Code);
  EXPECT_STREQ(translator_->ToString(DataType::Code), "");
  EXPECT_STREQ(translator_->ToGraphml(DataType::Code), "");
}

TEST_F(TranslatorTest, CopiesWhatItIsGiven) {
  std::string name = "a name that is longer than short ones";
  std::string graphml_name = "another name of that kind, for GraphML";
  EXPECT_EQ(translator_->Register(DataType{30}, name.c_str(), graphml_name.c_str()), S_OK);
  name[0] = graphml_name[0] = '?';
  EXPECT_STREQ(translator_->ToString(DataType{30}), "a name that is longer than short ones");
  EXPECT_STREQ(translator_->ToGraphml(DataType{30}), "another name of that kind, for GraphML");
  EXPECT_EQ(translator_->ToType("a name that is longer than short ones"), DataType{30});
}

TEST_F(TranslatorTest, TextsStayWhereTheyAre) {
  const char* const name = translator_->ToString(DataType::UnsignedLongLong);
  const char* const graphml_name = translator_->ToGraphml(DataType::UnsignedLongLong);
  for (int number = 0; number < 100; ++number) {
    const std::string other = "name " + std::to_string(number);
    translator_->Register(DataType{20 + number}, other.c_str(), other.c_str());
    translator_->Register(DataType::UnsignedLongLong, (other + "'").c_str(), nullptr);
  }
  EXPECT_EQ(translator_->ToString(DataType::UnsignedLongLong), name);
  EXPECT_EQ(translator_->ToGraphml(DataType::UnsignedLongLong), graphml_name);
  EXPECT_STREQ(name, "unsigned long long");
  EXPECT_STREQ(graphml_name, "unsigned long long");
}

// The names given are those that the registration replaces.
TEST_F(TranslatorTest, CanBeGivenItsOwnTexts) {
  ASSERT_EQ(translator_->Register(DataType{30}, "a name that is longer than short ones", "number"),
            S_OK);
  EXPECT_EQ(translator_->Register(DataType{30}, translator_->ToString(DataType{30}) + 2,
                                  translator_->ToString(DataType{30})),
            S_OK);
  EXPECT_STREQ(translator_->ToString(DataType{30}), "name that is longer than short ones");
  EXPECT_STREQ(translator_->ToGraphml(DataType{30}), "a name that is longer than short ones");
}

TEST_F(TranslatorTest, BeginsWithOneReference) {
  EXPECT_EQ(translator_->CheckReference(), 1);
  EXPECT_EQ(translator_->AddReference(), 2);
  EXPECT_EQ(translator_->ReleaseReference(), 1);
}

TEST(ContextTranslatorTest, HoldsOneWithTheBuiltInNames) {
  oxa::Ref<IOXAContext> context;
  ASSERT_EQ(OXACreateContext(IID_IOXAContext, oxa::adopt_into(context)), S_FALSE);
  const auto translator = oxa::service<IOXAPropertyDataTypeTranslator>(context);
  ASSERT_NE(translator, nullptr);
  EXPECT_EQ(translator->CheckReference(), 2);
  EXPECT_EQ(translator->ToType("mapped-string"), DataType::Enum);
}

}  // namespace
