// Input: 64 bits as a hexadecimal number on a line, and a text, line ends included. The text is
// read as a value of each data type, and bits and text are written as values of each kind.
#include <string>

#include "check.h"
#include "input.h"
#include "properties/model/program.h"
#include "properties/model/value_text_program.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  oxa_fuzz::Input input(data, size);
  const std::uint64_t bits = std::strtoull(std::string(input.until('\n')).c_str(), nullptr, 16);
  const std::string text(input.rest());
  const std::string difference =
      oxa_test::model::difference([&] { oxa_test::model::compare_value_text(text, bits); });
  oxa_fuzz::check(difference.empty(), difference.c_str());
  return 0;
}
