#include "model/vldata/document/AnalysisQueue.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <tuple>

namespace Orlix::Data {
namespace {

bool IsSameTask(const CaseRange& a, const CaseRange& b) {
  return a.iSec == b.iSec && a.iTask == b.iTask;
}

// The first range of the task, or behind it, that ends at `iCase` or later.
template <class Queue>
auto EndingFrom(Queue& ranges, int iSec, int iTask, int iCase) {
  return std::partition_point(ranges.begin(), ranges.end(), [&](const CaseRange& r) {
    return std::tie(r.iSec, r.iTask, r.end) < std::tie(iSec, iTask, iCase);
  });
}

template <class Queue>
auto TaskBegin(Queue& ranges, int iSec, int iTask) {
  return EndingFrom(ranges, iSec, iTask, std::numeric_limits<int>::min());
}

template <class Iterator>
std::int64_t Count(Iterator begin, Iterator end) {
  return std::accumulate(begin, end, std::int64_t{0}, [](std::int64_t sum, const CaseRange& r) {
    return sum + (r.end - r.first);
  });
}

}  // namespace

std::int64_t AnalysisQueue::NumCases() const { return Count(ranges_.begin(), ranges_.end()); }

std::int64_t AnalysisQueue::NumCases(int iSec, int iTask) const {
  return Count(TaskBegin(ranges_, iSec, iTask), TaskBegin(ranges_, iSec, iTask + 1));
}

bool AnalysisQueue::Contains(int iSec, int iTask, int iCase) const {
  auto at = EndingFrom(ranges_, iSec, iTask, iCase);
  if (at != ranges_.end() && at->end == iCase) ++at;
  return at != ranges_.end() && IsSameTask(*at, {iSec, iTask, 0, 0}) && at->first <= iCase;
}

std::optional<CaseRange> AnalysisQueue::Next() const {
  if (IsPaused() || ranges_.empty()) return std::nullopt;
  return ranges_.front();
}

void AnalysisQueue::Put(CaseRange cases) {
  if (cases.first >= cases.end) return;
  // Ranges that overlap or touch become one.
  const auto begin = EndingFrom(ranges_, cases.iSec, cases.iTask, cases.first);
  auto end = begin;
  for (; end != ranges_.end() && IsSameTask(*end, cases) && end->first <= cases.end; ++end) {
    cases.first = std::min(cases.first, end->first);
    cases.end = std::max(cases.end, end->end);
  }
  if (begin == end) {
    ranges_.insert(begin, cases);
  } else {
    *begin = cases;
    ranges_.erase(begin + 1, end);
  }
}

void AnalysisQueue::Remove(const CaseRange& cases) {
  if (cases.first >= cases.end) return;
  const auto begin = EndingFrom(ranges_, cases.iSec, cases.iTask, cases.first);
  auto end = begin;
  std::vector<CaseRange> left;  // at most a piece before and a piece behind
  for (; end != ranges_.end() && IsSameTask(*end, cases) && end->first < cases.end; ++end) {
    CaseRange before = *end;
    before.end = std::min(before.end, cases.first);
    if (before.first < before.end) left.push_back(before);
    CaseRange behind = *end;
    behind.first = std::max(behind.first, cases.end);
    if (behind.first < behind.end) left.push_back(behind);
  }
  ranges_.insert(ranges_.erase(begin, end), left.begin(), left.end());
}

void AnalysisQueue::RemoveTask(int iSec, int iTask, bool andLater) {
  const int endTask = andLater ? std::numeric_limits<int>::max() : iTask + 1;
  ranges_.erase(TaskBegin(ranges_, iSec, iTask), TaskBegin(ranges_, iSec, endTask));
}

void AnalysisQueue::RemoveSectionsFrom(int iSec) {
  ranges_.erase(TaskBegin(ranges_, iSec, 0), ranges_.end());
}

}  // namespace Orlix::Data
