#include "cli/interrupt.h"

#include <atomic>
#include <csignal>

namespace Orlix::Cli {

namespace {

std::atomic<bool> isInterrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free);  // so that a signal handler may set it

extern "C" void OnInterrupt(int signal) {
  isInterrupted = true;
  std::signal(signal, SIG_DFL);
}

}  // namespace

InterruptGuard::InterruptGuard() {
  isInterrupted = false;
  // A program started with the signal ignored, as by nohup, goes on ignoring it.
  if (std::signal(SIGINT, OnInterrupt) == SIG_IGN) std::signal(SIGINT, SIG_IGN);
}

InterruptGuard::~InterruptGuard() {
  if (std::signal(SIGINT, SIG_DFL) == SIG_IGN) std::signal(SIGINT, SIG_IGN);
}

Interrupted::Interrupted() : CommandError("stopped; no file was written") {}

bool IsInterrupted() { return isInterrupted; }

void ThrowIfInterrupted() {
  if (isInterrupted) throw Interrupted();
}

}  // namespace Orlix::Cli
