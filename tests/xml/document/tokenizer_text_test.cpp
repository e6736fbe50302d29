// The texts of tokens: quoted strings, names, and the content of elements.
#include "support.h"

using namespace oxa_test;

namespace {

TEST(TokenizerStringTest, AnEscapedQuoteEndsTheString) {
  Tokenizer source(R"("a\"b" )");
  EXPECT_EQ(source.next(), R"("(a\"))");
  EXPECT_EQ(source.next(), R"(n(b"))");
}

TEST(TokenizerStringTest, ABackslashIsKeptWithTheCharacterBehindIt) {
  const std::pair<const char*, const char*> cases[] = {
      {R"("\a")", R"("(\a))"},     {R"("a\b\c")", R"("(a\b\c))"}, {R"("\\"x ")", R"("(\\"))"},
      {R"("\\\a")", R"("(\\\a))"}, {R"("\"")", R"("(\"))"},       {R"("a\ b")", R"("(a\ b))"},
  };
  for (const auto& [input, token] : cases) {
    EXPECT_EQ(Tokenizer(input).next(), token) << input;
  }
}

TEST(TokenizerStringTest, KeepsEveryOtherByte) {
  for (int byte = 1; byte < 256; ++byte) {
    const std::string value = std::string("a") + static_cast<char>(byte) + "b";
    const std::string input = "\"" + value + "\" ";
    if (byte != '"' && byte != '\\') {
      EXPECT_EQ(Tokenizer(input.c_str()).next(), "\"(" + value + ")") << byte;
    }
  }
}

// What is left of a text in a buffer of `size` bytes.
struct Cut {
  std::string text;
  Lines lines;
};

Cut cut_token(const std::string& input, int size) {
  Tokenizer source(input.c_str());
  char buffer[64] = "";
  source.tokens.next_token(buffer, size);
  return {buffer, source.sink->lines};
}

TEST(TokenizerStringTest, IsCutToOneLessThanTheBufferWithAWarningForEachCharacter) {
  const std::string warning = "warning 5: buffer of sixe(5) is too small for string, truncating";
  EXPECT_EQ(cut_token("\"abcd\"", 5).text, "abcd");
  EXPECT_EQ(cut_token("\"abcd\"", 5).lines, Lines{});
  EXPECT_EQ(cut_token("\"abcde\"", 5).text, "abcd");
  EXPECT_EQ(cut_token("\"abcde\"", 5).lines, Lines{warning});
  EXPECT_EQ(cut_token("\"abcdefgh\"", 5).lines, Lines(4, warning));
  EXPECT_EQ(cut_token(R"("abcd\"x)", 5).lines, Lines(2, warning));
}

TEST(TokenizerStringTest, InTheSmallestBufferIsEmpty) {
  EXPECT_EQ(cut_token("\"ab\"", 1).text, "");
  EXPECT_EQ(cut_token("\"ab\"", 1).lines,
            Lines(2, "warning 5: buffer of sixe(1) is too small for string, truncating"));
}

TEST(TokenizerStringTest, GoesOnBehindACutString) {
  Tokenizer source("\"abcdef\"=");
  char buffer[4];
  source.tokens.next_token(buffer, 4);
  EXPECT_EQ(source.rest(), "= end");
}

TEST(TokenizerNameTest, IsCutToOneLessThanTheBufferWithAMessageForEachCharacter) {
  const std::string message = "message 5: Buffer too small for name, truncating";
  EXPECT_EQ(cut_token("abcd ", 5).text, "abcd");
  EXPECT_EQ(cut_token("abcd ", 5).lines, Lines{});
  EXPECT_EQ(cut_token("abcde ", 5).text, "abcd");
  EXPECT_EQ(cut_token("abcde ", 5).lines, Lines{message});
  EXPECT_EQ(cut_token("abcdefgh=", 5).text, "abcd");
  EXPECT_EQ(cut_token("abcdefgh=", 5).lines, Lines(4, message));
}

TEST(TokenizerNameTest, KeepsItsFirstCharacterInTheSmallestBuffer) {
  EXPECT_EQ(cut_token("abc ", 1).text, "a");
  EXPECT_EQ(cut_token("abc ", 1).lines.size(), 2);
}

TEST(TokenizerNameTest, GoesOnBehindACutName) {
  Tokenizer source("abcdef=");
  char buffer[4];
  source.tokens.next_token(buffer, 4);
  EXPECT_EQ(source.rest(), "= end");
}

