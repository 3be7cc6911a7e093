#include "model/vlsol/cracks/crack_geometry.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>

#include "model/oxnumeric/polygon.h"

namespace Orlix::VlSol {
namespace {

using Data::CBar;
using Data::CSecComp;
using Data::SectionPolygon;

constexpr double kSamePoint = 1e-9;  // [m]
// Cosine of 20°: a larger turn of an outline ends a face.
constexpr double kStraightOn = 0.9396926;

bool IsInside(const std::vector<SectionPolygon>& polygons, Vec2<double> p) {
  return std::any_of(polygons.begin(), polygons.end(), [p](const SectionPolygon& polygon) {
    return Numeric::Contains(polygon.outline, p) == Numeric::Location::inside &&
           std::none_of(polygon.holes.begin(), polygon.holes.end(), [p](const auto& hole) {
             return Numeric::Contains(hole, p) == Numeric::Location::inside;
           });
  });
}

std::vector<CrackEdge> EdgesOf(const SectionPolygon& polygon) {
  std::vector<Vec2<double>> ring = Numeric::WithoutDuplicates(polygon.outline, kSamePoint);
  if (Numeric::SignedArea(ring) < 0.0) std::reverse(ring.begin(), ring.end());
  std::vector<CrackEdge> edges;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Vec2<double> along = ring[(i + 1) % ring.size()] - ring[i];
    const double length = Length(along);
    const Vec2<double> direction = 1.0 / length * along;
    edges.push_back({ring[i], direction, {direction.y, -direction.x}, length});
  }
  return edges;
}

// Whether an edge is the surface of the section, not that of another component.
bool IsExposed(const CrackEdge& edge, const std::vector<std::vector<SectionPolygon>>& others) {
  constexpr double kOutside = 1e-4;  // [m], beyond what components that touch may leave open
  constexpr int kPlaces = 5;
  for (int i = 0; i < kPlaces; ++i) {
    const Vec2<double> p = edge.At(edge.length * (i + 0.5) / kPlaces) + kOutside * edge.normal;
    const bool isCovered = std::any_of(others.begin(), others.end(),
                                       [p](const auto& other) { return IsInside(other, p); });
    if (!isCovered) return true;
  }
  return false;
}

bool GoesOn(const CrackEdge& before, const CrackEdge& after) {
  return Dot(before.direction, after.direction) > kStraightOn;
}

void AddFaces(const SectionPolygon& polygon, const std::vector<std::vector<SectionPolygon>>& others,
              std::vector<CrackFace>& faces) {
  std::vector<CrackEdge> edges = EdgesOf(polygon);
  if (edges.size() < 3) return;
  // Begin at a corner, if there is one.
  for (std::size_t i = 0; i < edges.size(); ++i) {
    if (GoesOn(edges[(i + edges.size() - 1) % edges.size()], edges[i])) continue;
    std::rotate(edges.begin(), edges.begin() + static_cast<std::ptrdiff_t>(i), edges.end());
    break;
  }
  const CrackEdge* before = nullptr;
  for (const CrackEdge& edge : edges) {
    if (before == nullptr || !GoesOn(*before, edge)) faces.emplace_back();
    if (IsExposed(edge, others)) faces.back().edges.push_back(edge);
    before = &edge;
  }
}

double DistanceTo(const CrackFace& face, Vec2<double> p) {
  double distance = std::numeric_limits<double>::infinity();
  for (const CrackEdge& edge : face.edges) {
    const double s = std::clamp(Dot(p - edge.start, edge.direction), 0.0, edge.length);
    distance = std::min(distance, Length(p - edge.At(s)));
  }
  return distance;
}

CrackBar BarOf(const Data::CVelmoData& document, const CBar& bar) {
  const auto& steel = document.ReinforcementMaterial(bar.Grade()).Properties();
  const double diameter =
      bar.Diameter() > 0.0 ? bar.Diameter() : 2.0 * std::sqrt(bar.Area() / std::numbers::pi);
  return {bar.Position(), bar.Area(),          diameter,
          steel.E,        steel.f_k / steel.E, bar.GetPreload().value != 0.0};
}

bool CarriesTension(const Data::Design::CMatCurveParam& curve) {
  constexpr double kSmallStrain = 1e-6;
  return curve.Stress(-kSmallStrain) != 0.0;
}

}  // namespace

