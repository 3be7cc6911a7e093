#pragma once

#include "model/oxnumeric/Vec.h"
#include "model/oxutil/Enumerations.h"

namespace Orlix::Data {

/// What a bar was stressed to before the section was loaded; tension positive.
struct Preload {
  PreloadKind kind{PreloadKind::strain};
  double value{};  ///< stress [Pa], force [N] or strain, by kind
  friend bool operator==(const Preload&, const Preload&) = default;
};

/// A reinforcement bar, lumped at its centre.
class CBar {
 public:
  /// @param position  (y, z) [m]
  /// @param diameter  [m]; 0 when only the area is known
  /// @param area      nominal area [m²]
  /// @param grade     index into the document's reinforcement table; -1: none
  CBar(Vec2<double> position, double diameter, double area, int grade, Preload preload = {});

  Vec2<double> Position() const { return position_; }
  double Diameter() const { return diameter_; }
  double Area() const { return area_; }
  int Grade() const { return grade_; }
  void SetGrade(int grade) { grade_ = grade; }
  Preload GetPreload() const { return preload_; }
  void SetPreload(Preload preload) { preload_ = preload; }

  /// Index of the description that made the bar among those of its component; -1: given as a point.
  int Description() const { return description_; }
  void SetDescription(int description) { description_ = description; }

  friend bool operator==(const CBar&, const CBar&) = default;

 private:
  Vec2<double> position_;
  double diameter_;
  double area_;
  int grade_;
  Preload preload_;
  int description_{-1};
};

}  // namespace Orlix::Data
