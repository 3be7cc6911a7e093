#include "model/vlsol/diagrams/closed_diagrams.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <optional>
#include <utility>
#include <vector>

#include "model/oxnumeric/section/equilibrium.h"
#include "model/oxnumeric/section/failure.h"
#include "model/oxnumeric/section/gauge.h"
#include "model/oxnumeric/section/kernel.h"
#include "model/vlsol/diagrams/diagram_strains.h"
#include "model/vlsol/diagrams/load_slice.h"
#include "model/vlsol/reported_plane.h"

namespace Orlix::VlSol {

using Numeric::CompiledSection;
using Numeric::FailurePoint;
using Numeric::Plane;

namespace {

const Vec3<double> kAxial{1.0, 0.0, 0.0};
const Vec3<double> kAboutY{0.0, 1.0, 0.0};
const Vec3<double> kAboutZ{0.0, 0.0, 1.0};

/// A load in equilibrium with a plane within the strain limits.
struct Inside {
  Vec3<double> load;  // about the section's origin
  Plane plane;        // about the section's centre
  double gauge{};
};

std::optional<Inside> InsideAt(const CompiledSection& section, const Vec3<double>& load) {
  const auto e = Numeric::SolveEquilibrium(section, section.LoadToLocal(load));
  const double gauge = Numeric::GaugeOf(section, e.plane).value;
  if (!e.converged || !(gauge <= 1.0)) return std::nullopt;
  return Inside{load, e.plane, gauge};
}

// Zero load; where prestress alone is too much, an axial force that helps.
std::optional<Inside> InsideOnAxis(const CompiledSection& section) {
  if (const auto zero = InsideAt(section, {})) return zero;
  constexpr int kParts = 16;
  for (int i = 1; i < kParts; ++i) {
    for (const double most : {section.mostTension, section.mostCompression}) {
      if (const auto inside = InsideAt(section, (most * i / kParts) * kAxial)) return inside;
    }
  }
  return std::nullopt;
}

// An axial force without moments; where the section's resistance is so far from its origin that
// this is not carried, with the moments of a uniform strain.
std::optional<Inside> InsideAtAxial(const CompiledSection& section, double axial) {
  if (const auto plain = InsideAt(section, axial * kAxial)) return plain;
  double low = 0.0;
  double high = 0.0;
  for (const CompiledSection::LimitPoint& limit : section.limits) {
    low = std::min(low, 1.0 / limit.inverseLower);
    high = std::max(high, 1.0 / limit.inverseUpper);
  }
  constexpr auto kForm = Numeric::CurveForm::ramp;  // a step has no strain for every force
  constexpr int kHalvings = 60;
  for (int i = 0; i < kHalvings; ++i) {
    const double middle = 0.5 * (low + high);
    const double carried = Numeric::Integrate(section, {middle, 0.0, 0.0}, kForm).x;
    (carried < axial ? low : high) = middle;
  }
  const Plane plane{0.5 * (low + high), 0.0, 0.0};
  Vec3<double> load = section.LoadToOrigin(Numeric::Integrate(section, plane, kForm));
  load.x = axial;
  return InsideAt(section, load);
}

// What stands between the slice of the failure surface and its diagram: marks, phi and the cap.
class ClosedDiagram {
 public:
  ClosedDiagram(const CompiledSection& section, const DiagramRequest& request,
                const StrengthReduction* reduction)
      : section_(section), request_(request), reduction_(reduction), strains_(section) {
    diagram_.kind = request.kind;
    diagram_.angle = request.angle;
    diagram_.axial = request.axial;
  }

  Diagram AxialMoment() {
    const auto inside = InsideOnAxis(section_);
    const Vec3<double> direction{0.0, std::cos(request_.angle), std::sin(request_.angle)};
    if (!inside || !Cut({}, direction, kAxial, {0.0, inside->load.x}, inside->plane)) {
      return Failed(DiagramProblem::noCapacity);
    }
    MarkFailure({inside->load, -1.0 * kAxial}, *inside, {0.0, inside->load.x}, {0.0, -1.0},
                DiagramMark::pureCompression);
    MarkFailure({inside->load, kAxial}, *inside, {0.0, inside->load.x}, {0.0, 1.0},
                DiagramMark::pureTension);
    if (const auto zero = InsideAt(section_, {})) {
      for (const double sign : {1.0, -1.0}) {
        MarkFailure({{}, sign * direction}, *zero, {}, {sign, 0.0}, DiagramMark::pureBending);
      }
    }
    MarkCrossings(DiagramMark::decompression,
                  [&](const SlicePoint& p) { return strains_.Outline(p.plane); });
    MarkCrossings(DiagramMark::balanced,
                  [&](const SlicePoint& p) { return strains_.BeyondYield(p.plane); });
    Finish();
    if (reduction_ != nullptr) ReduceAlongRays();
    return std::move(diagram_);
  }

