#include "plugin_call.h"

#include "text.h"

std::string exception_text(const CallOutcome& outcome) {
  return "lets an exception out" +
         (outcome.thrown.empty() ? "" : " (" + in_quotes(outcome.thrown) + ")");
}
