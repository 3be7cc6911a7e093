#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "model/oxutil/json_fwd.h"

namespace Orlix::Data {

/// Something in a JSON value that could not be taken over.
struct ReadProblem {
  std::string path;      ///< where, for instance "sections[1].components[2].grade"; numbers from 1
  std::string found;     ///< what stands there
  std::string expected;  ///< what should

  friend bool operator==(const ReadProblem&, const ReadProblem&) = default;
};

/// Place of a value in a document: a chain from the value up to the root, which becomes text only
/// when there is something to report. The parent must outlive the path.
struct JsonPath {
  const JsonPath* parent{};  ///< null for the root
  std::string_view member;   ///< name in the parent; empty for an element of an array
  std::size_t number{};      ///< number in the parent's array, from one

  /// "sections[1].name"; "document" for the root.
  std::string Text() const;
  JsonPath Member(std::string_view name) const { return {this, name, 0}; }
  /// @param index  from zero
  JsonPath Element(std::size_t index) const { return {this, {}, index + 1}; }
};

/// The problems of one reading. A hostile text can hold millions of them, so that only the first
/// thousand are kept, and a last line that says so.
class ProblemList {
 public:
  static constexpr std::size_t kMax = 1000;

  /// @param found  the value that stands there; null for an absent one
  void Add(const JsonPath& path, const Util::JsonValue* found, std::string_view expected);
  void AddText(const JsonPath& path, std::string_view found, std::string_view expected);

  bool IsEmpty() const { return problems_.empty(); }
  const std::vector<ReadProblem>& Problems() const { return problems_; }

 private:
  std::vector<ReadProblem> problems_;
};

/// What a value is, in a few words: "nothing", "null", "true", "3.5", "\"text\"", "an array of 3",
/// "an object".
std::string DescribeJson(const Util::JsonValue* value);

}  // namespace Orlix::Data
