#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "legacy/ModuleText.h"
#include "legacy/Notes.h"

namespace Orlix::Legacy {

/// Which numbers a field may have; all are finite.
enum class Range { any, positive, notNegative, zeroToOne };

/// Texts of a field and what they stand for.
template <class T>
using Words = std::span<const std::pair<std::string_view, T>>;

/// Reads the records of a module, one a line: a keyword, then fields in order, then attributes
/// `key=value` in any order. What is wrong is a problem of the module and gives an empty value, so
/// that the lines after it are looked at, too. Total for any text.
class RecordReader {
 public:
  /// @param isNewer  the file's version is newer than the program: what is not known is left out
  ///                 with a warning, otherwise it is a problem
  /// Everything given outlives the reader.
  RecordReader(std::string_view module, const ModuleText& text, bool isNewer, Notes& notes);

  /// Goes to the next record, after a look at what was not asked of this one.
  /// @return false when there is none.
  bool Next();
  std::string_view Keyword() const { return keyword_; }
  /// Number of the line, from one.
  std::size_t Line() const { return line_; }
  /// Whether nothing was wrong with this record up to now.
  bool IsSound() const { return isSound_; }

  /// Whether the keyword is not yet among those seen, to which it is added; a problem otherwise.
  bool IsFirst(std::set<std::string, std::less<>>& seen);

  /// The next field. Missing, it is a problem and empty. @param what  what the field is, for
  /// problems
  std::string Text(std::string_view what);
  /// The next field, if there is one.
  std::optional<std::string> OptionalText();
  double Number(std::string_view what, Range range = Range::any);
  /// A whole number from one to `last`, less one; -1 after a problem.
  int Index(std::string_view what, int last);
  bool HasField() const { return nextField_ < fields_.size(); }

  bool HasAttribute(std::string_view key) const;
  std::optional<std::string> TextAttribute(std::string_view key);
  std::optional<double> NumberAttribute(std::string_view key, Range range = Range::any);

  /// The next field as one of some words; nothing after a problem.
  template <class T>
  std::optional<T> Word(std::string_view what, Words<T> words) {
    return Find(words, what, Text(what));
  }
  template <class T>
  std::optional<T> WordAttribute(std::string_view key, Words<T> words) {
    const auto text = TextAttribute(key);
    return text ? Find(words, key, *text) : std::nullopt;
  }

  /// The record is of no kind that the module knows.
  void ReportUnknown();
  /// Something is wrong with this record.
  void Problem(std::string_view text);
  void Warning(std::string_view text);

 private:
  struct Field {
    std::string text;
    std::string key;  // of an attribute
    bool isAsked{};
  };

  template <class T>
  std::optional<T> Find(Words<T> words, std::string_view what, const std::string& text) {
    std::string expected;
    for (const auto& [word, value] : words) {
      if (word == text) return value;
      expected.append(expected.empty() ? "" : ", ").append(word);
    }
    if (isSound_) Mismatch(what, text, "one of " + expected);
    return std::nullopt;
  }
  bool Split(std::string_view line);
  std::optional<double> ToNumber(std::string_view what, const std::string& text, Range range);
  void Mismatch(std::string_view what, std::string_view found, std::string_view expected);
  void Finish();
  void LeaveOut(const std::string& text);
  Field* FindAttribute(std::string_view key);

  std::string_view module_;
  std::string_view rest_;
  std::size_t line_;
  bool isNewer_;
  Notes& notes_;
  std::string keyword_;
  std::vector<Field> fields_;
  std::vector<Field> attributes_;
  std::size_t nextField_{};
  bool isSound_{true};
};

}  // namespace Orlix::Legacy
