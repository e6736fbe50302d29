// Running what stops the process.
#pragma once

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>
#include <string>

namespace oxa_test {

// Runs `operation` in a copy of this process, and returns what it wrote to standard error if it was
// stopped by a failed assertion, or how it ended otherwise.
template <class Operation>
std::string stopped_with(Operation operation) {
  int ends[2];
  if (pipe(ends) != 0) {
    throw std::runtime_error("cannot make a pipe");
  }
  const pid_t child = fork();
  if (child == 0) {
    const rlimit no_core{};
    setrlimit(RLIMIT_CORE, &no_core);
    std::signal(SIGABRT, SIG_DFL);
    alarm(20);
    dup2(ends[1], STDERR_FILENO);
    operation();
    _exit(0);
  }
  close(ends[1]);
  std::string text;
  char part[512];
  for (ssize_t length = read(ends[0], part, sizeof part); length > 0;
       length = read(ends[0], part, sizeof part)) {
    text.append(part, static_cast<std::size_t>(length));
  }
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT
             ? text
             : "ended with status " + std::to_string(status) + ": " + text;
}

}  // namespace oxa_test
