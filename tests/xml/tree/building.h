// A builder for tests that have no parse.
#pragma once

#include "xml/oxa_xml_tokenizer.h"
#include "xml/xml_builder.h"

namespace oxa_test {

// Its source is empty, so its chunks are the smallest.
class Building {
 private:
  int result_ = 0;
  oxa_xml_tokenizer source_{"", nullptr, result_};

 public:
  oxa::xml_builder builder{source_};
};

}  // namespace oxa_test
