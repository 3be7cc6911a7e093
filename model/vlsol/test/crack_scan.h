#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <vector>

#include "model/oxnumeric/Vec.h"
#include "model/vlsol/test/service_beam.h"

namespace Orlix::VlSol::Test {

inline double CircleArea(double diameter) { return std::numbers::pi / 4 * diameter * diameter; }

// Sections that are found again on a grid of cells and along sampled faces, with the equations of
// the codes written out.
struct Drawn {
  const char* what;
  std::vector<Vec2<double>> outline;  // empty: a circle
  std::vector<Vec2<double>> hole;
  double radius{};
  std::vector<Vec2<double>> bars;
  double diameter{};
  Vec3<double> plane;
};

inline bool IsIn(const std::vector<Vec2<double>>& ring, Vec2<double> p) {
  bool inside = false;
  for (std::size_t i = 0, j = ring.size() - 1; i < ring.size(); j = i++) {
    if ((ring[i].y > p.y) != (ring[j].y > p.y) &&
        p.x < ring[i].x + (ring[j].x - ring[i].x) * (p.y - ring[i].y) / (ring[j].y - ring[i].y)) {
      inside = !inside;
    }
  }
  return inside;
}

// The widths of a drawn section by counting cells and places.
class Scan {
 public:
  explicit Scan(const Drawn& drawn) : d_(drawn), slope_{-drawn.plane.z, drawn.plane.y} {
    kappa_ = Length(slope_);
    slope_ = 1.0 / kappa_ * slope_;
    for (double y = -0.5 + kCell / 2; y < 0.5; y += kCell) {
      for (double z = -0.5 + kCell / 2; z < 0.5; z += kCell) {
        const Vec2<double> p{y, z};
        const bool inside =
            d_.radius > 0.0 ? Length(p) < d_.radius : IsIn(d_.outline, p) && !IsIn(d_.hole, p);
        if (inside) cells_.push_back(Dot(slope_, p));
      }
    }
    for (int f = 0; f < Faces(); ++f) {
      for (int i = 0; i <= kPlaces; ++i) {
        high_ = std::max(high_, Dot(slope_, Place(f, i)));
        low_ = std::min(low_, Dot(slope_, Place(f, i)));
      }
    }
    tensionDepth_ = Strain(high_) / kappa_;
    for (const Vec2<double>& bar : d_.bars) {
      const double force = kSteel * CircleArea(d_.diameter) * Strain(Dot(slope_, bar));
      if (force <= 0.0) continue;
      pull_ += force;
      centroid_ += force * Dot(slope_, bar);
    }
    centroid_ /= pull_;
  }

  // BS 8110-2, equations 12 and 13, at every place.
  double SurfaceWidth() const {
    constexpr double kHalf = 5e-3;
    double strip = 0.0;
    for (const double u : cells_) strip += std::abs(u - centroid_) < kHalf ? kCell * kCell : 0.0;
    const double part = 1e6 / 3 * strip / (2 * kHalf) * tensionDepth_ / pull_;
    double widest = 0.0;
    for (int f = 0; f < Faces(); ++f) {
      for (int i = 0; i <= kPlaces; ++i) {
        const Vec2<double> p = Place(f, i);
        double a = 1e9;
        double cover = 0.0;
        for (const Vec2<double>& bar : d_.bars) {
          const double distance = Length(p - bar) - d_.diameter / 2;
          if (distance >= a) continue;
          a = distance;
          cover = Cover(f, bar);
        }
        const double strain = Strain(Dot(slope_, p)) * (1 - part);
        widest = std::max(widest, 3 * a * strain / (1 + 2 * (a - cover) / tensionDepth_));
      }
    }
    return widest;
  }

  // EN 1992-1-1, (7.8) to (7.11), bars close to each other and whole in the zone or out of it.
  double TieWidth() const {
    const double depth =
        std::min({2.5 * (high_ - centroid_), tensionDepth_ / 3, (high_ - low_) / 2});
    double area = 0.0;
    for (const double u : cells_) area += u > high_ - depth ? kCell * kCell : 0.0;
    double steel = 0.0;
    double stress = 0.0;
    for (const Vec2<double>& bar : d_.bars) {
      if (Dot(slope_, bar) < high_ - depth) continue;
      steel += CircleArea(d_.diameter);
      stress = std::max(stress, kSteel * Strain(Dot(slope_, bar)));
    }
    const double rho = steel / area;
    double widest = 0.0;
    for (int f = 0; f < Faces(); ++f) {
      double cover = 1e9;
      bool isInZone = false;
      for (const Vec2<double>& bar : d_.bars) {
        if (Dot(slope_, bar) > high_ - depth) cover = std::min(cover, Cover(f, bar));
      }
      for (int i = 0; i <= kPlaces; ++i) {
        isInZone = isInZone || Dot(slope_, Place(f, i)) > high_ - 0.9 * depth;
      }
      if (!isInZone) continue;
      const double spacing = 3.4 * cover + 0.8 * 0.5 * 0.425 * d_.diameter / rho;
      const double ratio = kSteel / ServiceBeam::kModulus;
      const double less = 0.6 * ServiceBeam::kTensileStrength / rho * (1 + ratio * rho);
      widest = std::max(widest, spacing * std::max(stress - less, 0.6 * stress) / kSteel);
    }
    return widest;
  }

 private:
  static constexpr double kCell = 2e-3;
  static constexpr int kPlaces = 2000;
  static constexpr double kSteel = ServiceBeam::kSteelModulus;

  double Strain(double u) const { return d_.plane.x + kappa_ * u; }
  int Faces() const { return d_.radius > 0.0 ? 1 : static_cast<int>(d_.outline.size()); }
  Vec2<double> Place(int face, int i) const {
    const double t = static_cast<double>(i) / kPlaces;
    const double angle = 2 * std::numbers::pi * t;
    if (d_.radius > 0.0) return {d_.radius * std::cos(angle), d_.radius * std::sin(angle)};
    const auto f = static_cast<std::size_t>(face);
    return (1 - t) * d_.outline[f] + t * d_.outline[(f + 1) % d_.outline.size()];
  }
  double Cover(int face, Vec2<double> bar) const {
    if (d_.radius > 0.0) return d_.radius - Length(bar) - d_.diameter / 2;
    double distance = 1e9;
    for (int i = 0; i <= kPlaces; ++i) distance = std::min(distance, Length(Place(face, i) - bar));
    return distance - d_.diameter / 2;
  }

  const Drawn& d_;
  Vec2<double> slope_;
  double kappa_{};
  std::vector<double> cells_;  // distances along the gradient
  double high_{-1e9};
  double low_{1e9};
  double tensionDepth_{};
  double pull_{};
  double centroid_{};
};

}  // namespace Orlix::VlSol::Test
