// Tokens, and the operations that look at single characters.
#include <set>

#include "support.h"

using namespace oxa_test;

namespace {

struct TokenCase {
  const char* input;
  const char* tokens;
};

class TokenTest : public testing::TestWithParam<TokenCase> {};

TEST_P(TokenTest, TextInTokensOut) {
  Tokenizer source(GetParam().input);
  EXPECT_EQ(source.result, S_OK);
  EXPECT_EQ(source.rest(), GetParam().tokens);
  EXPECT_EQ(source.next(2), "end end");
  EXPECT_EQ(source.sink->lines, Lines{});
}

const TokenCase documents[] = {
    {"", "end"},
    {" \t\r\n", "end"},
    {"<a/>", "b n(a) E end"},
    {"<?xml version=\"1.0\"?>", "x n(xml) n(version) = \"(1.0) X end"},
    {"<a k=\"v\">", "b n(a) n(k) = \"(v) > end"},
    {"</a>", "e n(a) > end"},
};

const TokenCase single_tokens[] = {
    {"=", "= end"},
    {">", "> end"},
    {"/>", "E end"},
    {"?>", "X end"},
    {"<", "b end"},
    {"<<", "b b end"},
    {"<=", "b = end"},
    {"</", "e end"},
    {"<?", "x end"},
    {"< ?>", "b X end"},
    {"<\"a\"", "b \"(a) end"},
    {"==>>", "= = > > end"},
    {"\"\"", "\"() end"},
    {"\"a b\"", "\"(a b) end"},
    {"\"<a k=1>/?\"", "\"(<a k=1>/?) end"},
};

const TokenCase names[] = {
    {"a ", "n(a) end"},
    {"a=", "n(a) = end"},
    {"a>", "n(a) > end"},
    {"a/>", "n(a) E end"},
    {"a?>", "n(a) X end"},
    {"a<b ", "n(a<b) end"},
    {"a\"b ", "n(a\"b) end"},
    {"a!b ", "n(a!b) end"},
    {"!a ", "n(!a) end"},
    {"a\x80"
     "b ",
     "n(a) n(b) end"},
    {"a\xFE"
     "b ",
     "n(a) n(b) end"},
    {"a\x7F"
     "b ",
     "n(a) n(b) end"},
    {"a\x01"
     "b ",
     "n(a) n(b) end"},
    {"-- ", "n(--) end"},
    {"a'b&c;~ ", "n(a'b&c;~) end"},
    {"&#38; ", "n(&#38;) end"},
    {"\\ ", "n(\\) end"},
};

const TokenCase skipped[] = {
    {"  <  a  k  =  \"v\"  />  ", "b n(a) n(k) = \"(v) E end"},
    {"\xEF\xBB\xBF<a/>", "b n(a) E end"},
    {"\x80\xFE\x7F\x01<\xC3\xA9"
     "a\xC3\xA9/>",
     "b n(a) E end"},
    {"=\xC3\xA9=", "= = end"},
};

const TokenCase comments[] = {
    {"<!-- x -- y -->", "c end"},
    {"<!-- -->", "c end"},
    {"<!---->", "c end"},
    {"<!----->", "c end"},
    {"<!-- x --->", "c end"},
    {"<!-- - -> -- > --->", "c end"},
    {"<!-- x --><a/><!--y-->", "c b n(a) E c end"},
    {"<!-- <a> \" = -->=", "c = end"},
    {"<!--a--><!--b-->", "c c end"},
    {"<!-- \xC3\xA9 -->", "c end"},
    {"<!--x-->\x80=", "c = end"},
    {"<!--x-->>", "c > end"},
};

INSTANTIATE_TEST_SUITE_P(Documents, TokenTest, testing::ValuesIn(documents));
INSTANTIATE_TEST_SUITE_P(SingleTokens, TokenTest, testing::ValuesIn(single_tokens));
INSTANTIATE_TEST_SUITE_P(Names, TokenTest, testing::ValuesIn(names));
INSTANTIATE_TEST_SUITE_P(Skipped, TokenTest, testing::ValuesIn(skipped));
INSTANTIATE_TEST_SUITE_P(Comments, TokenTest, testing::ValuesIn(comments));

TEST(TokenizerTest, CodesAreTheCharactersThatTheyShow) {
  char buffer[8];
  const std::pair<const char*, int> codes[] = {
      {"", -1},   {"\"\"", 34}, {"=", 61},       {">", 62},   {"/>", 69}, {"?>", 88},
      {"<a", 98}, {"</", 101},  {"<!---->", 99}, {"a ", 110}, {"<?", 120}};
  for (const auto& [input, code] : codes) {
    EXPECT_EQ(Tokenizer(input).tokens.next_token(buffer, 8), code) << input;
  }
}

// The character that a token leaves as the current one shows in what the next one begins with.
TEST(TokenizerTest, ATokenLeavesWhatComesBehindIt) {
  struct Case {
    const char* input;
    const char* token;
    char behind;
  };
  const Case cases[] = {{"\"v\"w", "\"(v)", 'w'}, {"=w", "=", 'w'},  {">w", ">", 'w'},
                        {"/>w", "E", 'w'},        {"?>w", "X", 'w'}, {"<w", "b", 'w'},
                        {"<!---->w", "c", 'w'},   {"</w", "e", 'w'}, {"n=", "n(n)", '='},
                        {"<?w", "x", 'w'},        {"< <", "b", '<'}};
  for (const Case& one : cases) {
    Tokenizer source(one.input);
    EXPECT_EQ(source.next(), one.token);
    EXPECT_EQ(source.tokens.next_char(), one.behind) << one.input;
  }
}

TEST(TokenizerTest, ANullSinkIsLeftAlone) {
  int result = E_FAIL;
  char buffer[8] = "";
  oxa_xml_tokenizer tokens("abcdef \"ghi\"<a>text</a>", nullptr, result);
  EXPECT_EQ(tokens.next_token(buffer, 3), 'n');
  EXPECT_STREQ(buffer, "ab");
  EXPECT_EQ(tokens.next_token(buffer, 3), '"');
  EXPECT_STREQ(buffer, "gh");
  EXPECT_EQ(tokens.next_token(buffer, 3), 'b');
  EXPECT_EQ(tokens.next_token(buffer, 3), 'n');
  EXPECT_EQ(tokens.next_token(buffer, 3), '>');
  tokens.get_text("a", buffer, 4);
  EXPECT_STREQ(buffer, "te");
}

TEST(TokenizerTest, ReadsACopyOfTheBuffer) {
  char input[] = "<a/>";
  Tokenizer source(input);
  input[1] = 'b';
  EXPECT_EQ(source.rest(), "b n(a) E end");
}

TEST(TokenizerTest, ANullBufferGivesNothing) {
  Tokenizer source(static_cast<const char*>(nullptr));
  char buffer[4] = "old";
  EXPECT_EQ(source.result, E_INVALIDARG);
  EXPECT_EQ(source.next(3), "end end end");
  EXPECT_EQ(source.tokens.getc(), -1);
  EXPECT_EQ(source.tokens.look_ahead(), -1);
  source.tokens.get_text("", buffer, 4);
  EXPECT_STREQ(buffer, "old");
  EXPECT_EQ(source.sink->lines, Lines{});
}

TEST(TokenizerTest, ANullPathGivesNothing) {
  int result = S_OK;
  const auto sink = oxa::make<RecordingSink>();
  oxa_xml_tokenizer tokens(static_cast<const wchar_t*>(nullptr), sink.get(), result);
  EXPECT_EQ(result, E_INVALIDARG);
  EXPECT_EQ(tokens.next_token(nullptr, 0), -1);
  EXPECT_EQ(tokens.getc(), -1);
  EXPECT_EQ(sink->lines, Lines{});
}

TEST(TokenizerTest, WithoutASourceTheNextCharacterIsTheEnd) {
  EXPECT_EQ(Tokenizer(static_cast<const char*>(nullptr)).tokens.next_char(), -1);
}

TEST(TokenizerTest, DoesNotReferenceItsSink) {
  const auto sink = oxa::make<RecordingSink>();
  int result = E_FAIL;
  const oxa_xml_tokenizer tokens("a", sink.get(), result);
  EXPECT_EQ(sink->CheckReference(), 1);
}

TEST(TokenizerTest, ANullTextBufferIsRefusedWhenItIsNeeded) {
  for (const char* input : {"a ", "\"a\"", "a", "\""}) {
    Tokenizer source(input);
    try {
      source.tokens.next_token(nullptr, 100);
      ADD_FAILURE() << input;
    } catch (const std::invalid_argument& refusal) {
      EXPECT_STREQ(refusal.what(), "Received null buffer");
    }
  }
}

TEST(TokenizerTest, OtherTokensNeedNoTextBuffer) {
  for (const char* input : {"", "=", ">", "/>", "?>", "<", "</", "<?", "<!---->"}) {
    EXPECT_NO_THROW(Tokenizer(input).tokens.next_token(nullptr, 0)) << input;
  }
}

TEST(TokenizerTest, WhitespaceIsAllButPrintableCharactersAndTheEnd) {
  for (int ch = -128; ch < 256; ++ch) {
    const bool printable = ch >= 33 && ch <= 126;
    EXPECT_EQ(oxa_xml_tokenizer::is_whitespace(ch), !printable && ch != -1) << ch;
  }
}

// Every byte, between two tokens and within a name, is skipped or is not.
TEST(TokenizerTest, EveryByteIsSkippedOrIsNot) {
  const std::set<char> delimiters = {'=', '>', '?', '/'};
  for (int byte = 1; byte < 255; ++byte) {
    const char ch = static_cast<char>(byte);
    const std::string input = std::string("a") + ch + ">";
    const std::string tokens = Tokenizer(input.c_str()).next();
    const bool ends = byte < 33 || byte > 126 || delimiters.contains(ch);
    EXPECT_EQ(tokens, ends ? "n(a)" : std::string("n(a") + ch + ")") << byte;
  }
}

TEST(TokenizerCharacterTest, NextCharGoesToTheNextThatIsNoWhitespace) {
  Tokenizer source(
      " a\x80\x01 \x7F"
      "b");
  EXPECT_EQ(source.tokens.next_char(), 'a');
  EXPECT_EQ(source.tokens.next_char(), 'b');
  EXPECT_EQ(source.tokens.next_char(), -1);
  EXPECT_EQ(source.tokens.next_char(), -1);
}

TEST(TokenizerCharacterTest, LookAheadStaysInFrontOfTheNext) {
  Tokenizer source("  a \xC3\xA9 b");
  EXPECT_EQ(source.tokens.look_ahead(), 'a');
  EXPECT_EQ(source.tokens.look_ahead(), 'a');
  EXPECT_EQ(source.tokens.next_char(), 'a');
  EXPECT_EQ(source.tokens.look_ahead(), 'b');
  EXPECT_EQ(source.tokens.next_char(), 'b');
  EXPECT_EQ(source.tokens.look_ahead(), -1);
  EXPECT_EQ(source.tokens.next_char(), -1);
}

TEST(TokenizerCharacterTest, LookAheadDropsWhitespaceForGood) {
  Tokenizer source("=  x</a>");
  char buffer[8] = "";
  EXPECT_EQ(source.next(), "=");
  EXPECT_EQ(source.tokens.look_ahead(), 'x');
  source.tokens.get_text("", buffer, 8);
  EXPECT_STREQ(buffer, "x");
}

TEST(TokenizerCharacterTest, LookAheadBeforeTheFirstTokenTakesNothing) {
  Tokenizer source("<a/>");
  EXPECT_EQ(source.tokens.look_ahead(), '<');
  EXPECT_EQ(source.rest(), "b n(a) E end");
}

TEST(TokenizerCharacterTest, AByteFFLooksLikeTheEnd) {
  Tokenizer source(
      "\xFF"
      "a ");
  EXPECT_EQ(source.tokens.look_ahead(), -1);
  EXPECT_EQ(source.tokens.next_char(), -1);
  EXPECT_EQ(source.tokens.next_char(), 'a');
}

TEST(TokenizerCharacterTest, GetcTakesTheFirstCharactersBeforeAnyToken) {
  Tokenizer source(
      "a\x80\xFF"
      "bcd ");
  EXPECT_EQ(source.tokens.getc(), 'a');
  EXPECT_EQ(source.tokens.getc(), 0x80);
  EXPECT_EQ(source.tokens.getc(), 0xFF);
  EXPECT_EQ(source.rest(), "n(bcd) end");
}

TEST(TokenizerCharacterTest, GetcTakesWhatIsBehindTheLookAhead) {
  Tokenizer source("<abcd>");
  EXPECT_EQ(source.next(), "b");
  EXPECT_EQ(source.tokens.getc(), 'c');
  EXPECT_EQ(source.rest(), "n(abd) > end");
}

TEST(TokenizerCharacterTest, GetcLeavesTheLookAheadAtTheEnd) {
  Tokenizer source("<ab");
  EXPECT_EQ(source.next(), "b");
  EXPECT_EQ(source.tokens.getc(), -1);
  EXPECT_EQ(source.tokens.next_char(), 'a');
  EXPECT_EQ(source.tokens.next_char(), 'b');
  EXPECT_EQ(source.tokens.getc(), -1);
}

TEST(TokenizerCharacterTest, GetcOfAnEmptySourceIsTheEnd) {
  Tokenizer source("");
  EXPECT_EQ(source.tokens.getc(), -1);
  EXPECT_EQ(source.rest(), "end");
}

}  // namespace
