#include <gtest/gtest.h>
#include <oxa/oxa.h>
#include <problem.h>
#include <record_types.h>

#include "support/capture.h"
#include "support/files.h"

namespace {

// A file of the namespace p that holds `types`.
std::string extension(const std::string& types) {
  return "<extension type=\"data\" plugin=\"p\">" + types + "</extension>";
}

std::string type_with(const std::string& member) {
  return extension("<data_type name=\"t\" type=\"s\"><member name=\"m\" " + member +
                   "/></data_type>");
}

class RecordTypesTest : public testing::Test {
 protected:
  RecordTypesTest() {
    OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
    records = std::make_unique<RecordTypes>(context.get());
  }

  // Loads the folder and returns what is told.
  std::string load() {
    return oxa_test::written_by([&] { records->load(folder.path().string()); }).err;
  }

  // Returns the one member of the one type that a file with the member declares.
  RecordMember loaded(const std::string& member) {
    records.reset();
    records = std::make_unique<RecordTypes>(context.get());
    folder.write("a.xml", type_with(member));
    EXPECT_EQ(load(), "");
    return records->all().at(0).members.at(0);
  }

  std::string skipped(const std::string& name, const std::string& why) const {
    return "oxa-graph: skipped the record types in \"" + (folder / name).string() + "\": " + why +
           "; correct or remove the file\n";
  }

