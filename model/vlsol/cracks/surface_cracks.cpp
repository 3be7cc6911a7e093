#include "model/vlsol/cracks/surface_cracks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace Orlix::VlSol {
namespace {

using Data::Design::Bs8110::CrackStiffening;
using Data::Design::Bs8110::CrackWidthParameters;
using Data::Velmo9::CCrack;
using Data::Velmo9::CrackRemark;

// Part of the stiffening that counts: none where the steel is all but at the neutral axis, its
// strain below a tenth of the surface's, and all of it from a fifth on. Equation 13 has no answer
// there, and without this a width would jump where the last bar comes into tension.
double StiffeningPart(const CrackState& state, double strainAtSteel) {
  return std::clamp(10.0 * strainAtSteel / state.LargestStrain() - 1.0, 0.0, 1.0);
}

// Tension steel as equation 13 sees it; no area: nothing stiffens.
CrackStiffening StiffeningOf(const CrackState& state) {
  CrackStiffening stiffening;
  if (state.Component().carriesTension) return stiffening;
  double pull = 0.0;
  double level = 0.0;
  double strain = 0.0;
  double stiffness = 0.0;
  for (const CrackBar& bar : state.Component().bars) {
    const double p = state.PullOf(bar);
    if (p <= 0.0) continue;
    pull += p;
    level += p * Dot(state.Gradient(), bar.position);
    strain += p * state.StrainOf(bar);
    stiffness += p * bar.modulus;
  }
  if (pull <= 0.0) return stiffening;
  // Force centroid and the area that has the bars' pull there: of one layer its own, and without a
  // jump where a bar comes into tension.
  stiffening.steelModulus = stiffness / pull;
  stiffening.strainAtSteel = strain / pull;
  stiffening.steelArea = pull / stiffening.strainAtSteel;
  stiffening.width = StiffeningPart(state, stiffening.strainAtSteel) *
                     CutAt(state.Component().polygons, state.Gradient(), level / pull).chord;
  stiffening.tensionDepth = std::min(state.TensionDepth(), 2.0 * state.Depth());
  return stiffening;
}

// Whether the strain of some bar is beyond the range of the rule.
bool IsBeyondRange(const CrackWidthParameters& rule, const CrackState& state) {
  const auto& bars = state.Component().bars;
  return std::any_of(bars.begin(), bars.end(), [&](const CrackBar& bar) {
    return state.StrainOf(bar) > rule.steelStrainShare * bar.yieldStrain;
  });
}

// The cracks of one face.
class Surface {
 public:
  Surface(const CrackWidthParameters& rule, const CrackState& state,
          const CrackStiffening& stiffening, const CrackFace& face)
      : rule_(rule), state_(state), stiffening_(stiffening), face_(face) {
    const auto& bars = state.Component().bars;
    areAlike_ = std::all_of(bars.begin(), bars.end(), [&](const CrackBar& bar) {
      return bar.diameter == bars.front().diameter;
    });
  }

  // The crack at a place, by the bar whose surface is nearest; the centre of `nearest` is.
  CCrack At(Vec2<double> p, int nearest) const {
    CCrack crack;
    crack.position = p;
    crack.strain = MeanStrainAt(p);
    const auto& bars = state_.Component().bars;
    double distance = std::numeric_limits<double>::infinity();
    const auto one = static_cast<std::size_t>(std::max(nearest, 0));
    const std::size_t begin = areAlike_ ? one : 0;
    const std::size_t end = areAlike_ ? std::min(one + 1, bars.size()) : bars.size();
    for (std::size_t i = begin; i < end; ++i) {
      const double d = Length(p - bars[i].position) - bars[i].diameter / 2;
      if (d >= distance) continue;
      distance = d;
      crack.bar = static_cast<int>(i);
    }
    if (crack.bar < 0) {
      crack.spacing = Data::Design::Bs8110::GatheringLengthWithoutBars(
          rule_, std::min(state_.TensionDepth(), state_.Depth()));
      crack.remark = CrackRemark::noBars;
    } else {
      crack.spacing = Data::Design::Bs8110::GatheringLength(
          rule_, std::max(distance, 0.0), face_.covers[static_cast<std::size_t>(crack.bar)],
          state_.TensionDepth());
    }
    crack.width = crack.strain * crack.spacing;
    return crack;
  }