  Diagram Biaxial() {
    const double axial = request_.axial;
    const bool isFar = axial > section_.mostTension || axial < section_.mostCompression;
    const auto inside = isFar ? std::nullopt : InsideAtAxial(section_, axial);
    if (!inside) return Failed(DiagramProblem::axialForce);
    if (!Cut(axial * kAxial, kAboutY, kAboutZ, {inside->load.y, inside->load.z}, inside->plane)) {
      return Failed(DiagramProblem::noCapacity);
    }
    if (inside->load == axial * kAxial) {
      for (const double sign : {1.0, -1.0}) {
        MarkFailure({inside->load, sign * kAboutY}, *inside, {}, {sign, 0.0},
                    DiagramMark::pureBending);
        MarkFailure({inside->load, sign * kAboutZ}, *inside, {}, {0.0, sign},
                    DiagramMark::pureBending);
      }
    }
    Finish();
    if (reduction_ != nullptr) ReduceAtHeldForce();
    return std::move(diagram_);
  }

 private:
  Diagram Failed(DiagramProblem problem) {
    diagram_.problem = problem;
    return std::move(diagram_);
  }

  bool Cut(const Vec3<double>& origin, const Vec3<double>& first, const Vec3<double>& second,
           Vec2<double> inside, const Plane& plane) {
    slice_ = LoadSlice::About(section_, origin, first, second, inside, plane);
    if (!slice_) return false;
    curve_ = slice_->Trace(request_.points);
    return curve_.size() >= 3;
  }

  // Adds the failure of a path of the plane of loads; `from` and `along` are its coordinates there.
  void MarkFailure(Numeric::LoadPath path, const Inside& inside, Vec2<double> from,
                   Vec2<double> along, DiagramMark mark) {
    path.fixed = section_.LoadToLocal(path.fixed);
    path.scaled = section_.LoadToLocal(path.scaled);
    const FailurePoint failure =
        Numeric::FindFailure(section_, path, {0.0, inside.plane, inside.gauge});
    if (failure.found) Add(slice_->PointAt(from + failure.lambda * along, failure), mark);
  }

  void MarkCrossings(DiagramMark mark, const LoadSlice::PointFunction& f) {
    for (auto& [after, point] : slice_->Crossings(curve_, f)) {
      if (strains_.IsCompressionLimit(point.plane)) found_.emplace_back(point, mark);
    }
  }

  void Add(SlicePoint point, DiagramMark mark) { found_.emplace_back(point, mark); }

  // Puts the points with a mark in their places and turns all into the diagram's.
  void Finish() {
    for (auto& [point, mark] : found_) {
      point.tag = static_cast<int>(mark);
      curve_.push_back(point);
    }
    std::sort(curve_.begin(), curve_.end(),
              [](const SlicePoint& a, const SlicePoint& b) { return a.turn < b.turn; });
    // A point as good as on one with a mark gives way to it.
    constexpr double kSame = 1e-9;
    std::vector<SlicePoint> kept;
    kept.reserve(curve_.size());
    for (const SlicePoint& p : curve_) {
      const bool isSame = !kept.empty() && p.turn - kept.back().turn < kSame;
      if (!isSame || (p.tag != 0 && kept.back().tag != 0)) {
        kept.push_back(p);
      } else if (p.tag != 0) {
        kept.back() = p;
      }
    }
    constexpr double kTurn = 2.0 * std::numbers::pi;
    if (kept.front().turn + kTurn - kept.back().turn < kSame) {
      if (kept.front().tag == 0) kept.front() = kept.back();
      kept.pop_back();
    }
    curve_ = std::move(kept);
    diagram_.nominal.reserve(curve_.size());
    for (const SlicePoint& p : curve_) diagram_.nominal.push_back(Nominal(p));
  }

