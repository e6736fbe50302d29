// What a manager holds, from the library and from the model, as one text each.
#pragma once

#include <oxa/IOXAUserDefinedDataTypeManager.h>

#include <string>

#include "datatypes/model/model_extension.h"

namespace oxa_test::model {

// Give a line for each namespace, type and member with all its fields: namespaces and types by
// name, members in order.
std::string describe(IOXAUserDefinedDataTypeManager& manager);
std::string describe(const Declarations& declarations);

}  // namespace oxa_test::model
