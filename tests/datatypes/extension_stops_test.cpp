// What stops the reading of an extension file, what is said then, and what is kept.
#include "support.h"

using namespace oxa_test;

namespace {

struct Stop {
  std::string content;
  OXAResult result;
  Lines lines;
  Lines types;
};

class ExtensionStopTest : public testing::TestWithParam<Stop> {};

TEST_P(ExtensionStopTest, IsTold) {
  const Host host;
  EXPECT_EQ(host.load(GetParam().content), GetParam().result);
  EXPECT_EQ(host.lines(), GetParam().lines);
  EXPECT_EQ(outline(*host.manager), GetParam().types);
}

TEST_P(ExtensionStopTest, IsTheSameWithoutASink) {
  const Host host;
  host.remove(IID_IOXADebugMessage);
  EXPECT_EQ(host.load(GetParam().content), GetParam().result);
  EXPECT_EQ(host.lines(), Lines{});
  EXPECT_EQ(outline(*host.manager), GetParam().types);
}

TEST_P(ExtensionStopTest, DoesNotStopTheNextFile) {
  const Host host;
  host.load(GetParam().content);
  EXPECT_EQ(host.load(R"(<extension type="data" plugin="z"><data_type name="a" type="s"/>
                         </extension>)"),
            S_FALSE);
  EXPECT_EQ(host.lines(), GetParam().lines);
  EXPECT_NE(host.type("z::a"), nullptr);
}

const OXAResult unfit = E_INVALIDDATA;
const OXAResult missing = E_NOTFOUND;
const OXAResult empty = E_INVALIDARG;

const std::string not_an_extension = "error: Unrecognized XML format - not an extension file!";
const std::string not_for_data = "error: Not a data type extension file!";
const std::string no_plugin = "error: 'plugin' attribute missing!";

const Stop roots[] = {
    {"", unfit, {}, {}},
    {" \n", unfit, {}, {}},
    {"<!-- nothing -->", unfit, {}, {}},
    {R"(<?xml version="1.0"?>)", unfit, {}, {}},
    {"<extensions/>", unfit, {not_an_extension}, {}},
    {R"(<Extension type="data" plugin="p"/>)", unfit, {not_an_extension}, {}},
    {R"(<data_type name="a" type="s"/>)", unfit, {not_an_extension}, {}},
    {R"(<x><extension type="data" plugin="p"/></x>)", unfit, {not_an_extension}, {}},
    {"<extension/>", missing, {}, {}},
    {R"(<extension plugin="p"/>)", missing, {}, {}},
    {R"(<extension Type="data" plugin="p"/>)", missing, {}, {}},
    {R"(<extension type="" plugin="p"/>)", empty, {}, {}},
    {R"(<extension type="Data" plugin="p"/>)", unfit, {not_for_data}, {}},
    {R"(<extension type=" data" plugin="p"/>)", unfit, {not_for_data}, {}},
    {R"(<extension type="data " plugin="p"/>)", unfit, {not_for_data}, {}},
    {R"(<extension type="layout"/>)", unfit, {not_for_data}, {}},
    {R"(<extension type="data"/>)", missing, {no_plugin}, {}},
    {R"(<extension type="data" Plugin="p"/>)", missing, {no_plugin}, {}},
    {R"(<extension type="data" plugin=""/>)", empty, {no_plugin}, {}},
    {R"(<extension type="data"><data_type name="a" type="s"/></extension>)",
     missing,
     {no_plugin},
     {}},
    {R"(<extension type="data" plugin="p"/>)", missing, {}, {"p:"}},
    {R"(<extension type="data" plugin="p"></extension>)", missing, {}, {"p:"}},
    {R"(<extension type="data" plugin="p">text</extension>)", missing, {}, {"p:"}},
    {R"(<extension type="data" plugin="p"><Data_type name="a" type="s"/></extension>)",
     missing,
     {},
     {"p:"}},
    {R"(<extension type="data" plugin="p"><x><data_type name="a" type="s"/></x></extension>)",
     missing,
     {},
     {"p:"}},
};

const Stop sources[] = {
    {R"(<extension type="data" plugin="p"><data_type name="a" type="s"/>)",
     E_UNEXPECTED,
     {"error: Badly formed XML file; unknown parsing error!", "message 0: type=data",
      "message 0: plugin=p", "error: Badly formed XML file; confused during parsing"},
     {}},
    {R"(<extension type="data" plugin="p"><data_type name="a" type="s"/></extension><b/>)",
     E_UNEXPECTED,
     {"error: Badly formed XML file; more than 1 top level element"},
     {}},
    {"=", E_UNEXPECTED, {"error: Badly formed XML file; and I don't know why!"}, {}},
};

const std::string unnamed_type = "error: 'name' attribute missing for <data_type> element!";
const std::string untyped_type = "error: 'type' attribute missing for <data_type> element!";

// Stop a type, and not the file.
const Stop types[] = {
    {extension(R"(<data_type/>)"), S_FALSE, {unnamed_type}, {"p:"}},
    {extension(R"(<data_type type="s"/>)"), S_FALSE, {unnamed_type}, {"p:"}},
    {extension(R"(<data_type name="" type="s"/>)"), S_FALSE, {unnamed_type}, {"p:"}},
    {extension(R"(<data_type Name="a" type="s"/>)"), S_FALSE, {unnamed_type}, {"p:"}},
    {extension(R"(<data_type name="a"/>)"), S_FALSE, {untyped_type}, {"p:"}},
    {extension(R"(<data_type name="a" type=""/>)"), S_FALSE, {untyped_type}, {"p:"}},
    {extension(R"(<data_type name="a"><member/></data_type>)"), S_FALSE, {untyped_type}, {"p:"}},
    {extension(R"(<data_type name="a"/><data_type/><data_type name="b" type="s"/><data_type/>)"),
     S_FALSE,
     {untyped_type, unnamed_type, unnamed_type},
     {"p: b()"}},
    {extension(R"(<data_type name="a" type="s"/><data_type name="a"/>)"),
     S_FALSE,
     {untyped_type},
     {"p: a()"}},
};

std::string unnamed_member(const std::string& type) {
  return "error: 'name' attribute missing for <member> element in <data_type name=\"" + type +
         "\"...>!";
}

std::string untyped_member(const std::string& name, const std::string& type) {
  return "error: 'type' attribute missing for <member name=\"" + name + "\"> element (" + type +
         ")!";
}

// Cut a type short.
const Stop members[] = {
    {point("<member/>"), S_FALSE, {unnamed_member("point")}, {"p: point()"}},
    {point(R"(<member type="int"/>)"), S_FALSE, {unnamed_member("point")}, {"p: point()"}},
    {point(R"(<member name="" type="int"/>)"), S_FALSE, {unnamed_member("point")}, {"p: point()"}},
    {point(R"(<member name="x"/>)"), S_FALSE, {untyped_member("x", "point")}, {"p: point()"}},
    {point(R"(<member name="x" type=""/>)"),
     S_FALSE,
     {untyped_member("x", "point")},
     {"p: point()"}},
    {point(R"(<member name="x" range_min="1"/>)"),
     S_FALSE,
     {untyped_member("x", "point")},
     {"p: point()"}},
    {point(R"(<member name="a" type="int"/><member name="x"/><member name="b" type="int"/>)"),
     S_FALSE,
     {untyped_member("x", "point")},
     {"p: point(a)"}},
    {point(R"(<member name="a" type="int"/><member name="a"/><member name="b" type="int"/>)"),
     S_FALSE,
     {untyped_member("a", "point")},
     {"p: point(a)"}},
    {point(R"(<member name="a" type="int"/><member/><member name="b" type="int"/>)"),
     S_FALSE,
     {unnamed_member("point")},
     {"p: point(a)"}},
    {point(R"(<member name="a" type="int"/><member name="x" type="int" range_min="1"/>
              <member name="b" type="int"/>)"),
     S_FALSE,
     {},
     {"p: point(a)"}},
    {point(R"(<member name="x" type="int" range_min="1" range_max=""/>
              <member name="b" type="int"/>)"),
     S_FALSE,
     {},
     {"p: point()"}},
    {point(R"(<member name="x" type="int" range_min="5" range_max="1"/>
              <member name="b" type="int"/>)"),
     S_FALSE,
     {},
     {"p: point(x b)"}},
    {extension(R"(<data_type name="%s%n" type="s"><member/></data_type>
                  <data_type name="%d" type="s"><member name="%s%n"/></data_type>
                  <data_type name="a" type="s"><member name="x" type="%s"/></data_type>)"),
     S_FALSE,
     {unnamed_member("%s%n"), untyped_member("%s%n", "%d")},
     {"p: %d() %s%n() a(x)"}},
    {extension(
         "<data_type name=\"\xC3\xA9\" type=\"s\"><member name=\"\xE2\x82\xAC\"/></data_type>"),
     S_FALSE,
     {untyped_member("\xE2\x82\xAC", "\xC3\xA9")},
     {"p: \xC3\xA9()"}},
};

INSTANTIATE_TEST_SUITE_P(Roots, ExtensionStopTest, testing::ValuesIn(roots));
INSTANTIATE_TEST_SUITE_P(Sources, ExtensionStopTest, testing::ValuesIn(sources));
INSTANTIATE_TEST_SUITE_P(Types, ExtensionStopTest, testing::ValuesIn(types));
INSTANTIATE_TEST_SUITE_P(Members, ExtensionStopTest, testing::ValuesIn(members));

class ExtensionPathTest : public testing::Test {
 protected:
  OXAResult load(const std::filesystem::path& path) const {
    return host_.manager->Load(wide(path).c_str());
  }