std::vector<CrackComponent> CrackComponent::Of(
    const Data::CVelmoData& document, const Data::Velmo9::VelmoSection& section, int iTask,
    const Data::Velmo9::DetailedIntegrationResult::ComponentMap& cracked) {
  const auto& all = section.Components();
  std::vector<CrackComponent> components;
  for (const auto& [index, details] : cracked) {
    const CSecComp& component = all[static_cast<std::size_t>(index)];
    if (!component.ConcreteExist()) continue;
    CrackComponent own;
    own.index = index;
    own.polygons = component.Geometry().Polygons(0.0);
    std::vector<std::vector<SectionPolygon>> others;
    for (const auto& [other, unused] : cracked) {
      if (other == index) continue;
      others.push_back(all[static_cast<std::size_t>(other)].Geometry().Polygons(0.0));
    }
    for (const SectionPolygon& polygon : own.polygons) AddFaces(polygon, others, own.faces);
    const auto& concrete =
        document.getMaterials()->Grade(MatType::concrete, component.MaterialGrade()).Properties();
    own.f_ct = concrete.f_ct;
    own.modulus = concrete.E;
    own.carriesTension = CarriesTension(details.curve);
    own.neverCracks = details.curve.Kind(LoadSign::tension) == Data::Design::CurveKind::linear &&
                      !(details.cracking && details.cracking->bs8110);
    own.lockedIn = details.lockedIn;
    const auto preload = section.Task(iTask).PreloadOf(index);
    if (preload && !preload->barsExcluded) own.lockedIntoBars = details.LockedIntoBars();
    for (const CBar& bar : component.Concrete().Bars()) {
      own.bars.push_back(BarOf(document, bar));
      for (CrackFace& face : own.faces) {
        const CrackBar& last = own.bars.back();
        face.covers.push_back(DistanceTo(face, last.position) - last.diameter / 2);
      }
    }
    components.push_back(std::move(own));
  }
  return components;
}

CutArea CutAt(const std::vector<SectionPolygon>& polygons, Vec2<double> direction, double level) {
  // By Green's theorem: the area is ∮ max(u - level, 0) dv, the chord ∮ [u > level] dv.
  const Vec2<double> across{-direction.y, direction.x};
  const auto cut = [&](const std::vector<Vec2<double>>& ring) {
    CutArea part;
    if (ring.empty()) return part;
    Vec2<double> a = ring.back();
    double ua = Dot(direction, a) - level;
    for (const Vec2<double>& b : ring) {
      const double ub = Dot(direction, b) - level;
      const double dv = Dot(across, b - a);
      if (ua > 0.0 && ub > 0.0) {
        part.area += dv * (ua + ub) / 2;
        part.chord += dv;
      } else if (ua > 0.0 || ub > 0.0) {
        const double inside = std::max(ua, ub);
        const double share = inside / std::abs(ub - ua);
        part.area += dv * share * inside / 2;
        part.chord += dv * share;
      }
      a = b;
      ua = ub;
    }
    return CutArea{std::abs(part.area), std::abs(part.chord)};
  };
  CutArea sum;
  for (const SectionPolygon& polygon : polygons) {
    const CutArea outer = cut(polygon.outline);
    sum.area += outer.area;
    sum.chord += outer.chord;
    for (const auto& hole : polygon.holes) {
      const CutArea inner = cut(hole);
      sum.area -= inner.area;
      sum.chord -= inner.chord;
    }
  }
  return sum;
}

}  // namespace Orlix::VlSol