  oxa_test::TemporaryFolder folder;
  oxa::Ref<IOXAContext> context;
  std::unique_ptr<RecordTypes> records;
};

TEST_F(RecordTypesTest, AreSortedByNamespaceAndName) {
  folder.write(
      "a.xml",
      "<extension type=\"data\" plugin=\"q\"><data_type name=\"a\" type=\"s\"/></extension>");
  folder.write("b.xml", extension("<data_type name=\"z\" type=\"s\"/><data_type name=\"c\" "
                                  "type=\"s\"/>"));
  folder.write("c.xml", extension("<data_type name=\"b\" type=\"s\"/>"));
  EXPECT_EQ(load(), "");
  std::string names;
  for (const RecordType& type : records->all()) {
    names += type.name_space + "::" + type.name + " ";
  }
  EXPECT_EQ(names, "p::b p::c p::z q::a ");
}

TEST_F(RecordTypesTest, MembersKeepTheirOrder) {
  folder.write("a.xml", extension("<data_type name=\"t\" type=\"s\"><member name=\"z\" "
                                  "type=\"int\"/><member name=\"a\" type=\"int\"/></data_type>"));
  load();
  const RecordType type = records->all().at(0);
  EXPECT_EQ(type.kind, "s");
  ASSERT_EQ(type.members.size(), 2U);
  EXPECT_EQ(type.members[0].name, "z");
  EXPECT_EQ(type.members[1].name, "a");
}

TEST_F(RecordTypesTest, FilesAreReadInTheOrderOfNames) {
  folder.write("b.xml", extension("<data_type name=\"t\" type=\"second\"/>"));
  folder.write("a.xml", extension("<data_type name=\"t\" type=\"first\"/>"));
  load();
  ASSERT_EQ(records->all().size(), 1U);
  EXPECT_EQ(records->all()[0].kind, "first");
}

TEST_F(RecordTypesTest, OtherNamesAreNotRead) {
  for (const char* name : {"a.xml~", "a.xml.orig", "a.XML", ".xml", "xml"}) {
    folder.write(name, "no extension file");
  }
  EXPECT_EQ(load(), "");
  EXPECT_TRUE(records->all().empty());
}

TEST_F(RecordTypesTest, DataTypesHaveTheirCanonicalNames) {
  EXPECT_EQ(loaded("type=\"long\"").data_type, "long long");
  EXPECT_EQ(loaded("type=\" boolean\t\"").data_type, "bool");
  EXPECT_EQ(loaded("type=\"user-defined\"").data_type, "user-defined");
}

TEST_F(RecordTypesTest, RecordsOfAnyFileAreKnown) {
  const auto refers_to = [](const std::string& own, const std::string& other) {
    return "<extension type=\"data\" plugin=\"" + own +
           "\"><data_type name=\"t\" type=\"s\"><member name=\"m\" type=\"" + other +
           "::t\"/></data_type></extension>";
  };
  folder.write("a.xml", refers_to("a", "b"));
  folder.write("b.xml", refers_to("b", "a"));
  load();
  EXPECT_EQ(records->all().at(0).members.at(0).data_type, "b::t");
  EXPECT_EQ(records->all().at(1).members.at(0).data_type, "a::t");
}

TEST_F(RecordTypesTest, WhatIsUnknownIsMarked) {
  EXPECT_EQ(loaded("type=\"p::u\"").data_type, "unknown p::u");
  EXPECT_EQ(loaded("type=\"q::t\"").data_type, "unknown q::t");
  EXPECT_EQ(loaded("type=\"integer\"").data_type, "unknown");
}

TEST_F(RecordTypesTest, RangesAreShownWhereTheyNarrowTheType) {
  const struct {
    const char* member;
    const char* range;
  } table[] = {
      {"type=\"double\"", "above 0"},
      {"type=\"float\"", "above 0"},
      {"type=\"int\"", ""},
      {"type=\"int\" range_min=\"-5\" range_max=\"7\"", "-5 to 7"},
      {"type=\"double\" range_min=\"0.1\" range_max=\"2.5\"", "0.1 to 2.5"},
      {"type=\"double\" range_min=\"3\" range_max=\"3\"", "3"},
      {"type=\"double\" range_min=\"0\" range_max=\"inf\"", "0 or more"},
      {"type=\"double\" range_min=\"-inf\" range_max=\"0\"", "0 or less"},
      {"type=\"double\" range_min=\"-inf\" range_max=\"inf\"", "any number"},
      {"type=\"unsigned char\" range_min=\"0\" range_max=\"255\"", ""},
      {"type=\"unsigned char\" range_min=\"0\" range_max=\"254\"", "0 to 254"},
      {"type=\"unsigned char\" range_min=\"1\" range_max=\"255\"", "1 to 255"},
      {"type=\"string\"", ""},
      {"type=\"string\" range_min=\"1\" range_max=\"80\"", "1 to 80"},
  };
  for (const auto& row : table) {
    EXPECT_EQ(loaded(row.member).range, row.range) << row.member;
  }
}

TEST_F(RecordTypesTest, DefaultsAreShownWhereTheyMeanSomething) {
  EXPECT_EQ(loaded("type=\"int\"").default_value, "0");
  EXPECT_EQ(loaded("type=\"bool\"").default_value, "0");
  for (const char* type : {"string", "enum", "code", "file", "p::t", "integer"}) {
    const std::string member = "type=\"" + std::string(type) + "\"";
    EXPECT_EQ(loaded(member).default_value, "") << type;
    EXPECT_EQ(loaded(member + " default=\"x\"").default_value, "x") << type;
  }
}

TEST_F(RecordTypesTest, WrappedTextsAreOneLine) {
  EXPECT_EQ(loaded("type=\"int\" tooltip=\"one\n    two\tthree\"").tooltip, "one two three");
  EXPECT_EQ(loaded("type=\"int\"").tooltip, "");
}

TEST_F(RecordTypesTest, BadFilesAreSkipped) {
  const struct {
    const char* content;
    const char* why;
  } table[] = {
      {"<extension><data_type></extension>",
       "the library says \"Badly formed XML file; parsing confused! (extension)\""},
      {"<graphml/>", "the library says \"Unrecognized XML format - not an extension file!\""},
      {"<extension type=\"code\" plugin=\"p\"/>",
       "the library says \"Not a data type extension file!\""},
      {"<extension type=\"data\"/>", "the library says \"'plugin' attribute missing!\""},
      {"<extension plugin=\"p\"/>", "its <extension> has no type=\"data\" or holds no <data_type>"},
      {"<extension type=\"data\" plugin=\"p\"/>",
       "its <extension> has no type=\"data\" or holds no <data_type>"},
      {"", "it holds no element"},
  };
  for (const auto& row : table) {
    folder.write("bad.xml", row.content);
    EXPECT_EQ(load(), skipped("bad.xml", row.why)) << row.content;
  }
}

TEST_F(RecordTypesTest, FilesBehindABadOneAreRead) {
  folder.write("a.xml", "<graphml/>");
  folder.write("b.xml", type_with("type=\"int\""));
  EXPECT_NE(load(), "");
  EXPECT_EQ(records->all().size(), 1U);
}

TEST_F(RecordTypesTest, EveryMalformedPartIsTold) {
  folder.write("a.xml", extension("<data_type name=\"t\"/><data_type name=\"u\" type=\"s\"><member "
                                  "name=\"m\" type=\"int\"/><member/></data_type>"));
  const std::string begin = "oxa-graph: skipped the malformed part of the record types in \"" +
                            (folder / "a.xml").string() + "\": the library says \"";
  EXPECT_EQ(load(), begin +
                        "'type' attribute missing for <data_type> element!\"; correct the file\n" +
                        begin +
                        "'name' attribute missing for <member> element in <data_type "
                        "name=\"u\"...>!\"; correct the file\n");
  EXPECT_EQ(records->all().at(0).members.size(), 1U);
}

TEST_F(RecordTypesTest, TheContextHasItsSinkBack) {
  const auto before = oxa::service<IOXADebugMessage>(context);
  folder.write("a.xml", "<graphml/>");
  load();
  EXPECT_EQ(oxa::service<IOXADebugMessage>(context), before);
}

TEST_F(RecordTypesTest, AFolderThatCannotBeReadIsAProblem) {
  EXPECT_THROW(records->load("/nowhere"), Problem);
}

// A plug-in has no other way to the manager.
TEST_F(RecordTypesTest, PlugInsFindTheManagerAsLongAsItLives) {
  oxa::Ref<IOXAUserDefinedDataTypeManager> found;
  const auto find = [&] {
    return OXACreateUserDefinedDataTypeManager(nullptr, IID_IOXAUserDefinedDataTypeManager,
                                               oxa::adopt_into(found));
  };
  EXPECT_EQ(find(), S_OK);
  found.reset();
  records.reset();
  EXPECT_EQ(find(), E_INVALIDARG);
}

}  // namespace
