#pragma once

#include "model/oxnumeric/Vec.h"
#include "model/vlsol/test/test_section.h"

namespace Orlix::VlSol::Test {

/// A section cut into fibres: rows of equal height, each cut at the outline and divided into
/// fibres of about the same width. Shares no code with the solver; the curves are plain formulas.
class FibreGrid {
 public:
  FibreGrid(const TestSection& section, int rows);

  /// (N, Myy, Mzz) of a strain plane (eps0, kyy, kzz), tension positive, about the origin.
  Vec3<double> Force(const Vec3<double>& plane) const;
  /// By which factor the plane has to be divided to satisfy all strain limits, by looking at
  /// every vertex and bar.
  double Gauge(const Vec3<double>& plane) const;

 private:
  struct Fibre {
    double y{};
    double z{};
    double area{};
  };

  const TestSection& section_;
  std::vector<Fibre> fibres_;
};

/// A failure point found by looking along the boundary of the strain domain.
struct BruteFailure {
  double lambda{};
  double mismatch{};  ///< |force - fixed - lambda scaled| [N], moments over the section's size
};

/// Looks over strain planes on the boundary of the domain for the one whose force is
/// fixed + lambda scaled, lambda > 0: a scan of all directions, then a pattern search.
BruteFailure FindFailureByScan(const FibreGrid& coarse, const FibreGrid& fine,
                               const Vec3<double>& fixed, const Vec3<double>& scaled, double size);

}  // namespace Orlix::VlSol::Test
