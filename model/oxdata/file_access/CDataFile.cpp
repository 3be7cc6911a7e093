#include "model/oxdata/file_access/CDataFile.h"

#include "model/oxutil/text.h"
#include "model/oxutil/utf.h"

namespace Orlix::FileIO {
namespace {

// The bytes of Latin-1 are the first characters of Unicode.
std::string FromLatin1(const std::string& bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) AppendUtf8(static_cast<unsigned char>(byte), text);
  return text;
}

}  // namespace

CDataFile::CDataFile(CFile* file, FileType type, bool isUtf8)
    : file_(file), type_(type), isUtf8_(isUtf8) {}

LineStatus CDataFile::NextLine(std::string& line) {
  line.clear();
  hasReplacedBytes_ = false;
  if (type_ != FileType::velmo) return LineStatus::end;
  std::string bytes;
  const LineStatus status = file_->ReadLine(bytes);
  if (status != LineStatus::line) return status;
  ++lineNumber_;
  bytes_ += bytes.size() + 1;
  if (bytes_ > kMaxBytes) return LineStatus::unreadable;
  line = isUtf8_ ? ValidUtf8(bytes) : FromLatin1(bytes);
  hasReplacedBytes_ = isUtf8_ && line != bytes;
  return status;
}

}  // namespace Orlix::FileIO
