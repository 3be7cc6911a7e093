#include "cli/ProgressLine.h"

#include <unistd.h>

#include <iostream>
#include <utility>

namespace Orlix::Cli {

namespace {

constexpr std::chrono::milliseconds kFirst{500};
constexpr std::chrono::milliseconds kBetween{200};

}  // namespace

ProgressLine::ProgressLine(std::string what)
    : what_(std::move(what)),
      isTerminal_(isatty(STDERR_FILENO) == 1),
      next_(Clock::now() + kFirst) {}

ProgressLine::~ProgressLine() {
  if (isShown_) std::cerr << "\r\x1b[K" << std::flush;  // to the line's begin, then erase it
}

void ProgressLine::Show(std::size_t done, std::size_t total) {
  if (!isTerminal_ || total == 0 || Clock::now() < next_) return;
  next_ = Clock::now() + kBetween;
  isShown_ = true;
  const auto percent =
      static_cast<int>(100.0 * static_cast<double>(done) / static_cast<double>(total));
  std::cerr << '\r' << what_ << percent << " %" << std::flush;
}

}  // namespace Orlix::Cli
