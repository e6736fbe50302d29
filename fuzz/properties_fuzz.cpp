// Input: a program of operations on properties and their values: a letter each, and digits and
// texts in quotes for its arguments. tests/properties/model/property_program.h tells how it begins.
#include <string>
#include <string_view>

#include "check.h"
#include "properties/model/property_program.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view program(reinterpret_cast<const char*>(data), size);
  oxa_test::model::Account account;
  const std::string difference =
      oxa_test::model::difference([&] { oxa_test::model::run_property_program(program, account); });
  oxa_fuzz::check(difference.empty(), difference.c_str());
  return 0;
}
