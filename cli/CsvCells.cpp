#include "cli/CsvCells.h"

#include <algorithm>

namespace Orlix::Cli {

namespace {

std::string_view Trimmed(std::string_view text) {
  const auto isSpace = [](char c) { return c == ' ' || c == '\t'; };
  while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && isSpace(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace

bool CsvCells::NextLine() {
  while (hasMore_) NextCell();
  while (!rest_.empty()) {
    const std::size_t text = std::min(rest_.find_first_not_of(" \t,;"), rest_.size());
    if (text < rest_.size() && rest_[text] != '\n' && rest_[text] != '\r') {
      line_ = lineAfter_;
      column_ = 0;
      hasMore_ = true;
      return true;
    }
    rest_.remove_prefix(text);
    TakeLineEnd();
  }
  return false;
}

bool CsvCells::NextCell() {
  if (!hasMore_) return false;
  ++column_;
  isWellFormed_ = true;
  // Where the separator is a tab it is no space before a cell.
  while (!rest_.empty() && rest_.front() != separator_ &&
         (rest_.front() == ' ' || rest_.front() == '\t')) {
    rest_.remove_prefix(1);
  }
  if (!rest_.empty() && rest_.front() == '"') {
    TakeQuoted();
  } else {
    TakePlain();
  }
  hasMore_ = !rest_.empty() && rest_.front() == separator_;
  if (hasMore_) {
    rest_.remove_prefix(1);
  } else {
    TakeLineEnd();
  }
  return true;
}

void CsvCells::TakePlain() {
  std::size_t end = 0;
  while (end < rest_.size() && rest_[end] != separator_ && rest_[end] != '\n' &&
         rest_[end] != '\r') {
    ++end;
  }
  cell_ = Trimmed(rest_.substr(0, end));
  rest_.remove_prefix(end);
}

void CsvCells::TakeQuoted() {
  unquoted_.clear();
  bool isClosed = false;
  while (!isClosed && !rest_.empty()) {
    rest_.remove_prefix(1);  // the mark that opens the cell, or the first of two that are one
    const std::size_t mark = std::min(rest_.find('"'), rest_.size());
    const std::string_view part = rest_.substr(0, mark);
    lineAfter_ += static_cast<std::size_t>(std::count(part.begin(), part.end(), '\n'));
    unquoted_.append(part);
    rest_.remove_prefix(mark);
    if (rest_.empty()) break;
    rest_.remove_prefix(1);
    isClosed = !rest_.starts_with('"');
    if (!isClosed) unquoted_ += '"';
  }
  TakePlain();
  isWellFormed_ = isClosed && cell_.empty();
  cell_ = unquoted_;
}

void CsvCells::TakeLineEnd() {
  if (rest_.empty()) return;
  rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : 1);
  ++lineAfter_;
}

}  // namespace Orlix::Cli
