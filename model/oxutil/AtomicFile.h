#pragma once

#include <filesystem>
#include <fstream>
#include <string_view>

namespace Orlix::Util {

/// A file that appears under its name only when it is complete: it is written beside and renamed,
/// so that whatever ends the program, the old file or the new one is there, whole.
///
/// A file that was there must be writable; its permissions stay. A symbolic link stays too, and
/// what it points to is replaced. What cannot be renamed to is written in place: a device or a
/// pipe, a file in a folder that takes no further ones, a file that another file system lies over.
class AtomicFile {
 public:
  /// @throws std::runtime_error when nothing can be written to `path`; says why.
  explicit AtomicFile(std::filesystem::path path);
  /// Without a commit nothing is left behind, except of a file that is written in place.
  ~AtomicFile();
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  std::ostream& Stream() { return stream_; }
  /// Where the bytes are until the commit, for those who write or read them by name: beside the
  /// file, or the file itself.
  const std::filesystem::path& Place() const { return temporary_.empty() ? target_ : temporary_; }
  /// Whether the bytes can be read back: not those of a device or a pipe.
  bool IsReadable() const { return isRegular_; }
  /// Ends the writing through the stream. @throws std::runtime_error when it was not possible.
  void Close();
  /// Puts the file in place once its bytes are on the disk.
  /// @throws std::runtime_error when it could not be written whole.
  void Commit();

 private:
  void OpenBeside();
  void OpenInPlace();
  void KeepOwnerAndPermissions();
  void RemoveTemporary();
  void CopyOver();
  [[noreturn]] void Fail(std::string_view what) const;

  std::filesystem::path path_;       ///< as it was given
  std::filesystem::path target_;     ///< where links lead to
  std::filesystem::path temporary_;  ///< beside the target; empty when written in place
  bool wasThere_{};
  bool isRegular_{true};
  std::ofstream stream_;
};

/// Writes the bytes of a file with all that AtomicFile promises, and reads them back before they
/// take the place of the old ones.
/// @throws std::runtime_error when they could not be written or read back differently.
void WriteWhole(const std::filesystem::path& path, std::string_view bytes);

}  // namespace Orlix::Util