// Each character that is dropped is the current one while it is reported.
TEST(TokenizerNameTest, TheSinkSeesWhatComesBehindADroppedCharacter) {
  std::string behind;
  oxa_xml_tokenizer* reporting = nullptr;
  const auto sink =
      oxa::make<CallingSink>([&] { behind += static_cast<char>(reporting->look_ahead()); });
  int result = E_FAIL;
  oxa_xml_tokenizer tokens("abcdef=", sink.get(), result);
  reporting = &tokens;
  char buffer[3];
  tokens.next_token(buffer, 3);
  EXPECT_EQ(behind, "def=");
}

TEST(CaptureStringTest, ReadsUpToTheClosingQuote) {
  Tokenizer source(R"("a\"b" =)");
  char buffer[8] = "";
  EXPECT_EQ(source.tokens.next_char(), '"');
  EXPECT_EQ(source.tokens.capture_string(buffer, 8), 34);
  EXPECT_STREQ(buffer, R"(a\")");
  EXPECT_EQ(source.tokens.capture_string(buffer, 8), 34);
  EXPECT_STREQ(buffer, "b");
  EXPECT_EQ(source.rest(), "= end");
}

TEST(CaptureStringTest, HasAWarningOfItsOwn) {
  Tokenizer source("\"abcdef\"");
  char buffer[8] = "";
  source.tokens.next_char();
  EXPECT_EQ(source.tokens.capture_string(buffer, 5), 34);
  EXPECT_STREQ(buffer, "abcd");
  EXPECT_EQ(source.sink->lines,
            Lines(2, "warning 1: Buffer (size=5) is too small for string, truncating"));
}

TEST(CaptureStringTest, RefusesANullBuffer) {
  Tokenizer source("\"a\"");
  source.tokens.next_char();
  EXPECT_THROW(source.tokens.capture_string(nullptr, 8), std::invalid_argument);
}

TEST(CaptureStringTest, EndsAtTheEnd) {
  char buffer[8] = "";
  Tokenizer open("\"a");
  open.tokens.next_char();
  EXPECT_EQ(open.tokens.capture_string(buffer, 8), -1);
  Tokenizer none(static_cast<const char*>(nullptr));
  EXPECT_EQ(none.tokens.capture_string(buffer, 8), -1);
}

// The current character is the last of the name; behind a backslash the quote is part of the value.
TEST(CaptureStringTest, BeginsBehindTheCurrentCharacter) {
  const std::pair<const char*, const char*> cases[] = {
      {R"(a "x")", ""}, {R"(a\ "x")", "\""}, {R"(abcdef\ "x")", "\""}};
  for (const auto& [input, value] : cases) {
    Tokenizer source(input);
    char buffer[8] = "";
    source.tokens.next_token(buffer, 4);
    EXPECT_EQ(source.tokens.look_ahead(), '"');
    EXPECT_EQ(source.tokens.capture_string(buffer, 8), 34);
    EXPECT_STREQ(buffer, value) << input;
  }
}

struct ContentCase {
  const char* content;  // what follows the `>` of a start tag
  const char* text;
  const char* rest;
};

class ContentTest : public testing::TestWithParam<ContentCase> {};

TEST_P(ContentTest, GoesUpToTheEndTag) {
  Tokenizer source((std::string(">") + GetParam().content).c_str());
  char buffer[100] = "";
  EXPECT_EQ(source.next(), ">");
  source.tokens.get_text("a", buffer, sizeof buffer);
  EXPECT_STREQ(buffer, GetParam().text);
  EXPECT_EQ(source.rest(), GetParam().rest);
}

const ContentCase contents[] = {
    {"x</a>", "x", "e n(a) > end"},
    {"  x  y </a>", "  x  y ", "e n(a) > end"},
    {"\t\r\n\xC3\xA9</a>", "\t\r\n\xC3\xA9", "e n(a) > end"},
    {"&lt;&#38;\"'=?!</a>", "&lt;&#38;\"'=?!", "e n(a) > end"},
    {"a/b//c/</a>", "a/b//c/", "e n(a) > end"},
    {"x<b>y</b>z</a>", "x<b>y</b>z", "e n(a) > end"},
    {"x<b>y<c>z</c></b></a>", "x<b>y<c>z</c></b>", "e n(a) > end"},
    {"x<b/></a>", "x<b/>", "e n(a) > end"},
    {"<b/></a>", "<b/>", "e n(a) > end"},
    {"<b>y</b></a>", "<b>y</b>", "e n(a) > end"},
    {"<b></b></a>", "<b></b>", "e n(a) > end"},
    {"x/></a></b>", "x/>", "e n(a) > e n(b) > end"},
    {"x/><b></a></c>", "x/><b>", "e n(a) > e n(c) > end"},
    {"/></a></c>", "/>", "e n(a) > e n(c) > end"},
    {"/><b></a></c>", "/><b></a>", "e n(c) > end"},
    {"x<<</a></b></c></d>", "x<<</a></b>", "e n(c) > e n(d) > end"},
    {"</a></b></c>", "</a></b>", "e n(c) > end"},
    {"x<!--y--></a></b>", "x<!--y--></a>", "e n(b) > end"},
    {"x<?p?></a></b>", "x<?p?></a>", "e n(b) > end"},
    {">x</a>", ">x", "e n(a) > end"},
    {"0123456789012345<b/>678901234567890123456789</a>",
     "0123456789012345<b/>678901234567890123456789", "e n(a) > end"},
};

