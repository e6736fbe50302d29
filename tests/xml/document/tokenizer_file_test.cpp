// Files as sources.
#include <sys/stat.h>

#include <thread>

#include "support.h"

using namespace oxa_test;

namespace {

class TokenizerFileTest : public testing::Test {
 protected:
  std::filesystem::path file(const std::string& content) const {
    return folder_.write("source.xml", content);
  }

  TemporaryFolder folder_;
};

TEST_F(TokenizerFileTest, GivesTheTokensOfTheFile) {
  Tokenizer source(file("<a k=\"v\"/>"));
  EXPECT_EQ(source.result, S_OK);
  EXPECT_EQ(source.rest(), "b n(a) n(k) = \"(v) E end");
}

TEST_F(TokenizerFileTest, AnEmptyFileIsAtItsEnd) {
  Tokenizer source(file(""));
  EXPECT_EQ(source.result, S_OK);
  EXPECT_EQ(source.rest(), "end");
}

TEST_F(TokenizerFileTest, AMissingFileIsReportedWithItsPath) {
  const auto missing = folder_ / "\xC3\xA9.xml";
  Tokenizer source(missing);
  EXPECT_EQ(source.result, E_OPENFAILED);
  EXPECT_EQ(source.sink->lines, Lines{"message 5: Could not open file " + missing.string()});
  EXPECT_EQ(source.next(3), "end end end");
  EXPECT_EQ(source.tokens.getc(), -1);
}

TEST_F(TokenizerFileTest, AMissingFileNeedsNoSink) {
  int result = S_OK;
  oxa_xml_tokenizer tokens(L"/not/there", nullptr, result);
  EXPECT_EQ(result, E_OPENFAILED);
  EXPECT_EQ(tokens.next_token(nullptr, 0), -1);
}

TEST_F(TokenizerFileTest, EverySingleCharacterOperationMayComeFirst) {
  const auto path = file(" abc ");
  EXPECT_EQ(Tokenizer(path).tokens.getc(), ' ');
  EXPECT_EQ(Tokenizer(path).tokens.next_char(), 'a');
  EXPECT_EQ(Tokenizer(path).tokens.look_ahead(), 'a');
}

TEST_F(TokenizerFileTest, TheOtherOperationsMayComeFirstToo) {
  char buffer[8] = "old";
  EXPECT_EQ(Tokenizer(file("ab\"")).tokens.capture_string(buffer, 8), 34);
  EXPECT_EQ(bytes("\0\0ab"), std::string(buffer, 4));
  Tokenizer source(file("abc</a>"));
  source.tokens.get_text("", buffer, 8);
  EXPECT_EQ(bytes("\0\0abc"), std::string(buffer, 5));
}

TEST_F(TokenizerFileTest, ZeroBytesAreWhitespace) {
  EXPECT_EQ(Tokenizer(file(bytes("\0<\0a\0k\0=\0\"v\"\0/>\0"))).rest(),
            "b n(a) n(k) = \"(v) E end");
}

// With two zeros in the look-ahead the tokenizer takes the next token for its first.
TEST_F(TokenizerFileTest, TwoZeroBytesInFrontOfTheEndOfATextAreReadAsAFreshStart) {
  Tokenizer source(file(bytes(">x\0\0\xFF<a>")));
  char buffer[8];
  source.next();
  source.tokens.get_text("", buffer, 8);
  EXPECT_EQ(source.rest(), "b n(a) > end");
}

TEST_F(TokenizerFileTest, FilesAroundTheBlockSizesAreReadWhole) {
  for (const std::size_t block : {4096U, 8192U, 65536U}) {
    for (std::size_t length = block - 3; length < block + 3; ++length) {
      const std::string name(1000, 'n');
      const std::string input = std::string(length - name.size() - 1, ' ') + name + ">";
      EXPECT_EQ(Tokenizer(file(input)).rest(), "n(" + name + ") > end") << length;
    }
  }
}

TEST_F(TokenizerFileTest, IsReadWhenTheFirstCharacterIsAskedFor) {
  const auto path = file("<a>");
  Tokenizer source(path);
  std::ofstream(path, std::ios::app) << "<b>";
  EXPECT_EQ(source.rest(), "b n(a) > b n(b) > end");
}

TEST_F(TokenizerFileTest, AFileThatIsReplacedIsReadAsItWasOpened) {
  const auto path = file("<old>");
  Tokenizer source(path);
  std::filesystem::rename(folder_.write("other.xml", "<new>"), path);
  EXPECT_EQ(source.rest(), "b n(old) > end");
}

TEST_F(TokenizerFileTest, AFileThatIsRemovedIsReadAsItWasOpened) {
  const auto path = file("<old>");
  Tokenizer source(path);
  std::filesystem::remove(path);
  EXPECT_EQ(source.rest(), "b n(old) > end");
}

TEST_F(TokenizerFileTest, APipeIsReadToItsEnd) {
  const auto path = folder_ / "pipe";
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  const std::string name(3000, 'n');
  std::thread writer([&] {
    std::ofstream out(path);
    for (int part = 0; part < 20; ++part) {
      out << name << "=" << std::flush;
    }
  });
  Tokenizer source(path);
  EXPECT_EQ(source.rest(), repeated("n(" + name + ") = ", 20) + "end");
  writer.join();
}

}  // namespace
