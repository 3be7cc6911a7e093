#include "model/oxutil/CopyToClipboard.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstddef>
#include <optional>
#include <thread>
#include <tuple>

namespace Orlix {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// A program with its arguments, ended by null.
using Command = std::array<const char*, 4>;

constexpr std::array<Command, 3> kCommands = {{
    {"wl-copy", "--type", "text/plain;charset=utf-8", nullptr},
    {"xclip", "-in", "-selection", "clipboard"},
    {"xsel", "--clipboard", "--input", nullptr},
}};

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() { Close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int Number() const { return number_; }
  void Close() {
    if (number_ >= 0) close(number_);
    number_ = -1;
  }

 private:
  int number_;
};

/// How a program is started: the given end is its standard input, nothing else of ours reaches it,
/// and signals are as in a fresh process. It gets a process group of its own, because what it
/// leaves behind has to outlive a Ctrl-C in the terminal.
class Setup {
 public:
  explicit Setup(int input) {
    posix_spawn_file_actions_init(&files_);
    posix_spawn_file_actions_adddup2(&files_, input, STDIN_FILENO);
    posix_spawn_file_actions_addopen(&files_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&files_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
#ifdef __GLIBC_PREREQ
#if __GLIBC_PREREQ(2, 34)
    posix_spawn_file_actions_addclosefrom_np(&files_, STDERR_FILENO + 1);
#endif
#endif
    sigset_t none;
    sigset_t all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_init(&attributes_);
    posix_spawnattr_setsigmask(&attributes_, &none);
    posix_spawnattr_setsigdefault(&attributes_, &all);
    posix_spawnattr_setpgroup(&attributes_, 0);
    posix_spawnattr_setflags(
        &attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
  }
  ~Setup() {
    posix_spawnattr_destroy(&attributes_);
    posix_spawn_file_actions_destroy(&files_);
  }
  Setup(const Setup&) = delete;
  Setup& operator=(const Setup&) = delete;

  /// Starts a program that PATH holds; nothing when there is none or it cannot be started.
  std::optional<pid_t> Start(const Command& command) const {
    std::array<char*, std::tuple_size_v<Command> + 1> arguments{};
    // The system promises not to write to what its signature lets it.
    std::transform(command.begin(), command.end(), arguments.begin(),
                   [](const char* text) { return const_cast<char*>(text); });
    pid_t child{};
    const int error =
        posix_spawnp(&child, command.front(), &files_, &attributes_, arguments.data(), environ);
    return error == 0 ? std::optional(child) : std::nullopt;
  }

 private:
  posix_spawn_file_actions_t files_{};
  posix_spawnattr_t attributes_{};
};

// Writes it all; false when the reader is gone or does not read on. A socket, unlike a pipe, can be
// written without the risk of a signal.
bool SendAll(int socket, const std::string& text, milliseconds patience) {
  const int wait = static_cast<int>(std::clamp<milliseconds::rep>(patience.count(), 0, INT_MAX));
  for (std::size_t sent = 0; sent < text.size();) {
    const ssize_t n =
        send(socket, text.data() + sent, text.size() - sent, MSG_NOSIGNAL | MSG_DONTWAIT);
    if (n > 0) {
      sent += static_cast<std::size_t>(n);
    } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
      pollfd writable{socket, POLLOUT, 0};
      const int ready = poll(&writable, 1, wait);
      if (ready == 0 || (ready < 0 && errno != EINTR)) return false;
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

// Waits for a program and stops it when its time is up. Where the caller lets the system collect
// children, how it ended is not known, and having ended has to do.
bool EndsWell(pid_t child, milliseconds patience) {
  const Clock::time_point deadline = Clock::now() + patience;
  milliseconds pause(1);
  for (;;) {
    int status{};
    const pid_t ended = waitpid(child, &status, WNOHANG);
    if (ended == child) return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    if (ended < 0 && errno != EINTR) return errno == ECHILD;
    if (Clock::now() >= deadline) break;
    std::this_thread::sleep_for(pause);
    pause = std::min(2 * pause, milliseconds(20));
  }
  kill(-child, SIGKILL);  // its group, which it leads
  while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) continue;
  return false;
}

bool Feed(const Command& command, const std::string& text, milliseconds patience) {
  std::array<int, 2> ends{};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return false;
  Descriptor ours(ends[0]);
  Descriptor theirs(ends[1]);
  const std::optional<pid_t> child = Setup(theirs.Number()).Start(command);
  if (!child) return false;
  theirs.Close();
  const bool sent = SendAll(ours.Number(), text, patience);
  ours.Close();
  return EndsWell(*child, sent ? patience : milliseconds(0)) && sent;
}

}  // namespace

bool CopyToClipboard(const std::string& utf8, milliseconds patience) {
  return std::any_of(kCommands.begin(), kCommands.end(),
                     [&](const Command& command) { return Feed(command, utf8, patience); });
}

}  // namespace Orlix
