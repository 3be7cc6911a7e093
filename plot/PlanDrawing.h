#pragma once

#include <vector>

#include "model/oxutil/CUnit.h"
#include "plot/Canvas.h"
#include "plot/SectionView.h"

namespace Orlix::Plot {

/// Where a section lies on the sheet.
struct PlanPlace {
  double scale{};  ///< [mm of the sheet per m]
  Spot origin;     ///< of the section's axes, which may lie off the sheet

  Spot At(Vec2<double> point) const {
    return {origin.x + scale * point.x, origin.y - scale * point.y};
  }
};

/// Direction across the neutral axis, along which strains change: a unit vector (y, z), upwards,
/// or to the right where it is level; (0, 1) for a plane without curvature.
Vec2<double> AcrossNeutralAxis(const SectionView& view);

/// The section as it is seen: outlines, compressed concrete, bars and their numbers, dimensions,
/// axes, neutral axis.
class PlanDrawing {
 public:
  /// @param box  of the sheet: drawing, dimensions and the list of the components
  /// @throws std::invalid_argument when the section has no extent
  PlanDrawing(const SectionView& view, const Data::CUnit& units, const Box& box);

  const PlanPlace& Place() const { return place_; }
  /// 5 says 1:5.
  double ScaleDenominator() const { return denominator_; }
  /// How many bars are drawn larger than they are, to be seen at all.
  bool HasEnlargedBars() const;

  /// @return whether all bars got their number
  bool Draw(Canvas& canvas) const;

 private:
  std::vector<Ring> RingsOf(const ComponentView& component) const;
  double RadiusOf(const BarView& bar) const;
  void DrawComponents(Canvas& canvas) const;
  void DrawBars(Canvas& canvas) const;
  void DrawList(Canvas& canvas) const;
  void DrawDimensions(Canvas& canvas) const;
  Box DrawNeutralAxis(Canvas& canvas) const;
  std::vector<Box> DrawAxes(Canvas& canvas) const;
  bool DrawNumbers(Canvas& canvas, const std::vector<Box>& blocked) const;

  const SectionView& view_;
  const Data::CUnit& units_;
  Box box_;
  Box drawing_;  ///< of box_: what the section may fill
  PlanPlace place_;
  Box extent_;  ///< of the section on the sheet
  double denominator_{};
  bool showsOrigin_{};
};

}  // namespace Orlix::Plot