INSTANTIATE_TEST_SUITE_P(Contents, ContentTest, testing::ValuesIn(contents));

Cut cut_content(const std::string& text, int size) {
  Tokenizer source((">" + text + "</a>").c_str());
  char buffer[64] = "";
  source.next();
  source.tokens.get_text("a", buffer, size);
  EXPECT_EQ(source.rest(), "e n(a) > end");
  return {buffer, source.sink->lines};
}

TEST(TokenizerTextTest, IsCutToTwoLessThanTheBufferWithAMessageForEachCharacter) {
  const std::string message = "message 5: Buffer too small for data, truncating";
  EXPECT_EQ(cut_content("abcd", 6).text, "abcd");
  EXPECT_EQ(cut_content("abcd", 6).lines, Lines{});
  EXPECT_EQ(cut_content("abcde", 6).text, "abcd");
  EXPECT_EQ(cut_content("abcde", 6).lines, Lines{message});
  EXPECT_EQ(cut_content("abcdefgh", 6).lines, Lines(4, message));
  EXPECT_EQ(cut_content("ab", 2).text, "");
  EXPECT_EQ(cut_content("ab", 2).lines, Lines(2, message));
}

TEST(TokenizerTextTest, TheSinkSeesWhatComesBehindADroppedCharacter) {
  std::string behind;
  oxa_xml_tokenizer* reporting = nullptr;
  const auto sink =
      oxa::make<CallingSink>([&] { behind += static_cast<char>(reporting->look_ahead()); });
  int result = E_FAIL;
  oxa_xml_tokenizer tokens(">abcd</a>", sink.get(), result);
  reporting = &tokens;
  char buffer[8];
  tokens.next_token(buffer, 8);
  tokens.get_text("", buffer, 4);
  EXPECT_EQ(behind, "d<");
}

struct OpenContentCase {
  std::string content;
  const char* buffer;  // what is left in one that was full of dots
};

// The last character that is stored is the third before the byte or the end.
TEST(TokenizerTextTest, WithoutItsEndTheBufferIsNotTerminated) {
  const OpenContentCase cases[] = {
      {"", "......."},
      {"a", "......."},
      {"ab", "......."},
      {"abc", "a......"},
      {"abcd", "ab....."},
      {"\xFF"
       "bc</a>",
       "\xFF"
       "bc"},
      {"a\xFF"
       "c</a>",
       "......."},
      {"ab\xFF</a>", "......."},
      {"abc\xFF</a>", "a......"},
      {"a<", "......."},
      {"a</", "a"},
      {"ab</", "ab"},
      {"<b></a>", "<b></.."},
      {"<b></", "<b>...."},
  };
  for (const OpenContentCase& one : cases) {
    Tokenizer source((">" + one.content).c_str());
    char buffer[] = ".......";
    source.next();
    source.tokens.get_text("a", buffer, 7);
    EXPECT_STREQ(buffer, one.buffer) << one.content;
  }
}

TEST(TokenizerTextTest, AByteFFEndsTheContentWithTwoCharactersLeft) {
  Tokenizer source(">abcd\xFF=");
  char buffer[8];
  source.next();
  source.tokens.get_text("a", buffer, 8);
  EXPECT_EQ(source.tokens.next_char(), 'd');
  EXPECT_EQ(source.next(3), "end = end");
}

TEST(TokenizerTextTest, ContentThatEndsAtTheStartGoesOneCharacterOn) {
  Tokenizer source(">a\xFF=");
  char buffer[8];
  source.next();
  source.tokens.get_text("a", buffer, 8);
  EXPECT_EQ(source.next(3), "end = end");
}

TEST(TokenizerTextTest, TheCurrentCharacterIsTheThirdBeforeTheByteFF) {
  Tokenizer source(">ab\\\"\xFF");
  char buffer[8];
  source.next();
  source.tokens.get_text("a", buffer, 8);
  EXPECT_EQ(source.tokens.capture_string(buffer, 8), 34);
  EXPECT_STREQ(buffer, "\"");
}

}  // namespace
