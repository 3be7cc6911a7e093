#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "legacy/LegacyNote.h"

namespace Orlix::Legacy {

/// What a reading found wrong, and which modules that makes unreadable. A hostile file can be wrong
/// in every line, so that only the first thousand problems and warnings are kept.
class Notes {
 public:
  static constexpr std::size_t kMax = 1000;

  /// Makes a module unreadable. @param line  counted from one; 0: no line in particular
  void AddProblem(std::string_view module, std::size_t line, std::string_view text);
  /// Something that was left out or replaced.
  void AddWarning(std::string_view module, std::size_t line, std::string_view text);

  bool HasFailed(std::string_view module) const { return failed_.contains(module); }
  bool HasFailures() const { return !failed_.empty(); }
  const std::set<std::string, std::less<>>& FailedModules() const { return failed_; }
  const std::vector<LegacyNote>& Problems() const { return problems_; }
  const std::vector<LegacyNote>& Warnings() const { return warnings_; }

 private:
  std::set<std::string, std::less<>> failed_;
  std::vector<LegacyNote> problems_;
  std::vector<LegacyNote> warnings_;
};

}  // namespace Orlix::Legacy
