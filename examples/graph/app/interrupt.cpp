#include "interrupt.h"

#include <csignal>

#include "problem.h"

namespace {

volatile std::sig_atomic_t received = 0;

extern "C" void receive(int signal) { received = signal; }

}  // namespace

// No SA_RESTART: a read that waits is to end. A signal that the program was started to ignore stays
// ignored.
void watch_interrupts() {
  for (const int signal : {SIGINT, SIGTERM}) {
    struct sigaction action {};
    sigaction(signal, nullptr, &action);
    if (action.sa_handler == SIG_IGN) {
      continue;
    }
    action.sa_handler = receive;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    sigaction(signal, &action, nullptr);
  }
}

int interrupt_signal() { return received; }

void stop_if_interrupted() {
  if (received != 0) {
    throw Stopped{};
  }
}
