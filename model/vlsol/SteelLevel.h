#pragma once

namespace Orlix::VlSol {

/// The level of the tension steel: the force centroid of the bars in tension, whose strain is
/// Σ A e² / Σ A e; for one layer that is its own.
/// Source: BS 8110-2, 3.6, which names the centroid of the steel and leaves several layers open.
class SteelLevel {
 public:
  /// Takes a bar into account. @param area [m²] @param strain of the concrete at it, tension
  /// positive
  void Add(double area, double strain) {
    if (strain <= 0.0) return;
    first_ += area * strain;
    second_ += area * strain * strain;
  }
  /// Strain at the level; 0 without a bar in tension.
  double Strain() const { return first_ > 0.0 ? second_ / first_ : 0.0; }

 private:
  double first_{};
  double second_{};
};

}  // namespace Orlix::VlSol
