#include "legacy/curve_records.h"

#include <string_view>
#include <utility>

#include "legacy/limits.h"
#include "materials/MaterialCurveImporter.h"

namespace Orlix::Legacy {
namespace {

using Data::Design::CMat;
using Data::Design::CMatCurveParam;
using Data::Design::CurveKind;
using Data::Design::CurveShape;

enum class Side { compression, tension, both };

constexpr std::array<std::pair<std::string_view, LoadState>, 2> kStates = {{
    {"ULS", LoadState::ULS},
    {"SLS", LoadState::SLS},
}};

constexpr std::array<std::pair<std::string_view, Side>, 3> kSides = {{
    {"COMPRESSION", Side::compression},
    {"TENSION", Side::tension},
    {"BOTH", Side::both},
}};

constexpr std::array<std::pair<std::string_view, CurveKind>, 9> kKinds = {{
    {"NONE", CurveKind::none},
    {"LINEAR", CurveKind::linear},
    {"EXPLICIT", CurveKind::explicitPoints},
    {"BILINEAR", CurveKind::bilinear},
    {"PARABOLA_RECTANGLE", CurveKind::parabolaRectangle},
    {"RECTANGULAR_BLOCK", CurveKind::rectangularBlock},
    {"NON_LINEAR", CurveKind::nonLinear},
    {"BS8110_TENSION", CurveKind::bs8110Tension},
    {"INTERPOLATED", CurveKind::interpolated},
}};

struct ShapeAttribute {
  std::string_view key;
  double CurveShape::*member;
  Range range;
};

constexpr std::array<ShapeAttribute, 8> kAttributes = {{
    {"eps_peak", &CurveShape::epsPeak, Range::notNegative},
    {"n", &CurveShape::exponent, Range::positive},
    {"block_start", &CurveShape::blockStart, Range::notNegative},
    {"block_factor", &CurveShape::blockFactor, Range::positive},
    {"hardening", &CurveShape::hardening, Range::positive},
    {"eps_hardening", &CurveShape::epsHardening, Range::notNegative},
    {"eps_limit", &CurveShape::epsLimit, Range::notNegative},
    {"eps_uniform", &CurveShape::uniformLimit, Range::notNegative},
}};

bool IsReadBy(CurveKind kind, double CurveShape::*member) {
  if (member == &CurveShape::uniformLimit) return true;
  if (member == &CurveShape::epsLimit) return kind != CurveKind::explicitPoints;
  if (member == &CurveShape::exponent) return kind == CurveKind::parabolaRectangle;
  if (member == &CurveShape::blockStart || member == &CurveShape::blockFactor) {
    return kind == CurveKind::rectangularBlock;
  }
  if (member != &CurveShape::epsPeak) return kind == CurveKind::bilinear;
  return kind == CurveKind::bilinear || kind == CurveKind::parabolaRectangle ||
         kind == CurveKind::nonLinear;
}

bool IsWhole(CurveKind kind) {
  return kind == CurveKind::bs8110Tension || kind == CurveKind::interpolated;
}

// A model of the whole curve stands on both sides, except beside an explicit one.
bool FitTogether(const CurveShape& a, const CurveShape& b) {
  if (a.kind == CurveKind::explicitPoints || b.kind == CurveKind::explicitPoints) return true;
  return (!IsWhole(a.kind) && !IsWhole(b.kind)) || a == b;
}

}  // namespace

void CurveRecords::ReadCurve(RecordReader& record) {
  const auto state = record.Word<LoadState>("limit state", kStates);
  if (!state) return;
  const auto side = record.Word<Side>("side", kSides);
  if (!side) return;
  const auto kind = record.Word<CurveKind>("curve", kKinds);
  if (!kind) return;
  CurveShape shape;
  shape.kind = *kind;
  for (const ShapeAttribute& attribute : kAttributes) {
    if (!IsReadBy(*kind, attribute.member)) continue;
    const auto number = record.NumberAttribute(attribute.key, attribute.range);
    if (number) shape.*attribute.member = *number;
  }
  State& curve = Of(*state);
  const bool isTwice = (*side != Side::tension && curve.compression) ||
                       (*side != Side::compression && curve.tension);
  if (isTwice) record.Problem("gives a side of this curve a second time");
  if (*side != Side::tension) curve.compression = shape;
  if (*side != Side::compression) curve.tension = shape;
}

void CurveRecords::ReadPoint(RecordReader& record) {
  const auto state = record.Word<LoadState>("limit state", kStates);
  const double strain = record.Number("strain");
  const double stress = record.Number("stress");
  if (!state || !record.IsSound()) return;
  Data::CTableT<double>& points = Of(*state).points;
  if (points.Rows() == kMaxPoints) {
    record.Problem("is one point too many: at most " + std::to_string(kMaxPoints) + " a curve");
  } else {
    points.AddRow({strain, stress});
  }
}

std::string CurveRecords::SetTo(CMat& material) const {
  for (const auto& [name, state] : kStates) {
    const State& given = states_[state == LoadState::ULS ? 0 : 1];
    CMatCurveParam& curve = material.Curve(state);
    const CurveShape compression = given.compression.value_or(curve.Shape(LoadSign::compression));
    const CurveShape tension = given.tension.value_or(curve.Shape(LoadSign::tension));
    const bool isExplicit =
        compression.kind == CurveKind::explicitPoints || tension.kind == CurveKind::explicitPoints;
    const std::string where = "the " + std::string(name) + " curve of this grade ";
    if (given.points.Rows() != 0 && !isExplicit) return where + "has points and no EXPLICIT side";
    if (!FitTogether(compression, tension)) {
      return where + "has BS8110_TENSION or INTERPOLATED on one side only";
    }
    curve.SetShapes(compression, tension, Data::Design::CurveScale(curve.Scale()));
    if (given.points.Rows() != 0) {
      curve.SetExplicitPoints(given.points);
      MaterialCurveImporter::FilterExplicitPoints(material, state);
    }
    if (curve.Segments().empty()) {
      return where + "is none: give a peak and a limit in this order, and points where EXPLICIT";
    }
  }
  return {};
}

}  // namespace Orlix::Legacy
