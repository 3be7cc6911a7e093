#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace Orlix::FileIO {

/// What reading a line came to.
enum class LineStatus {
  line,        ///< a line was read
  end,         ///< there are no more lines
  tooLong,     ///< the line exceeds the limit; what fits was read, the rest is lost
  unreadable,  ///< the file is no file to read, or the disk failed
};

/// A file open for reading, line by line.
class CFile {
 public:
  /// Bytes that a line may have.
  static constexpr std::size_t kMaxLine = 65536;

  /// Opens a file; `IsOpen` says whether that went well.
  explicit CFile(const std::filesystem::path& path);

  bool IsOpen() const { return stream_.is_open(); }
  /// Reads bytes up to the next line feed, which is dropped, as is a carriage return before it. A
  /// last line without a line feed counts. After anything but a line the file is at its end.
  /// @param[out] line  what was read; empty at the end
  LineStatus ReadLine(std::string& line);

 private:
  std::ifstream stream_;
  std::vector<char> buffer_;
  bool isDone_{};
};

}  // namespace Orlix::FileIO
