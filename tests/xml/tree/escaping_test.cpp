// Escaping of the three characters, in both directions.
#include <gtest/gtest.h>
#include <oxa/xml_text.h>

#include <stdexcept>
#include <string>

namespace {

struct Conversion {
  const char* text;
  const char* converted;
};

TEST(EscapingTest, EncodesTheTableOfTexts) {
  const Conversion table[] = {
      {"", ""},
      {"plain", "plain"},
      {"<", "&lt;"},
      {">", "&gt;"},
      {"&", "&amp;"},
      {"a<b>c&d", "a&lt;b&gt;c&amp;d"},
      {"<<>>&&", "&lt;&lt;&gt;&gt;&amp;&amp;"},
      {"&amp;", "&amp;"},
      {"&lt;", "&lt;"},
      {"&gt;", "&gt;"},
      {"a &lt; b", "a &lt; b"},
      {"x &amp; y", "x &amp; y"},
      {"&amp;amp;", "&amp;amp;"},
      {"&amp;lt;", "&amp;lt;"},
      {"end &", "end &amp;"},
      {"&am", "&amp;am"},
      {"&amp", "&amp;amp"},
      {"&l", "&amp;l"},
      {"&lt", "&amp;lt"},
      {"&gt", "&amp;gt"},
      {"&;", "&amp;;"},
      {"&AMP;&Lt;", "&amp;AMP;&amp;Lt;"},
      {"& amp;", "&amp; amp;"},
      {"&&amp;", "&amp;&amp;"},
      {"&&lt;<", "&amp;&lt;&lt;"},
      {"&lt;b&gt;<b>", "&lt;b&gt;&lt;b&gt;"},
      {"&quot;", "&amp;quot;"},
      {"&apos;", "&amp;apos;"},
      {"&#38;", "&amp;#38;"},
      {"&#60;", "&amp;#60;"},
      {"\"it's\"", "\"it's\""},
      {"\x80\xFF\n\t<", "\x80\xFF\n\t&lt;"},
  };
  for (const Conversion& row : table) {
    EXPECT_EQ(ConvertToHTMLEscapedText(row.text), row.converted) << row.text;
  }
}

TEST(EscapingTest, DecodesTheTableOfTexts) {
  const Conversion table[] = {
      {"", ""},
      {"plain", "plain"},
      {"&lt;", "<"},
      {"&gt;", ">"},
      {"&amp;", "&"},
      {"a&lt;b&gt;c&amp;d", "a<b>c&d"},
      {"&lt;&lt;&gt;&gt;", "<<>>"},
      {"<>&", "<>&"},
      {"&amp;amp;", "&"},
      {"&amp;amp;amp;", "&"},
      {"&amp;amp;amp;amp;amp;!", "&!"},
      {"&amp;&amp;", "&&"},
      {"&&amp;", "&&"},
      {"&amp;&amp;amp;", "&&"},
      {"&&amp;amp;", "&&"},
      {"&amp;lt;", "&lt;"},
      {"&amp;gt;", "&gt;"},
      {"&amp;amp;lt;", "&lt;"},
      {"&&lt;", "&<"},
      {"&&lt;amp;", "&<amp;"},
      {"&a&lt;mp;", "&a<mp;"},
      {"amp;amp;", "amp;amp;"},
      {"&amp;am", "&am"},
      {"&amp", "&amp"},
      {"&lt", "&lt"},
      {"&gt", "&gt"},
      {"&l", "&l"},
      {"&", "&"},
      {"&amp;amp", "&amp"},
      {"&LT;&Amp;", "&LT;&Amp;"},
      {"&quot;&apos;", "&quot;&apos;"},
      {"&#60;", "&#60;"},
      {"&amp;#60;", "&#60;"},
      {"\"it's\"", "\"it's\""},
      {"\x80\xFF&lt;", "\x80\xFF<"},
  };
  for (const Conversion& row : table) {
    EXPECT_EQ(ConvertFromHTMLEscapedText(row.text), row.converted) << row.text;
  }
}

TEST(EscapingTest, NullIsALogicError) {
  EXPECT_THROW(ConvertToHTMLEscapedText(nullptr), std::logic_error);
  EXPECT_THROW(ConvertFromHTMLEscapedText(nullptr), std::logic_error);
}

TEST(EscapingTest, ALongRunOfAmpersandsEndsAsOne) {
  std::string text = "&";
  for (int i = 0; i < 100000; ++i) {
    text += "amp;";
  }
  EXPECT_EQ(ConvertFromHTMLEscapedText(text.c_str()), "&");
  EXPECT_EQ(ConvertToHTMLEscapedText(text.c_str()), text);
}

TEST(EscapingTest, EncodingTwiceChangesNothingMore) {
  const std::string once = ConvertToHTMLEscapedText("<a>&&lt;&quot;&</a>");
  EXPECT_EQ(ConvertToHTMLEscapedText(once.c_str()), once);
}

}  // namespace
