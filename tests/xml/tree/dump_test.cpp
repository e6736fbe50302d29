// What dump writes, byte for byte.
#include <gtest/gtest.h>

#include <streambuf>
#include <string>
#include <vector>

#include "xml/tree/trees.h"

using namespace oxa_test;

namespace {

struct Dump {
  const char* source;
  int level;
  const char* written;
};

constexpr Dump dumps[] = {
    {"<a/>", 0, "<a/>\n"},
    {"<a/>", 1, "   <a/>\n"},
    {"<a/>", 2, "      <a/>\n"},
    {"<a/>", -1, "<a/>\n"},
    {"<a>text</a>", 0, "<a>text</a>\n"},
    {"<a>text</a>", 1, "   <a>text</a>\n"},
    {"<a>1 &lt; 2 &quot; &</a>", 0, "<a>1 &lt; 2 &amp;quot; &amp;</a>\n"},
    {"<a>two\nlines </a>", 1, "   <a>two\nlines </a>\n"},
    {"<a x=\"1\">text</a>", 0, "<a  x=\"1\">text</a>\n"},
    {"<a x=\"1\" y=\"\"/>", 0, "<a  x=\"1\"  y=\"\"/>\n"},
    {"<a><b/></a>", 0, "<a>\n   <b/>\n</a>\n"},
    {"<a><b/></a>", 1, "   <a>\n      <b/>\n   </a>\n"},
    {"<a><b/></a>", -1, "<a>\n<b/>\n</a>\n"},
    {"<a><b><c/></b></a>", -1, "<a>\n<b>\n   <c/>\n</b>\n</a>\n"},
    {"<a k=\"v\"><b>x</b><c><d/></c><e/></a>", 0,
     "<a  k=\"v\">\n   <b>x</b>\n   <c>\n      <d/>\n   </c>\n   <e/>\n</a>\n"},
    {"<data><b/></data>", 0, "<data>&lt;b/&gt;</data>\n"},
    {"<xml/>", 0, "<?xml  version=\"1.0\"?>\n"},
    {"<xml/>", 2, "<?xml  version=\"1.0\"?>\n"},
    {"<xml encoding=\"utf-8\" id=\"x\"/>", 0,
     "<?xml  id=\"x\"  version=\"1.0\"  encoding=\"utf-8\"?>\n"},
    {"<xml>x</xml>", 1, "<?xml  version=\"1.0\">x</xml>\n"},
    {"<xml><a/></xml>", 1, "<?xml  version=\"1.0\">\n      <a/>\n   </xml>\n"},
    {"<a><xml/></a>", 0, "<a>\n<?xml  version=\"1.0\"?>\n</a>\n"},
    {"<XML/>", 0, "<XML/>\n"},
    {"<xmla/>", 0, "<xmla/>\n"},
};

TEST(ElementDumpTest, WritesTheTableOfTrees) {
  for (const Dump& dump : dumps) {
    for (const auto home : {&built, &parsed}) {
      EXPECT_EQ(dumped(*home(dump.source), dump.level), dump.written) << dump.source;
    }
  }
}

TEST(ElementDumpTest, TheLevelIsAsBefore) {
  for (const Dump& dump : dumps) {
    int level = dump.level;
    std::ostringstream os;
    parsed(dump.source)->dump(os, level);
    EXPECT_EQ(level, dump.level);
  }
}

TEST(ElementDumpTest, TheIdComesFirst) {
  EXPECT_EQ(dumped(*parsed("<a z=\"1\" id=\"2\" b=\"3\"/>")), "<a  id=\"2\"  z=\"1\"  b=\"3\"/>\n");
  EXPECT_EQ(dumped(*parsed("<a z=\"1\" id=\"\"/>")), "<a  id=\"\"  z=\"1\"/>\n");
  EXPECT_EQ(dumped(*parsed("<a ID=\"1\" idd=\"2\" i=\"3\"/>")),
            "<a  ID=\"1\"  idd=\"2\"  i=\"3\"/>\n");
}

TEST(ElementDumpTest, TheIdComesFirstAmongMany) {
  const Element given = element("a");
  std::string others;
  for (int i = 0; i < 40; ++i) {
    const std::string key = i == 20 ? "id" : "k" + std::to_string(i);
    given->AddAttribute(key.c_str(), "v");
    others += i == 20 ? "" : "  " + key + "=\"v\"";
  }
  EXPECT_EQ(dumped(*given), "<a  id=\"v\"" + others + "/>\n");
}

TEST(ElementDumpTest, ValuesAreNotEscaped) {
  const Element given = parsed("<a k=\"1 < 2 & 'x' > &lt;\"/>");
  EXPECT_EQ(dumped(*given), "<a  k=\"1 < 2 & 'x' > &lt;\"/>\n");
  given->AddAttribute("k", "\"");
  EXPECT_EQ(dumped(*given), "<a  k=\"\"\"/>\n");
}

TEST(ElementDumpTest, ATextHidesTheChildren) {
  const Element given = parsed("<a><b/><c>x</c></a>");
  given->SetText("text");
  EXPECT_EQ(dumped(*given, 1), "   <a>text</a>\n");
  given->SetText("");
  EXPECT_EQ(dumped(*given), "<a>\n   <b/>\n   <c>x</c>\n</a>\n");
}

TEST(ElementDumpTest, ANamelessElementHasTagsAllTheSame) {
  const Element given = element("");
  EXPECT_EQ(dumped(*given), "</>\n");
  given->AddAttribute("k", "v");
  add(*given, element("b"));
  EXPECT_EQ(dumped(*given), "<  k=\"v\">\n   <b/>\n</>\n");
  given->SetText("x");
  EXPECT_EQ(dumped(*given), "<  k=\"v\">x</>\n");
}

TEST(ElementDumpTest, ANameIsWrittenAsItIs) {
  const Element given = element("a<&b", "x");
  EXPECT_EQ(dumped(*given), "<a<&b>x</a<&b>\n");
}

TEST(ElementDumpTest, XmlByItsLaterNameHasNoVersion) {
  const Element given = element("a");
  given->SetName("xml");
  EXPECT_EQ(dumped(*given, 1), "<?xml?>\n");
}

TEST(ElementDumpTest, AddsToWhatIsInTheStream) {
  std::ostringstream os;
  os << "before\n";
  int level = 0;
  parsed("<a/>")->dump(os, level);
  parsed("<b/>")->dump(os, level);
  EXPECT_EQ(os.str(), "before\n<a/>\n<b/>\n");
}

// Keeps what was written between one flush and the next.
class FlushedParts final : public std::streambuf {
 public:
  std::vector<std::string> parts;
  std::string rest;

 private:
  int_type overflow(int_type ch) override {
    rest += traits_type::to_char_type(ch);
    return ch;
  }
  std::streamsize xsputn(const char* text, std::streamsize length) override {
    rest.append(text, static_cast<std::size_t>(length));
    return length;
  }
  int sync() override {
    parts.push_back(std::exchange(rest, ""));
    return 0;
  }
};

TEST(ElementDumpTest, FlushesAfterEachLine) {
  FlushedParts written;
  std::ostream os(&written);
  int level = 1;
  parsed("<a k=\"v\"><b>two\nlines</b><c><d/></c></a>")->dump(os, level);
  const std::vector<std::string> lines{"   <a  k=\"v\">\n", "      <b>two\nlines</b>\n",
                                       "      <c>\n",       "         <d/>\n",
                                       "      </c>\n",      "   </a>\n"};
  EXPECT_EQ(written.parts, lines);
  EXPECT_EQ(written.rest, "");
}

TEST(ElementDumpTest, AStreamThatFailsIsPassedOver) {
  std::ostream nowhere(nullptr);
  int level = 3;
  parsed("<a><b/></a>")->dump(nowhere, level);
  EXPECT_TRUE(nowhere.bad());
  EXPECT_EQ(level, 3);
}

}  // namespace
