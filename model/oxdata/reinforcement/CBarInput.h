#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/oxdata/reinforcement/CBarHelper.h"
#include "model/oxdata/reinforcement/CRebarHelper.h"
#include "model/oxdata/reinforcement/bar_info.h"
#include "model/oxutil/OrlixString.h"

namespace Orlix::Data {

/// Reads a bar description; docs/bar-descriptions.md has the grammar. Total for any text.
class CBarInput {
 public:
  /// More bars than this are a slip of the pen.
  static constexpr int kMostBars = 10000;

  /// @param metresPerUnit  what a length without a unit counts [m]; positive
  CBarInput(const OrlixString<wchar_t>& description, const Util::CRebarHelper& grades,
            const Util::CBarHelper& sizes, double metresPerUnit);

  bool IsDescriptionValid() const { return error_.empty(); }
  /// "column 3: expected ..., found ..."; columns count from one. Empty for a valid description.
  const std::wstring& Error() const { return error_; }

  /// What the description says; of one that is not valid what was read up to the error.
  const BarInfo& Info() const { return info_; }
  /// The layers from the face inwards; none when the description is not valid.
  std::vector<BarLayer> GenerateLayers() const;
  /// The description in the one form that says the same: lengths in mm, no default spelt out. Empty
  /// when it is not valid.
  std::wstring DescriptionFromInfo() const;
  /// Whether some length has no unit, so that the description depends on the document's.
  bool HasLengthWithoutUnit() const { return hasBareLength_; }

  /// The pre-stress; tension positive.
  const std::optional<Preload>& PreStress() const { return info_.preload; }
  void SetPreStress(const std::optional<Preload>& preload) { info_.preload = preload; }

  /// Whether the grade that the letter of the first size stands for goes before the grade that the
  /// bars had; off by default.
  void SetUpdateGrade(bool update) { updateGrade_ = update; }
  /// The grade of the bars: the one that the text names; else `given`, and without it the one that
  /// the letter stands for.
  /// @param given  index into the document's table; -1: none
  /// @return -1 when there is none
  int Grade(int given) const;

 private:
  BarInfo info_;
  std::wstring error_;
  bool hasBareLength_{};
  bool updateGrade_{};
  int namedGrade_{-1};
  int letterGrade_{-1};
};

/// A description with a unit for the lengths that have none: "B16@150" gives "B16@150 [mm]". One
/// that needs no unit, or is not valid in it, comes back as it is.
std::wstring DescriptionWithUnit(const std::wstring& description, const std::wstring& unit,
                                 const Util::CRebarHelper& grades, const Util::CBarHelper& sizes);

}  // namespace Orlix::Data
