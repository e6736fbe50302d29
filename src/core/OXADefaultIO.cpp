#include "core/OXADefaultIO.h"

#include <oxa/strings.h>

#include <cstdarg>
#include <cstdio>

namespace {

// One line of output: a prefix and a formatted text, together cut at 999 characters.
class message_line {
 public:
  explicit message_line(const char* prefix) : used_(strnlen_safe(prefix, sizeof text_)) {
    sprintf_safe(text_, sizeof text_, prefix, "");
  }

  // Formats behind the prefix. A text that cannot be formatted, such as a wide string that the
  // locale cannot show, ends where the trouble begins.
  void format(const char* format, va_list arguments) {
    std::vsnprintf(text_ + used_, sizeof text_ - used_, format, arguments);
  }

  void write(std::FILE* stream) const { std::fprintf(stream, "%s\n", text_); }

 private:
  char text_[1000];
  unsigned long used_;
};

void write_line(std::FILE* stream, const char* prefix, const char* format, va_list arguments) {
  message_line line(prefix);
  line.format(format, arguments);
  line.write(stream);
}

}  // namespace

void OXADefaultIOMessage::EmitError(const char* format, ...) {
  if (format != nullptr) {
    va_list arguments;
    va_start(arguments, format);
    write_line(stderr, "ERROR: ", format, arguments);
    va_end(arguments);
  }
  std::fflush(stderr);
}

void OXADefaultIOMessage::EmitMessage(const char* format, ...) {
  if (message_threshold_ <= 0 || format == nullptr) {
    return;
  }
  message_line line("");
  va_list arguments;
  va_start(arguments, format);
  // Kept: two passes over one argument list, and the second, which is written, begins where the
  // first ended. Text without conversions comes out as given
  // (OXADefaultIOMessageTest.MessagesWithoutALevelAreFormattedTwice).
  line.format(format, arguments);
  line.format(format, arguments);
  va_end(arguments);
  line.write(stdout);
}

void OXADefaultIOMessage::EmitWarning(const char* format, ...) {
  if (warning_threshold_ <= 0 || format == nullptr) {
    return;
  }
  va_list arguments;
  va_start(arguments, format);
  write_line(stdout, "WARNING: ", format, arguments);
  va_end(arguments);
}

void OXADefaultIOMessage::EmitMessage(int level, const char* format, ...) {
  if (message_threshold_ < level || format == nullptr) {
    return;
  }
  va_list arguments;
  va_start(arguments, format);
  write_line(stdout, "", format, arguments);
  va_end(arguments);
}

void OXADefaultIOMessage::EmitWarning(int level, const char* format, ...) {
  if (warning_threshold_ < level) {
    return;
  }
  message_line line("WARNING: ");
  // Kept: unlike the other operations, this one prints its bare prefix for a null format
  // (OXADefaultIOMessageTest.AWarningWithALevelPrintsItsBarePrefix).
  if (format != nullptr) {
    va_list arguments;
    va_start(arguments, format);
    line.format(format, arguments);
    va_end(arguments);
  }
  line.write(stdout);
}
