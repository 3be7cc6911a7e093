#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "model/oxutil/Enumerations.h"

namespace Orlix::Data {

/// Takes numbers, words and signs from the front of a text. What does not fit is left there.
class BarScanner {
 public:
  /// @param text  must outlive the scanner
  explicit BarScanner(std::wstring_view text) : text_(text) {}

  void SkipSpaces();
  bool IsAtEnd() const { return at_ == text_.size(); }
  std::size_t Position() const { return at_; }
  void Return(std::size_t position) { at_ = position; }
  /// The next character; 0 at the end.
  wchar_t Next() const { return IsAtEnd() ? L'\0' : text_[at_]; }

  /// Takes a character that comes next.
  bool Take(wchar_t sign);
  /// Takes a word that comes next, spaces before it too, small or capital letters alike.
  bool TakeWord(std::wstring_view word);
  /// Takes digits alone, as a number of 1 to `most`.
  std::optional<int> TakeInteger(int most);
  /// Takes a decimal number without exponent, with or without sign.
  std::optional<double> TakeNumber();
  /// Takes a text that runs to the next space or bracket, or one in quotation marks; nothing when
  /// there is none or the second quotation mark is missing.
  std::optional<std::wstring> TakeName();
  /// Takes a unit of a dimension, spaces before it too, and returns how many of it make one of SI.
  std::optional<double> TakeUnit(Dimension dimension);

  /// What stands at a position, for messages: a few characters in quotation marks, or "the end".
  std::wstring Found(std::size_t position) const;

 private:
  std::size_t EndOfWord(std::size_t from) const;

  std::wstring_view text_;
  std::size_t at_{};
};

}  // namespace Orlix::Data
