#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace Orlix::Data {

/// Neighbouring cases of one task; indices count from zero.
struct CaseRange {
  int iSec{};
  int iTask{};
  int first{};
  int end{};  ///< behind the last

  friend bool operator==(const CaseRange&, const CaseRange&) = default;
};

/// The cases that wait for a solution, in the order of sections, tasks and cases. Neighbours are
/// kept as one range: a task without results is one entry however many cases it has.
class AnalysisQueue {
 public:
  /// Ordered, apart from each other, none of them empty.
  const std::vector<CaseRange>& Ranges() const { return ranges_; }
  std::int64_t NumCases() const;
  std::int64_t NumCases(int iSec, int iTask) const;
  bool Contains(int iSec, int iTask, int iCase) const;
  /// What to solve next; nothing when no case waits or while a pauser holds.
  std::optional<CaseRange> Next() const;
  /// Whether an `AnalysisCasePauser` holds.
  bool IsPaused() const { return pauses_.count > 0; }

  /// Adds cases; those that wait already stay. An empty range adds none.
  void Put(CaseRange cases);
  /// Removes cases that wait no longer. They may be there in part or not at all.
  void Remove(const CaseRange& cases);
  /// Removes the cases of a task; those of later tasks of its section, too, when asked to.
  void RemoveTask(int iSec, int iTask, bool andLater);
  /// Removes the cases of a section and of all behind it.
  void RemoveSectionsFrom(int iSec);

 private:
  friend class AnalysisCasePauser;

  // Belongs to the place and not to the value: a document that is replaced stays paused, a copy of
  // one is not.
  struct PauseCount {
    PauseCount() = default;
    PauseCount(const PauseCount&) noexcept {}
    PauseCount& operator=(const PauseCount&) noexcept { return *this; }
    int count{};
  };

  std::vector<CaseRange> ranges_;
  PauseCount pauses_;
};

}  // namespace Orlix::Data
