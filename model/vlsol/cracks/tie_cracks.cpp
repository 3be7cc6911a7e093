#include "model/vlsol/cracks/tie_cracks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace Orlix::VlSol {
namespace {

using Data::Design::En1992::CrackTie;
using Data::Design::En1992::CrackWidthParameters;
using Data::Velmo9::CCrack;
using Data::Velmo9::CrackRemark;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// 0 at `none`, 1 at `full` and beyond, straight between.
double Ramp(double x, double none, double full) {
  return std::clamp((x - none) / (full - none), 0.0, 1.0);
}

// The part of a component behind a line, with the bars in it.
struct Zone {
  Vec2<double> direction;  // towards the surface
  double level{};          // of the line, along the direction
  double depth{};          // h_c,ef
  double area{};           // A_c,eff
  double largestShare{};   // of a bar's diameter, over all bars
  double shares{};         // sum of those parts: as many bars count

  // 1 for the bars that count most.
  double Weight(const CrackBar& bar) const {
    if (largestShare <= 0.0) return 0.0;
    return Share(bar) / largestShare;
  }
  double Share(const CrackBar& bar) const {
    return std::clamp((Dot(direction, bar.position) - level) / bar.diameter + 0.5, 0.0, 1.0);
  }
};

// h - d: of the centroid of the tension steel, or of its outermost layer under uniform strain.
double SteelDepth(const CrackState& state, Vec2<double> direction, double surface) {
  double pull = 0.0;
  double moment = 0.0;
  double outermost = kInfinity;
  for (const CrackBar& bar : state.Component().bars) {
    const double p = state.PullOf(bar);
    if (p <= 0.0) continue;
    const double depth = surface - Dot(direction, bar.position);
    pull += p;
    moment += p * depth;
    outermost = std::min(outermost, depth);
  }
  if (pull <= 0.0) return kInfinity;
  const double t = state.Uniformity();
  return (1.0 - t) * moment / pull + t * outermost;
}

Zone ZoneTowards(const CrackState& state, Vec2<double> direction) {
  Zone zone;
  zone.direction = direction;
  const Extent extent = ExtentOf(state.Component(), direction);
  zone.depth = Data::Design::En1992::EffectiveTensionDepth(
      std::max(SteelDepth(state, direction, extent.high), 0.0), state.TensionDepth(),
      extent.high - extent.low);
  zone.level = extent.high - zone.depth;
  zone.area = CutAt(state.Component().polygons, direction, zone.level).area;
  for (const CrackBar& bar : state.Component().bars) {
    if (state.StrainOf(bar) <= 0.0) continue;
    zone.shares += zone.Share(bar);
    zone.largestShare = std::max(zone.largestShare, zone.Share(bar));
  }
  return zone;
}

// The piece of an edge that lies in a zone.
struct Piece {
  double from{};
  double to{};
};

Piece PieceIn(const Zone& zone, const CrackEdge& edge) {
  const double start = Dot(zone.direction, edge.start) - zone.level;
  const double rise = Dot(zone.direction, edge.direction);
  Piece piece{0.0, edge.length};
  if (rise > 0.0) piece.from = std::clamp(-start / rise, 0.0, edge.length);
  if (rise < 0.0) piece.to = std::clamp(-start / rise, 0.0, edge.length);
  if (rise == 0.0 && start < 0.0) piece.to = 0.0;
  return piece;
}

// What a zone's bars come to, for one face.
struct ZoneSteel {
  CrackTie tie;
  int bar{-1};  // with the largest strain
};

ZoneSteel SteelOf(const CrackWidthParameters& rule, const CrackState& state, const Zone& zone,
                  const CrackFace& face) {
  const auto& bars = state.Component().bars;
  ZoneSteel steel;
  double area = 0.0;
  double strandArea = 0.0;
  double strandDiameter = 0.0;
  double largestDiameter = 0.0;
  double squares = 0.0;
  double diameters = 0.0;
  double strain = 0.0;
  double fullCover = kInfinity;
  for (std::size_t i = 0; i < bars.size(); ++i) {
    const CrackBar& bar = bars[i];
    const double e = state.StrainOf(bar);
    const double weight = e > 0.0 ? zone.Weight(bar) : 0.0;
    if (weight <= 0.0) continue;
    if (e * weight > strain) {
      strain = e * weight;
      steel.bar = static_cast<int>(i);
    }
    if (weight == 1.0) fullCover = std::min(fullCover, face.covers[i]);
    (bar.isPrestressed ? strandArea : area) += weight * bar.area;
    double& largest = bar.isPrestressed ? strandDiameter : largestDiameter;
    largest = std::max(largest, weight * bar.diameter);
    squares += weight * bar.diameter * bar.diameter;
    diameters += weight * bar.diameter;
  }
  if (steel.bar < 0) return steel;
  CrackTie& tie = steel.tie;
  tie.cover = fullCover;
  for (std::size_t i = 0; i < bars.size(); ++i) {
    if (state.StrainOf(bars[i]) <= 0.0) continue;
    const double weight = zone.Weight(bars[i]);
    if (weight > 0.0) {
      tie.cover = std::min(tie.cover, fullCover + weight * (face.covers[i] - fullCover));
    }
  }
  tie.cover = std::max(tie.cover, 0.0);
  tie.diameter = squares / diameters;
  tie.steelModulus = bars[static_cast<std::size_t>(steel.bar)].modulus;
  tie.steelStress = strain * tie.steelModulus;
  // xi_1², (7.5): of the strands beside bars, and alone.
  const double bond = rule.xiPretensioned *
                      (area > 0.0 && strandDiameter > 0.0 ? largestDiameter / strandDiameter : 1.0);
  tie.steelRatio = (area + bond * strandArea) / zone.area;
  tie.k1 = (rule.k1HighBond * area + rule.k1Plain * strandArea) / (area + strandArea);
  tie.k2 = 0.5 * (1.0 + state.Uniformity());
  tie.f_ct = state.Component().f_ct;
  tie.modularRatio = tie.steelModulus / state.Component().modulus;
  return steel;
}

// Largest distance along a face from a bar in tension over half the close spacing of the rule.
double SpacingShare(const CrackWidthParameters& rule, const CrackState& state, const Zone& zone,
                    const CrackFace& face, const CrackTie& tie) {
  const double depth = tie.cover + tie.diameter / 2;
  const double reach = 0.5 * rule.closeSpacing * depth;
  const auto& bars = state.Component().bars;
  double share = 0.0;
  for (const CrackEdge& edge : face.edges) {
    const Piece piece = PieceIn(zone, edge);
    if (piece.from >= piece.to) continue;
    ForEachNearestBar(
        edge, piece.from, piece.to, bars,
        [&](const CrackBar& bar) { return state.StrainOf(bar) > 0.0; },
        [&](double from, double to, int bar) {
          for (const double s : {from, to}) {
            const double d = Length(edge.At(s) - bars[static_cast<std::size_t>(bar)].position);
            const double along = std::sqrt(std::max(d * d - depth * depth, 0.0));
            share = std::max(share, along / reach);
          }
        });
  }
  return share;
}

// Where a face cracks first: the middle of its most strained piece in a zone.
Vec2<double> PlaceOn(const CrackState& state, const Zone& zone, const CrackFace& face) {
  double strain = -kInfinity;
  Vec2<double> place = face.edges.front().At(0.0);
  for (const CrackEdge& edge : face.edges) {
    const Piece piece = PieceIn(zone, edge);
    if (piece.from > piece.to) continue;
    const Vec2<double> middle = edge.At(0.5 * (piece.from + piece.to));
    if (state.StrainAt(middle) <= strain) continue;
    strain = state.StrainAt(middle);
    place = middle;
  }
  return place;
}

double LargestStrainOn(const CrackState& state, const CrackFace& face) {
  double strain = -kInfinity;
  for (const CrackEdge& edge : face.edges) {
    strain = std::max({strain, state.StrainAt(edge.start), state.StrainAt(edge.At(edge.length))});
  }
  return strain;
}

// The crack of a face by a zone; `part` of its width counts.
CCrack CrackOf(const CrackWidthParameters& rule, const CrackState& state, double longShare,
               const Zone& zone, const CrackFace& face, double part) {
  const double wideDepth = std::min(state.TensionDepth(), state.Depth());  // x is not negative
  const double bareSpacing = rule.wideCrackShare * wideDepth;
  const double held = std::min(zone.shares, 1.0);
  CCrack crack;
  crack.position = PlaceOn(state, zone, face);
  crack.spacing = bareSpacing;
  crack.strain = std::max(LargestStrainOn(state, face), 0.0);
  crack.width = crack.spacing * crack.strain;
  crack.remark = CrackRemark::noBars;
  if (held > 0.0) {
    const ZoneSteel steel = SteelOf(rule, state, zone, face);
    const double kt = state.Component().carriesTension
                          ? 0.0
                          : Data::Design::En1992::TensionStiffeningFactor(rule, longShare);
    const double share = SpacingShare(rule, state, zone, face, steel.tie);
    crack.bar = steel.bar;
    crack.strain = Data::Design::En1992::MeanStrainDifference(rule, steel.tie, kt);
    crack.spacing = Data::Design::En1992::CrackSpacing(rule, steel.tie, share, wideDepth);
    crack.remark = share > 1.0 ? CrackRemark::wideBarSpacing : CrackRemark::none;
    crack.width = held * crack.spacing * crack.strain + (1.0 - held) * crack.width;
  }
  crack.width *= part;
  return crack;
}

// How much a face counts: by its slant to the gradient, unless all of the section is in tension,
// and by how far it reaches into the zone.
double PartOf(const CrackState& state, const Zone& zone, const CrackFace& face, double facing) {
  double reach = -kInfinity;
  for (const CrackEdge& edge : face.edges) {
    reach = std::max(
        {reach, Dot(zone.direction, edge.start), Dot(zone.direction, edge.At(edge.length))});
  }
  const double slant = std::max(Ramp(facing, 0.12, 0.17), Ramp(state.Uniformity(), 0.0, 0.05));
  return slant * Ramp(reach - zone.level, 0.0, 0.1 * zone.depth);
}

Vec2<double> ZoneDirection(const CrackState& state, Vec2<double> normal) {
  const double t = state.Uniformity();
  const double facing = std::max(Dot(normal, state.Gradient()), 0.0);
  const Vec2<double> between = (1.0 - t) * facing * state.Gradient() + t * normal;
  return 1.0 / Length(between) * between;
}

}  // namespace

void FindTieCracks(const CrackWidthParameters& rule, const CrackState& state, double longShare,
                   CrackSink& sink) {
  const bool isUniform = state.Uniformity() > 0.0;
  const Zone common = ZoneTowards(state, state.Gradient());
  int number = -1;
  for (const CrackFace& face : state.Component().faces) {
    ++number;
    CCrack widest;
    widest.width = 0.0;
    const auto take = [&](const Zone& zone, double facing) {
      const double part = PartOf(state, zone, face, facing);
      if (part <= 0.0) return;
      const CCrack crack = CrackOf(rule, state, longShare, zone, face, part);
      if (crack.width > widest.width) widest = crack;
    };
    double facing = -1.0;
    for (const CrackEdge& edge : face.edges) {
      facing = std::max(facing, Dot(edge.normal, state.Gradient()));
      // Edges may differ in the direction of their zones.
      if (isUniform) {
        take(ZoneTowards(state, ZoneDirection(state, edge.normal)),
             Dot(edge.normal, state.Gradient()));
      }
    }
    if (!isUniform && !face.edges.empty()) take(common, facing);
    widest.face = number;
    if (widest.width > 0.0) sink.Add(widest);
  }
}

}  // namespace Orlix::VlSol
