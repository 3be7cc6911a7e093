#include "model/oxdata/file_access/CFile.h"

namespace Orlix::FileIO {

CFile::CFile(const std::filesystem::path& path)
    : stream_(path, std::ios::binary), buffer_(kMaxLine + 2) {}

LineStatus CFile::ReadLine(std::string& line) {
  line.clear();
  if (isDone_) return LineStatus::end;
  // Room for one byte more than a line may have, since the stream fails a line that fills it.
  stream_.getline(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
  const auto count = static_cast<std::size_t>(stream_.gcount());
  isDone_ = !stream_.good();
  if (stream_.bad() || !stream_.is_open()) return LineStatus::unreadable;
  if (count == 0) return LineStatus::end;
  // The line feed counts among the bytes; only a line that the end of the file cuts has none.
  const bool isCut = stream_.eof() || stream_.fail();
  line.assign(buffer_.data(), isCut ? count : count - 1);
  if (line.size() > kMaxLine) {
    line.resize(kMaxLine);
    isDone_ = true;
    return LineStatus::tooLong;
  }
  if (line.ends_with('\r')) line.pop_back();
  return LineStatus::line;
}

}  // namespace Orlix::FileIO
