#include "model/oxdata/file_access/orlix_header.h"

#include <charconv>
#include <cstddef>
#include <string_view>
#include <vector>

namespace Orlix::FileIO {
namespace {

constexpr std::string_view kDosSignature = "ORLIX\x1A";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kMaxFields = 8;

std::vector<std::string_view> Fields(std::string_view line) {
  constexpr std::string_view kBlanks = " \t";
  std::vector<std::string_view> fields;
  std::size_t begin = line.find_first_not_of(kBlanks);
  while (begin != std::string_view::npos && fields.size() < kMaxFields) {
    const std::size_t end = line.find_first_of(kBlanks, begin);
    fields.push_back(line.substr(begin, end - begin));
    begin = line.find_first_not_of(kBlanks, end);
  }
  return fields;
}

// The digits of a version number, up to four.
bool ReadDigits(std::string_view text, int& number) {
  constexpr std::size_t kMaxDigits = 4;
  if (text.empty() || text.size() > kMaxDigits ||
      text.find_first_not_of("0123456789") != std::string_view::npos) {
    return false;
  }
  std::from_chars(text.data(), text.data() + text.size(), number);
  return true;
}

bool ReadVersion(std::string_view text, OrlixHeader& header) {
  const std::size_t point = text.find('.');
  return point != std::string_view::npos &&
         ReadDigits(text.substr(0, point), header.majorVersion) &&
         ReadDigits(text.substr(point + 1), header.minorVersion);
}

}  // namespace

OrlixHeader ReadOrlixHeader(CFile& file) {
  std::string text;
  const LineStatus status = file.ReadLine(text);
  std::string_view line = text;
  OrlixHeader header;
  if (line.starts_with(kDosSignature)) {
    header.type = FileType::dos;
    return header;
  }
  if (status != LineStatus::line) return header;
  const bool hasMark = line.starts_with(kByteOrderMark);
  if (hasMark) line.remove_prefix(kByteOrderMark.size());
  const std::vector<std::string_view> fields = Fields(line);
  if (fields.empty() || fields[0] != "ORLIX") return header;
  if (fields.size() != 3 && fields.size() != 4) return header;
  header.isUtf8 = fields.size() == 4 && fields[3] == "UTF-8";
  const bool isLatin1 = fields.size() == 3 || fields[3] == "LATIN-1";
  const bool hasEncoding = header.isUtf8 || (isLatin1 && !hasMark);
  if (!ReadVersion(fields[2], header) || !hasEncoding) return header;
  header.type = fields[1] == "VELMO" ? FileType::velmo : FileType::other;
  return header;
}

}  // namespace Orlix::FileIO
