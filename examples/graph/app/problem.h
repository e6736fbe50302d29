// What ends the program early.
#pragma once

#include <stdexcept>
#include <string>

// The program's exit codes; --help names them. A signal's number is added to `signalled`.
enum ExitCode {
  exit_done = 0,
  exit_failed = 1,
  exit_usage = 2,
  exit_findings = 3,
  exit_signalled = 128
};

// Carries the sentence that the user gets, without the program's name and a final stop.
class Problem : public std::runtime_error {
 public:
  explicit Problem(const std::string& sentence, ExitCode code = exit_failed)
      : std::runtime_error(sentence), code_(code) {}

  ExitCode code() const { return code_; }

 private:
  ExitCode code_;
};

// A signal asked to stop.
struct Stopped {};
