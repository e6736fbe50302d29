// Copying variants.
#pragma once

#include <oxa/OXAVariant.h>

namespace oxa {

// Copies all of a variant into one that is there, and uses the memory that its text has. Throws
// std::bad_alloc with nothing changed.
inline void assign(OXAVariant& to, const OXAVariant& from) {
  to.text = from.text;  // the one step that may fail
  to.bits = from.bits;
  to.kind = from.kind;
}

}  // namespace oxa
