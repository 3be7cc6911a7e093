#include "cli/unit_factors.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

#include "model/oxutil/CUnit.h"
#include "model/oxutil/ParseDouble.h"
#include "model/oxutil/text.h"

namespace Orlix::Cli {

namespace {

std::optional<double> BaseFactor(std::string_view text, Dimension dimension) {
  Data::CUnit units;
  if (!units.SetUnitString(dimension, cstr(std::string(text)))) return std::nullopt;
  return 1.0 / units.Conversion(dimension);
}

std::string_view WithoutTimes(std::string_view length) {
  for (const std::string_view times : {" ", "·", "*", "-", "."}) {
    if (length.starts_with(times)) return length.substr(times.size());
  }
  return length;
}

std::optional<double> MomentFactor(std::string_view text) {
  for (std::size_t i = 1; i < text.size(); ++i) {
    const auto force = BaseFactor(text.substr(0, i), Dimension::force);
    if (!force) continue;
    const auto length = BaseFactor(WithoutTimes(text.substr(i)), Dimension::length);
    if (length) return *force * *length;
  }
  return std::nullopt;
}

std::optional<double> StrainFactor(std::string_view text) {
  if (text == "1" || text == "-" || text == "rad") return 1.0;
  return BaseFactor(text, Dimension::strain);
}

std::optional<double> CurvatureFactor(std::string_view text) {
  const std::size_t slash = text.find('/');
  if (slash == std::string_view::npos) return std::nullopt;
  const auto strain = StrainFactor(text.substr(0, slash));
  const auto length = BaseFactor(text.substr(slash + 1), Dimension::length);
  if (!strain || !length) return std::nullopt;
  return *strain / *length;
}

}  // namespace

std::optional<double> FactorToSi(std::string_view text, Dimension dimension) {
  constexpr std::size_t kLongest = 32;  // bytes; no unit is longer
  if (text.size() > kLongest) return std::nullopt;
  switch (dimension) {
    case Dimension::moment:
      return MomentFactor(text);
    case Dimension::curvature:
      return CurvatureFactor(text);
    case Dimension::strain:
      return StrainFactor(text);
    default:
      return BaseFactor(text, dimension);
  }
}

std::optional<double> QuantityFrom(std::string_view text, Dimension dimension, double bare) {
  constexpr std::size_t kLongest = 400;  // bytes; more is no number that anybody writes
  if (text.size() > kLongest) return std::nullopt;
  std::optional<double> number = ParseDouble(text);
  double factor = bare;
  for (std::size_t i = 1; i < text.size() && !number; ++i) {
    const std::size_t unit = std::min(text.size(), text.find_first_not_of(' ', i));
    const auto toSi = FactorToSi(text.substr(unit), dimension);
    if (!toSi) continue;
    number = ParseDouble(text.substr(0, i));
    factor = *toSi;
  }
  if (!number || !std::isfinite(*number * factor)) return std::nullopt;
  return *number * factor;
}

}  // namespace Orlix::Cli
