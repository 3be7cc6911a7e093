#include "dxf_import/DxfTokenizer.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <istream>
#include <limits>

#include "dxf_import/tag_numbers.h"

namespace Orlix::dxf_import {
namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 16;

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

const char* FindLineFeed(const char* begin, const char* end) {
  if (begin == end) return nullptr;
  return static_cast<const char*>(std::memchr(begin, '\n', static_cast<std::size_t>(end - begin)));
}

}  // namespace

std::optional<DxfTag> DxfTokenizer::Next() {
  std::string_view text;
  if (!ReadLine(text)) return std::nullopt;
  DxfTag tag;
  tag.line = line_;
  tag.code = ParseGroupCode(text);
  if (ReadLine(text)) tag.value = TrimWhitespace(text);
  return tag;
}

void DxfTokenizer::TrimCarriageReturn(std::string_view& line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
}

std::string_view DxfTokenizer::TrimWhitespace(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

int DxfTokenizer::ParseGroupCode(std::string_view line) {
  return ParseInteger(TrimWhitespace(line)).value_or(kNoGroupCode);
}

bool DxfTokenizer::ReadLine(std::string_view& line) {
  const char* lineFeed = FindLineFeed(at_, end_);
  while (lineFeed == nullptr && !isAtEnd_) {
    const std::ptrdiff_t searched = end_ - at_;
    if (ReadBlock()) lineFeed = FindLineFeed(at_ + searched, end_);
  }
  if (lineFeed == nullptr && at_ == end_) return false;
  const char* const lineEnd = lineFeed == nullptr ? end_ : lineFeed;
  line = std::string_view(at_, static_cast<std::size_t>(lineEnd - at_));
  at_ = lineFeed == nullptr ? end_ : lineFeed + 1;
  if (line_ < std::numeric_limits<int>::max()) ++line_;
  TrimCarriageReturn(line);
  return true;
}

// Moves the unfinished line into a new block and reads on behind it.
bool DxfTokenizer::ReadBlock() {
  const auto unfinished = static_cast<std::size_t>(end_ - at_);
  const std::size_t size = std::max(kBlockSize, 4 * unfinished);
  auto block = std::make_unique_for_overwrite<char[]>(size);
  std::copy(at_, end_, block.get());
  const bool nothingElse = !blocks_.empty() && blocks_.back().get() == at_;
  if (nothingElse) blocks_.pop_back();
  in_.read(block.get() + unfinished, static_cast<std::streamsize>(size - unfinished));
  const auto got = static_cast<std::size_t>(in_.gcount());
  isAtEnd_ = got < size - unfinished;
  at_ = block.get();
  end_ = at_ + unfinished + got;
  blocks_.push_back(std::move(block));
  return got > 0;
}

}  // namespace Orlix::dxf_import
