#pragma once

#include "cli/commands.h"

namespace Orlix::Cli {

/// While it lives Ctrl-C is a wish that long work asks for and ends on, so that nothing is left
/// half written; a second Ctrl-C ends the program at once. One at a time.
class InterruptGuard {
 public:
  InterruptGuard();
  ~InterruptGuard();
  InterruptGuard(const InterruptGuard&) = delete;
  InterruptGuard& operator=(const InterruptGuard&) = delete;
};

/// Ends a command with kInterrupted.
class Interrupted : public CommandError {
 public:
  Interrupted();
};

/// Whether Ctrl-C was pressed under a guard. From any thread.
bool IsInterrupted();
/// @throws Interrupted when it was.
void ThrowIfInterrupted();

}  // namespace Orlix::Cli