  // Where the code puts a line of its own in the place of the strain-limited capacity: its point
  // over that of the slice, from the slice's origin.
  double LineFactor(const SlicePoint& p) const {
    const Vec3<double> origin = slice_->Load({});
    const Vec3<double> load = slice_->Load(p.at);
    if (reduction_ == nullptr || !reduction_->squashLine || load.x >= 0.0) return 1.0;
    const Numeric::LoadPath path{section_.LoadToLocal(origin), section_.LoadToLocal(load - origin)};
    return reduction_->squashLine->FactorOn(path, &p.plane).value_or(1.0);
  }

  DiagramPoint Nominal(const SlicePoint& p) const {
    DiagramPoint point;
    point.at = LineFactor(p) * p.at;
    point.load = slice_->Load(point.at);
    point.plane = ReportedPlane(section_, p.plane);
    point.reductionFactor = reduction_ != nullptr ? reduction_->Phi(section_, p.plane) : 1.0;
    point.strainUtilisation = p.strainUtilisation;
    point.limitIsCap = p.limitIsCap;
    point.mark = static_cast<DiagramMark>(p.tag);
    return point;
  }

  // phi times the nominal load: the load's direction stays, so phi is that of the nominal point.
  DiagramPoint Reduced(DiagramPoint point) const {
    point.load = point.reductionFactor * point.load;
    point.at = point.reductionFactor * point.at;
    return point;
  }

  // Beyond the cap the curve is replaced by the straight line between its corners.
  void ReduceAlongRays() {
    const double cap = reduction_->axialCap;
    const auto beyond = [cap](const SlicePoint& p) { return p.at.y + cap; };
    std::vector<std::pair<std::size_t, SlicePoint>> corners;
    if (std::isfinite(cap)) corners = slice_->Crossings(curve_, beyond);
    diagram_.design.reserve(curve_.size() + corners.size());
    auto corner = corners.begin();
    for (std::size_t i = 0; i < curve_.size(); ++i) {
      if (beyond(curve_[i]) >= 0.0) diagram_.design.push_back(Reduced(diagram_.nominal[i]));
      for (; corner != corners.end() && corner->first == i; ++corner) {
        SlicePoint& p = corner->second;
        p.at.y = -cap;
        p.tag = static_cast<int>(DiagramMark::axialCap);
        diagram_.design.push_back(Reduced(Nominal(p)));
      }
    }
  }

  // The design moments in the directions of the nominal ones, with the axial force held.
  void ReduceAtHeldForce() {
    diagram_.design.reserve(curve_.size());
    for (std::size_t i = 0; i < curve_.size(); ++i) {
      DiagramPoint point = diagram_.nominal[i];
      const auto factor = ReducedMomentFactor(section_, *reduction_, point.load, curve_[i].plane);
      if (!factor) {
        diagram_.design.clear();
        return;
      }
      point.at = *factor * point.at;
      point.load = slice_->Load(point.at);
      const Numeric::LoadPath ray{{}, section_.LoadToLocal(point.load)};
      FailurePoint failure = Numeric::FindFailureBeside(section_, ray, curve_[i].plane);
      if (failure.found) {
        point.plane = ReportedPlane(section_, failure.plane);
        point.reductionFactor = reduction_->Phi(section_, failure.plane);
        point.limitIsCap = failure.limitIsCap;
      }
      diagram_.design.push_back(point);
    }
  }

  const CompiledSection& section_;
  const DiagramRequest& request_;
  const StrengthReduction* reduction_;
  DiagramStrains strains_;
  Diagram diagram_;
  std::optional<LoadSlice> slice_;
  std::vector<SlicePoint> curve_;
  std::vector<std::pair<SlicePoint, DiagramMark>> found_;
};

}  // namespace

Diagram AxialMomentDiagram(const CompiledSection& section, const DiagramRequest& request,
                           const StrengthReduction* reduction) {
  return ClosedDiagram(section, request, reduction).AxialMoment();
}

Diagram BiaxialMomentDiagram(const CompiledSection& section, const DiagramRequest& request,
                             const StrengthReduction* reduction) {
  return ClosedDiagram(section, request, reduction).Biaxial();
}

}  // namespace Orlix::VlSol
