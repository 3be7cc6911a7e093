#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "legacy/Context.h"
#include "legacy/RecordReader.h"
#include "model/oxdata/section/Reinforcement.h"

namespace Orlix::Legacy {

/// Whether a record gives bars: GRP_POINT, GRP_LINE, GRP_CIRCLE, GRP_ARC, GRP_SIDE, GRP_EDGE,
/// GRP_HOLE, GRP_OUTLINE.
bool IsBarGroup(std::string_view keyword);

/// Reads the groups of bars of a component. A point becomes a bar, every other group a bar
/// description that says the same, its numbers to the last digit.
class BarGroups {
 public:
  /// Both outlive this object. The reader stands at the record.
  BarGroups(RecordReader& record, Context& context) : record_(record), context_(context) {}

  /// Adds what the record gives.
  /// @pre IsBarGroup(record.Keyword())
  void Read(Data::Reinforcement& reinforcement);
  /// The attribute grade: index into the document's table; -1 without one, or after a problem.
  int Grade();

 private:
  std::wstring Bars();
  std::wstring Place();
  std::wstring Centre();
  std::wstring Point();
  std::optional<Data::Preload> Preload();
  void ReadPoint(Data::Reinforcement& reinforcement);
  void ReadDescription(Data::Reinforcement& reinforcement);

  RecordReader& record_;
  Context& context_;
};

}  // namespace Orlix::Legacy
