#pragma once

#include <string>
#include <vector>

#include "model/oxdata/codes/CConcCode.h"
#include "model/oxdata/reinforcement/CBarHelper.h"
#include "model/oxdata/reinforcement/CRebarHelper.h"
#include "model/oxdata/section/CSection.h"
#include "model/oxutil/CUnit.h"

namespace Orlix::Velmo {

/// What is wrong with a bar description; indices from zero.
struct RebarProblem {
  int component{};
  int description{};
  std::string text;  ///< in words, without the place
};

/// Positions the bars that descriptions stand for.
class CPositionRebar {
 public:
  /// @param grades, sizes  must outlive this object
  /// @param code           says nothing yet: the gap between layers is one that every code allows
  /// @param units          lengths without a unit are in that of section dimensions
  CPositionRebar(const Util::CRebarHelper& grades, const Util::CBarHelper& sizes,
                 const Data::Design::CConcCode& code, const Data::CUnit& units);

  /// Replaces the bars that descriptions made; those given as points stay and come first. When one
  /// of the section's descriptions cannot be read or placed nothing changes at all.
  void GenerateRebar(Data::CSection& section);
  /// What was wrong in the last run: descriptions that cannot be read or placed, and those whose
  /// bars are placed but have less than their cover.
  const std::vector<RebarProblem>& Problems() const { return problems_; }

  /// As `CBarInput::SetUpdateGrade`; the grades found are kept with the descriptions.
  void SetUpdateGrade(bool update) { updateGrade_ = update; }

 private:
  const Util::CRebarHelper& grades_;
  const Util::CBarHelper& sizes_;
  double metresPerUnit_;
  bool updateGrade_{};
  std::vector<RebarProblem> problems_;
};

}  // namespace Orlix::Velmo
