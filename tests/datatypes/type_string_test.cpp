// The strings by which types are named, and what they resolve to.
#include "datatypes/type_string.h"

#include "support.h"
#include "support/allocations.h"

using namespace oxa_test;

namespace {

class TypeStringTest : public testing::Test {
 protected:
  TypeStringTest() { host_.name_space("p")->AddUserDefinedType("point", "struct", &point_); }

  // Returns the result, and expects a null output unless it is the type point.
  OXAResult resolve(const char* type_string) {
    auto* type = reinterpret_cast<IOXAUserDefinedDataType*>(&marker_);
    const OXAResult result = host_.manager->GetUserType(type_string, &type);
    EXPECT_EQ(host_.manager->TypeDefined(type_string), result >= 0) << type_string;
    found_ = type;
    return result;
  }

  Host host_;
  IOXAUserDefinedDataType* point_ = nullptr;
  IOXAUserDefinedDataType* found_ = nullptr;
  int marker_ = 0;
};

struct Split {
  const char* separator;
  const char* text;
  std::size_t count;
  const char* first;
  const char* second;
};

const Split splits[] = {
    {"$", "", 1, "", ""},
    {"$", "abc", 1, "abc", ""},
    {"$", "a$b", 2, "a", "b"},
    {"$", "$", 2, "", ""},
    {"$", "a$", 2, "a", ""},
    {"$", "$b", 2, "", "b"},
    {"$", "a$b$c", 3, "a", "b"},
    {"$", "$$", 3, "", ""},
    {"$", "a$b$", 3, "a", "b"},
    {"$", "a$b$c$d$e", 3, "a", "b"},
    {"::", "a:b", 1, "a:b", ""},
    {"::", "a::b", 2, "a", "b"},
    {"::", "a:::b", 2, "a", ":b"},
    {"::", ":::", 2, "", ":"},
    {"::", "::::", 3, "", ""},
    {"::", "a::b::c", 3, "a", "b"},
    {"::", "a::b::::", 3, "a", "b"},
    {"::", "::", 2, "", ""},
};

TEST_F(TypeStringTest, SplitsAtEachSeparator) {
  for (const Split& each : splits) {
    const OXASimpleStringDecoder pieces(each.separator, each.text);
    EXPECT_EQ(pieces.count(), each.count) << each.text;
    EXPECT_EQ(pieces.first(), each.first) << each.text;
    EXPECT_EQ(pieces.second(), each.second) << each.text;
  }
}

TEST_F(TypeStringTest, PiecesPointIntoTheText) {
  const std::string_view text = "ab::cd";
  const OXASimpleStringDecoder pieces("::", text);
  EXPECT_EQ(pieces.first().data(), text.data());
  EXPECT_EQ(pieces.second().data(), text.data() + 4);
}

struct Named {
  const char* type_string;
  const char* name;
};

const Named named[] = {
    {"", ""},
    {"int", "int"},
    {"p::point", "p::point"},
    {"p::point%2", "p::point%2"},
    {"x$p::point", "p::point"},
    {"x$p::point%2", "p::point"},
    {"x$p::point%", "p::point"},
    {"$p::point", "p::point"},
    {"x%y$p::point%2", "p::point"},
    {"x$", ""},
    {"$", ""},
    {"x$%2", ""},
    {"x$p::point%2%3", "p::point%2%3"},
    {"x$p::point%%", "p::point%%"},
    {"p::point$a$b", "p::point"},
    {"p::point$$", "p::point"},
    {"p::point%2$a$b", "p::point%2"},
    {"a$b$p::point", "a"},
    {"$$p::point", ""},
    {"a$b$c$d", "a"},
};

TEST_F(TypeStringTest, TheNamedPart) {
  for (const Named& each : named) {
    EXPECT_EQ(named_type(each.type_string), each.name) << each.type_string;
  }
}

enum class Outcome { built_in, point, unknown };

struct Resolved {
  const char* type_string;
  Outcome outcome;
};

const Resolved resolved[] = {
    {"int", Outcome::built_in},
    {"boolean", Outcome::built_in},
    {"unsigned long", Outcome::built_in},
    {"mapped-string", Outcome::built_in},
    {"user-defined", Outcome::built_in},
    {"x$int", Outcome::built_in},
    {"x$int%3", Outcome::built_in},
    {"x$unsigned long long%3", Outcome::built_in},
    {"int$a$b", Outcome::built_in},
    {"p::point", Outcome::point},
    {"x$p::point", Outcome::point},
    {"x$p::point%2", Outcome::point},
    {"$p::point%", Outcome::point},
    {"p::point$a$b", Outcome::point},
    {"p::point$$", Outcome::point},
    {"p::point::extra", Outcome::point},
    {"p::point::", Outcome::point},
    {"p::point::a::b::c", Outcome::point},
    {"x$p::point::extra%2", Outcome::point},
    {"", Outcome::unknown},
    {"word", Outcome::unknown},
    {"Int", Outcome::unknown},
    {" int", Outcome::unknown},
    {"int%3", Outcome::unknown},
    {"int$x", Outcome::unknown},
    {"x$", Outcome::unknown},
    {"$", Outcome::unknown},
    {"$$", Outcome::unknown},
    {"x$%2", Outcome::unknown},
    {"a$b$p::point", Outcome::unknown},
    {"a$b$int", Outcome::unknown},
    {"$p::point$", Outcome::unknown},
    {"p::point$", Outcome::unknown},
    {"p::point%2", Outcome::unknown},
    {"x$p::point%2%3", Outcome::unknown},
    {"x$int%2%3", Outcome::unknown},
    {"p", Outcome::unknown},
    {"point", Outcome::unknown},
    {"p::", Outcome::unknown},
    {"::", Outcome::unknown},
    {"::point", Outcome::unknown},
    {"::p::point", Outcome::unknown},
    {"p::Point", Outcome::unknown},
    {"P::point", Outcome::unknown},
    {" p::point", Outcome::unknown},
    {"p ::point", Outcome::unknown},
    {"p:: point", Outcome::unknown},
    {"p::point ", Outcome::unknown},
    {"p:point", Outcome::unknown},
    {"p:::point", Outcome::unknown},
    {"q::point", Outcome::unknown},
    {"point::p", Outcome::unknown},
    {"p::line", Outcome::unknown},
    {"int::point", Outcome::unknown},
};

TEST_F(TypeStringTest, ResolvesToTypes) {
  for (const Resolved& each : resolved) {
    EXPECT_EQ(resolve(each.type_string), each.outcome == Outcome::unknown ? E_NOTFOUND : S_OK)
        << each.type_string;
    EXPECT_EQ(found_, each.outcome == Outcome::point ? point_ : nullptr) << each.type_string;
  }
  EXPECT_EQ(point_->CheckReference(), 1);
}

TEST_F(TypeStringTest, NullArgumentsAreRefused) {
  EXPECT_EQ(resolve(nullptr), E_INVALIDARG);
  EXPECT_NE(found_, nullptr);  // left alone
  EXPECT_EQ(host_.manager->GetUserType("p::point", nullptr), E_INVALIDARG);
  EXPECT_EQ(host_.manager->GetUserType("int", nullptr), E_INVALIDARG);
  EXPECT_FALSE(host_.manager->TypeDefined(nullptr));
}

TEST_F(TypeStringTest, NamesMayBeEmpty) {
  IOXAUserDefinedDataType* nameless = nullptr;
  host_.name_space("p")->AddUserDefinedType("", "struct", &nameless);
  EXPECT_EQ(resolve("p::"), S_OK);
  EXPECT_EQ(found_, nameless);
  EXPECT_EQ(resolve("::"), E_NOTFOUND);
  host_.name_space("")->AddUserDefinedType("point", "struct", &nameless);
  EXPECT_EQ(resolve("::point"), S_OK);
  EXPECT_EQ(found_, nameless);
}

TEST_F(TypeStringTest, NamesThatHoldSeparatorsAreNotFound) {
  IOXAUserDefinedDataType* type = nullptr;
  for (const char* name : {"a::b", "a$b", "a$b$c"}) {
    host_.name_space("p")->AddUserDefinedType(name, "struct", &type);
    EXPECT_EQ(resolve(("p::" + std::string(name)).c_str()), E_NOTFOUND) << name;
  }
  host_.name_space("q::r")->AddUserDefinedType("point", "struct", &type);
  EXPECT_EQ(resolve("q::r::point"), E_NOTFOUND);
}

TEST_F(TypeStringTest, ATypeMayHaveTheNameOfABuiltInOne) {
  IOXAUserDefinedDataType* type = nullptr;
  host_.name_space("int")->AddUserDefinedType("int", "struct", &type);
  EXPECT_EQ(resolve("int"), S_OK);
  EXPECT_EQ(found_, nullptr);
  EXPECT_EQ(resolve("int::int"), S_OK);
  EXPECT_EQ(found_, type);
}

TEST_F(TypeStringTest, RegisteredNamesAreBuiltInToo) {
  EXPECT_EQ(resolve("integer"), E_NOTFOUND);
  host_.translator->Register(DataType::Int, "integer", nullptr);
  host_.translator->Register(DataType{17}, "percent%", "string");
  EXPECT_EQ(resolve("integer"), S_OK);
  EXPECT_EQ(resolve("percent%"), S_OK);
  EXPECT_EQ(resolve("x$integer%2"), S_OK);
}

TEST_F(TypeStringTest, AnEmptyNameIsNeverBuiltIn) {
  EXPECT_EQ(host_.translator->Register(DataType::Code, "", nullptr), S_OK);
  for (const char* type_string : {"", "x$", "$%", "$$"}) {
    EXPECT_EQ(resolve(type_string), E_NOTFOUND) << type_string;
  }
}

TEST_F(TypeStringTest, WithoutATranslatorNothingIsBuiltIn) {
  host_.manager.reset();
  host_.remove(IID_IOXAPropertyDataTypeTranslator);
  host_.make_manager();
  host_.name_space("p")->AddUserDefinedType("point", "struct", &point_);
  EXPECT_EQ(resolve("int"), E_NOTFOUND);
  EXPECT_EQ(resolve("x$int%2"), E_NOTFOUND);
  EXPECT_EQ(resolve("p::point"), S_OK);
  EXPECT_EQ(found_, point_);
}

TEST_F(TypeStringTest, MayHaveManyPieces) {
  std::string pieces;
  for (int piece = 0; piece < 100000; ++piece) {
    pieces += "::a";
  }
  EXPECT_EQ(resolve(("p::point" + pieces).c_str()), S_OK);
  EXPECT_EQ(found_, point_);
  EXPECT_EQ(resolve(pieces.c_str()), E_NOTFOUND);
  std::replace(pieces.begin(), pieces.end(), ':', '$');
  EXPECT_EQ(resolve(("p::point" + pieces).c_str()), S_OK);
  std::replace(pieces.begin(), pieces.end(), '$', '%');
  EXPECT_EQ(resolve(("x$p::point" + pieces).c_str()), E_NOTFOUND);
}

TEST_F(TypeStringTest, ResolvingNeedsNoMemory) {
  IOXAUserDefinedDataType* type = nullptr;
  host_.name_space("a namespace with a long name")
      ->AddUserDefinedType("a type with a long name", "struct", &type);
  const unsigned long before = made_allocations();
  for (const char* type_string :
       {"unsigned long long", "x$unsigned long long", "p::point", "x$p::point%2",
        "a namespace with a long name::a type with a long name",
        "a place$a namespace with a long name::a type with a long name%12",
        "a namespace with a long name::a type with a long name::more"}) {
    EXPECT_TRUE(host_.manager->TypeDefined(type_string)) << type_string;
  }
  for (const char* type_string : {"no data type, and long enough", "a long one::and nothing else",
                                  "a namespace with a long name::and no such type"}) {
    EXPECT_FALSE(host_.manager->TypeDefined(type_string)) << type_string;
  }
  EXPECT_EQ(made_allocations(), before);
}

}  // namespace
