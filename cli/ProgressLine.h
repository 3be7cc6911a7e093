#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace Orlix::Cli {

/// A line on the terminal that tells how far a work is, and is gone when it ends. Nothing where
/// standard error is no terminal, and nothing of work that takes less than half a second.
class ProgressLine {
 public:
  /// @param what  what the line begins with
  explicit ProgressLine(std::string what);
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  /// Shows `done` of `total`, a few times a second.
  void Show(std::size_t done, std::size_t total);

 private:
  using Clock = std::chrono::steady_clock;

  std::string what_;
  bool isTerminal_;
  bool isShown_{};
  Clock::time_point next_;
};

}  // namespace Orlix::Cli