  TemporaryFolder folder_;
  Host host_;
};

TEST_F(ExtensionPathTest, NullIsRefused) {
  EXPECT_EQ(host_.manager->Load(nullptr), E_INVALIDARG);
  EXPECT_EQ(host_.lines(), Lines{});
}

TEST_F(ExtensionPathTest, AMissingFileCannotBeOpened) {
  const std::filesystem::path missing_file = folder_ / "missing.xml";
  EXPECT_EQ(load(missing_file), E_OPENFAILED);
  EXPECT_EQ(host_.lines(), Lines{"message 5: Could not open file " + missing_file.string()});
  host_.remove(IID_IOXADebugMessage);
  EXPECT_EQ(load(missing_file), E_OPENFAILED);
  EXPECT_EQ(outline(*host_.manager), Lines{});
}

TEST_F(ExtensionPathTest, AFolderHasNoRoot) {
  EXPECT_EQ(load(folder_.path()), E_INVALIDDATA);
  EXPECT_EQ(host_.lines(), Lines{});
}

TEST_F(ExtensionPathTest, MayHoldAnyCharacter) {
  for (const char* name :
       {"a b.xml", "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80.xml", "no ending", "%s"}) {
    EXPECT_EQ(load(folder_.write(name, point(""))), S_FALSE) << name;
  }
  EXPECT_EQ(outline(*host_.manager), Lines{"p: point()"});
}

}  // namespace
