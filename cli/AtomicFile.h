#pragma once

#include <filesystem>
#include <fstream>

namespace Orlix::Cli {

/// A file that appears under its name only when it is complete: it is written beside and renamed.
class AtomicFile {
 public:
  /// @throws CommandError when nothing can be written beside `path`.
  explicit AtomicFile(std::filesystem::path path);
  /// Without a commit nothing is left behind.
  ~AtomicFile();
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  std::ostream& Stream() { return stream_; }
  /// Puts the file in place. @throws CommandError when it could not be written whole.
  void Commit();

 private:
  std::filesystem::path path_;
  std::filesystem::path temporary_;
  std::ofstream stream_;
};

}  // namespace Orlix::Cli
