#include "model/vlsol/diagrams/moment_curvature.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

#include "model/oxnumeric/section/equilibrium.h"
#include "model/oxnumeric/section/failure.h"
#include "model/oxnumeric/section/gauge.h"
#include "model/vlsol/diagrams/CurvatureWalk.h"
#include "model/vlsol/diagrams/diagram_strains.h"
#include "model/vlsol/diagrams/root_between.h"
#include "model/vlsol/diagrams/worst_intervals.h"
#include "model/vlsol/reported_plane.h"

namespace Orlix::VlSol {

using Numeric::CompiledSection;

namespace {

using State = CurvatureWalk::State;

/// A state with its name.
struct Marked {
  State state;
  DiagramMark mark{DiagramMark::none};
};

class CurvatureCurve {
 public:
  CurvatureCurve(const CompiledSection& section, const DiagramRequest& request,
                 const StrengthReduction* reduction)
      : section_(section),
        request_(request),
        reduction_(reduction),
        walk_(section, request.axial, request.angle),
        strains_(section) {}

  Diagram Run() {
    Diagram diagram;
    diagram.kind = DiagramKind::momentCurvature;
    diagram.angle = request_.angle;
    diagram.axial = request_.axial;
    const State start = walk_.Start();
    if (!start.converged || !(start.gauge <= 1.0)) {
      diagram.problem = DiagramProblem::axialForce;
      return diagram;
    }
    const std::optional<Marked> end = End(start);
    if (!end) {
      diagram.problem = DiagramProblem::noCapacity;
      return diagram;
    }
    Sample(start, *end);
    for (const Marked& m : curve_) diagram.nominal.push_back(PointOf(m));
    if (reduction_ != nullptr) AddDesign(diagram);
    return diagram;
  }

 private:
  // The state in which a strain limit is reached, from the capacity search where the moment rises
  // up to it.
  std::optional<Marked> End(const State& start) const {
    if (section_.softens) return EndOfFallingBranch(start);
    const Numeric::LoadPath path{walk_.Held(), walk_.Direction()};
    const auto failure = Numeric::FindFailure(section_, path, {0.0, start.plane, start.gauge});
    if (!failure.found) return std::nullopt;
    return Marked{walk_.Of(failure.plane), DiagramMark::failure};
  }

  // Walks on with growing steps of curvature until a limit is passed or no state is found, and then
  // back to the last state there is.
  std::optional<Marked> EndOfFallingBranch(const State& start) const {
    double smallest = std::numeric_limits<double>::infinity();
    for (const CompiledSection::LimitPoint& limit : section_.limits) {
      smallest = std::min({smallest, 1.0 / limit.inverseUpper, -1.0 / limit.inverseLower});
    }
    const double first = 0.01 * smallest / section_.radius;
    constexpr double kGrowth = 1.2;
    constexpr int kSteps = 120;  // ten orders of magnitude
    State inside = start;
    double step = first;
    for (int i = 0; i < kSteps; ++i, step *= kGrowth) {
      const State next = walk_.At(inside.curvature + step, inside.plane);
      if (!next.converged) return LastFound(inside, step);
      if (next.gauge > 1.0) return AtLimit(inside, next);
      inside = next;
    }
    return std::nullopt;
  }

  Marked AtLimit(const State& inside, const State& outside) const {
    State at = inside;
    const double width = 1e-15 * std::abs(outside.curvature);
    RootBetween(inside.curvature, inside.gauge - 1.0, outside.curvature, outside.gauge - 1.0, width,
                [&](double curvature) {
                  at = walk_.At(curvature, at.plane);
                  return at.converged ? at.gauge - 1.0 : std::numeric_limits<double>::quiet_NaN();
                });
    return {at, DiagramMark::failure};
  }

  // The axial force itself is lost on the way: no strain limit is reached.
  Marked LastFound(State inside, double step) const {
    constexpr double kSmallest = 1e-9;
    const double least = kSmallest * step;
    while (step > least) {
      const State next = walk_.At(inside.curvature + step, inside.plane);
      if (next.converged && next.gauge <= 1.0) {
        inside = next;
      } else {
        step *= 0.5;
      }
    }
    return {inside, DiagramMark::axialLost};
  }

  void Sample(const State& start, const Marked& end) {
    const auto total = static_cast<std::size_t>(request_.points);
    curve_.reserve(total + 8);
    curve_.push_back({start, DiagramMark::start});
    const std::size_t even = std::max<std::size_t>(4, total / 2);
    const double step = (end.state.curvature - start.curvature) / static_cast<double>(even);
    for (std::size_t i = 1; i < even; ++i) {
      Add(start.curvature + static_cast<double>(i) * step, curve_.back().state);
    }
    curve_.push_back(end);
    MarkFirst(DiagramMark::cracking,
              [&](const State& s) { return strains_.BeyondTension(s.plane); });
    MarkFirst(DiagramMark::firstYield,
              [&](const State& s) { return strains_.BeyondYield(s.plane); });
    if (section_.softens) MarkPeak();
    // In three rounds, each halves what the one before left bent.
    for (std::size_t round = 3; round > 0; --round) {
      Refine((total - std::min(total, curve_.size())) / round);
    }
  }

  void Add(double curvature, const State& near) {
    const State state = walk_.At(curvature, near.plane);
    if (state.converged) curve_.push_back({state, DiagramMark::none});
  }

