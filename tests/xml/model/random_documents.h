// Random sources for the comparison of the parser with its model.
#pragma once

#include <string>

#include "support/random.h"

namespace oxa_test::model {

using oxa_test::Random;
using oxa_test::runs;

// A row of tokens.
std::string row_of_tokens(Random& random);

// Changes the source in one place.
void damage(std::string& source, Random& random);

// A document by the grammar, often damaged in one to three places.
std::string damaged_document(Random& random);

// An element or two with a name, value or text around the longest that is kept, or hundreds of
// elements.
std::string long_document(Random& random);

// Changes some bytes to zero.
std::string with_zero_bytes(std::string source, Random& random);

// The source as it can be read in a message.
std::string printable(const std::string& source);

}  // namespace oxa_test::model
