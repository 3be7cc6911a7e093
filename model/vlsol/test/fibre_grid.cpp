#include "model/vlsol/test/fibre_grid.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

namespace Orlix::VlSol::Test {
namespace {

// Where a horizontal line at z crosses the outlines.
std::vector<double> Crossings(const Shape& shape, double z) {
  std::vector<double> crossings;
  for (const Ring* ring : {&shape.outline, &shape.hole}) {
    for (std::size_t i = 0; i < ring->size(); ++i) {
      const Vec2<double> a = (*ring)[i];
      const Vec2<double> b = (*ring)[(i + 1) % ring->size()];
      if ((a.y > z) == (b.y > z)) continue;
      crossings.push_back(a.x + (b.x - a.x) * (z - a.y) / (b.y - a.y));
    }
  }
  std::sort(crossings.begin(), crossings.end());
  return crossings;
}

double StrainAt(const Vec3<double>& plane, double y, double z) {
  return plane.x + plane.y * z - plane.z * y;
}

}  // namespace

FibreGrid::FibreGrid(const TestSection& section, int rows) : section_(section) {
  const auto byZ = [](Vec2<double> a, Vec2<double> b) { return a.y < b.y; };
  const Ring& outline = section.shape.outline;
  const auto [lowest, highest] = std::minmax_element(outline.begin(), outline.end(), byZ);
  const double height = (highest->y - lowest->y) / rows;
  for (int row = 0; row < rows; ++row) {
    const double z = lowest->y + (row + 0.5) * height;
    const std::vector<double> crossings = Crossings(section.shape, z);
    for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
      const double width = crossings[i + 1] - crossings[i];
      const int count = std::max(1, static_cast<int>(std::lround(width / height)));
      for (int k = 0; k < count; ++k) {
        fibres_.push_back({crossings[i] + (k + 0.5) * width / count, z, height * width / count});
      }
    }
  }
}

Vec3<double> FibreGrid::Force(const Vec3<double>& plane) const {
  Vec3<double> sum;
  const auto add = [&](double force, double y, double z) { sum += {force, force * z, -force * y}; };
  for (const Fibre& f : fibres_) {
    add(f.area * section_.concrete.stress(StrainAt(plane, f.y, f.z)), f.y, f.z);
  }
  for (const TestSection::Bar& bar : section_.bars) {
    const double strain = StrainAt(plane, bar.position.x, bar.position.y);
    const double displaced = section_.deduct ? section_.concrete.stress(strain) : 0.0;
    add(bar.area * (section_.steel.stress(strain + bar.prestrain) - displaced), bar.position.x,
        bar.position.y);
  }
  return sum;
}

double FibreGrid::Gauge(const Vec3<double>& plane) const {
  const TestCurve& concrete = section_.concrete;
  double gauge = 0.0;
  double largest = -std::numeric_limits<double>::infinity();
  double smallest = std::numeric_limits<double>::infinity();
  for (const Vec2<double>& p : section_.shape.outline) {
    const double strain = StrainAt(plane, p.x, p.y);
    gauge = std::max({gauge, strain / concrete.lower, strain / concrete.upper});
    largest = std::max(largest, -strain);
    smallest = std::min(smallest, -strain);
  }
  if (const double peak = concrete.input.uniformLimit; peak > 0.0) {
    // The strain at (1 - epsC2/epsCu2) of the depth from the most compressed fibre stays <= epsC2.
    const double weight = -peak / concrete.lower;
    gauge = std::max(gauge, (weight * largest + (1.0 - weight) * smallest) / peak);
  }
  for (const TestSection::Bar& bar : section_.bars) {
    const double strain = StrainAt(plane, bar.position.x, bar.position.y);
    gauge = std::max({gauge, strain / (section_.steel.upper - bar.prestrain),
                      strain / (section_.steel.lower - bar.prestrain)});
  }
  return gauge;
}

BruteFailure FindFailureByScan(const FibreGrid& coarse, const FibreGrid& fine,
                               const Vec3<double>& fixed, const Vec3<double>& scaled, double size) {
  const auto scale = [size](const Vec3<double>& f) {
    return Vec3<double>{f.x, f.y / size, f.z / size};
  };
  const Vec3<double> direction = scale(scaled);
  // A boundary plane by two angles: the share of curvature, and the curvature's direction.
  const auto evaluate = [&](const FibreGrid& grid, double tilt, double turn) {
    const Vec3<double> plane{-std::cos(tilt), std::sin(tilt) * std::cos(turn) / size,
                             std::sin(tilt) * std::sin(turn) / size};
    const Vec3<double> force = scale(grid.Force((1.0 / grid.Gauge(plane)) * plane) - fixed);
    const double lambda = Dot(force, direction) / Dot(direction, direction);
    const double mismatch =
        lambda > 0.0 ? Length(force - lambda * direction) : Length(force) + Length(direction);
    return BruteFailure{lambda, mismatch};
  };
  constexpr int kTilts = 90;
  constexpr int kTurns = 72;
  const double tiltStep = std::numbers::pi / kTilts;
  const double turnStep = 2.0 * std::numbers::pi / kTurns;
  double tilt = 0.0;
  double turn = 0.0;
  BruteFailure best{0.0, std::numeric_limits<double>::infinity()};
  for (int i = 1; i < kTilts; ++i) {
    for (int j = 0; j < kTurns; ++j) {
      const BruteFailure here = evaluate(coarse, i * tiltStep, j * turnStep);
      if (here.mismatch < best.mismatch) {
        best = here;
        tilt = i * tiltStep;
        turn = j * turnStep;
      }
    }
  }
  best = evaluate(fine, tilt, turn);
  for (double step = 1.0; step > 1e-9;) {
    bool moved = false;
    for (const auto& [a, b] :
         {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {1, 1}, {-1, -1}, {1, -1}, {-1, 1}}) {
      const double nextTilt = tilt + a * step * tiltStep;
      const double nextTurn = turn + b * step * turnStep;
      const BruteFailure next = evaluate(fine, nextTilt, nextTurn);
      if (next.mismatch >= best.mismatch) continue;
      best = next;
      tilt = nextTilt;
      turn = nextTurn;
      moved = true;
    }
    if (!moved) step *= 0.5;
  }
  return best;
}

}  // namespace Orlix::VlSol::Test
