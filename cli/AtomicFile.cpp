#include "cli/AtomicFile.h"

#include <string>
#include <system_error>
#include <utility>

#include "cli/commands.h"
#include "model/oxutil/uuid.h"

namespace Orlix::Cli {

namespace fs = std::filesystem;

namespace {

constexpr int kLinks = 40;  // in a row; more are taken for a circle

// Where links lead to, also when nothing is there yet.
fs::path TargetOf(const fs::path& path) {
  fs::path target = path;
  for (int i = 0; i < kLinks; ++i) {
    std::error_code error;
    if (!fs::is_symlink(fs::symlink_status(target, error))) return target;
    const fs::path next = fs::read_symlink(target, error);
    if (error) throw CommandError(path.string() + ": " + error.message());
    target = target.parent_path() / next;
  }
  throw CommandError(path.string() + ": is a symbolic link that leads nowhere");
}

}  // namespace

AtomicFile::AtomicFile(fs::path path) : path_(std::move(path)) {
  std::error_code error;
  const fs::file_status status = fs::status(path_, error);  // of what links lead to
  if (fs::is_directory(status)) {
    throw CommandError(path_.string() + ": is a directory; give the name of a file");
  }
  const bool isDirect = fs::exists(status) && !fs::is_regular_file(status);
  if (!isDirect) {
    target_ = TargetOf(path_);
    temporary_ = target_;
    temporary_ += "." + NewUuid() + ".tmp";
  }
  stream_.open(isDirect ? path_ : temporary_, std::ios::binary);
  if (!stream_) {
    throw CommandError(path_.string() + ": cannot be written; does the folder exist and allow it?");
  }
  if (isDirect || !fs::is_regular_file(status)) return;
  fs::permissions(temporary_, status.permissions(), error);
  if (error) {
    RemoveTemporary();
    throw CommandError(path_.string() + ": its permissions cannot be kept: " + error.message());
  }
}

AtomicFile::~AtomicFile() { RemoveTemporary(); }

void AtomicFile::RemoveTemporary() {
  if (temporary_.empty()) return;
  stream_.close();
  std::error_code ignored;  // what cannot be removed stays beside the file
  fs::remove(temporary_, ignored);
}

void AtomicFile::Commit() {
  stream_.close();
  if (!stream_)
    throw CommandError(path_.string() + ": could not be written whole; is the disk full?");
  if (temporary_.empty()) return;
  std::error_code error;
  fs::rename(temporary_, target_, error);
  if (error) throw CommandError(path_.string() + ": cannot be replaced: " + error.message());
  temporary_.clear();
}

}  // namespace Orlix::Cli
