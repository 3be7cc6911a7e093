#pragma once

#include <string>
#include <string_view>

#include "model/oxutil/CUnit.h"
#include "model/oxutil/OrlixString.h"
#include "model/vldata/records/Deformation.h"
#include "model/vldata/records/Stiffness.h"
#include "model/vldata/records/VelmoLoad.h"

namespace Orlix::Velmo {

/// One line of a table after the other, in a buffer that is used again: fields with commas between
/// them, numbers in display units as StringFrom writes them. Every `Add` takes SI values.
class CsvRow {
 public:
  /// @param units  display units
  explicit CsvRow(const Data::CUnit& units);

  /// Starts a line.
  /// @param commonData  what it begins with; ends in a comma
  CsvRow& Start(std::string_view commonData);

  /// A number without a unit; "inf", "-inf" or "nan" when it is not finite.
  CsvRow& AddNumber(double value);
  /// A share as a percentage.
  CsvRow& AddPercentage(double share) { return AddNumber(share * 100.0); }
  CsvRow& AddInteger(int value);
  /// N, Myy, Mzz.
  CsvRow& AddLoad(const Data::Velmo9::VelmoLoad& load);
  /// eps0, kyy, kzz.
  CsvRow& AddDeformation(const Data::Velmo9::Deformation& deformation);
  /// Besides the plane the angle of its neutral axis [degrees] and its offset. Without curvature
  /// the angle is 0 and the offset what the division by zero gives.
  CsvRow& AddDeformationWithNeutralAxis(const Data::Velmo9::Deformation& deformation);
  /// Besides plane and neutral axis the interpolation factor.
  CsvRow& AddInterpolatedStrain(const Data::Velmo9::Deformation& deformation, double zeta);
  /// EA, EIyy, EIzz.
  CsvRow& AddStiffness(const Data::Velmo9::Stiffness& stiffness);

  // Of points and bars; "-" for what is not calculated.
  CsvRow& AddPosition(Vec2<double> position);
  CsvRow& AddStressAndStrain(double stress, double strain);
  CsvRow& AddForce(double force);
  CsvRow& AddLength(double length);
  /// Of a number from zero, from one; "-" for a negative one.
  CsvRow& AddNumberFromOne(int index);
  CsvRow& AddStrain(double strain);
  /// In quotes where it has a comma or a quote; control characters become blanks.
  CsvRow& AddText(const OrlixString<wchar_t>& text);

  const std::string& Line() const { return line_; }

 private:
  void Separate();
  CsvRow& AddCalculated(double value);

  double force_;
  double length_;
  double stress_;
  double strain_;
  double moment_;
  double bendingStiffness_;
  double curvature_;
  std::string line_;
  bool isFirst_{true};
};

}  // namespace Orlix::Velmo
