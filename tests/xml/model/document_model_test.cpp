#include "xml/model/comparison.h"

namespace oxa_test::model {
namespace {

class DocumentModelTest : public ModelTest {
 protected:
  static Way a_way(Random& random) {
    Way way;
    way.from_file = random.one_in(16);
    way.to_file = random.one_in(16);
    way.queries = random.one_in(8);
    way.second_parse = random.one_in(16);
    return way;
  }
};

TEST_F(DocumentModelTest, RowsOfTokensGiveWhatTheModelGives) {
  Random random(1);
  for (int run = 0; run < runs(85000) && !HasFailure(); ++run) {
    const std::string source = row_of_tokens(random);
    compare(source, a_way(random));
  }
  expect_variety(runs(1000));
}

TEST_F(DocumentModelTest, DamagedDocumentsGiveWhatTheModelGives) {
  Random random(2);
  for (int run = 0; run < runs(125000) && !HasFailure(); ++run) {
    const std::string source = damaged_document(random);
    compare(source, a_way(random));
  }
  expect_variety(runs(4000));
}

TEST_F(DocumentModelTest, LongNamesValuesAndTextsAreCutAsInTheModel) {
  Random random(3);
  for (int run = 0; run < runs(600) && !HasFailure(); ++run) {
    const std::string source = long_document(random);
    compare(source, a_way(random));
  }
}

TEST_F(DocumentModelTest, FilesWithZeroBytesGiveWhatTheModelGives) {
  Random random(4);
  for (int run = 0; run < runs(15000) && !HasFailure(); ++run) {
    const std::string source = with_zero_bytes(damaged_document(random), random);
    Way way = a_way(random);
    way.from_file = true;
    compare(source, way);
  }
  expect_variety(runs(500));
}

}  // namespace
}  // namespace oxa_test::model
