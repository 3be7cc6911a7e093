#include "model/vlsol/diagrams/service_curvature.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "model/vlsol/diagrams/diagram_strains.h"
#include "model/vlsol/diagrams/root_between.h"
#include "model/vlsol/diagrams/worst_intervals.h"

namespace Orlix::VlSol {

using Data::Velmo9::SlsCaseSolution;

namespace {

/// The reported state under a moment.
struct ServiceState {
  double moment{};
  Vec3<double> plane;    // reported, about the section's origin
  double cracking{};     // utilisation: cracked above 1
  double beyondYield{};  // of the cracked state
  bool solved{};
  DiagramMark mark{DiagramMark::none};
};

class ServiceCurve {
 public:
  ServiceCurve(const SlsModel& model, const DiagramRequest& request)
      : model_(model),
        request_(request),
        along_{0.0, std::cos(request.angle), std::sin(request.angle)},
        strains_(model.cracked->section) {}

  Diagram Run() {
    Diagram diagram;
    diagram.kind = DiagramKind::momentCurvature;
    diagram.state = LoadState::SLS;
    diagram.angle = request_.angle;
    diagram.axial = request_.axial;
    ServiceState start = At(0.0);
    if (!start.solved) {
      diagram.problem = DiagramProblem::axialForce;
      return diagram;
    }
    const ServiceState end = End(start);
    if (!(end.moment > 0.0)) {
      diagram.problem = DiagramProblem::noCapacity;
      return diagram;
    }
    start.mark = DiagramMark::start;
    Sample(start, end);
    for (const ServiceState& s : curve_) diagram.nominal.push_back(PointOf(s));
    return diagram;
  }

 private:
  Vec3<double> LoadOf(double moment) const {
    return Vec3<double>{request_.axial, 0.0, 0.0} + moment * along_;
  }

  ServiceState At(double moment) const {
    const SlsCaseSolution s = SolveSlsLoad(model_, LoadOf(moment));
    ServiceState state;
    state.moment = moment;
    state.plane =
        std::isfinite(s.zeta) ? s.zeta * s.cracked + (1.0 - s.zeta) * s.uncracked : s.cracked;
    state.cracking = s.crackingUtilisation;
    state.beyondYield = strains_.BeyondYield(model_.cracked->section.ToLocal(s.cracked));
    state.solved = s.solved;
    return state;
  }

  bool IsWithin(const ServiceState& s) const { return s.solved && s.beyondYield <= 0.0; }

  // The largest moment that is solved before steel yields, between moments that double.
  ServiceState End(const ServiceState& start) const {
    const auto& section = model_.cracked->section;
    constexpr double kFirst = 1e-6;
    constexpr int kDoublings = 40;
    ServiceState low = start;
    ServiceState high = At(kFirst * section.squash * section.radius);
    for (int i = 0; i < kDoublings && IsWithin(high); ++i) {
      low = high;
      high = At(2.0 * high.moment);
    }
    constexpr double kWidth = 1e-14;
    while (high.moment - low.moment > kWidth * high.moment) {
      const ServiceState middle = At(0.5 * (low.moment + high.moment));
      (IsWithin(middle) ? low : high) = middle;
    }
    low.mark = high.solved ? DiagramMark::firstYield : DiagramMark::failure;
    return low;
  }

  void Sample(const ServiceState& start, const ServiceState& end) {
    const auto total = static_cast<std::size_t>(request_.points);
    const std::size_t even = std::max<std::size_t>(4, total / 2);
    curve_.reserve(total + 4);
    curve_.push_back(start);
    for (std::size_t i = 1; i < even; ++i) {
      Add(end.moment * static_cast<double>(i) / static_cast<double>(even));
    }
    curve_.push_back(end);
    MarkCracking();
    // In two rounds, the second halves what the first left bent.
    for (std::size_t round = 2; round > 0; --round) {
      Refine((total - std::min(total, curve_.size())) / round);
    }
  }

  void Add(double moment) {
    const ServiceState state = At(moment);
    if (state.solved) curve_.push_back(state);
  }

  // Where the state reported changes at once, by the tension stiffening of the code, both sides of
  // the jump are kept.
  void MarkCracking() {
    for (std::size_t i = 1; i < curve_.size(); ++i) {
      const ServiceState& a = curve_[i - 1];
      const ServiceState& b = curve_[i];
      if (!(a.cracking <= 1.0 && b.cracking > 1.0)) continue;
      const double width = 1e-14 * b.moment;
      const double root = RootBetween(a.moment, a.cracking - 1.0, b.moment, b.cracking - 1.0, width,
                                      [&](double moment) { return At(moment).cracking - 1.0; });
      if (!std::isfinite(root)) return;
      constexpr double kBeside = 1e-9;  // of the moment: beyond the accuracy of the utilisation
      ServiceState before = At(root * (1.0 - kBeside));
      const ServiceState after = At(root * (1.0 + kBeside));
      before.mark = DiagramMark::cracking;
      if (before.solved && after.solved) {
        curve_.insert(curve_.begin() + static_cast<std::ptrdiff_t>(i), {before, after});
      }
      return;
    }
  }

  void Refine(std::size_t count) {
    const double height = curve_.back().moment;
    double width = 0.0;
    for (const ServiceState& s : curve_) width = std::max(width, std::abs(CurvatureOf(s)));
    if (!(width > 0.0)) return;
    std::vector<Vec2<double>> scaled;
    scaled.reserve(curve_.size());
    for (const ServiceState& s : curve_) {
      scaled.push_back({CurvatureOf(s) / width, s.moment / height});
    }
    for (const std::size_t i : WorstIntervals(scaled, false, count)) {
      constexpr double kJump = 1e-8;  // the interval of a jump has nothing between its ends
      const double a = curve_[i].moment;
      const double b = curve_[i + 1].moment;
      if (b - a > kJump * b) Add(0.5 * (a + b));
    }
    std::stable_sort(
        curve_.begin(), curve_.end(),
        [](const ServiceState& a, const ServiceState& b) { return a.moment < b.moment; });
  }

  double CurvatureOf(const ServiceState& s) const { return Dot(s.plane, along_); }

  DiagramPoint PointOf(const ServiceState& s) const {
    DiagramPoint point;
    point.at = {CurvatureOf(s), s.moment};
    point.load = LoadOf(s.moment);
    point.plane = s.plane;
    point.strainUtilisation = std::numeric_limits<double>::quiet_NaN();
    point.mark = s.mark;
    return point;
  }

  const SlsModel& model_;
  const DiagramRequest& request_;
  Vec3<double> along_;
  DiagramStrains strains_;
  std::vector<ServiceState> curve_;
};

}  // namespace

Diagram ServiceCurvatureDiagram(const SlsModel& model, const DiagramRequest& request) {
  return ServiceCurve(model, request).Run();
}

}  // namespace Orlix::VlSol
