#pragma once

#include <array>
#include <string>

#include "model/oxnumeric/Vec.h"
#include "model/vldata/document/CVelmoData.h"

namespace Orlix::Velmo {

/// Numbers of a document as texts of the report: in its units, four digits where nothing else is
/// said, "-" for what is not calculated.
class ReportText {
 public:
  explicit ReportText(const Data::CVelmoData& document) : document_(document) {}

  std::string Value(double value, Dimension dimension) const;
  /// A length of the section; 0 for what is rounding beside its size.
  /// @param area  of the section [m²], which tells its size
  std::string Place(double value, double area) const;
  /// Of a quantity of that dimension to the power 2 or 4.
  std::string PowerValue(double value, Dimension dimension, int power) const;
  /// With the unit behind it.
  std::string WithUnit(double value, Dimension dimension) const;
  std::string Unit(Dimension dimension) const;

  /// Six digits of (N, Myy, Mzz) or (eps0, kyy, kzz); what is rounding of the others is 0.
  std::array<std::string, 3> Load(const Vec3<double>& load) const;
  std::array<std::string, 3> Plane(const Vec3<double>& plane) const;
  /// Of what was not found, which is zero, "-".
  std::array<std::string, 3> LoadAtFailure(const Vec3<double>& load) const;

  /// "concrete", "reinforcement", …
  static std::string TypeName(MatType type);
  /// "C30/37"; "none".
  std::string GradeName(MatType type, int grade) const;
  /// "3 \"wind\"": number and name of a case.
  static std::string CaseName(const Data::Velmo9::AnalysisTask& task, int iCase);

 private:
  const Data::CVelmoData& document_;
};

}  // namespace Orlix::Velmo
