// What a parse that fails says, and what it leaves.
#include "support.h"

using namespace oxa_test;

namespace {

const std::string confused = "error: Badly formed XML file; confused during parsing";
const std::string no_idea = "error: Badly formed XML file; and I don't know why!";
const std::string second_top = "error: Badly formed XML file; more than 1 top level element";
const std::string declaration =
    "error: Badly formed XML file; confused by the <?xml ?> tag for some reason";
const std::string unknown = "error: Badly formed XML file; unknown parsing error!";

std::string inside(const std::string& name) {
  return "error: Badly formed XML file; parsing confused! (" + name + ")";
}

struct FailureCase {
  std::string input;
  Lines lines;
  std::string tree;
};

class FailureTest : public testing::TestWithParam<FailureCase> {};

TEST_P(FailureTest, TextInMessagesOut) {
  const Document document(GetParam().input);
  EXPECT_EQ(document.result, E_UNEXPECTED);
  EXPECT_EQ(document.lines(), GetParam().lines);
  EXPECT_EQ(document.tree(), GetParam().tree);
}

TEST_P(FailureTest, IsTheSameWithoutASink) {
  const Document document(static_cast<IOXADebugMessage*>(nullptr));
  document->SetBuffer(GetParam().input.c_str());
  EXPECT_EQ(document->Parse(), E_UNEXPECTED);
  EXPECT_EQ(document.tree(), GetParam().tree);
}

const FailureCase top_level[] = {
    {"a ", {no_idea}, "none"},
    {"=", {no_idea}, "none"},
    {">", {no_idea}, "none"},
    {"\"a\"", {no_idea}, "none"},
    {"/>", {no_idea}, "none"},
    {"?>", {no_idea}, "none"},
    {"</a>", {no_idea}, "none"},
    {"<a/>x ", {no_idea}, "a"},
    {"<a></a></a>", {no_idea}, "a"},
    {"<a/><b/>", {second_top}, "a"},
    {"<a></a><!-- --><?xml?><", {second_top}, "a"},
};

const FailureCase declarations[] = {
    {"<?", {declaration}, "none"},
    {"<?>", {declaration}, "none"},
    {"<?"
     "?>",
     {declaration},
     "none"},
    {"<?xm?><a/>", {declaration}, "none"},
    {"<?xmlx?><a/>", {declaration}, "none"},
    {"<?XML?><a/>", {declaration}, "none"},
    {"<?\"xml\"?>", {declaration}, "none"},
    {"<?xml", {declaration}, "none"},
    {"<?xml ", {declaration}, "none"},
    {"<?xml>", {declaration}, "none"},
    {"<?xml/>", {declaration}, "none"},
    {"<?xml k?>", {declaration}, "none"},
    {"<?xml k ?>", {declaration}, "none"},
    {"<?xml k=v?>", {declaration}, "none"},
    {"<?xml k=?>", {declaration}, "none"},
    {"<?xml k=\"v\">", {declaration}, "none"},
    {"<?xml k=\"v\"/>", {declaration}, "none"},
    {"<?xml k=\"v\"", {declaration}, "none"},
    {"<?xml k=\"v\" \"w\"?>", {declaration}, "none"},
    {"<?xml <a/>", {declaration}, "none"},
    {"<a/><?xml", {declaration}, "a"},
};

const FailureCase start_tags[] = {
    {"<", {confused}, "none"},
    {"<a", {confused}, "none"},
    {"<>", {confused}, "none"},
    {"<=", {confused}, "none"},
    {"<\"a\"/>", {confused}, "none"},
    {"<<a/>", {confused}, "none"},
    {"<?x", {declaration}, "none"},
    {"<a ", {confused}, "a"},
    {"<a k", {confused}, "a"},
    {"<a k ", {confused}, "a"},
    {"<a k>", {confused}, "a"},
    {"<a k/>", {confused}, "a"},
    {"<a k=", {confused}, "a"},
    {"<a k=>", {confused}, "a"},
    {"<a k=v>", {confused}, "a"},
    {"<a k==\"v\">", {confused}, "a"},
    {"<a k\"v\" ", {confused}, "a"},
    {"<a k \"v\"/>", {confused}, "a"},
    {"<a k=\"v", {confused}, "a"},
    {"<a k=\"v\"", {confused}, "a[k=v]"},
    {"<a k=\"v\" l", {confused}, "a[k=v]"},
    {"<a k=\"v\" =", {confused}, "a[k=v]"},
    {"<a \"v\">", {confused}, "a"},
    {"<a ?>", {confused}, "a"},
    {"<a =\"v\"/>", {confused}, "a"},
    {"<a <b/>", {confused}, "a"},
    {"<a </a>", {confused}, "a"},
    {"<a <!-- x -->/>", {confused}, "a"},
    {"<a <?xml?>/>", {confused}, "a"},
    {"<a k='v'/>", {confused}, "a"},
    {R"(<a k="x\"y"/>)", {confused}, R"(a[k=x\"])"},
};

const FailureCase texts[] = {
    {"<a>", {confused}, "a"},
    {"<a>x", {confused}, "a"},
    {"<a>hello", {confused}, "a'hel'"},
    {"<a>x</b>", {confused}, "a'x'"},
    {"<a>x</ab>", {confused}, "a'x'"},
    {"<ab>x</a>", {confused}, "ab'x'"},
    {"<a>x</A>", {confused}, "a'x'"},
    {"<a>x</", {confused}, "a'x'"},
    {"<a>x</a", {confused}, "a'x'"},
    {"<a>x</a ", {confused}, "a'x'"},
    {"<a>x</>", {confused}, "a'x'"},
    {"<a>x</\"a\">", {confused}, "a'x'"},
    {"<a>x</a/>", {confused}, "a'x'"},
    {"<a>x</a b>", {confused}, "a'x'"},
    {"<a>x</a<b>", {confused}, "a'x'"},
    {"<a>x<b></a>", {confused}, "a'x<b></'"},
    {"<a>x<!-- y --></a>", {confused}, "a'x<!-- y --></'"},
    {"<data></data>", {confused}, "data'</dat'"},
    {"<r><data></data></r>", {inside("r"), confused}, "r"},
    {"<r><text></text><b/></r>", {inside("r"), confused}, "r"},
};

const FailureCase children[] = {
    {"<a><b/>", {unknown, confused}, "a(b)"},
    {"<a><b/>>", {unknown, confused}, "a(b)"},
    {"<a><b/>/>", {unknown, confused}, "a(b)"},
    {"<a><b/>?>", {unknown, confused}, "a(b)"},
    {"<a><b/>=", {unknown, confused}, "a(b)"},
    {"<a><b/><?xml?></a>", {unknown, confused}, "a(b)"},
    {"<a><?xml?></a>", {unknown, confused}, "a"},
    {"<a><b/>\xFF</a>", {unknown, confused}, "a(b)"},
    {"<a><!-- ", {unknown, confused}, "a"},
    {"<a><b/></b>", {confused}, "a(b)"},
    {"<a><b/></a", {confused}, "a(b)"},
    {"<a><b/></>", {confused}, "a(b)"},
    {"<a></b>", {confused}, "a"},
    {"<a><b></a>", {inside("a"), confused}, "a"},
    {"<a><", {inside("a"), confused}, "a"},
    {"<a><b><c/>", {unknown, inside("a"), confused}, "a"},
    {"<a><b/><c></d></a>", {inside("a"), confused}, "a(b)"},
    {"<a><b>x</c></a>", {inside("a"), confused}, "a"},
};

// Text behind a child says nothing itself.
const FailureCase mixed[] = {
    {"<a><b>x</b>y</a>", {confused}, "a(b'x')"},
    {"<a><b/>\"y\"</a>", {confused}, "a(b)"},
    {"<a><b/>y", {confused}, "a(b)"},
    {"<a><!-- -->y</a>", {confused}, "a"},
    {"<r><a k=\"v\"><b/>y</a></r>", {inside("r"), confused}, "r"},
};

const FailureCase listings[] = {
    {R"(<a k="v" l="" id="3"><b/>)",
     {unknown, "message 0: k=v", "message 0: l=", "message 0: id=3", confused},
     "a[k=v l= id=3](b)"},
    {R"(<a k="v" k="w"><>)", {inside("a"), "message 0: k=w", confused}, "a[k=w]"},
    {R"(<a k="%s%n"><>)", {inside("a"), "message 0: k=%s%n", confused}, "a[k=%s%n]"},
    {R"(<%s><>)", {inside("%s"), confused}, "%s"},
    {R"(<xml><>)", {inside("xml"), "message 0: version=1.0", confused}, "xml[version=1.0]"},
    {R"(<a i="1"><b j="2"><c k="3"><d l="4")",
     {inside("c"), "message 0: k=3", inside("b"), "message 0: j=2", inside("a"), "message 0: i=1",
      confused},
     "a[i=1]"},
    {R"(<a i="1"><b j="2"><c k="3"><d/>)",
     {unknown, "message 0: k=3", inside("b"), "message 0: j=2", inside("a"), "message 0: i=1",
      confused},
     "a[i=1]"},
};

INSTANTIATE_TEST_SUITE_P(TopLevel, FailureTest, testing::ValuesIn(top_level));
INSTANTIATE_TEST_SUITE_P(Declarations, FailureTest, testing::ValuesIn(declarations));
INSTANTIATE_TEST_SUITE_P(StartTags, FailureTest, testing::ValuesIn(start_tags));
INSTANTIATE_TEST_SUITE_P(Texts, FailureTest, testing::ValuesIn(texts));
INSTANTIATE_TEST_SUITE_P(Children, FailureTest, testing::ValuesIn(children));
INSTANTIATE_TEST_SUITE_P(Mixed, FailureTest, testing::ValuesIn(mixed));
INSTANTIATE_TEST_SUITE_P(Listings, FailureTest, testing::ValuesIn(listings));

const std::string short_name = "message 5: Buffer too small for name, truncating";
const std::string short_string =
    "warning 5: buffer of sixe(4096) is too small for string, truncating";
const std::string short_text = "message 5: Buffer too small for data, truncating";

// One that fits, one that is a character too long, and longer ones.
class LongTest : public testing::TestWithParam<std::size_t> {
 protected:
  static std::size_t excess() { return GetParam(); }
  static std::string kept(std::size_t limit) { return std::string(limit, 'n'); }
  static std::string given(std::size_t limit) { return kept(limit) + std::string(excess(), 'x'); }
};

constexpr std::size_t token_limit = 4095;
constexpr std::size_t text_limit = 99998;

TEST_P(LongTest, NameInAnEmptyElement) {
  const Document document("<" + given(token_limit) + "/>");
  EXPECT_EQ(document.result, S_OK);
  EXPECT_EQ(document.tree(), kept(token_limit));
  EXPECT_EQ(document.lines(), Lines(excess(), short_name));
}

TEST_P(LongTest, NamesInBothTags) {
  const std::string name = given(token_limit);
  const Document document("<" + name + "></" + name + ">");
  EXPECT_EQ(document.result, S_OK);
  EXPECT_EQ(document.lines(), Lines(2 * excess(), short_name));
}

TEST_P(LongTest, KeyAndValue) {
  const std::string text = given(token_limit);
  const Document document("<a " + text + "=\"" + text + "\"/>");
  Lines lines(excess(), short_name);
  lines.insert(lines.end(), excess(), short_string);
  EXPECT_EQ(document.tree(), "a[" + kept(token_limit) + "=" + kept(token_limit) + "]");
  EXPECT_EQ(document.lines(), lines);
}

TEST_P(LongTest, KeyAndValueOfTheDeclaration) {
  const std::string text = given(token_limit);
  const Document document("<?xml " + text + "=\"" + text + "\"?>");
  EXPECT_EQ(document.result, S_OK);
  EXPECT_EQ(document.lines().size(), 2 * excess());
}

TEST_P(LongTest, Text) {
  const Document document("<a>" + given(text_limit) + "</a>");
  EXPECT_EQ(document.result, S_OK);
  EXPECT_EQ(document.tree(), "a'" + kept(text_limit) + "'");
  EXPECT_EQ(document.lines(), Lines(excess(), short_text));
}

INSTANTIATE_TEST_SUITE_P(Texts, LongTest, testing::Values(0, 1, 2, 1000, 100000));

TEST(LongMessageTest, ANameBehindTheRootIsReportedBeforeItIsRefused) {
  const Document document("<a/>" + std::string(4096, 'n') + " ");
  EXPECT_EQ(document.lines(), (Lines{short_name, no_idea}));
}

}  // namespace
