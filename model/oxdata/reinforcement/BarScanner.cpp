#include "model/oxdata/reinforcement/BarScanner.h"

#include <algorithm>
#include <string>

#include "model/oxutil/CUnit.h"
#include "model/oxutil/OrlixString.h"
#include "model/oxutil/ParseDouble.h"

namespace Orlix::Data {
namespace {

// By hand, as those of the library depend on the process locale.
bool IsSpace(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\n' || c == L'\r'; }

bool IsDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

bool IsLetter(wchar_t c) {
  return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || c > L'\x7F';
}

wchar_t Small(wchar_t c) {
  return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

bool IsSame(wchar_t a, wchar_t b) { return Small(a) == Small(b); }

// Characters of unit texts besides letters.
bool IsOfUnit(wchar_t c) { return IsLetter(c) || c == L'/' || c == L'%' || c == L'2'; }

}  // namespace

void BarScanner::SkipSpaces() {
  while (!IsAtEnd() && IsSpace(text_[at_])) ++at_;
}

bool BarScanner::Take(wchar_t sign) {
  if (Next() != sign || IsAtEnd()) return false;
  ++at_;
  return true;
}

std::size_t BarScanner::EndOfWord(std::size_t from) const {
  while (from < text_.size() && IsLetter(text_[from])) ++from;
  return from;
}

bool BarScanner::TakeWord(std::wstring_view word) {
  const std::size_t before = at_;
  SkipSpaces();
  const std::size_t end = EndOfWord(at_);
  const std::wstring_view there = text_.substr(at_, end - at_);
  if (std::equal(there.begin(), there.end(), word.begin(), word.end(), IsSame)) {
    at_ = end;
    return true;
  }
  at_ = before;
  return false;
}

std::optional<int> BarScanner::TakeInteger(int most) {
  std::size_t end = at_;
  int value = 0;
  while (end < text_.size() && IsDigit(text_[end])) {
    if (value <= most) value = 10 * value + static_cast<int>(text_[end] - L'0');
    ++end;
  }
  if (end == at_ || value < 1 || value > most) return std::nullopt;
  at_ = end;
  return value;
}

std::optional<double> BarScanner::TakeNumber() {
  std::size_t end = at_;
  if (end < text_.size() && (text_[end] == L'-' || text_[end] == L'+')) ++end;
  while (end < text_.size() && (IsDigit(text_[end]) || text_[end] == L'.')) ++end;
  const std::wstring_view there = text_.substr(at_, end - at_);
  std::string narrow;
  for (const wchar_t c : there) narrow.push_back(static_cast<char>(c));  // digits and signs alone
  const std::optional<double> number = ParseDouble(narrow);
  if (number) at_ = end;
  return number;
}

std::optional<std::wstring> BarScanner::TakeName() {
  if (Next() == L'"') {
    const std::size_t end = text_.find(L'"', at_ + 1);
    if (end == std::wstring_view::npos || end == at_ + 1) return std::nullopt;
    std::wstring name(text_.substr(at_ + 1, end - at_ - 1));
    at_ = end + 1;
    return name;
  }
  std::size_t end = at_;
  while (end < text_.size() && !IsSpace(text_[end]) && text_[end] != L'[') ++end;
  if (end == at_) return std::nullopt;
  std::wstring name(text_.substr(at_, end - at_));
  at_ = end;
  return name;
}

std::optional<double> BarScanner::TakeUnit(Dimension dimension) {
  const std::size_t before = at_;
  SkipSpaces();
  std::size_t end = at_;
  while (end < text_.size() && IsOfUnit(text_[end])) ++end;
  std::wstring unit(text_.substr(at_, end - at_));
  // No unit is that long.
  constexpr std::size_t kLongest = 8;
  if (unit.size() > 1 && unit.size() <= kLongest && unit.back() == L'2') unit.back() = L'\u00B2';
  CUnit units;
  if (!unit.empty() && unit.size() <= kLongest &&
      units.SetUnitString(dimension, OrlixString<wchar_t>(std::wstring_view(unit)))) {
    at_ = end;
    return units.Conversion(dimension);
  }
  at_ = before;
  return std::nullopt;
}

std::wstring BarScanner::Found(std::size_t position) const {
  constexpr std::size_t kMost = 12;
  if (position >= text_.size()) return L"the end";
  std::size_t end = position + 1;
  const wchar_t first = text_[position];
  while (end < text_.size() && !IsSpace(text_[end]) && end - position < kMost &&
         (IsDigit(first) ? IsDigit(text_[end]) : IsLetter(first) && IsLetter(text_[end]))) {
    ++end;
  }
  return L"\"" + std::wstring(text_.substr(position, end - position)) + L"\"";
}

}  // namespace Orlix::Data
