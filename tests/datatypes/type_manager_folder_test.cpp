// Whole folders of extension files.
#include "core/utf.h"
#include "foreign_xml.h"
#include "support.h"

using namespace oxa_test;

namespace {

// A scanner that gives the names it is told, and records its calls.
class ListedScanner final : public oxa::Implements<IOXADirectoryScanner> {
 public:
  OXAResult Scan(const wchar_t* folder, const char* pattern) override {
    calls.push_back("Scan " + oxa::to_utf8(folder) + " " + pattern);
    return scan_result;
  }
  OXAResult GetFirst(wchar_t** name) override {
    calls.emplace_back("GetFirst");
    next_ = 0;
    return give(name);
  }
  OXAResult GetNext(wchar_t** name) override {
    calls.emplace_back("GetNext");
    EXPECT_LT(next_, names.size());
    ++next_;
    return give(name);
  }

  std::vector<std::wstring> names;
  OXAResult scan_result = S_OK;
  OXAResult at_end = S_FALSE;
  Lines calls;

 private:
  OXAResult give(wchar_t** name) {
    *name = next_ == names.size() ? nullptr : names[next_].data();
    return *name == nullptr ? at_end : S_OK;
  }

  std::size_t next_ = 0;
};

// A file that declares a type, and tells its name as it is read.
std::string telling_file(const std::string& type) {
  return extension("<data_type name=\"" + type + "\" type=\"s\"><member/></data_type>");
}

std::string told(const std::string& type) {
  return "error: 'name' attribute missing for <member> element in <data_type name=\"" + type +
         "\"...>!";
}

const std::string other_kind = R"(<extension type="other"/>)";

class TypeManagerFolderTest : public testing::Test {
 protected:
  OXAResult load_all() { return host_.manager->LoadAll(wide(folder_.path()).c_str()); }

  // Makes a manager that takes a scanner of the test's own.
  void list(std::vector<std::wstring> names) {
    listed_->names = std::move(names);
    host_.manager.reset();
    host_.context->AddToContext(IID_IOXADirectoryScanner, listed_.get());
    host_.make_manager();
  }

