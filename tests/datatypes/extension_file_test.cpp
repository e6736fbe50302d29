// What extension files declare.
#include <cmath>
#include <limits>

#include "support.h"

using namespace oxa_test;

namespace {

class ExtensionFileTest : public testing::Test {
 protected:
  // Declares the type point with one member of these attributes, in place of the manager's types.
  IOXADataElement* member(const std::string& attributes) {
    host_.manager.reset();
    host_.make_manager();
    EXPECT_EQ(host_.load(point("<member name=\"x\" " + attributes + "/>")), S_FALSE);
    IOXADataElement* found = nullptr;
    host_.type("p::point")->GetFirstElement(&found);
    EXPECT_NE(found, nullptr) << attributes;
    return found;
  }

  Host host_;
};

TEST_F(ExtensionFileTest, DeclaresTypesWithMembers) {
  EXPECT_EQ(host_.load(R"(<?xml version="1.0" encoding="utf-8"?>
    <!-- A comment. -->
    <extension type="data" plugin="p">
      <data_type name="point" type="struct">
        <member name="y" type="double" range_min="-1.5" range_max="2" tooltip="up" default="0.5"/>
        <member name="x" type="int"></member>
        <!-- Another. -->
        <member name="label" type="string" tooltip="left of it"/>
      </data_type>
      <data_type name="line" type="class">
        <member name="from" type="p::point"/>
        <member name="to" type="p::point"/>
      </data_type>
    </extension>)"),
            S_FALSE);
  EXPECT_EQ(outline(*host_.manager), Lines{"p: line(from to) point(y x label)"});
  EXPECT_STREQ(host_.type("p::point")->Type(), "struct");
  EXPECT_STREQ(host_.type("p::line")->Type(), "class");
  EXPECT_STREQ(host_.type("p::line")->Namespace(), "p");
  EXPECT_EQ(host_.lines(), Lines{});
}

TEST_F(ExtensionFileTest, AMemberHasWhatItsAttributesSay) {
  IOXADataElement* const found =
      member(R"(type="double" range_min="-1.5" range_max="2" tooltip="up and down" default="0.5")");
  EXPECT_STREQ(found->Name(), "x");
  EXPECT_STREQ(found->Namespace(), "p");
  EXPECT_EQ(found->Type(), DataType::Double);
  EXPECT_EQ(found->UserDefinedType(), nullptr);
  EXPECT_EQ(found->MinimumValue(), -1.5);
  EXPECT_EQ(found->MaximumValue(), 2.0);
  EXPECT_STREQ(found->Tooltip(), "up and down");
  EXPECT_STREQ(found->DefaultValue(), "0.5");
  EXPECT_EQ(found->CheckReference(), 1);
}

TEST_F(ExtensionFileTest, AMemberNeedsANameAndATypeAlone) {
  IOXADataElement* const found = member(R"(type="unsigned char")");
  EXPECT_EQ(found->Type(), DataType::UnsignedChar);
  EXPECT_EQ(found->UserDefinedType(), nullptr);
  EXPECT_TRUE(found->IsRangeSet());
  EXPECT_EQ(found->MinimumValue(), 0.0);
  EXPECT_EQ(found->MaximumValue(), 255.0);
  EXPECT_EQ(found->Tooltip(), nullptr);
  EXPECT_STREQ(found->DefaultValue(), "0");
}

TEST_F(ExtensionFileTest, TypesByName) {
  struct Named {
    const char* name;
    int type;
    const char* type_string;
  };
  const Named named[] = {
      {"bool", 0, nullptr},
      {"boolean", 0, nullptr},
      {"string", 1, nullptr},
      {"char", 2, nullptr},
      {"unsigned char", 3, nullptr},
      {"int", 4, nullptr},
      {"unsigned int", 5, nullptr},
      {"short", 6, nullptr},
      {"unsigned short", 7, nullptr},
      {"long long", 8, nullptr},
      {"long", 8, nullptr},
      {"unsigned long long", 9, nullptr},
      {"unsigned long", 9, nullptr},
      {"float", 10, nullptr},
      {"double", 11, nullptr},
      {"enum", 12, nullptr},
      {"mapped-string", 12, nullptr},
      {"code", 13, nullptr},
      {"hexadecimal", 14, nullptr},
      {"file", 15, nullptr},
      {"user-defined", 16, "user-defined"},
      {"p::point", 16, "p::point"},
      {"nobody::knows", 16, "nobody::knows"},
      {"x$p::point%2", 16, "x$p::point%2"},
      {"$", 16, "$"},
      // Trimmed of blanks and tabs, and of nothing else.
      {" \t int \t ", 4, nullptr},
      {"\tunsigned  int", -1, nullptr},
      {" user-defined\t", 16, "user-defined"},
      {" \t p::point \t", 16, "p::point"},
      {"p:: point", 16, "p:: point"},
      {" ", -1, nullptr},
      {"\t \t", -1, nullptr},
      {"\nint", -1, nullptr},
      {"int\r", -1, nullptr},
      {"int\v", -1, nullptr},
      {"\np::point\n", 16, "\np::point\n"},
      // Unknown.
      {"Int", -1, nullptr},
      {"integer", -1, nullptr},
      {"point", -1, nullptr},
  };
  for (const Named& each : named) {
    IOXADataElement* const found = member("type=\"" + std::string(each.name) + "\"");
    EXPECT_EQ(found->Type(), DataType{each.type}) << each.name;
    EXPECT_STREQ(found->UserDefinedType(), each.type_string) << each.name;
  }
  EXPECT_EQ(host_.lines(), Lines{});
}

TEST_F(ExtensionFileTest, NamesOfTheTranslatorAreKnown) {
  host_.translator->Register(DataType::Int, "integer", nullptr);
  host_.translator->Register(DataType{40}, "colour", "string");
  host_.translator->Register(DataType::UserDefined, "record", nullptr);
  host_.translator->Register(DataType::Char, "p::letter", nullptr);
  EXPECT_EQ(member(R"(type=" integer ")")->Type(), DataType::Int);
  EXPECT_EQ(member(R"(type="colour")")->Type(), DataType{40});
  EXPECT_EQ(member(R"(type="p::letter")")->Type(), DataType::Char);
  EXPECT_EQ(member(R"(type="p::letter")")->UserDefinedType(), nullptr);
  EXPECT_EQ(member(R"(type="record")")->Type(), DataType::UserDefined);
  EXPECT_STREQ(member(R"(type="record")")->UserDefinedType(), "record");
}

TEST_F(ExtensionFileTest, WithoutATranslatorNoTypeIsKnown) {
  host_.remove(IID_IOXAPropertyDataTypeTranslator);
  for (const char* type : {R"(type="int")", R"(type="p::point")"}) {
    IOXADataElement* const found = member(type);
    EXPECT_EQ(found->Type(), NoDataType);
    EXPECT_EQ(found->UserDefinedType(), nullptr);
    EXPECT_EQ(found->MaximumValue(), 1.0);
  }
}

// Equal, or no number both.
bool same(double left, double right) {
  return left == right || (std::isnan(left) && std::isnan(right));
}

TEST_F(ExtensionFileTest, Ranges) {
  const double infinity = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  struct Range {
    const char* attributes;
    double minimum;
    double maximum;
  };
  const Range ranges[] = {
      {"type='int' range_min='-1.5' range_max='2'", -1.5, 2.0},
      {"type='bool' range_min='3' range_max='3'", 3, 3},
      {"type='word' range_min='-7' range_max='-6'", -7, -6},
      {"type='p::point' range_min='10' range_max='20'", 10, 20},
      {"range_max='2' range_min='-1.5' type='int'", -1.5, 2.0},
      // In single precision.
      {"type='double' range_min='0.1' range_max='0.2'", 0.10000000149011612, 0.20000000298023224},
      {"type='int' range_min='16777217' range_max='16777219'", 16777216, 16777220},
      {"type='double' range_min='-1e39' range_max='1e39'", -infinity, infinity},
      {"type='double' range_min='1e-50' range_max='1'", 0, 1},
      {"type='float' range_min='-3.4028234663852886e+38' range_max='1e10'", -3.4028234663852886e+38,
       1e10},
      // As much of it as is a number.
      {"type='int' range_min='abc' range_max='5'", 0, 5},
      {"type='int' range_min=' -1x' range_max='2 3'", -1, 2},
      {"type='int' range_min='0x10' range_max='+2e1'", 16, 20},
      {"type='int' range_min='1,5' range_max='2,5'", 1, 2},
      {"type='int' range_min='-inf' range_max='INFINITY'", -infinity, infinity},
      {"type='int' range_min='nan' range_max='1'", nan, 1},
      {"type='int' range_min='1' range_max='nan'", 1, nan},
      {"type='int' range_min=' ' range_max=' '", 0, 0},
      // Inverted ones, and a maximum alone, are ignored.
      {"type='short' range_min='5' range_max='1'", -32768, 32767},
      {"type='short' range_min='1' range_max='abc'", -32768, 32767},
      {"type='short' range_min='inf' range_max='1'", -32768, 32767},
      {"type='short' range_max='1'", -32768, 32767},
      {"type='short' range_max=''", -32768, 32767},
      {"type='short' range_min='' range_max='1'", -32768, 32767},
      {"type='short' range_min=''", -32768, 32767},
  };
  for (const Range& each : ranges) {
    std::string attributes = each.attributes;
    std::replace(attributes.begin(), attributes.end(), '\'', '"');
    IOXADataElement* const found = member(attributes);
    EXPECT_TRUE(found->IsRangeSet()) << attributes;
    EXPECT_TRUE(same(found->MinimumValue(), each.minimum)) << attributes << found->MinimumValue();
    EXPECT_TRUE(same(found->MaximumValue(), each.maximum)) << attributes << found->MaximumValue();
  }
}

TEST_F(ExtensionFileTest, TextsAreKeptAsTheyAreWritten) {
  IOXADataElement* found = member(R"(type="int" tooltip=" a &lt; b&#10;" default=" 1 ")");
  EXPECT_STREQ(found->Tooltip(), " a &lt; b&#10;");
  EXPECT_STREQ(found->DefaultValue(), " 1 ");
  found = member("type=\"int\" tooltip=\"\xC3\xA9 %s\" default=\"none\"");
  EXPECT_STREQ(found->Tooltip(), "\xC3\xA9 %s");
  EXPECT_STREQ(found->DefaultValue(), "none");
}

TEST_F(ExtensionFileTest, EmptyTextsCountAsMissing) {
  IOXADataElement* const found = member(R"(type="int" tooltip="" default="")");
  EXPECT_EQ(found->Tooltip(), nullptr);
  EXPECT_STREQ(found->DefaultValue(), "0");
}

TEST_F(ExtensionFileTest, NamesAreNotTrimmed) {
  host_.load(R"(<extension type="data" plugin=" p "><data_type name=" point" type=" s ">
                <member name=" x" type="int"/><member name="x" type="int"/></data_type></extension>)");
  EXPECT_EQ(outline(*host_.manager), Lines{" p :  point( x x)"});
  EXPECT_STREQ(host_.type(" p :: point")->Type(), " s ");
}

// What is below a root, and the types that are read of it.
struct Shape {
  const char* content;
  const char* types;
};

const Shape shapes[] = {
    {R"(<data_type name="a" type="s"/>)", "p: a()"},
    {R"(<data_type name="a" type="s"></data_type>)", "p: a()"},
    {R"(<data_type name="a" type="s">some text</data_type>)", "p: a()"},
    {R"(<data_type name="a" type="s"><other/></data_type>)", "p: a()"},
    {R"(<data_type name="a" type="s"><Member name="x" type="int"/></data_type>)", "p: a()"},
    {R"(<data_type name="a" type="s" more="1"><member name="x" type="int" more="2"/></data_type>)",
     "p: a(x)"},
    {R"(<data_type type="s" name="a"><member type="int" name="x"/></data_type>)", "p: a(x)"},
    {R"(<data_type name="a" type="s"><member name="x" type="int">text</member></data_type>)",
     "p: a(x)"},
    {R"(<data_type name="a" type="s"><group><member name="x" type="int"/></group>
        <member name="y" type="int"><member name="z" type="int"/></member></data_type>)",
     "p: a(y)"},
    {R"(<group><data_type name="a" type="s"/></group><data_type name="b" type="s"/>)", "p: b()"},
    {R"(<data_type name="a" type="s"><data_type name="b" type="s"/></data_type>)", "p: a()"},
    {R"(<other/><Data_type name="a" type="s"/><member name="x" type="int"/>
        <data_type name="b" type="s"/>)",
     "p: b()"},
    {R"(<data_type name="a" name="b" type="s"/>)", "p: b()"},
};

