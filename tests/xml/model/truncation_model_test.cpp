#include "xml/documents.h"
#include "xml/model/comparison.h"

namespace oxa_test::model {
namespace {

class TruncationModelTest : public ModelTest {};

constexpr Way everything{false, true, true, false};

TEST_F(TruncationModelTest, EveryDocumentGivesWhatTheModelGives) {
  for (const std::string_view document : xml_documents) {
    compare(std::string(document), everything, 1);
  }
  expect_variety(5);
}

TEST_F(TruncationModelTest, EveryBeginningOfADocumentGivesWhatTheModelGives) {
  for (const std::string_view document : xml_documents) {
    for (std::size_t length = 0; length < document.size(); ++length) {
      compare(std::string(document.substr(0, length)), everything, 4);
    }
  }
}

TEST_F(TruncationModelTest, EveryFlippedBitOfADocumentGivesWhatTheModelGives) {
  for (const std::string_view document : xml_documents) {
    for (std::size_t bit = 0; bit < 8 * document.size(); ++bit) {
      std::string source(document);
      source[bit / 8] = static_cast<char>(source[bit / 8] ^ (1 << bit % 8));
      compare(source, everything, 16);
      compare(source, {true, false, false, true}, 64);
    }
  }
}

}  // namespace
}  // namespace oxa_test::model
