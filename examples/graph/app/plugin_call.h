// Calls into plug-ins, which may let exceptions out although they must not.
#pragma once

#include <oxa/sdk/guard.h>

#include <exception>
#include <string>
#include <utility>

// How a call into a plug-in ended.
struct CallOutcome {
  OXAResult result = S_OK;
  bool threw = false;
  // What the exception says, if it says anything.
  std::string thrown;
};

// Runs `call`, which returns a result code, and keeps what comes out of it.
template <class Call>
CallOutcome call_plugin(Call&& call) {
  CallOutcome outcome;
  outcome.threw = true;
  outcome.result = oxa::guard([&]() -> OXAResult {
    try {
      const OXAResult result = std::forward<Call>(call)();
      outcome.threw = false;
      return result;
    } catch (const std::exception& exception) {
      outcome.thrown = exception.what();
      throw;
    }
  });
  return outcome;
}

// Returns what a call that threw did, to follow its name: "lets an exception out ("...")".
std::string exception_text(const CallOutcome& outcome);
