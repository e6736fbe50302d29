// Small string helpers that never write past the room they are given.
#pragma once

#include <oxa/export.h>

// Returns the length of `s`, which must not be null.
OXA_EXPORT int strlen_safe(const char* s);

// Returns the smaller of the length of `s` and `max`, and 0 for null. `s` must be terminated even
// beyond `max`: the bound limits the result, not the scan.
OXA_EXPORT unsigned long strnlen_safe(const char* s, unsigned long max);

// Copies `format` to `dst` with "%s" replaced by `arg`; no other conversion exists. Made for at
// most one "%s". `size` bounds the lengths of `format` and `arg` together; `dst` must hold one byte
// more than that.
// Returns 1 when the terminated result was written, 0 when nothing was: `arg` null, or too long.
OXA_EXPORT int sprintf_safe(char* dst, unsigned long size, const char* format, const char* arg);
