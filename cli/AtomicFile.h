#pragma once

#include <filesystem>
#include <fstream>

namespace Orlix::Cli {

/// A file that appears under its name only when it is complete: it is written beside and renamed.
/// A file that was there is replaced and its permissions stay; a symbolic link stays too, and what
/// it points to is replaced. What is there and no regular file, a device or a pipe, is written
/// directly.
class AtomicFile {
 public:
  /// @throws CommandError when nothing can be written to or beside `path`.
  explicit AtomicFile(std::filesystem::path path);
  /// Without a commit nothing is left behind.
  ~AtomicFile();
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  std::ostream& Stream() { return stream_; }
  /// Where the file is until it is complete, for those who write it by name; empty when it is
  /// written directly.
  const std::filesystem::path& Temporary() const { return temporary_; }
  /// Puts the file in place. @throws CommandError when it could not be written whole.
  void Commit();

 private:
  void RemoveTemporary();

  std::filesystem::path path_;       ///< as it was given
  std::filesystem::path target_;     ///< where links lead to
  std::filesystem::path temporary_;  ///< beside the target; empty when written directly
  std::ofstream stream_;
};

}  // namespace Orlix::Cli
