// The end of the input in every place, told apart from a byte 0xFF, and what stops the process.
#include "death.h"
#include "support.h"

using namespace oxa_test;

namespace {

struct EndCase {
  const char* input;
  const char* tokens;
};

class EndTest : public testing::TestWithParam<EndCase> {};

TEST_P(EndTest, GivesTheseTokens) {
  Tokenizer source(GetParam().input);
  EXPECT_EQ(source.next(5), GetParam().tokens);
}

const EndCase ends[] = {
    {"a", "end end end end end"},
    {"abc", "end end end end end"},
    {"<abc", "b end end end end"},
    {"</a", "e end end end end"},
    {"\"", "end end end end end"},
    {"\"abc", "end end end end end"},
    {"\"abc\\", "end end end end end"},
    {"\"a\\\\", "end end end end end"},
    {"\"a\\\"", "\"(a\\\") end end end end"},
    {"<!--", "end end end end end"},
    {"<!---", "end end end end end"},
    {"<!-->", "end end end end end"},
    {"<!--->", "end end end end end"},
    {"<!-- ab --", "end end end end end"},
    {"<!-- ab ->", "end end end end end"},
    {"<!-- a-", "end end end end end"},
};

const EndCase bytes_in_tokens[] = {
    {"a\xFF ", "n(a\xFF) end end end end"},
    {"a\xFF\xFF"
     "b=",
     "n(a\xFF\xFF"
     "b) = end end end"},
    {"a\xFF>\xFF", "n(a\xFF) > end end end"},
    {"ab\xFF", "end end end end end"},
    {"\"\xFF\"=", "\"(\xFF) = end end end"},
    {"\"a\xFF\xFF"
     "b\"=",
     "\"(a\xFF\xFF"
     "b) = end end end"},
    {"\"\\\xFF\"=", "\"(\\\xFF) = end end end"},
    {"\"a\xFF", "end end end end end"},
    {"\"\\\xFF", "end end end end end"},
    {"<!--\xFF-->=", "c = end end end"},
    {"<!-- -\xFF-> --\xFF> -->=", "c = end end end"},
    {"<!-- \xFF", "end end end end end"},
};

// Between tokens it ends the token, and the next begins behind it.
const EndCase bytes_between_tokens[] = {
    {"\xFF", "end end end end end"},
    {"\xFF=", "end = end end end"},
    {"\xFF\xFF=", "end end = end end"},
    {"=\xFF=", "= end = end end"},
    {" \xFF =", "end = end end end"},
    {"<\xFF"
     "a ",
     "b end n(a) end end"},
    {"</\xFF"
     "a ",
     "e end n(a) end end"},
    {"<?\xFF"
     "a ",
     "x end n(a) end end"},
    {"a \xFF"
     "b ",
     "n(a) end n(b) end end"},
    {"<!---->\xFF=", "c end = end end"},
    {"/>\xFF=", "E end = end end"},
    {"\"\"\xFF=", "\"() end = end end"},
};

INSTANTIATE_TEST_SUITE_P(Ends, EndTest, testing::ValuesIn(ends));
INSTANTIATE_TEST_SUITE_P(BytesInTokens, EndTest, testing::ValuesIn(bytes_in_tokens));
INSTANTIATE_TEST_SUITE_P(BytesBetweenTokens, EndTest, testing::ValuesIn(bytes_between_tokens));

TEST(TokenizerEndTest, ACutNameThatEndsWithTheInputIsReportedAllTheSame) {
  Tokenizer source("abcdef");
  char buffer[8] = "";
  EXPECT_EQ(source.tokens.next_token(buffer, 5), -1);
  EXPECT_EQ(source.sink->lines, Lines(2, "message 5: Buffer too small for name, truncating"));
}

struct StopCase {
  const char* input;
  const char* expression;
};

class TokenizerDeathTest : public EndingProcessTest,
                           public testing::WithParamInterface<StopCase> {};

TEST_P(TokenizerDeathTest, StopsTheProcess) {
  EXPECT_DEATH(Tokenizer(GetParam().input).rest(), GetParam().expression);
}

TEST_P(TokenizerDeathTest, StopsAParse) {
  const std::string inside = std::string("<a><b/>") + GetParam().input;
  EXPECT_DEATH(Document{inside}, GetParam().expression);
}

constexpr char closing[] = "Assertion `next_c == '>'' failed";
constexpr char opening[] = "Assertion `next_next_c == '-'' failed";
constexpr char checking[] = "Assertion `chk == '-'' failed";

const StopCase stops[] = {
    {"/", closing},         {"/a", closing},        {"/ >", closing},   {"//>", closing},
    {"/\xFF", closing},     {"?", closing},         {"?a", closing},    {"? >", closing},
    {"?\xFF", closing},     {"<!", opening},        {"<!a", opening},   {"<!>", opening},
    {"<!DOCTYPE", opening}, {"<!\xFF-", opening},   {"<! --", opening}, {"<!-", checking},
    {"<!-a", checking},     {"<!-\xFF-", checking}, {"<!->", checking}, {"<![CDATA[", opening},
};

INSTANTIATE_TEST_SUITE_P(Stops, TokenizerDeathTest, testing::ValuesIn(stops));

}  // namespace