  void Refine(std::size_t count) {
    const double width = curve_.back().state.curvature - curve_.front().state.curvature;
    double height = 0.0;
    for (const Marked& m : curve_) height = std::max(height, std::abs(m.state.moment));
    std::vector<Vec2<double>> scaled;
    scaled.reserve(curve_.size());
    for (const Marked& m : curve_) {
      scaled.push_back({m.state.curvature / width, m.state.moment / height});
    }
    for (const std::size_t i : WorstIntervals(scaled, false, count)) {
      const State near = curve_[i].state;
      Add(0.5 * (near.curvature + curve_[i + 1].state.curvature), near);
    }
    Sort();
  }

  void Sort() {
    std::stable_sort(curve_.begin(), curve_.end(), [](const Marked& a, const Marked& b) {
      return a.state.curvature < b.state.curvature;
    });
  }

  // The first place where a function of the states turns positive.
  void MarkFirst(DiagramMark mark, const std::function<double(const State&)>& f) {
    double before = f(curve_.front().state);
    for (std::size_t i = 1; i < curve_.size(); ++i) {
      const double after = f(curve_[i].state);
      if (before < 0.0 && after >= 0.0) {
        Insert(mark, i, before, after, f);
        return;
      }
      before = after;
    }
  }

  // Finds the place between point i - 1 and point i.
  void Insert(DiagramMark mark, std::size_t i, double before, double after,
              const std::function<double(const State&)>& f) {
    const State& a = curve_[i - 1].state;
    const State& b = curve_[i].state;
    State at = a;
    const double width = 1e-14 * (curve_.back().state.curvature - curve_.front().state.curvature);
    const double root =
        RootBetween(a.curvature, before, b.curvature, after, width, [&](double curvature) {
          at = walk_.At(curvature, at.plane);
          return at.converged ? f(at) : std::numeric_limits<double>::quiet_NaN();
        });
    if (!std::isfinite(root)) return;
    at = walk_.At(root, at.plane);
    if (at.converged) {
      curve_.insert(curve_.begin() + static_cast<std::ptrdiff_t>(i), Marked{at, mark});
    }
  }

  // The first peak of the moment is where the capacity search ends.
  void MarkPeak() {
    const State& start = curve_.front().state;
    const Numeric::LoadPath path{walk_.Held(), walk_.Direction()};
    const auto failure = Numeric::FindFailure(section_, path, {0.0, start.plane, start.gauge});
    if (!failure.found || !failure.isPeak) return;
    curve_.push_back({walk_.Of(failure.plane), DiagramMark::peak});
    Sort();
  }

  DiagramPoint PointOf(const Marked& m) const {
    DiagramPoint point;
    point.load = Vec3<double>{request_.axial, 0.0, 0.0} + m.state.moment * walk_.Direction();
    point.plane = ReportedPlane(section_, m.state.plane);
    point.at = {Dot(point.plane, walk_.Direction()), m.state.moment};
    point.strainUtilisation = m.state.gauge;
    if (reduction_ != nullptr) point.reductionFactor = reduction_->Phi(section_, m.state.plane);
    if (m.mark == DiagramMark::failure) {
      point.limitIsCap = Numeric::GaugeOf(section_, m.state.plane).limitIsCap;
    }
    point.mark = m.mark;
    return point;
  }

  // The design moment at the axial force held: phi goes with the nominal plane at N over phi.
  void AddDesign(Diagram& diagram) const {
    const auto most = std::max_element(
        diagram.nominal.begin(), diagram.nominal.end(),
        [](const DiagramPoint& a, const DiagramPoint& b) { return a.at.y < b.at.y; });
    const auto factor =
        ReducedMomentFactor(section_, *reduction_, most->load, section_.ToLocal(most->plane));
    if (!factor) return;
    const double moment = *factor * most->at.y;
    const Vec3<double> load = Vec3<double>{request_.axial, 0.0, 0.0} + moment * walk_.Direction();
    const auto e = Numeric::SolveEquilibrium(section_, section_.LoadToLocal(load));
    const double gauge = Numeric::GaugeOf(section_, e.plane).value;
    const auto failure =
        Numeric::FindFailure(section_, {{}, section_.LoadToLocal(load)},
                             {1.0, e.plane, e.converged ? gauge : std::max(2.0, gauge)});
    if (!failure.found) return;
    DiagramPoint point;
    point.load = load;
    point.plane = ReportedPlane(section_, failure.plane);
    point.at = {Dot(failure.plane, walk_.Direction()), moment};
    point.reductionFactor = reduction_->Phi(section_, failure.plane);
    point.strainUtilisation = 1.0;
    point.limitIsCap = failure.limitIsCap;
    point.mark = DiagramMark::failure;
    diagram.design.push_back(point);
  }

  const CompiledSection& section_;
  const DiagramRequest& request_;
  const StrengthReduction* reduction_;
  CurvatureWalk walk_;
  DiagramStrains strains_;
  std::vector<Marked> curve_;
};

}  // namespace

Diagram MomentCurvatureDiagram(const CompiledSection& section, const DiagramRequest& request,
                               const StrengthReduction* reduction) {
  return CurvatureCurve(section, request, reduction).Run();
}

}  // namespace Orlix::VlSol
