#pragma once

#include <chrono>
#include <string>

namespace Orlix {

/// Puts a text on the system clipboard as plain text, through the desktop's own program: the first
/// of wl-copy, xclip and xsel in the caller's PATH that takes it.
///
/// The program is started directly, without a shell, and reads the text on its standard input; what
/// it prints is dropped. Waits for that program only, not for the process that it may leave behind
/// to serve the text. No signal handler of the caller is touched or relied on.
/// @param utf8      the text
/// @param patience  how long a program may neither read on nor end; then it is stopped
/// @return false when no such program is there or none takes the text.
bool CopyToClipboard(const std::string& utf8,
                     std::chrono::milliseconds patience = std::chrono::seconds(5));

}  // namespace Orlix
