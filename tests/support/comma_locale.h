// A locale whose numbers have a comma, for programs with oxa_use_comma_locale in their CMake.
#pragma once

#include <clocale>
#include <cstdlib>
#include <locale>
#include <stdexcept>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace oxa_test {

inline constexpr const char* comma_locale = "de_DE.UTF-8";

// Lets locales be found where the build made them.
class LocalePath {
 public:
  LocalePath() { setenv("LOCPATH", OXA_LOCALES, 1); }
  LocalePath(const LocalePath&) = delete;
  LocalePath& operator=(const LocalePath&) = delete;
  ~LocalePath() { unsetenv("LOCPATH"); }
};

// The C locale of the process while it lives, as setlocale sets it; streams do not see it.
class CommaCLocale {
 public:
  CommaCLocale() {
    const LocalePath path;
    if (std::setlocale(LC_ALL, comma_locale) == nullptr) {
      throw std::runtime_error("the locale with a comma is missing");
    }
  }
  CommaCLocale(const CommaCLocale&) = delete;
  CommaCLocale& operator=(const CommaCLocale&) = delete;
  ~CommaCLocale() { std::setlocale(LC_ALL, "C"); }
};

// The global C++ locale while it lives. One that has a name is the C locale as well.
class GlobalLocale {
 public:
  explicit GlobalLocale(const std::locale& locale) {
    const LocalePath path;
    before_ = std::locale::global(locale);
  }
  GlobalLocale(const GlobalLocale&) = delete;
  GlobalLocale& operator=(const GlobalLocale&) = delete;
  ~GlobalLocale() { std::locale::global(before_); }

 private:
  std::locale before_;
};

// Returns the C++ locale whose numbers have a comma. The C library loses the path of locales then,
// which is no leak of ours.
inline std::locale make_comma_locale() {
  const LocalePath path;
#if defined(__SANITIZE_ADDRESS__)
  const __lsan::ScopedDisabler disabler;
#endif
  return std::locale(comma_locale);
}

}  // namespace oxa_test
