#include <oxa/strings.h>

#include <algorithm>
#include <cstring>

int strlen_safe(const char* s) { return static_cast<int>(std::strlen(s)); }

// The bound limits the result, not the scan: the whole string is read.
unsigned long strnlen_safe(const char* s, unsigned long max) {
  return s == nullptr ? 0 : std::min<unsigned long>(std::strlen(s), max);
}

int sprintf_safe(char* dst, unsigned long size, const char* format, const char* arg) {
  if (arg == nullptr) {
    return 0;
  }
  const unsigned long arg_length = std::strlen(arg);
  // Kept: the "%s" counts as part of the format and the terminator does not, so a total equal to
  // `size` is accepted (SprintfSafeTest).
  if (std::strlen(format) + arg_length > size) {
    return 0;
  }
  for (const char* from = format; *from != '\0';) {
    if (from[0] == '%' && from[1] == 's') {
      std::memcpy(dst, arg, arg_length);
      dst += arg_length;
      from += 2;
    } else {
      *dst++ = *from++;
    }
  }
  *dst = '\0';
  return 1;
}