  // The widest crack between two places of an edge, with one bar next to both; one of the places
  // where none is wider than the threshold.
  CCrack WidestBetween(const CrackEdge& edge, double from, double to, int bar,
                       double threshold) const {
    const CCrack first = At(edge.At(from), bar);
    const CCrack last = At(edge.At(to), bar);
    CCrack widest = last.width > first.width ? last : first;
    // The strain is linear and, with one bar next to all of the piece, the length grows or falls
    // away from it. Of bars of several diameters the surface of another may be nearer in between:
    // then it is at most three distances to this one, which the cover makes less.
    const double length = areAlike_ ? std::max(first.spacing, last.spacing)
                                    : rule_.distanceFactor * FarEnd(edge, from, to, bar);
    const double bound = std::max(first.strain, last.strain) * length;
    if (bound <= std::max(threshold, widest.width)) return widest;
    const auto take = [&](double s) {
      const CCrack crack = At(edge.At(s), bar);
      if (crack.width > widest.width) widest = crack;
      return crack.width;
    };
    // Close to a bar the width hardly changes within a piece as short as its cover.
    if (widest.bar >= 0 && to - from <= face_.covers[static_cast<std::size_t>(widest.bar)]) {
      return widest;
    }
    // Golden section: the width has one summit at most that is not at an end.
    constexpr double kGolden = 0.6180339887498949;
    constexpr int kSteps = 16;  // to 5e-4 of the piece, at a summit to less than 1e-6 of the width
    double a = to - kGolden * (to - from);
    double b = from + kGolden * (to - from);
    double wa = take(a);
    double wb = take(b);
    for (int i = 0; i < kSteps; ++i) {
      if (wa > wb) {
        to = b;
        b = a;
        wb = wa;
        a = to - kGolden * (to - from);
        wa = take(a);
      } else {
        from = a;
        a = b;
        wa = wb;
        b = from + kGolden * (to - from);
        wb = take(b);
      }
    }
    return widest;
  }

 private:
  // Largest distance of a piece from the surface of a bar.
  double FarEnd(const CrackEdge& edge, double from, double to, int bar) const {
    const CrackBar& b = state_.Component().bars[static_cast<std::size_t>(bar)];
    return std::max(Length(edge.At(from) - b.position), Length(edge.At(to) - b.position)) -
           b.diameter / 2;
  }
  double MeanStrainAt(Vec2<double> p) const {
    const double strain = std::max(state_.StrainAt(p), 0.0);
    if (stiffening_.steelArea <= 0.0) return strain;
    return std::max(Data::Design::Bs8110::MeanStrain(rule_, stiffening_, strain), 0.0);
  }

  const CrackWidthParameters& rule_;
  const CrackState& state_;
  const CrackStiffening& stiffening_;
  const CrackFace& face_;
  bool areAlike_{};  // bars in diameter
};

}  // namespace

void FindSurfaceCracks(const CrackWidthParameters& rule, const CrackState& state, CrackSink& sink) {
  const auto& bars = state.Component().bars;
  const bool isBeyondRange = IsBeyondRange(rule, state);
  const CrackStiffening stiffening = StiffeningOf(state);
  int number = -1;
  for (const CrackFace& face : state.Component().faces) {
    ++number;
    const Surface surface(rule, state, stiffening, face);
    const auto add = [&](CCrack crack) {
      if (!(crack.width > 0.0)) return;
      crack.face = number;
      if (isBeyondRange) {
        crack.width = Data::Velmo9::kNotCalculated;
        crack.remark = CrackRemark::steelBeyondRange;
      }
      sink.Add(crack);
    };
    for (const CrackEdge& edge : face.edges) {
      if (state.StrainAt(edge.start) <= 0.0 && state.StrainAt(edge.At(edge.length)) <= 0.0) {
        continue;
      }
      if (bars.empty()) add(surface.WidestBetween(edge, 0.0, edge.length, -1, sink.Threshold()));
      ForEachNearestBar(
          edge, 0.0, edge.length, bars, [](const CrackBar&) { return true; },
          [&](double from, double to, int bar) {
            const double foot = std::clamp(
                Dot(bars[static_cast<std::size_t>(bar)].position - edge.start, edge.direction),
                from, to);
            add(surface.WidestBetween(edge, from, foot, bar, sink.Threshold()));
            add(surface.WidestBetween(edge, foot, to, bar, sink.Threshold()));
          });
    }
  }
}

}  // namespace Orlix::VlSol
