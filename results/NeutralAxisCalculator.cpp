#include "results/NeutralAxisCalculator.h"

#include <cmath>
#include <limits>

namespace Orlix {

namespace {

constexpr double kNoCurvature = 1e-10;  // [1/m]; a strain of 1e-8 over a section of 100 m
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

}  // namespace

NeutralAxisData NeutralAxisCalculator::ComputeNeutralAxisData(
    const Data::Velmo9::Deformation& deformation) {
  return {ComputeNeutralAxisAngle(deformation), ComputeNeutralAxisOffset(deformation)};
}

double NeutralAxisCalculator::ComputeNeutralAxisAngle(
    const Data::Velmo9::Deformation& deformation) {
  const auto& [eps0, kyy, kzz] = deformation.Vector();
  if (std::abs(kyy) < kNoCurvature && std::abs(kzz) < kNoCurvature) return kNone;
  return std::atan2(kzz, kyy);
}

double NeutralAxisCalculator::ComputeNeutralAxisOffset(
    const Data::Velmo9::Deformation& deformation) {
  const auto& [eps0, kyy, kzz] = deformation.Vector();
  const double curvature = std::hypot(kyy, kzz);
  if (curvature < kNoCurvature) return kNone;
  return -eps0 / curvature;
}

}  // namespace Orlix
