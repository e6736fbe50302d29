// What a parse makes of a source.
#include "support.h"

using namespace oxa_test;

namespace {

struct TreeCase {
  std::string input;
  std::string tree;
};

class TreeTest : public testing::TestWithParam<TreeCase> {};

TEST_P(TreeTest, TextInTreeOut) {
  const Document document(GetParam().input);
  EXPECT_EQ(document.result, S_OK);
  EXPECT_EQ(document.tree(), GetParam().tree);
  EXPECT_EQ(document.lines(), Lines{});
}

const TreeCase without_a_root[] = {
    {"", "none"},  {" \r\n\t", "none"}, {"<!-- x -->", "none"}, {"<?xml version=\"1.0\"?>", "none"},
    {"a", "none"}, {"\"a", "none"},     {"\xFF<a/>", "none"},
};

const TreeCase elements[] = {
    {"<a/>", "a"},
    {"<a></a>", "a"},
    {"<a>  </a>", "a"},
    {" <\na\n></\na\n>\n", "a"},
    {"<a><b/></a>", "a(b)"},
    {"<a> <b/> <c/> </a>", "a(b c)"},
    {"<a><b><c/></b><d><e/></d></a>", "a(b(c) d(e))"},
    {"<a><a><a/></a></a>", "a(a(a))"},
    {"<a/>tail", "a"},
    {"<a/>\xFF<b/>", "a"},
};

const TreeCase attributes[] = {
    {R"(<a k="v"/>)", "a[k=v]"},
    {R"(<a k="v" l="w"></a>)", "a[k=v l=w]"},
    {R"(<a z="1" y="2" x="3"/>)", "a[z=1 y=2 x=3]"},
    {R"(<a k = "v"l="w"/>)", "a[k=v l=w]"},
    {R"(<a k=""/>)", "a[k=]"},
    {R"(<a k="1" l="2" k="3"/>)", "a[k=3 l=2]"},
    {R"(<a k="<b>&amp;'/=?!"/>)", "a[k=<b>&amp;'/=?!]"},
    {"<a k=\" \xC3\xA9 \"/>", "a[k= \xC3\xA9 ]"},
    {R"(<a k="x\y"/>)", R"(a[k=x\y])"},
    {R"(<a k="v"><b l="w"/></a>)", "a[k=v](b[l=w])"},
    {R"(<xml/>)", "xml[version=1.0]"},
    {R"(<xml version="2" k="v"/>)", "xml[version=2 k=v]"},
    {R"(<a><xml/></a>)", "a(xml[version=1.0])"},
    {"<a\xC3\xA9 k=\"v\"/>", "a[k=v]"},
};

const TreeCase texts[] = {
    {"<a>  hello </a>", "a'hello '"},
    {"<a>\r\n\xC3\xA9x\xC3\xA9</a>", "a'x\xC3\xA9'"},
    {"<a>\xFF"
     "bc</a>",
     "a'\xFF"
     "bc'"},
    {"<a>&lt;&#38;&quot;</a>", "a'&lt;&#38;&quot;'"},
    {"<a>x<b>y</b>z</a>", "a'x<b>y</b>z'"},
    {"<a>x<b/></a>", "a'x<b/>'"},
    {"<a>\"q\" = / ?</a>", "a'\"q\" = / ?'"},
    {"<a k=\"v\">x</a>", "a[k=v]'x'"},
    {"<r><a>x</a> <b>y</b></r>", "r(a'x' b'y')"},
};

const TreeCase text_elements[] = {
    {"<text>  x </text>", "text'  x '"},
    {"<data>  x </data>", "data'  x '"},
    {"<data> </data>", "data' '"},
    {"<data><b/></data>", "data'<b/>'"},
    {"<text><b>x</b></text>", "text'<b>x</b>'"},
    {"<data> <b/> </data>", "data' <b/> '"},
    {"<data k=\"v\"/>", "data[k=v]"},
    {"<r><text/><data/></r>", "r(text data)"},
    {"<data></data></data></data>", "data'</data></data>'"},
    {"<text></text><b/></b></text>", "text'</text><b/></b>'"},
    {"<Data> <b/> </Data>", "Data(b)"},
    {"<texts>  x</texts>", "texts'x'"},
    {"<dat>  x</dat>", "dat'x'"},
    {"<a><data> x</data></a>", "a(data' x')"},
};

const TreeCase comments_and_declarations[] = {
    {"<!-- x --><a/><!-- y -->", "a"},
    {"<a><!-- x --></a>", "a"},
    {"<a><b/><!-- x --><!-- y --><c/></a>", "a(b c)"},
    {"<?xml version=\"1.0\" encoding=\"UTF-8\"?><a/>", "a"},
    {"<?xml?><a/>", "a"},
    {"<? xml version=\"2\" ?><a/>", "a"},
    {"<a/><?xml k=\"v\"?>", "a"},
    {"<?xml?><!-- --><?xml?><a/><?xml?>", "a"},
    {"\xEF\xBB\xBF<?xml?>\r\n<a/>", "a"},
};

INSTANTIATE_TEST_SUITE_P(WithoutARoot, TreeTest, testing::ValuesIn(without_a_root));
INSTANTIATE_TEST_SUITE_P(Elements, TreeTest, testing::ValuesIn(elements));
INSTANTIATE_TEST_SUITE_P(Attributes, TreeTest, testing::ValuesIn(attributes));
INSTANTIATE_TEST_SUITE_P(Texts, TreeTest, testing::ValuesIn(texts));
INSTANTIATE_TEST_SUITE_P(TextElements, TreeTest, testing::ValuesIn(text_elements));
INSTANTIATE_TEST_SUITE_P(CommentsAndDeclarations, TreeTest,
                         testing::ValuesIn(comments_and_declarations));

// Attributes as they are mostly written, and every third with blanks about its `=`.
TEST(ParseTest, AnyNumberOfAttributesIsKeptInOrder) {
  std::string input;
  std::string tree;
  for (int count = 1; count <= 40; ++count) {
    const std::string key = "k" + std::to_string(count);
    input += " " + key + (count % 3 == 0 ? " = " : "=") + "\"v\"";
    tree += (tree.empty() ? "" : " ") + key + "=v";
    EXPECT_EQ(Document("<a" + input + "/>").tree(), "a[" + tree + "]");
    EXPECT_EQ(Document("<a" + input + " >x</a>").tree(), "a[" + tree + "]'x'");
  }
}

TEST(ParseTest, WithoutASourceIsUnexpected) {
  const Document document;
  EXPECT_EQ(document->Parse(), E_UNEXPECTED);
  EXPECT_EQ(document.lines(), Lines{});
}

TEST(ParseTest, TheRootHasTwoReferencesAndADescendantOne) {
  const Document document("<a><b/></a>");
  IOXAXMLElement* child = nullptr;
  document.root()->FirstChild(&child);
  EXPECT_EQ(document.root()->CheckReference(), 2);
  EXPECT_EQ(child->CheckReference(), 1);
}

TEST(ParseTest, TheRootOfAFailureHasOneReference) {
  for (const char* input : {"<a", "<a>x", "<a><b/>", "<a><b></a>"}) {
    const Document document(input + std::string(" "));
    EXPECT_EQ(document.result, E_UNEXPECTED) << input;
    EXPECT_EQ(document.root()->CheckReference(), 1) << input;
  }
}

TEST(ParseTest, ASecondParseAtTheEndKeepsTheRoot) {
  const Document document("<a/>");
  EXPECT_EQ(document->Parse(), S_OK);
  EXPECT_EQ(document->Parse(), S_OK);
  EXPECT_EQ(document.tree(), "a");
}

// Gives up a root that a later parse has put out of its document.
void release_left_behind(IOXAXMLElement* root) {
  while (root->ReleaseReference() > 0) {
  }
}

TEST(ParseTest, AnotherSourceLeavesTheOldTreeToTheCaller) {
  const Document document("<a><b/></a>");
  IOXAXMLElement* const old = document.root();
  document->SetBuffer("<c/>");
  EXPECT_EQ(document->Parse(), S_OK);
  EXPECT_EQ(document.tree(), "c");
  EXPECT_EQ(outline(*old), "a(b)");
  EXPECT_EQ(old->CheckReference(), 2);
  release_left_behind(old);
}

TEST(ParseTest, AFailureBeforeTheRootKeepsTheOldOne) {
  const Document document("<a/>");
  document->SetBuffer("= <b/>");
  EXPECT_EQ(document->Parse(), E_UNEXPECTED);
  EXPECT_EQ(document.tree(), "a");
}

// The token that was one too many is gone; what it begins is read on its own.
TEST(ParseTest, GoesOnBehindTheTokenThatMadeItFail) {
  const Document document("<a/><b/><c/>");
  EXPECT_EQ(document.result, E_UNEXPECTED);
  EXPECT_EQ(document.tree(), "a");
  IOXAXMLElement* const old = document.root();
  EXPECT_EQ(document->Parse(), E_UNEXPECTED);  // at b
  EXPECT_EQ(document->Parse(), E_UNEXPECTED);  // at />
  EXPECT_EQ(document.tree(), "a");
  EXPECT_EQ(document->Parse(), S_OK);
  EXPECT_EQ(document.tree(), "c");
  release_left_behind(old);
}

TEST(ParseTest, GoesOnBehindAByteFF) {
  const Document document("\xFF<a/>\xFF<!-- -->");
  EXPECT_EQ(document.tree(), "none");
  EXPECT_EQ(document->Parse(), S_OK);
  EXPECT_EQ(document.tree(), "a");
  EXPECT_EQ(document->Parse(), S_OK);
  EXPECT_EQ(document.tree(), "a");
}

TEST(ParseTest, AByteFFInATextFailsAndKeepsWhatWasStored) {
  const Document document("<a>text\xFF</a>");
  EXPECT_EQ(document.result, E_UNEXPECTED);
  EXPECT_EQ(document.tree(), "a'te'");
}

TEST(ParseTest, ATextThatEndsAtOnceLeavesNone) {
  const Document document("<a><text>old</text><text>xy\xFF</text></a>");
  EXPECT_EQ(document.result, E_UNEXPECTED);
  EXPECT_EQ(document.tree(), "a(text'old')");
}

TEST(DocumentParseTest, TheDeclarationGoesToTheProlog) {
  const Document document;
  const auto value = [&](const char* key) {
    const oxa::xml_attribute* const found = document->prolog().attributes().find(key);
    return std::string(found == nullptr ? "none" : found->value.c_str());
  };
  EXPECT_EQ(value("version"), "1.0");
  document->SetBuffer(R"(<?xml version="1.1" encoding="UTF-8"?><a/>)");
  EXPECT_EQ(document->Parse(), S_OK);
  EXPECT_EQ(value("version"), "1.1");
  EXPECT_EQ(value("encoding"), "UTF-8");
  EXPECT_EQ(document.tree(), "a");
}

}  // namespace
