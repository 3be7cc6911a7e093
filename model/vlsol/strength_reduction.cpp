#include "model/vlsol/strength_reduction.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <variant>

#include "model/oxnumeric/section/equilibrium.h"
#include "model/oxnumeric/section/gauge.h"
#include "model/oxnumeric/section/kernel.h"

namespace Orlix::VlSol {
namespace {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::CustomPhi;
using Numeric::CompiledSection;
using Numeric::FailurePoint;
using Numeric::Plane;

// A nominal failure with the axial force N/x and moments lambda M/x held against the trial factor
// x: the design capacity is found where phi(failure) = x.
class HeldForceSearch {
 public:
  HeldForceSearch(const CompiledSection& section, const StrengthReduction& reduction,
                  const Vec3<double>& load, const Plane& start)
      : section_(section), reduction_(reduction), load_(load), start_(start) {}

  std::optional<double> Run() {
    const double low = reduction_.phiCompression;
    const double high = reduction_.phiTension;
    const Trial first = At(low);
    if (!first.found) return std::nullopt;
    if (first.phi <= low) return first.mu;
    const Trial last = At(high);
    // Tension-controlled at both ends: so it is between, since the strain moves one way with x.
    if (last.found && first.phi >= high && last.phi >= high) return last.mu;
    // The first change of sign from below gives the smallest capacity where there are several.
    Trial below = first;
    constexpr int kIntervals = 8;
    for (int i = 1; i <= kIntervals; ++i) {
      const Trial above = i == kIntervals ? last : At(low + (high - low) * i / kIntervals);
      if (above.Excess() <= 0.0) return Between(below, above);
      below = above;
    }
    return below.mu;
  }

 private:
  struct Trial {
    double x{};
    double phi{};
    double mu{};
    bool found{};
    double Excess() const { return phi - x; }
  };

  Trial At(double x) {
    Trial trial{x, reduction_.phiCompression, 0.0, false};
    const double n = load_.x / x;
    if (-n > reduction_.axialCap) return trial;
    const Numeric::LoadPath path{section_.LoadToLocal({n, 0.0, 0.0}),
                                 {0.0, load_.y / x, load_.z / x}};
    FailurePoint failure;
    if (lastFailure_) failure = Numeric::FindFailureBeside(section_, path, *lastFailure_);
    if (!failure.found) failure = Numeric::FindFailure(section_, path, StartFor(x));
    if (!failure.found) return trial;
    lastFailure_ = failure.plane;
    return {x, reduction_.Phi(section_, failure.plane), failure.lambda, true};
  }

  // The load over x is another load: its own equilibrium is where the search has to begin.
  Numeric::PathPoint StartFor(double x) const {
    const Vec3<double> local = section_.LoadToLocal((1.0 / x) * load_);
    Numeric::EquilibriumOptions options;
    options.sharpest = Numeric::CurveForm::ramp;  // a place to start from
    const Numeric::EquilibriumResult e =
        Numeric::SolveEquilibrium(section_, local, &start_, options);
    const double gauge = Numeric::GaugeOf(section_, e.plane).value;
    return {1.0, e.plane, e.converged ? gauge : std::max(2.0, gauge)};
  }

  // Illinois on phi(x) - x, positive at `below`, not positive at `above`.
  double Between(Trial below, Trial above) {
    constexpr double kWidth = 1e-10;
    double fBelow = below.Excess();
    double fAbove = above.Excess();
    for (int i = 0; i < 60 && above.x - below.x > kWidth && fAbove != 0.0; ++i) {
      const double part = std::clamp(fBelow / (fBelow - fAbove), 1e-3, 1.0 - 1e-3);
      const Trial middle = At(below.x + part * (above.x - below.x));
      if (middle.Excess() > 0.0) {
        below = middle;
        fBelow = below.Excess();
        fAbove *= 0.5;
      } else {
        above = middle;
        fAbove = above.Excess();
        fBelow *= 0.5;
      }
    }
    return above.found ? above.mu : below.mu;
  }

