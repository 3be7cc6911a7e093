#include "reports/csv/CsvRow.h"

#include <cmath>
#include <numbers>

#include "model/oxutil/StringFrom.h"
#include "model/oxutil/text.h"

namespace Orlix::Velmo {

using Data::Velmo9::Deformation;

CsvRow::CsvRow(const Data::CUnit& units)
    : force_(units.Conversion(Dimension::force)),
      length_(units.Conversion(Dimension::length)),
      stress_(units.Conversion(Dimension::stress)),
      strain_(units.Conversion(Dimension::strain)),
      moment_(units.Conversion(Dimension::moment)),
      bendingStiffness_(units.Conversion(Dimension::bendingStiffness)),
      curvature_(units.Conversion(Dimension::curvature)) {}

CsvRow& CsvRow::Start(std::string_view commonData) {
  line_ = commonData;
  isFirst_ = true;
  return *this;
}

void CsvRow::Separate() {
  if (!isFirst_) line_ += ',';
  isFirst_ = false;
}

CsvRow& CsvRow::AddNumber(double value) {
  Separate();
  line_ += StringFrom(value);
  return *this;
}

CsvRow& CsvRow::AddInteger(int value) {
  Separate();
  line_ += std::to_string(value);
  return *this;
}

CsvRow& CsvRow::AddLoad(const Data::Velmo9::VelmoLoad& load) {
  const Vec3<double>& v = load.Vector();
  return AddNumber(v.x * force_).AddNumber(v.y * moment_).AddNumber(v.z * moment_);
}

CsvRow& CsvRow::AddDeformation(const Deformation& deformation) {
  const Vec3<double>& v = deformation.Vector();
  return AddNumber(v.x * strain_).AddNumber(v.y * curvature_).AddNumber(v.z * curvature_);
}

CsvRow& CsvRow::AddDeformationWithNeutralAxis(const Deformation& deformation) {
  const auto [eps, kyy, kzz] = deformation.Vector();
  const bool isStraight = kyy == 0.0 && kzz == 0.0;  // for negative zeros, too
  const double angle = isStraight ? 0.0 : std::atan2(kzz, kyy) * 180.0 / std::numbers::pi;
  const double offset = -eps / std::sqrt(kyy * kyy + kzz * kzz);
  return AddDeformation(deformation).AddNumber(angle).AddNumber(offset * length_);
}

CsvRow& CsvRow::AddInterpolatedStrain(const Deformation& deformation, double zeta) {
  return AddDeformationWithNeutralAxis(deformation).AddNumber(zeta);
}

CsvRow& CsvRow::AddStiffness(const Data::Velmo9::Stiffness& stiffness) {
  return AddNumber(stiffness.axial * force_)
      .AddNumber(stiffness.bendingYY * bendingStiffness_)
      .AddNumber(stiffness.bendingZZ * bendingStiffness_);
}

CsvRow& CsvRow::AddCalculated(double value) {
  if (std::isfinite(value)) return AddNumber(value);
  Separate();
  line_ += '-';
  return *this;
}

CsvRow& CsvRow::AddPosition(Vec2<double> position) {
  return AddCalculated(position.x * length_).AddCalculated(position.y * length_);
}

CsvRow& CsvRow::AddStressAndStrain(double stress, double strain) {
  return AddCalculated(stress * stress_).AddCalculated(strain * strain_);
}

CsvRow& CsvRow::AddForce(double force) { return AddCalculated(force * force_); }

CsvRow& CsvRow::AddLength(double length) { return AddCalculated(length * length_); }

CsvRow& CsvRow::AddStrain(double strain) { return AddCalculated(strain * strain_); }

CsvRow& CsvRow::AddNumberFromOne(int index) {
  if (index >= 0) return AddInteger(index + 1);
  Separate();
  line_ += '-';
  return *this;
}

CsvRow& CsvRow::AddText(const OrlixString<wchar_t>& text) {
  Separate();
  const std::string narrow = to_string(text);
  const bool isQuoted = narrow.find_first_of(",\"") != std::string::npos;
  if (isQuoted) line_ += '"';
  for (const char c : narrow) {
    if (c == '"') line_ += '"';
    const bool isControl = static_cast<unsigned char>(c) < ' ' || c == '\x7F';
    line_ += isControl ? ' ' : c;
  }
  if (isQuoted) line_ += '"';
  return *this;
}

}  // namespace Orlix::Velmo
