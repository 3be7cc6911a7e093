#include "model/vlsol/strength_reduction/strength_reduction.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <utility>
#include <variant>

#include "model/oxdata/codes/as3600/concrete.h"
#include "model/oxnumeric/polygon.h"
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
    if (!first.found && load_.x <= 0.0) return std::nullopt;
    if (first.found && first.phi <= low) return first.mu;
    const Trial last = At(high);
    if (!first.found && !last.found) return std::nullopt;  // the least tension is too much
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
    return below.Capacity();
  }

 private:
  struct Trial {
    double x{};
    double phi{};
    double mu{};
    bool found{};
    double Excess() const { return phi - x; }
    std::optional<double> Capacity() const { return found ? std::optional(mu) : std::nullopt; }
  };

  Trial At(double x) {
    // Beyond what the section takes the factor is that of the end of its range on this side.
    const double n = load_.x / x;
    Trial trial{x, n > 0.0 ? reduction_.phiTension : reduction_.phiCompression, 0.0, false};
    if (!std::isfinite(n) || -n > reduction_.axialCap) return trial;
    const Numeric::LoadPath path{section_.LoadToLocal({n, 0.0, 0.0}),
                                 {0.0, load_.y / x, load_.z / x}};
    FailurePoint failure;
    if (lastFailure_) failure = Numeric::FindFailureBeside(section_, path, *lastFailure_);
    if (!failure.found) failure = Numeric::FindFailure(section_, path, StartFor(x));
    if (reduction_.squashLine && n < 0.0) {
      const auto onLine =
          reduction_.squashLine->FactorOn(path, failure.found ? &failure.plane : nullptr);
      if (onLine) return {x, reduction_.phiCompression, *onLine, true};
    }
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
  std::optional<double> Between(Trial below, Trial above) {
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
    // A tension that only phi above the section's own would carry: no phi(failure) = x there.
    constexpr double kStep = 1e-6;
    if (!below.found && above.Excess() < -kStep) return std::nullopt;
    return (above.found ? above : below).Capacity();
  }

  const CompiledSection& section_;
  const StrengthReduction& reduction_;
  Vec3<double> load_;
  Plane start_;
  std::optional<Plane> lastFailure_;  // of the trial before, which the next one starts from
};

