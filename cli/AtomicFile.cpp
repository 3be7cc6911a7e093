#include "cli/AtomicFile.h"

#include <string>
#include <system_error>
#include <utility>

#include "cli/commands.h"
#include "model/oxutil/uuid.h"

namespace Orlix::Cli {

AtomicFile::AtomicFile(std::filesystem::path path) : path_(std::move(path)), temporary_(path_) {
  if (std::filesystem::is_directory(path_)) {
    throw CommandError(path_.string() + ": is a directory; give the name of a file");
  }
  temporary_ += "." + NewUuid() + ".tmp";
  stream_.open(temporary_, std::ios::binary);
  if (!stream_) {
    throw CommandError(path_.string() + ": cannot be written; does the folder exist and allow it?");
  }
}

AtomicFile::~AtomicFile() {
  if (temporary_.empty()) return;
  stream_.close();
  std::error_code ignored;  // what cannot be removed stays beside the file
  std::filesystem::remove(temporary_, ignored);
}

void AtomicFile::Commit() {
  stream_.close();
  if (!stream_)
    throw CommandError(path_.string() + ": could not be written whole; is the disk full?");
  std::error_code error;
  std::filesystem::rename(temporary_, path_, error);
  if (error) throw CommandError(path_.string() + ": cannot be replaced: " + error.message());
  temporary_.clear();
}

}  // namespace Orlix::Cli
