#pragma once

#include <string>
#include <vector>

#include "model/oxutil/CUnit.h"
#include "model/vlsol/diagrams/diagrams.h"
#include "plot/Canvas.h"
#include "plot/LabelPlacer.h"

namespace Orlix::Plot {

/// A point of a diagram's curves that has a name, with its number in the drawing and its table.
struct NamedPoint {
  const VlSol::DiagramPoint* point{};
  bool isDesign{};
  int number{};  ///< from 1: the design curve's first
};

/// The named points of both curves.
std::vector<NamedPoint> NamedPointsOf(const VlSol::Diagram& diagram);

/// What an axis of a diagram is of.
struct DiagramAxis {
  std::string name;  ///< "N", "Myy", "M", "curvature"
  Dimension dimension{};
};
/// The axes of a diagram, across and up.
DiagramAxis AcrossAxisOf(const VlSol::Diagram& diagram);
DiagramAxis UpAxisOf(const VlSol::Diagram& diagram);

/// The curves of a diagram with axes, named points and loads. Axial compression goes upwards; two
/// moments are to one scale unless one is much the larger.
class DiagramDrawing {
 public:
  DiagramDrawing(const VlSol::Diagram& diagram, const Data::CUnit& units, const Box& box);

  void Draw(Canvas& canvas) const;
  /// How many loads lie too far off to be drawn.
  int LoadsBeyond() const { return beyond_; }

 private:
  Spot At(Vec2<double> value) const {
    return {zero_.x + scale_.x * value.x, zero_.y + scale_.y * value.y};
  }
  bool IsShown(const VlSol::DiagramLoad& load) const;
  void DrawGrid(Canvas& canvas) const;
  void DrawAxis(Canvas& canvas, bool isUp) const;
  void DrawCurve(Canvas& canvas, const std::vector<VlSol::DiagramPoint>& points, const Pen& pen,
                 LabelPlacer& placer) const;
  void DrawNames(Canvas& canvas, const std::vector<NamedPoint>& named, LabelPlacer& placer) const;
  void DrawLoads(Canvas& canvas) const;
  /// The loads that may have a label: the governing one, then those of the largest utilisations.
  std::vector<const VlSol::DiagramLoad*> LabelledLoads() const;
  void DrawLoadLabel(Canvas& canvas, const VlSol::DiagramLoad& load, LabelPlacer& placer) const;

  const VlSol::Diagram& diagram_;
  const Data::CUnit& units_;
  Box plot_;              ///< the frame of the curves
  Spot zero_;             ///< where the value (0, 0) is
  Vec2<double> scale_{};  ///< mm per SI unit of the values; the second is negative where up is more
  Vec2<double> low_{};    ///< values at the frame's edges
  Vec2<double> high_{};
  int beyond_{};
};

}  // namespace Orlix::Plot
