// Random extension files for the comparison of the type manager with its model.
#pragma once

#include <string>

#include "xml/model/random_documents.h"

namespace oxa_test::model {

// A well-formed file, in which nearly everything may be missing, odd or in the wrong place.
std::string extension_file(Random& random);

// The same, damaged in one to three places.
std::string damaged_extension_file(Random& random);

// One with names that are about as long as messages, or as names in files, may be.
std::string extension_file_with_long_names(Random& random);

}  // namespace oxa_test::model
