#include "datatypes/type_string.h"

OXASimpleStringDecoder::OXASimpleStringDecoder(std::string_view separator, std::string_view text) {
  std::size_t end = 0;
  while (end != std::string_view::npos && count_ < pieces_.size()) {
    end = text.find(separator);
    pieces_[count_++] = text.substr(0, end);
    if (end != std::string_view::npos) {
      text.remove_prefix(end + separator.size());
    }
  }
}

// Kept: with more than one "$" what comes before the first counts, and with more than one "%" they
// belong to the name (TypeStringTest.TheNamedPart).
std::string_view named_type(std::string_view type_string) {
  const OXASimpleStringDecoder dollar("$", type_string);
  if (dollar.count() != 2) {
    return dollar.first();
  }
  const OXASimpleStringDecoder percent("%", dollar.second());
  return percent.count() == 2 ? percent.first() : dollar.second();
}
