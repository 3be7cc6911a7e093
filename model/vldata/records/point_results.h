#pragma once

#include <limits>

#include "model/oxnumeric/Vec.h"
#include "model/oxutil/OrlixString.h"

namespace Orlix::Data::Velmo9 {

/// Position (y, z) [m] that is not set yet.
inline constexpr Vec2<double> kNoPosition{std::numeric_limits<double>::quiet_NaN(),
                                          std::numeric_limits<double>::quiet_NaN()};
/// Serviceability value that is not calculated.
inline constexpr double kNotCalculated = std::numeric_limits<double>::infinity();

/// Strain and stress [Pa] at a vertex of a component's outline, tension positive.
struct PointULSResult {
  Vec2<double> position{kNoPosition};
  double strain{};
  double stress{};
  OrlixString<wchar_t> grade;
  OrlixString<wchar_t> materialType;  ///< "concrete", "steel" or "FRP"
};

/// Strain, stress [Pa] and force [N] of a bar, tension positive.
struct BarULSResult {
  int number{};  ///< from 0, in the component's bar order
  Vec2<double> position{kNoPosition};
  double strain{};
  double stress{};
  double force{};
  OrlixString<wchar_t> grade;
};

/// As PointULSResult, for both serviceability states; +infinity: not calculated.
struct PointSLSResult {
  Vec2<double> position{kNoPosition};
  double strainUncracked{kNotCalculated};
  double strainCracked{kNotCalculated};
  double stressUncracked{kNotCalculated};
  double stressCracked{kNotCalculated};
  OrlixString<wchar_t> grade;
  OrlixString<wchar_t> materialType;
};

/// As BarULSResult, for both serviceability states; +infinity: not calculated.
struct BarSLSResult {
  int number{};
  Vec2<double> position{kNoPosition};
  double strainUncracked{kNotCalculated};
  double strainCracked{kNotCalculated};
  double stressUncracked{kNotCalculated};
  double stressCracked{kNotCalculated};
  double forceUncracked{kNotCalculated};
  double forceCracked{kNotCalculated};
  OrlixString<wchar_t> grade;
};

}  // namespace Orlix::Data::Velmo9
