#include "model/oxnumeric/polygon.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "model/oxnumeric/area_moments.h"

namespace Orlix::Numeric {
namespace {

/// Sum of doubles kept without rounding error as parts that do not overlap, the largest last.
class ExactSum {
 public:
  void Add(double value) {
    for (std::size_t i = 0; i < size_; ++i) {  // Shewchuk's grow-expansion
      const double sum = value + parts_[i];
      const double virtualPart = sum - value;
      parts_[i] = (value - (sum - virtualPart)) + (parts_[i] - virtualPart);
      value = sum;
    }
    parts_[size_++] = value;
  }
  void AddProduct(double a, double b) {
    const double product = a * b;
    Add(std::fma(a, b, -product));
    Add(product);
  }
  int Sign() const {
    for (std::size_t i = size_; i-- > 0;) {
      if (parts_[i] != 0.0) return parts_[i] > 0.0 ? 1 : -1;
    }
    return 0;
  }

 private:
  std::array<double, 12> parts_{};  // six products of two parts each
  std::size_t size_{};
};

int ExactOrientation(Vec2<double> a, Vec2<double> b, Vec2<double> c) {
  ExactSum sum;  // (b - a) x (c - a), multiplied out
  sum.AddProduct(b.x, c.y);
  sum.AddProduct(-b.x, a.y);
  sum.AddProduct(-a.x, c.y);
  sum.AddProduct(-b.y, c.x);
  sum.AddProduct(b.y, a.x);
  sum.AddProduct(a.y, c.x);
  return sum.Sign();
}

bool OnSegment(Vec2<double> a, Vec2<double> b, Vec2<double> p) {
  return std::min(a.x, b.x) <= p.x && p.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= p.y &&
         p.y <= std::max(a.y, b.y) && Orientation(a, b, p) == 0;
}

}  // namespace

int Orientation(Vec2<double> a, Vec2<double> b, Vec2<double> c) {
  const double left = (b.x - a.x) * (c.y - a.y);
  const double right = (b.y - a.y) * (c.x - a.x);
  const double cross = left - right;
  // Shewchuk's bound (3 + 16 u) u, u = 2^-53, on the relative error of the two products.
  constexpr double kBound = 3.3306690738754716e-16;
  const double error = kBound * (std::abs(left) + std::abs(right));
  if (cross > error) return 1;
  if (cross < -error) return -1;
  return ExactOrientation(a, b, c);
}

double SignedArea(std::span<const Vec2<double>> ring) { return MomentsOf(ring).area; }

std::vector<Vec2<double>> ConvexHull(std::span<const Vec2<double>> points) {
  std::vector<Vec2<double>> sorted(points.begin(), points.end());
  std::sort(sorted.begin(), sorted.end(), [](const Vec2<double>& a, const Vec2<double>& b) {
    return a.x < b.x || (a.x == b.x && a.y < b.y);
  });
  sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
  if (sorted.size() < 3) return sorted;

  std::vector<Vec2<double>> hull;
  const auto add = [&hull](std::size_t base, const Vec2<double>& point) {
    while (hull.size() >= base + 2 && Orientation(hull[hull.size() - 2], hull.back(), point) <= 0) {
      hull.pop_back();
    }
    hull.push_back(point);
  };
  for (const auto& point : sorted) add(0, point);
  const std::size_t upper = hull.size() - 1;  // the upper chain starts at the rightmost point
  for (std::size_t i = sorted.size() - 1; i-- > 0;) add(upper, sorted[i]);
  hull.pop_back();  // the leftmost point again
  return hull;
}

Location Contains(std::span<const Vec2<double>> outline, Vec2<double> point) {
  if (outline.size() < 3) return Location::outside;
  bool inside = false;
  Vec2<double> a = outline.back();
  for (const Vec2<double>& b : outline) {
    if (OnSegment(a, b, point)) return Location::onBoundary;
    // An edge counts when the horizontal line through the point crosses it; half open, so that a
    // vertex on that line counts once. It lies to the right when the point is left of it, going up.
    const bool upward = a.y <= point.y && point.y < b.y;
    const bool downward = b.y <= point.y && point.y < a.y;
    if ((upward && Orientation(a, b, point) > 0) || (downward && Orientation(b, a, point) > 0)) {
      inside = !inside;
    }
    a = b;
  }
  return inside ? Location::inside : Location::outside;
}

std::vector<Vec2<double>> WithoutDuplicates(std::span<const Vec2<double>> ring, double tolerance) {
  std::vector<Vec2<double>> kept;
  kept.reserve(ring.size());
  for (const auto& vertex : ring) {
    if (kept.empty() || Length(vertex - kept.back()) > tolerance) kept.push_back(vertex);
  }
  while (kept.size() > 1 && Length(kept.back() - kept.front()) <= tolerance) kept.pop_back();
  return kept;
}

}  // namespace Orlix::Numeric
