#pragma once

#include <string>
#include <vector>

#include "model/oxutil/CUnit.h"
#include "plot/Canvas.h"
#include "plot/PlanDrawing.h"
#include "plot/SectionView.h"

namespace Orlix::Plot {

/// Strains and stresses of a state beside the section, over the distance across the neutral axis:
/// the strain line, the stresses of the concrete, those of bars and steel with the bars' forces.
/// Where strains change along z, and the section is not very flat, the levels are those of the
/// section beside.
class ProfileDrawing {
 public:
  /// @param view   with a state
  /// @param plan   where the section lies, for the levels
  ProfileDrawing(const SectionView& view, const Data::CUnit& units, const PlanPlace& plan,
                 const Box& box);

  void Draw(Canvas& canvas) const;

 private:
  static constexpr double kHeading = 9.0;  ///< above the panels [mm]

  /// A panel: where values go to the right of it and distances up.
  struct Panel {
    Box box;         ///< of the plot itself
    double zero{};   ///< where the value 0 is [mm]
    double scale{};  ///< mm per unit of the value; 0: nothing to show
    double X(double value) const { return zero + scale * value; }
  };
  /// A value that is written beside its spot.
  struct Value {
    Spot spot;
    std::string text;
  };

  /// Components of one plane: their strains are one line.
  struct StrainLine {
    const ComponentView* component;  ///< the first of them
    Vec2<double> range;              ///< least and largest distance
  };

  double Y(double distance) const { return middle_ - scale_ * distance; }
  double DistanceOf(Vec2<double> point) const { return Dot(across_, point); }
  /// Least and largest distance of a component.
  Vec2<double> RangeOf(const ComponentView& component) const;
  /// Whether the strains of a component depend on the distance alone.
  bool IsAlong(const ComponentView& component) const;
  std::vector<StrainLine> LinesOfStrain() const;
  double StrainAt(const ComponentView& component, double distance) const;
  std::vector<Spot> StressCurve(const ComponentView& component, const Panel& panel) const;
  Panel PanelOf(Box box, double low, double high) const;

  void DrawPanel(Canvas& canvas, const Panel& panel, const std::string& heading,
                 double factor) const;
  void DrawLevels(Canvas& canvas) const;
  void DrawStrains(Canvas& canvas, const Box& box) const;
  void DrawConcrete(Canvas& canvas, const Box& box) const;
  void DrawSteel(Canvas& canvas, const Box& box) const;
  void DrawBlock(Canvas& canvas, const Panel& panel, const std::vector<Spot>& curve,
                 double hatchAngle) const;
  void DrawValues(Canvas& canvas, const Box& panel, const std::vector<std::vector<Spot>>& curves,
                  const std::vector<Value>& values) const;
  void DrawBarTable(Canvas& canvas, const Panel& panel, const Box& box) const;

  const SectionView& view_;
  const Data::CUnit& units_;
  Box box_;
  Vec2<double> across_;
  double scale_{};   ///< [mm per m]
  double middle_{};  ///< where the distance 0 is [mm]
  double low_{};     ///< distances that the included components span [m]
  double high_{};
};

}  // namespace Orlix::Plot
