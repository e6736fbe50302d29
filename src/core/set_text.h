// The common shape of the setters of texts.
#pragma once

#include <oxa/result.h>
#include <oxa/sdk/guard.h>

#include "core/thin_string.h"

namespace oxa {

// S_OK; E_INVALIDARG for null; E_OUTOFMEMORY with nothing changed.
inline OXAResult set_text(thin_string& field, const char* text) {
  if (text == nullptr) {
    return E_INVALIDARG;
  }
  return guard([&] {
    field = thin_string(text);
    return S_OK;
  });
}

}  // namespace oxa
