#include "model/oxutil/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <ios>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

#include "model/oxutil/uuid.h"

namespace Orlix::Util {

namespace fs = std::filesystem;

namespace {

constexpr int kLinks = 40;  // in a row; more are taken for a circle

constexpr const char* kNotWhole = "could not be written whole; is the disk full?";

// Where links lead to, also when nothing is there yet; empty when they lead nowhere.
fs::path TargetOf(const fs::path& path) {
  fs::path target = path;
  for (int i = 0; i < kLinks; ++i) {
    std::error_code error;
    if (!fs::is_symlink(fs::symlink_status(target, error))) return target;
    const fs::path next = fs::read_symlink(target, error);
    if (error) return {};
    target = target.parent_path() / next;
  }
  return {};
}

// Waits until the bytes of a file, or the names of a folder, are on the disk. A file system that
// knows nothing of that, as of a pipe, has done all that it can.
bool IsOnDisk(const fs::path& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return true;  // may be written but not read: the bytes are the system's to keep
  const bool isDone = fsync(file) == 0 || (errno != EIO && errno != ENOSPC && errno != EDQUOT);
  close(file);
  return isDone;
}

fs::path FolderOf(const fs::path& path) {
  const fs::path folder = path.parent_path();
  return folder.empty() ? fs::path(".") : folder;
}

bool HoldsExactly(const fs::path& path, std::string_view bytes) {
  std::ifstream stream(path, std::ios::binary);
  std::array<char, 1 << 16> block;
  while (!bytes.empty()) {
    const std::size_t count = std::min(block.size(), bytes.size());
    if (!stream.read(block.data(), static_cast<std::streamsize>(count))) return false;
    if (std::string_view(block.data(), count) != bytes.substr(0, count)) return false;
    bytes.remove_prefix(count);
  }
  return stream && stream.peek() == std::ifstream::traits_type::eof();
}

}  // namespace

AtomicFile::AtomicFile(fs::path path) : path_(std::move(path)), target_(TargetOf(path_)) {
  if (target_.empty()) Fail("is a symbolic link that leads nowhere");
  std::error_code error;
  const fs::file_status status = fs::status(target_, error);
  if (fs::is_directory(status)) Fail("is a directory; give the name of a file");
  wasThere_ = fs::exists(status);
  isRegular_ = !wasThere_ || fs::is_regular_file(status);
  if (wasThere_ && access(target_.c_str(), W_OK) != 0) {
    Fail(std::string("cannot be written: ") + std::strerror(errno));
  }
  if (isRegular_) OpenBeside();
  if (temporary_.empty()) OpenInPlace();
}

AtomicFile::~AtomicFile() { RemoveTemporary(); }

void AtomicFile::Fail(std::string_view what) const {
  throw std::runtime_error(path_.string() + ": " + std::string(what));
}

// Leaves no temporary name when the folder takes no further file of such a name. Any other fault, a
// full disk above all, must not reach the file that is there.
void AtomicFile::OpenBeside() {
  temporary_ = target_;
  temporary_ += "." + NewUuid() + ".tmp";
  errno = 0;
  stream_.open(temporary_, std::ios::binary);
  if (stream_) {
    if (wasThere_) KeepOwnerAndPermissions();
    return;
  }
  stream_.clear();
  temporary_.clear();
  const bool isRefused = errno == EACCES || errno == EPERM || errno == EROFS;
  if (!isRefused && errno != ENAMETOOLONG && errno != ENOENT) {
    Fail(std::string("cannot be written: ") + std::strerror(errno));
  }
}

void AtomicFile::OpenInPlace() {
  errno = 0;
  stream_.open(target_, std::ios::binary);
  if (stream_) return;
  Fail(errno == ENOENT ? "cannot be written; does the folder exist?"
                       : std::string("cannot be written: ") + std::strerror(errno));
}

void AtomicFile::KeepOwnerAndPermissions() {
  struct stat old {};
  const bool isKnown = stat(target_.c_str(), &old) == 0;
  // Another owner is kept where the system allows it, and with it the permissions' meaning.
  const bool isOwned = isKnown && (chown(temporary_.c_str(), old.st_uid, old.st_gid) == 0 ||
                                   (old.st_uid == geteuid() && old.st_gid == getegid()));
  if (isOwned && chmod(temporary_.c_str(), old.st_mode & 07777U) == 0) return;
  RemoveTemporary();
}

void AtomicFile::RemoveTemporary() {
  if (temporary_.empty()) return;
  stream_.close();
  stream_.clear();
  std::error_code ignored;  // what cannot be removed stays beside the file
  fs::remove(temporary_, ignored);
  temporary_.clear();
}

void AtomicFile::Close() {
  if (stream_.is_open()) stream_.close();
  if (!stream_) Fail(kNotWhole);
}

// For a target that nothing can be renamed to, such as one that another file system lies over.
void AtomicFile::CopyOver() {
  std::ifstream from(temporary_, std::ios::binary);
  std::ofstream to(target_, std::ios::binary);
  if (from.peek() != std::ifstream::traits_type::eof()) to << from.rdbuf();
  to.close();
  if (!to || !IsOnDisk(target_)) Fail(kNotWhole);
  RemoveTemporary();
}

void AtomicFile::Commit() {
  Close();
  if (isRegular_ && !IsOnDisk(Place())) Fail(kNotWhole);
  if (temporary_.empty()) return;
  if (std::rename(temporary_.c_str(), target_.c_str()) == 0) {
    temporary_.clear();
    static_cast<void>(IsOnDisk(FolderOf(target_)));  // the old name is as good as the new one
    return;
  }
  if (errno != EBUSY && errno != EPERM && errno != EACCES) {
    Fail(std::string("cannot be replaced: ") + std::strerror(errno));
  }
  CopyOver();
}

void WriteWhole(const fs::path& path, std::string_view bytes) {
  AtomicFile file(path);
  file.Stream() << bytes;
  file.Close();
  if (file.IsReadable() && !HoldsExactly(file.Place(), bytes)) {
    throw std::runtime_error(path.string() +
                             ": reads back differently from what was written; is the disk sound?");
  }
  file.Commit();
}

}  // namespace Orlix::Util
