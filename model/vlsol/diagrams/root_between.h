#pragma once

#include <algorithm>
#include <cmath>

namespace Orlix::VlSol {

/// Finds where a function changes its sign, by the Illinois rule: an end that stays a second time
/// counts half, so that both ends move.
/// @param fa,fb  f(a) and f(b), of opposite signs
/// @param f      not finite: gives up
/// @return a point within `width` of the change of sign; NaN when f gave up
template <class Function>
double RootBetween(double a, double fa, double b, double fb, double width, Function f) {
  constexpr int kSteps = 100;
  constexpr double kLeastPart = 1e-3;
  double weightA = 1.0;
  double weightB = 1.0;
  int moved = 0;
  for (int i = 0; i < kSteps && b - a > width && fa != 0.0 && fb != 0.0; ++i) {
    const double part = weightA * fa / (weightA * fa - weightB * fb);
    const double x = a + std::clamp(part, kLeastPart, 1.0 - kLeastPart) * (b - a);
    if (!(x > a && x < b)) break;
    const double fx = f(x);
    if (!std::isfinite(fx)) return fx - fx;
    if ((fx < 0.0) == (fa < 0.0)) {
      a = x;
      fa = fx;
      weightA = 1.0;
      if (moved == -1) weightB *= 0.5;
      moved = -1;
    } else {
      b = x;
      fb = fx;
      weightB = 1.0;
      if (moved == 1) weightA *= 0.5;
      moved = 1;
    }
  }
  return std::abs(fa) < std::abs(fb) ? a : b;
}

}  // namespace Orlix::VlSol