class ExtensionShapeTest : public testing::TestWithParam<Shape> {};

TEST_P(ExtensionShapeTest, OnlyDirectChildrenOfTheRightNameCount) {
  const Host host;
  EXPECT_EQ(host.load(extension(GetParam().content)), S_FALSE);
  EXPECT_EQ(outline(*host.manager), Lines{GetParam().types});
  EXPECT_EQ(host.lines(), Lines{});
}

INSTANTIATE_TEST_SUITE_P(Shapes, ExtensionShapeTest, testing::ValuesIn(shapes));

TEST_F(ExtensionFileTest, ASecondTypeOfANameIsIgnored) {
  EXPECT_EQ(host_.load(extension(
                R"(<data_type name="a" type="first"><member name="x" type="int"/></data_type>
                   <data_type name="a" type="second"><member name="y" type="int"/></data_type>
                   <data_type name="A" type="third"/>)")),
            S_FALSE);
  EXPECT_EQ(outline(*host_.manager), Lines{"p: A() a(x)"});
  EXPECT_STREQ(host_.type("p::a")->Type(), "first");
  EXPECT_EQ(host_.lines(), Lines{});
}

TEST_F(ExtensionFileTest, ASecondMemberOfANameIsLeftOut) {
  EXPECT_EQ(host_.load(point(R"(<member name="x" type="int"/><member name="x" type="char"/>
                                <member name="X" type="char"/><member name="y" type="int"/>)")),
            S_FALSE);
  EXPECT_EQ(outline(*host_.manager), Lines{"p: point(x X y)"});
  IOXADataElement* first = nullptr;
  host_.type("p::point")->GetFirstElement(&first);
  EXPECT_EQ(first->Type(), DataType::Int);
  EXPECT_EQ(host_.lines(), Lines{});
}

TEST_F(ExtensionFileTest, FilesOfOnePluginShareItsNamespace) {
  host_.load(extension(R"(<data_type name="a" type="first"/>)"));
  IOXAPluginDataTypeNamespace* const before = host_.name_space("p");
  EXPECT_EQ(host_.load(extension(R"(<data_type name="a" type="second"/>
                                    <data_type name="b" type="second"/>)")),
            S_FALSE);
  EXPECT_EQ(host_.name_space("p"), before);
  EXPECT_EQ(outline(*host_.manager), Lines{"p: a() b()"});
  EXPECT_STREQ(host_.type("p::a")->Type(), "first");
  EXPECT_EQ(host_.lines(), Lines{});
}

TEST_F(ExtensionFileTest, AFileMayBeLoadedAgain) {
  const std::string content = point(R"(<member name="x" type="int"/>)");
  EXPECT_EQ(host_.load(content), S_FALSE);
  IOXAUserDefinedDataType* const before = host_.type("p::point");
  EXPECT_EQ(host_.load(content), S_FALSE);
  EXPECT_EQ(host_.type("p::point"), before);
  EXPECT_EQ(outline(*host_.manager), Lines{"p: point(x)"});
}

TEST_F(ExtensionFileTest, PluginsHaveNamespacesOfTheirOwn) {
  host_.load(R"(<extension type="data" plugin="p"><data_type name="a" type="s"/></extension>)");
  host_.load(R"(<extension type="data" plugin="q"><data_type name="a" type="t"/></extension>)");
  EXPECT_EQ(outline(*host_.manager), (Lines{"p: a()", "q: a()"}));
  EXPECT_STREQ(host_.type("q::a")->Type(), "t");
}

TEST_F(ExtensionFileTest, ANamespaceThatWasMadeBeforeIsUsed) {
  IOXAPluginDataTypeNamespace* const before = host_.name_space("p");
  IOXAUserDefinedDataType* type = nullptr;
  before->AddUserDefinedType("point", "class", &type);
  EXPECT_EQ(host_.load(point(R"(<member name="x" type="int"/>)")), S_FALSE);
  EXPECT_EQ(outline(*host_.manager), Lines{"p: point()"});
}

TEST_F(ExtensionFileTest, TypesKnowWhichOthersTheyUse) {
  host_.load(extension(R"(<data_type name="line" type="s"><member name="to" type=" p::point "/>
                          </data_type><data_type name="point" type="s"/>)"));
  IOXADataElement* to = nullptr;
  host_.type("p::line")->GetFirstElement(&to);
  EXPECT_EQ(host_.type(to->UserDefinedType()), host_.type("p::point"));
  EXPECT_NE(host_.type("p::point"), nullptr);
}

TEST_F(ExtensionFileTest, MayBeLarge) {
  std::string content;
  for (int type = 0; type < 300; ++type) {
    content += "<data_type name=\"t" + std::to_string(type) + "\" type=\"s\">";
    for (int member = 0; member < 10; ++member) {
      content += "<member name=\"m" + std::to_string(member) + "\" type=\"int\"/>";
    }
    content += "</data_type>";
  }
  EXPECT_EQ(host_.load(extension(content)), S_FALSE);
  for (int type = 0; type < 300; ++type) {
    IOXAUserDefinedDataType* const found = host_.type(("p::t" + std::to_string(type)).c_str());
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->ElementCount(), 10);
  }
}

TEST_F(ExtensionFileTest, ABadTypeIsSkipped) {
  EXPECT_EQ(host_.load(extension(R"(<data_type type="s"/>
                                    <data_type name="a" type="s"><member type="int"/></data_type>
                                    <data_type name="b" type="s"><member name="x" type="int"/>
                                      <member name="y" type="int" range_min="1"/></data_type>
                                    <data_type name="c" type="s"><member name="x" type="int"/>
                                    </data_type>
                                    <data_type name="d"/>)")),
            S_FALSE);
  EXPECT_EQ(outline(*host_.manager), Lines{"p: a() b(x) c(x)"});
  EXPECT_EQ(host_.lines(),
            (Lines{"error: 'name' attribute missing for <data_type> element!",
                   "error: 'name' attribute missing for <member> element in <data_type "
                   "name=\"a\"...>!",
                   "error: 'type' attribute missing for <data_type> element!"}));
}

}  // namespace
