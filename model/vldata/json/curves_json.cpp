#include "model/vldata/json/curves_json.h"

#include <array>

#include "model/oxutil/json.h"
#include "model/vldata/json/ObjectReader.h"
#include "model/vldata/json/json_values.h"

namespace Orlix::Data {
namespace {

using Design::CMatCurveParam;
using Design::CurveKind;
using Design::CurveShape;

constexpr std::array<std::pair<std::string_view, CurveKind>, 9> kCurveNames = {{
    {"none", CurveKind::none},
    {"linear", CurveKind::linear},
    {"explicit", CurveKind::explicitPoints},
    {"bilinear", CurveKind::bilinear},
    {"parabola-rectangle", CurveKind::parabolaRectangle},
    {"rectangular-block", CurveKind::rectangularBlock},
    {"non-linear", CurveKind::nonLinear},
    {"BS 8110 tension", CurveKind::bs8110Tension},
    {"interpolated", CurveKind::interpolated},
}};

// A number of a shape: its name in documents and the kinds that read it.
struct ShapeMember {
  std::string_view name;
  double CurveShape::*member;
  NumberRange range;
  bool (*isReadBy)(CurveKind kind);
};

bool HasPeak(CurveKind kind) {
  return kind == CurveKind::bilinear || kind == CurveKind::parabolaRectangle ||
         kind == CurveKind::nonLinear;
}
bool IsParabola(CurveKind kind) { return kind == CurveKind::parabolaRectangle; }
bool IsBlock(CurveKind kind) { return kind == CurveKind::rectangularBlock; }
bool IsBilinear(CurveKind kind) { return kind == CurveKind::bilinear; }
bool HasLimit(CurveKind kind) { return kind != CurveKind::explicitPoints; }
bool Every(CurveKind) { return true; }

constexpr std::array<ShapeMember, 8> kShapeMembers = {{
    {"eps_peak", &CurveShape::epsPeak, NumberRange::notNegative, HasPeak},
    {"n", &CurveShape::exponent, NumberRange::positive, IsParabola},
    {"block_start", &CurveShape::blockStart, NumberRange::notNegative, IsBlock},
    {"block_factor", &CurveShape::blockFactor, NumberRange::positive, IsBlock},
    {"hardening", &CurveShape::hardening, NumberRange::positive, IsBilinear},
    {"eps_hardening", &CurveShape::epsHardening, NumberRange::notNegative, IsBilinear},
    {"eps_limit", &CurveShape::epsLimit, NumberRange::notNegative, HasLimit},
    {"eps_uniform", &CurveShape::uniformLimit, NumberRange::notNegative, Every},
}};

Util::JsonValue ShapeToJson(const CurveShape& shape, Util::JsonAllocator& allocator) {
  Util::JsonValue json(rapidjson::kObjectType);
  for (const auto& [name, kind] : kCurveNames) {
    if (kind == shape.kind) AddText(json, "curve", name, allocator);
  }
  const CurveShape defaults;
  for (const ShapeMember& m : kShapeMembers) {
    if (m.isReadBy(shape.kind) && shape.*m.member != defaults.*m.member) {
      AddNumber(json, m.name, shape.*m.member, allocator);
    }
  }
  return json;
}

CurveShape ShapeFromJson(const Util::JsonValue& json, const JsonPath& path,
                         const CurveShape& fallback, ProblemList& problems) {
  ObjectReader reader(json, path, problems);
  const auto kind = reader.Choice<CurveKind>("curve", kCurveNames);
  if (!kind) {
    if (json.IsObject() && reader.Find("curve") == nullptr) {
      reader.Report("curve", "the name of a curve");
    }
    return fallback;
  }
  const CurveShape defaults;
  CurveShape shape;
  shape.kind = *kind;
  for (const ShapeMember& m : kShapeMembers) {
    if (!m.isReadBy(*kind)) continue;
    shape.*m.member = reader.Number(m.name, m.range).value_or(defaults.*m.member);
  }
  reader.ReportUnknown();
  return shape;
}

CTableT<double> PointsFromJson(const Util::JsonValue& array, const JsonPath& path,
                               ProblemList& problems) {
  CTableT<double> points(2);
  for (rapidjson::SizeType i = 0; i < array.Size(); ++i) {
    if (const auto point = PairFrom(array[i], path.Element(i), problems)) {
      points.AddRow({point->x, point->y});
    }
  }
  return points;
}

bool IsWholeCurve(CurveKind kind) {
  return kind == CurveKind::bs8110Tension || kind == CurveKind::interpolated;
}

// The two models of a whole curve stand on both sides, except beside an explicit side.
bool FitTogether(const CurveShape& a, const CurveShape& b) {
  if (a.kind == CurveKind::explicitPoints || b.kind == CurveKind::explicitPoints) return true;
  return (!IsWholeCurve(a.kind) && !IsWholeCurve(b.kind)) || a == b;
}

}  // namespace

Util::JsonValue CurveToJson(const CMatCurveParam& curve, Util::JsonAllocator& allocator) {
  Util::JsonValue json(rapidjson::kObjectType);
  Util::JsonValue side = ShapeToJson(curve.Shape(LoadSign::compression), allocator);
  AddMember(json, "compression", side, allocator);
  side = ShapeToJson(curve.Shape(LoadSign::tension), allocator);
  AddMember(json, "tension", side, allocator);
  const CTableT<double>& table = curve.ExplicitPoints();
  if (table.Rows() == 0) return json;
  Util::JsonValue points(rapidjson::kArrayType);
  for (std::size_t row = 0; row < table.Rows(); ++row) {
    PushPair(points, {table(row, 0), table(row, 1)}, allocator);
  }
  AddMember(json, "points", points, allocator);
  return json;
}

void ReadCurve(const Util::JsonValue& json, const JsonPath& path, LoadState state,
               Design::CMat& material, ProblemList& problems) {
  ObjectReader reader(json, path, problems);
  CMatCurveParam& curve = material.Curve(state);
  CurveShape compression = curve.Shape(LoadSign::compression);
  CurveShape tension = curve.Shape(LoadSign::tension);
  if (const auto* side = reader.Find("compression")) {
    compression = ShapeFromJson(*side, reader.PathOf("compression"), compression, problems);
  }
  if (const auto* side = reader.Find("tension")) {
    tension = ShapeFromJson(*side, reader.PathOf("tension"), tension, problems);
  }
  if (const auto* points = reader.Array("points")) {
    curve.SetExplicitPoints(PointsFromJson(*points, reader.PathOf("points"), problems));
  }
  reader.ReportUnknown();
  if (FitTogether(compression, tension)) {
    curve.SetShapes(compression, tension, Design::CurveScale(curve.Scale()));
  } else {
    problems.AddText(path, "different curves in compression and tension",
                     "\"BS 8110 tension\" or \"interpolated\" alike on both sides");
  }
  if (curve.Segments().empty()) {
    problems.AddText(path, "numbers that give no curve",
                     "a peak and a limit in this order, a modulus, and points where explicit");
  }
}

}  // namespace Orlix::Data
