#pragma once

#include <array>
#include <string>

#include "model/oxnumeric/Vec.h"
#include "model/oxutil/CUnit.h"
#include "model/vldata/records/Deformation.h"
#include "model/vldata/records/VelmoLoad.h"

namespace Orlix::Cli {

/// Turns SI values into the text of a document's units.
class UnitText {
 public:
  explicit UnitText(const Data::CUnit& units) : units_(units) {}

  /// Six significant digits; "-" for what is not calculated.
  std::string Value(double value, Dimension dimension) const;
  /// As Value, for a quantity of that dimension squared, e.g. an area.
  std::string SquaredValue(double value, Dimension dimension) const;
  /// As Value, for a second moment of area of a length.
  std::string FourthPowerValue(double value, Dimension dimension) const;
  /// The unit, e.g. "kNm".
  std::string Unit(Dimension dimension) const;

  /// N, Myy and Mzz. What is below 1e-9 of the others (a metre as the lever) is rounding, shown as
  /// 0.
  std::array<std::string, 3> Load(const Data::Velmo9::VelmoLoad& load) const;
  /// As Load; "-" for a zero load, which stands for one that was not found.
  std::array<std::string, 3> LoadAtFailure(const Data::Velmo9::VelmoLoad& load) const;
  /// eps0, kyy and kzz, likewise.
  std::array<std::string, 3> Plane(const Data::Velmo9::Deformation& plane) const;
  std::array<std::string, 3> PlaneAtFailure(const Data::Velmo9::Deformation& plane) const;

 private:
  Data::CUnit units_;
};

/// An angle in degrees.
std::string AngleText(double angle);

}  // namespace Orlix::Cli
