#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/oxnumeric/Vec.h"
#include "model/oxutil/OrlixString.h"
#include "model/oxutil/json_fwd.h"
#include "model/vldata/json/ProblemList.h"

namespace Orlix::Data {

/// Which numbers a member may have; all are finite.
enum class NumberRange { any, positive, notNegative, zeroToOne };

/// Reads the members of a JSON object by name and type. What is absent is no value and no problem;
/// what has the wrong type or size is no value and a problem. Total for any JSON value.
///
/// Names are literals or outlive the reader.
class ObjectReader {
 public:
  /// A value that is no object is a problem and has no members.
  ObjectReader(const Util::JsonValue& value, const JsonPath& path, ProblemList& problems);

  /// A member of any type; null when absent.
  const Util::JsonValue* Find(std::string_view name);
  std::optional<double> Number(std::string_view name, NumberRange range = NumberRange::any);
  std::optional<bool> Flag(std::string_view name);
  /// Text as valid UTF-8.
  std::optional<std::string> Text(std::string_view name);
  std::optional<OrlixString<wchar_t>> WideText(std::string_view name);
  /// Text that must be there; empty after a problem.
  std::string RequiredText(std::string_view name, std::string_view expected);
  /// Two numbers in an array.
  std::optional<Vec2<double>> Pair(std::string_view name);
  /// The member when it is an array; null when absent or something else.
  const Util::JsonValue* Array(std::string_view name);
  /// The member when it is an object; null when absent or something else.
  const Util::JsonValue* Object(std::string_view name);
  /// The value of the choice whose name the member's text is.
  template <class T>
  std::optional<T> Choice(std::string_view name,
                          std::span<const std::pair<std::string_view, T>> choices) {
    const Util::JsonValue* value = Find(name);
    if (value == nullptr) return std::nullopt;
    std::string expected;
    for (const auto& [text, choice] : choices) {
      if (IsText(*value, text)) return choice;
      expected += (expected.empty() ? "\"" : ", \"") + std::string(text) + "\"";
    }
    problems_.Add(path_.Member(name), value, "one of " + expected);
    return std::nullopt;
  }

  /// Reports a member as it stands.
  void Report(std::string_view name, std::string_view expected);
  /// Reports the members that were never asked for and those that are there twice; call it last.
  void ReportUnknown();

  JsonPath PathOf(std::string_view name) const { return path_.Member(name); }
  const JsonPath& Path() const { return path_; }
  ProblemList& Problems() { return problems_; }

 private:
  static bool IsText(const Util::JsonValue& value, std::string_view text);

  const Util::JsonValue* object_;  // null when the value is no object
  const JsonPath& path_;
  ProblemList& problems_;
  std::vector<std::string_view> asked_;
  std::size_t found_{};  // members asked for that are there
};

/// Two finite numbers in an array; a problem and nothing for any other value.
std::optional<Vec2<double>> PairFrom(const Util::JsonValue& value, const JsonPath& path,
                                     ProblemList& problems);

}  // namespace Orlix::Data
