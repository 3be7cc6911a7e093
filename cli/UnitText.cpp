#include "cli/UnitText.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "model/oxutil/StringFrom.h"
#include "model/oxutil/text.h"
#include "results/result_text.h"

namespace Orlix::Cli {

namespace {

constexpr const char* kNotCalculated = "-";
const std::array<std::string, 3> kNothing = {kNotCalculated, kNotCalculated, kNotCalculated};
constexpr double kRounding = 1e-9;  // of the largest member; the solver answers to 1e-10

Vec3<double> WithoutRounding(const Vec3<double>& v) {
  const double limit = kRounding * std::max({std::abs(v.x), std::abs(v.y), std::abs(v.z)});
  const auto cleaned = [limit](double value) { return std::abs(value) < limit ? 0.0 : value; };
  return {cleaned(v.x), cleaned(v.y), cleaned(v.z)};
}

}  // namespace

std::string UnitText::Value(double value, Dimension dimension) const {
  const double shown = value * units_.Conversion(dimension);
  return std::isfinite(shown) ? StringFrom(shown) : kNotCalculated;
}

std::string UnitText::SquaredValue(double value, Dimension dimension) const {
  const double factor = units_.Conversion(dimension);
  const double shown = value * factor * factor;
  return std::isfinite(shown) ? StringFrom(shown) : kNotCalculated;
}

std::string UnitText::FourthPowerValue(double value, Dimension dimension) const {
  const double factor = units_.Conversion(dimension);
  const double shown = value * factor * factor * factor * factor;
  return std::isfinite(shown) ? StringFrom(shown) : kNotCalculated;
}

std::string UnitText::Unit(Dimension dimension) const {
  return to_string(units_.UnitString(dimension));
}

std::array<std::string, 3> UnitText::Load(const Data::Velmo9::VelmoLoad& load) const {
  const Vec3<double> v = WithoutRounding(load.Vector());
  return {Value(v.x, Dimension::force), Value(v.y, Dimension::moment),
          Value(v.z, Dimension::moment)};
}

std::array<std::string, 3> UnitText::Plane(const Data::Velmo9::Deformation& plane) const {
  const Vec3<double> v = WithoutRounding(plane.Vector());
  return {Value(v.x, Dimension::strain), Value(v.y, Dimension::curvature),
          Value(v.z, Dimension::curvature)};
}

std::array<std::string, 3> UnitText::LoadAtFailure(const Data::Velmo9::VelmoLoad& load) const {
  return load.Vector() == Vec3<double>{} ? kNothing : Load(load);
}

std::array<std::string, 3> UnitText::PlaneAtFailure(const Data::Velmo9::Deformation& plane) const {
  return plane.Vector() == Vec3<double>{} ? kNothing : Plane(plane);
}

std::string AngleText(double angle) {
  if (!std::isfinite(angle)) return kNotCalculated;
  std::string text = Fixed(angle * 180.0 / std::numbers::pi, 2);
  return text == "-0.00" ? "0.00" : text;
}

}  // namespace Orlix::Cli
