#pragma once

#include <cstddef>
#include <string>

#include "model/oxdata/file_access/CFile.h"
#include "model/oxdata/file_access/orlix_header.h"

namespace Orlix::FileIO {

/// The lines of a data file behind its header, as UTF-8.
class CDataFile {
 public:
  /// Bytes that a file may have; what is larger is not read.
  static constexpr std::size_t kMaxBytes = std::size_t{128} << 20U;

  /// @param file    behind its header; outlives this object
  /// @param type    of the file; only `FileType::velmo` has lines
  /// @param isUtf8  otherwise the bytes are Latin-1
  CDataFile(CFile* file, FileType type, bool isUtf8);
  virtual ~CDataFile() = default;
  CDataFile(const CDataFile&) = delete;
  CDataFile& operator=(const CDataFile&) = delete;

  /// Reads the next line. A file larger than `kMaxBytes` becomes unreadable there.
  /// @param[out] line  the text; bytes that are no UTF-8 have become U+FFFD
  LineStatus NextLine(std::string& line);
  /// Number of the line that was read last; the header is line 1.
  std::size_t LineNumber() const { return lineNumber_; }
  /// Whether bytes of the line that was read last were replaced.
  bool HasReplacedBytes() const { return hasReplacedBytes_; }

 private:
  CFile* file_;
  FileType type_;
  bool isUtf8_;
  std::size_t lineNumber_{1};
  std::size_t bytes_{};
  bool hasReplacedBytes_{};
};

}  // namespace Orlix::FileIO