  const CompiledSection& section_;
  const StrengthReduction& reduction_;
  Vec3<double> load_;
  Plane start_;
  std::optional<Plane> lastFailure_;  // of the trial before, which the next one starts from
};

// Yield strain of a bar, or what the code has count in its place.
double YieldStrain(const Data::CVelmoData& document, const Data::CBar& bar,
                   const Data::Design::Aci318::StrengthReductionParameters& rule) {
  if (bar.GetPreload().value != 0.0) return rule.prestressedYield;
  const Data::Design::MaterialProperties& steel =
      document.ReinforcementMaterial(bar.Grade()).Properties();
  return steel.f_k / steel.E;
}

// Nominal squash load P_o [N], positive: everything at the concrete's failure strain. Infinite
// without concrete, to which the code's cap does not apply. What is locked in is left out: the cap
// is that of the section, by whatever stages it came about.
double SquashLoad(CompiledSection compiled) {
  double limit = 0.0;
  for (const CompiledSection::Region& region : compiled.regions) {
    const Numeric::StressCurve& curve = compiled.curves[static_cast<std::size_t>(region.curve)];
    if (!curve.lowerIsCap) limit = limit == 0.0 ? -curve.lower : std::min(limit, -curve.lower);
  }
  if (limit == 0.0) return std::numeric_limits<double>::infinity();
  for (CompiledSection::Region& region : compiled.regions) region.locked = {};
  for (CompiledSection::PointArea& point : compiled.points) {
    point.strainOffset -= point.lockedOffset;
    point.lockedOffset = point.displacedOffset = 0.0;
  }
  return -Numeric::Integrate(compiled, {-limit, 0.0, 0.0}).x;
}

}  // namespace

double StrengthReduction::Phi(const CompiledSection& section, const Plane& failure) const {
  double strain = -std::numeric_limits<double>::infinity();
  std::size_t extreme = 0;
  for (std::size_t i = 0; i < section.points.size(); ++i) {
    const CompiledSection::PointArea& point = section.points[i];
    // Net of prestrain; a bar added after an earlier stage has none of that stage's strain.
    const double e = Dot(Numeric::Phi(point.position), failure) + point.lockedOffset;
    if (e > strain) {
      strain = e;
      extreme = i;
    }
  }
  if (section.points.empty()) return phiCompression;
  const Range& range = ranges[extreme];
  if (strain <= range.compression) return phiCompression;
  if (strain >= range.tension) return phiTension;
  const double part = (strain - range.compression) / (range.tension - range.compression);
  return phiCompression + part * (phiTension - phiCompression);
}

std::optional<StrengthReduction> StrengthReductionOf(const Data::CVelmoData& document,
                                                     const Data::Velmo9::VelmoSection& section,
                                                     int iTask, const CompiledSection& compiled) {
  const auto code = document.concreteCode();
  if (!code.IsStrengthReduction()) return std::nullopt;
  const auto* rule = std::get_if<Data::Design::Aci318::StrengthReductionParameters>(
      &*code.Data().strengthReduction);
  if (rule == nullptr) return std::nullopt;
  const AnalysisTask& task = section.Task(iTask);
  const std::optional<CustomPhi>& custom = task.PhiFactors();
  const bool spiral = section.Confinement() == Data::Confinement::spiral;
  StrengthReduction reduction;
  reduction.phiCompression = custom   ? custom->phiCompression
                             : spiral ? rule->phiSpiral
                                      : rule->phiTied;
  reduction.phiTension = custom ? custom->phiTension : rule->phiTension;
  reduction.axialCap = (spiral ? rule->capSpiral : rule->capTied) * SquashLoad(compiled);
  int index = 0;
  for (const Data::CSecComp& component : section.Components()) {
    if (!task.IncludesComponent(index++) || !component.ConcreteExist()) continue;
    for (const Data::CBar& bar : component.Concrete().Bars()) {
      if (custom) {
        reduction.ranges.push_back({custom->compressionStrain, custom->tensionStrain});
      } else {
        const double yield = YieldStrain(document, bar, *rule);
        reduction.ranges.push_back({yield, TensionControlledStrain(*rule, yield)});
      }
    }
  }
  return reduction;
}

std::optional<double> ReducedMomentFactor(const CompiledSection& section,
                                          const StrengthReduction& reduction,
                                          const Vec3<double>& load, const Plane& start) {
  return HeldForceSearch(section, reduction, load, start).Run();
}

}  // namespace Orlix::VlSol
