#include <gtest/gtest.h>
#include <oxa/xml_text.h>

#include <string>
#include <string_view>

#include "xml/model/model_escape.h"
#include "xml/model/random_documents.h"

namespace oxa_test::model {
namespace {

constexpr std::string_view pieces[] = {
    "&",  "&", "a",    "m",    "p",     ";",   ";",    "l",   "t",      "g",     "<", ">",   "#",
    "\"", "'", "&amp", "amp;", "&amp;", "lt;", "&lt;", "gt;", "&quot;", "&#38;", " ", "\xFF"};

std::string random_text(Random& random) {
  std::string text;
  for (std::size_t left = random.below(14); left > 0; --left) {
    text += random.of(pieces);
    if (random.one_in(12)) {
      text.append(random.below(40), 'x');
    }
  }
  return text;
}

TEST(EscapeModelTest, RandomTextsAreEscapedAsInTheModel) {
  Random random(5);
  for (int run = 0; run < runs(180000) && !testing::Test::HasFailure(); ++run) {
    const std::string text = random_text(random);
    EXPECT_EQ(ConvertToHTMLEscapedText(text.c_str()), escaped(text)) << printable(text);
  }
}

TEST(EscapeModelTest, RandomTextsAreUnescapedAsInTheModel) {
  Random random(6);
  for (int run = 0; run < runs(180000) && !testing::Test::HasFailure(); ++run) {
    const std::string text = random_text(random);
    EXPECT_EQ(ConvertFromHTMLEscapedText(text.c_str()), unescaped(text)) << printable(text);
  }
}

TEST(EscapeModelTest, NestedAmpersandsCollapseAsInTheModel) {
  constexpr std::string_view parts[] = {"&", "amp;", "amp;", "&amp;", "amp", ";", "lt;"};
  Random random(7);
  for (int run = 0; run < runs(30000) && !testing::Test::HasFailure(); ++run) {
    std::string text;
    for (std::size_t left = random.below(40); left > 0; --left) {
      text += random.of(parts);
    }
    EXPECT_EQ(ConvertFromHTMLEscapedText(text.c_str()), unescaped(text)) << printable(text);
  }
}

}  // namespace
}  // namespace oxa_test::model