  TemporaryFolder folder_;
  Host host_;
  oxa::Ref<ListedScanner> listed_ = oxa::make<ListedScanner>();
};

TEST_F(TypeManagerFolderTest, LoadsTheFilesWhoseNamesContainXml) {
  for (const char* name : {"a.xml", "b.xml.bak", ".xml", "c.xmls"}) {
    folder_.write(name, extension("<data_type name=\"" + std::string(name) + "\" type=\"s\"/>"));
  }
  for (const char* name : {"d.XML", "exml", "f.xm", "readme.txt"}) {
    folder_.write(name, other_kind);
  }
  EXPECT_EQ(load_all(), S_FALSE);
  EXPECT_EQ(outline(*host_.manager), Lines{"p: .xml() a.xml() b.xml.bak() c.xmls()"});
  EXPECT_EQ(host_.lines(), Lines{});
}

TEST_F(TypeManagerFolderTest, ReadsInTheOrderOfTheFolder) {
  for (int number = 0; number < 20; ++number) {
    const std::string name = std::to_string(number * 7 % 20) + ".xml";
    folder_.write(name, telling_file(name));
  }
  Lines expected;
  for (const std::string& name : folder_.names()) {
    if (name.find(".xml") != std::string::npos) {
      expected.push_back(told(name));
    }
  }
  EXPECT_EQ(load_all(), S_FALSE);
  EXPECT_EQ(expected.size(), 20);
  EXPECT_EQ(host_.lines(), expected);
}

TEST_F(TypeManagerFolderTest, ReadsInTheOrderOfTheScanner) {
  for (const char* name : {"a", "b", "c"}) {
    folder_.write(name, telling_file(name));
  }
  list({L"c", L"a", L"b", L"a"});
  EXPECT_EQ(load_all(), S_FALSE);
  EXPECT_EQ(host_.lines(), (Lines{told("c"), told("a"), told("b")}));  // the second a is ignored
}

TEST_F(TypeManagerFolderTest, AsksTheScannerOfTheContext) {
  folder_.write("a", telling_file("a"));
  folder_.write("b", telling_file("b"));
  list({L"a", L"b"});
  EXPECT_EQ(load_all(), S_FALSE);
  EXPECT_EQ(listed_->calls, (Lines{"Scan " + folder_.path().string() + " *.xml", "GetFirst",
                                   "GetNext", "GetNext"}));
}

TEST_F(TypeManagerFolderTest, JoinsFolderAndNameByASlash) {
  list({L"a.xml"});
  const auto parser = oxa::make<ForeignXMLParser>();
  parser->result = E_FAIL;
  host_.manager.reset();
  host_.context->AddToContext(IID_IOXAXMLParser, parser.get());
  host_.make_manager();
  for (const wchar_t* folder : {L"some folder", L"/a/b/", L"", L"/", L"\u00E9"}) {
    EXPECT_EQ(host_.manager->LoadAll(folder), E_FAIL);
  }
  EXPECT_EQ(parser->paths, (std::vector<std::wstring>{L"some folder/a.xml", L"/a/b//a.xml",
                                                      L"/a.xml", L"//a.xml", L"\u00E9/a.xml"}));
}

TEST_F(TypeManagerFolderTest, TheFolderMayEndWithASlash) {
  folder_.write("a.xml", telling_file("a"));
  EXPECT_EQ(host_.manager->LoadAll((wide(folder_.path()) + L"/").c_str()), S_FALSE);
  EXPECT_EQ(outline(*host_.manager), Lines{"p: a()"});
}

TEST_F(TypeManagerFolderTest, AnEmptyFolderIsFine) {
  EXPECT_EQ(load_all(), S_FALSE);
  EXPECT_EQ(host_.lines(), Lines{});
}

TEST_F(TypeManagerFolderTest, AMissingFolderIsNot) {
  EXPECT_EQ(host_.manager->LoadAll(wide(folder_ / "missing").c_str()), E_BADENVIRONMENT);
  const std::wstring file = wide(folder_.write("a.xml", telling_file("a")));
  EXPECT_EQ(host_.manager->LoadAll(file.c_str()), E_BADENVIRONMENT);
  EXPECT_EQ(host_.lines(), Lines{});
}

TEST_F(TypeManagerFolderTest, NullIsRefused) {
  list({L"a"});
  EXPECT_EQ(host_.manager->LoadAll(nullptr), E_INVALIDARG);
  EXPECT_EQ(listed_->calls, Lines{});
  EXPECT_EQ(host_.lines(), Lines{});
}

TEST_F(TypeManagerFolderTest, WithoutAScannerItFails) {
  host_.manager.reset();
  host_.remove(IID_IOXADirectoryScanner);
  host_.make_manager();
  folder_.write("a.xml", telling_file("a"));
  EXPECT_EQ(load_all(), E_UNEXPECTED);
  EXPECT_EQ(host_.manager->LoadAll(nullptr), E_INVALIDARG);
  EXPECT_EQ(host_.lines(), Lines{});
}

TEST_F(TypeManagerFolderTest, TheFirstFailureEndsIt) {
  folder_.write("a", extension(R"(<data_type name="a" type="s"/>)"));
  folder_.write("b", other_kind);
  folder_.write("c", extension(R"(<data_type name="c" type="s"/>)"));
  list({L"a", L"b", L"c"});
  EXPECT_EQ(load_all(), E_INVALIDDATA);
  EXPECT_EQ(host_.lines(),
            (Lines{"error: Not a data type extension file!", "error: Loading XML (b) failed!"}));
  EXPECT_EQ(outline(*host_.manager), Lines{"p: a()"});
  EXPECT_EQ(listed_->calls.back(), "GetNext");
  EXPECT_EQ(listed_->calls.size(), 3);
}

struct Failure {
  const char* content;
  OXAResult result;
};

class FolderFailureTest : public TypeManagerFolderTest,
                          public testing::WithParamInterface<Failure> {};

TEST_P(FolderFailureTest, IsToldAndReturned) {
  folder_.write("a.xml", GetParam().content);
  EXPECT_EQ(load_all(), GetParam().result);
  ASSERT_FALSE(host_.lines().empty());
  EXPECT_EQ(host_.lines().back(), "error: Loading XML (a.xml) failed!");
}

TEST_P(FolderFailureTest, IsReturnedWithoutASink) {
  host_.remove(IID_IOXADebugMessage);
  folder_.write("a.xml", GetParam().content);
  EXPECT_EQ(load_all(), GetParam().result);
  EXPECT_EQ(host_.lines(), Lines{});
}

const Failure failures[] = {
    {"", E_INVALIDDATA},
    {"<", E_UNEXPECTED},
    {"<other/>", E_INVALIDDATA},
    {"<extension/>", E_NOTFOUND},
    {R"(<extension type=""/>)", E_INVALIDARG},
    {R"(<extension type="other"/>)", E_INVALIDDATA},
    {R"(<extension type="data"/>)", E_NOTFOUND},
    {R"(<extension type="data" plugin="p"/>)", E_NOTFOUND},
};

INSTANTIATE_TEST_SUITE_P(Files, FolderFailureTest, testing::ValuesIn(failures));

TEST_F(TypeManagerFolderTest, ABadTypeDoesNotEndIt) {
  folder_.write("a", extension("<data_type/>"));
  folder_.write("b", extension(R"(<data_type name="b" type="s"/>)"));
  list({L"a", L"b"});
  EXPECT_EQ(load_all(), S_FALSE);
  EXPECT_EQ(outline(*host_.manager), Lines{"p: b()"});
}

TEST_F(TypeManagerFolderTest, AFolderOfSuchANameEndsIt) {
  std::filesystem::create_directory(folder_ / "a.xml");
  EXPECT_EQ(load_all(), E_INVALIDDATA);
  EXPECT_EQ(host_.lines(), Lines{"error: Loading XML (a.xml) failed!"});
}

TEST_F(TypeManagerFolderTest, AFileThatIsGoneEndsIt) {
  list({L"gone"});
  EXPECT_EQ(load_all(), E_OPENFAILED);
  EXPECT_EQ(host_.lines(), (Lines{"message 5: Could not open file " + (folder_ / "gone").string(),
                                  "error: Loading XML (gone) failed!"}));
}

TEST_F(TypeManagerFolderTest, NamesAreToldInUtf8) {
  for (const char* name : {"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80.xml", "%s%n.xml", "a b.xml"}) {
    const std::filesystem::path file = folder_.write(name, other_kind);
    EXPECT_EQ(load_all(), E_INVALIDDATA);
    EXPECT_EQ(host_.lines().back(), "error: Loading XML (" + std::string(name) + ") failed!");
    std::filesystem::remove(file);
  }
}

TEST_F(TypeManagerFolderTest, FilesMayHaveAnyName) {
  for (const char* name : {"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80.xml", "%s%n.xml", "a b.xml"}) {
    folder_.write(name, extension("<data_type name=\"" + std::string(name) + "\" type=\"s\"/>"));
  }
  EXPECT_EQ(load_all(), S_FALSE);
  EXPECT_EQ(outline(*host_.manager),
            Lines{"p: %s%n.xml() a b.xml() \xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80.xml()"});
}

// The scanner drops the byte, and there is no file of the name that is left.
TEST_F(TypeManagerFolderTest, ANameThatIsNotUtf8EndsIt) {
  folder_.write("a\xFF.xml", telling_file("a"));
  EXPECT_EQ(load_all(), E_OPENFAILED);
  EXPECT_EQ(host_.lines().back(), "error: Loading XML (a.xml) failed!");
}

TEST_F(TypeManagerFolderTest, AFailureToScanIsReturned) {
  list({L"a"});
  for (const OXAResult failure : {E_BADENVIRONMENT, E_FAIL, OXAResult{-1}}) {
    listed_->calls.clear();
    listed_->scan_result = failure;
    EXPECT_EQ(load_all(), failure);
    EXPECT_EQ(listed_->calls.size(), 1);
  }
  EXPECT_EQ(host_.lines(), Lines{});
}

TEST_F(TypeManagerFolderTest, TheLastStepThroughTheFilesGivesTheResult) {
  folder_.write("a", extension(R"(<data_type name="a" type="s"/>)"));
  list({L"a"});
  listed_->scan_result = S_FALSE;
  for (const OXAResult last : {S_FALSE, E_FAIL, OXAResult{7}}) {
    listed_->at_end = last;
    EXPECT_EQ(load_all(), last);
  }
  EXPECT_EQ(outline(*host_.manager), Lines{"p: a()"});
  EXPECT_EQ(host_.lines(), Lines{});
}

TEST_F(TypeManagerFolderTest, ReleasesTheSink) {
  folder_.write("a.xml", telling_file("a"));
  std::int64_t meanwhile = 0;
  host_.sink->on_message = [&] { meanwhile = host_.sink->CheckReference(); };
  load_all();
  EXPECT_EQ(meanwhile, 5);  // the test, the context, the document, the file and the folder
  EXPECT_EQ(host_.sink->CheckReference(), 2);
  folder_.write("b.xml", other_kind);
  load_all();
  EXPECT_EQ(host_.sink->CheckReference(), 2);
}

TEST_F(TypeManagerFolderTest, ASinkMayScanElsewhereMeanwhile) {
  const TemporaryFolder elsewhere;
  const std::string name = "a name that is longer than short ones.xml";
  folder_.write(name, other_kind);
  host_.sink->on_message = [&] {
    EXPECT_EQ(host_.scanner->Scan(wide(elsewhere.path()).c_str(), "*"), S_OK);
  };
  EXPECT_EQ(load_all(), E_INVALIDDATA);
  EXPECT_EQ(host_.lines().back(), "error: Loading XML (" + name + ") failed!");
}

TEST_F(TypeManagerFolderTest, ASinkMayLoadAnotherFolderMeanwhile) {
  const TemporaryFolder another;
  another.write("b.xml", extension(R"(<data_type name="b" type="s"/>)"));
  folder_.write("a.xml", extension(R"(<data_type/><data_type name="a" type="s"/>)"));
  OXAResult inner = E_FAIL;
  host_.sink->on_message = [&] { inner = host_.manager->LoadAll(wide(another.path()).c_str()); };
  EXPECT_EQ(load_all(), S_FALSE);
  EXPECT_EQ(inner, S_FALSE);
  EXPECT_EQ(outline(*host_.manager), Lines{"p: a() b()"});
}

TEST_F(TypeManagerFolderTest, ASinkMayLoadAFileMeanwhile) {
  const TemporaryFolder another;
  const std::wstring file =
      wide(another.write("b.xml", extension(R"(<data_type name="b" type="s"/>)")));
  folder_.write("1", telling_file("first"));
  folder_.write("2", telling_file("second"));
  list({L"1", L"2"});
  host_.sink->on_message = [&] { EXPECT_EQ(host_.manager->Load(file.c_str()), S_FALSE); };
  EXPECT_EQ(load_all(), S_FALSE);
  EXPECT_EQ(outline(*host_.manager), Lines{"p: b() first() second()"});
}

// While a type is read, another file adds to the namespace that it is in.
TEST_F(TypeManagerFolderTest, ASinkMayAddManyTypesMeanwhile) {
  host_.sink->on_message = [&] {
    for (int number = 0; number < 200; ++number) {
      IOXAUserDefinedDataType* type = nullptr;
      host_.name_space(std::to_string(number).c_str());
      host_.name_space("p")->AddUserDefinedType(std::to_string(number).c_str(), "s", &type);
    }
  };
  EXPECT_EQ(host_.load(extension(R"(<data_type name="a" type="s"><member/></data_type>
                                    <data_type name="b" type="s"><member name="x" type="int"/>
                                    </data_type>)")),
            S_FALSE);
  EXPECT_EQ(outline(*host_.type("p::b")), "b(x)");
  EXPECT_TRUE(host_.manager->TypeDefined("p::199"));
}

}  // namespace