// Nominal squash load P_o [N], positive: everything at the concrete's failure strain. Infinite
// without concrete, to which the code's cap does not apply. What is locked in is left out: the cap
// is that of the section, by whatever stages it came about.
double SquashForce(CompiledSection compiled) {
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

// Least width of what lies in a section, between parallel lines [m].
double LeastDimension(const CompiledSection& compiled) {
  std::vector<Vec2<double>> vertices;
  for (const CompiledSection::Region& region : compiled.regions) {
    vertices.insert(vertices.end(), region.hull.begin(), region.hull.end());
  }
  const std::vector<Vec2<double>> hull = Numeric::ConvexHull(vertices);
  if (hull.size() < 3) return 0.0;
  double least = std::numeric_limits<double>::infinity();
  Vec2<double> from = hull.back();
  for (const Vec2<double>& to : hull) {  // it lies against an edge
    const Vec2<double> edge = to - from;
    double width = 0.0;
    for (const Vec2<double>& p : hull) width = std::max(width, Cross(edge, p - from));
    least = std::min(least, width / std::hypot(edge.x, edge.y));
    from = to;
  }
  return least;
}

// Gathers from a task what the codes' rules ask for.
class TaskReduction {
 public:
  TaskReduction(const Data::CVelmoData& document, const Data::Velmo9::VelmoSection& section,
                int iTask, const CompiledSection& compiled)
      : document_(document),
        section_(section),
        task_(section.Task(iTask)),
        custom_(task_.PhiFactors()),
        compiled_(compiled) {}

  StrengthReduction By(const Data::Design::Aci318::StrengthReductionParameters& rule) const {
    const bool spiral = section_.Confinement() == Data::Confinement::spiral;
    StrengthReduction reduction =
        custom_
            ? Custom()
            : Linear(spiral ? rule.phiSpiral : rule.phiTied, rule.phiTension,
                     [&](const Data::CBar& bar) {
                       const double yield = YieldStrain(bar, rule.prestressedYield);
                       return NetStrainFactor::Range{yield, TensionControlledStrain(rule, yield)};
                     });
    reduction.axialCap = (spiral ? rule.capSpiral : rule.capTied) * SquashForce(compiled_);
    return reduction;
  }

  // Factored materials: phi of the section is 1.
  StrengthReduction By(const Data::Design::AxialCapRule& rule) const {
    StrengthReduction reduction =
        Linear(1.0, 1.0, [](const Data::CBar&) { return NetStrainFactor::Range{}; });
    const bool spiral = section_.Confinement() == Data::Confinement::spiral;
    reduction.axialCap =
        AxialCapShare(rule, spiral, LeastDimension(compiled_)) * SquashForce(compiled_);
    return reduction;
  }

  StrengthReduction By(const Data::Design::As3600::StrengthReductionParameters& rule) const {
    const auto planes = std::make_shared<const CrushingPlanes>(compiled_);
    NeutralAxisFactor factor(rule, planes, HasDuctileBars(rule.ductileStrain));
    const double most = factor.Most();
    StrengthReduction reduction =
        custom_ ? Custom() : StrengthReduction{std::move(factor), rule.phiCompression, most};
    if (planes->HasConcrete()) {
      reduction.squashLine.emplace(
          planes, SquashLoad(planes->Section(), SquashStresses(), rule.squashSteelStrain));
    }
    return reduction;
  }

 private:
  template <class RangeOf>
  StrengthReduction Linear(double phiCompression, double phiTension, RangeOf rangeOf) const {
    NetStrainFactor factor{{}, phiCompression, phiTension};
    ForEachBar([&](const Data::CBar& bar) { factor.ranges.push_back(rangeOf(bar)); });
    return {std::move(factor), phiCompression, phiTension};
  }

  StrengthReduction Custom() const {
    const NetStrainFactor::Range range{custom_->compressionStrain, custom_->tensionStrain};
    return Linear(custom_->phiCompression, custom_->phiTension,
                  [&](const Data::CBar&) { return range; });
  }

  // Components that the task includes, in the order of the compiled section.
  template <class Visit>
  void ForEachComponent(Visit visit) const {
    int index = 0;
    for (const Data::CSecComp& component : section_.Components()) {
      if (task_.IncludesComponent(index++)) visit(component);
    }
  }

  template <class Visit>
  void ForEachBar(Visit visit) const {
    ForEachComponent([&](const Data::CSecComp& component) {
      if (!component.ConcreteExist()) return;
      for (const Data::CBar& bar : component.Concrete().Bars()) visit(bar);
    });
  }

  // Yield strain of a bar, or what the code has count in its place.
  double YieldStrain(const Data::CBar& bar, double prestressed) const {
    if (bar.GetPreload().value != 0.0) return prestressed;
    const Data::Design::MaterialProperties& steel =
        document_.ReinforcementMaterial(bar.Grade()).Properties();
    return steel.f_k / steel.E;
  }

  bool HasDuctileBars(double strain) const {
    bool isDuctile = true;
    ForEachBar([&](const Data::CBar& bar) {
      const auto& curve = document_.ReinforcementMaterial(bar.Grade()).Curve(LoadState::ULS);
      isDuctile = isDuctile && curve.TensionLimit() >= strain;
    });
    return isDuctile;
  }

  // Stress of the concretes at the squash load [Pa], 0 elsewhere, for each curve of the section:
  // these stand in the order in which the components first name their grades.
  std::vector<double> SquashStresses() const {
    std::vector<double> stresses(compiled_.curves.size(), 0.0);
    std::vector<std::pair<MatType, int>> grades;
    ForEachComponent([&](const Data::CSecComp& component) {
      const std::pair grade(component.MaterialType(), component.MaterialGrade());
      if (std::find(grades.begin(), grades.end(), grade) != grades.end()) return;
      if (grade.first == MatType::concrete) {
        const Data::Design::MaterialProperties& concrete =
            document_.getMaterials()->Grade(grade.first, grade.second).Properties();
        stresses[grades.size()] =
            Data::Design::As3600::SquashStress(concrete.f_k) * concrete.f_k / concrete.gamma;
      }
      grades.push_back(grade);
    });
    return stresses;
  }

  const Data::CVelmoData& document_;
  const Data::Velmo9::VelmoSection& section_;
  const AnalysisTask& task_;
  const std::optional<CustomPhi>& custom_;
  const CompiledSection& compiled_;
};

}  // namespace

double NetStrainFactor::Phi(const CompiledSection& section, const Plane& failure) const {
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

double StrengthReduction::Phi(const CompiledSection& section, const Plane& failure) const {
  return std::visit([&](const auto& rule) { return rule.Phi(section, failure); }, factor);
}

double StrengthReduction::LineFactor(const CompiledSection& section, const Plane& failure) const {
  if (!squashLine) return 1.0;
  return squashLine->FactorOn({{}, Numeric::Integrate(section, failure)}, &failure).value_or(1.0);
}

std::optional<StrengthReduction> StrengthReductionOf(const Data::CVelmoData& document,
                                                     const Data::Velmo9::VelmoSection& section,
                                                     int iTask, const CompiledSection& compiled) {
  const Data::Design::CConcCodeData& code = document.concreteCode().Data();
  if (!code.strengthReduction && !code.axialCap) return std::nullopt;
  const TaskReduction task(document, section, iTask, compiled);
  if (!code.strengthReduction) return task.By(*code.axialCap);
  return std::visit([&](const auto& rule) { return task.By(rule); }, *code.strengthReduction);
}

std::optional<double> ReducedMomentFactor(const CompiledSection& section,
                                          const StrengthReduction& reduction,
                                          const Vec3<double>& load, const Plane& start) {
  return HeldForceSearch(section, reduction, load, start).Run();
}

}  // namespace Orlix::VlSol
