#include "materials/MaterialCurveImporter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <fstream>
#include <memory>
#include <vector>

#include "materials/CurveMessages.h"
#include "materials/curve_text.h"
#include "model/oxdata/materials/curve_sides.h"
#include "model/oxnumeric/Vec.h"

namespace Orlix {

using Data::CTableT;
using Data::Design::CMat;
using Data::Design::CurveKind;
using Data::Design::CurveShape;

namespace {

using Points = std::vector<Vec2<double>>;  // x strain, y stress [Pa], tension positive

constexpr double kZero = 1e-10;  // of a strain, and of a stress in Pa

bool IsOrigin(const Vec2<double>& point) {
  return std::abs(point.x) < kZero && std::abs(point.y) < kZero;
}

bool IsOnSide(const Vec2<double>& point, LoadSign sign) {
  if (!std::isfinite(point.x) || !std::isfinite(point.y)) return false;
  if (sign == LoadSign::tension) return point.x > 0.0 && point.y >= 0.0;
  return sign == LoadSign::compression && point.x < 0.0 && point.y <= 0.0;
}

// Whether a point of a curve's table belongs to a side; a step at zero strain counts, too.
bool BelongsTo(const Vec2<double>& point, LoadSign sign) {
  const double place = point.x != 0.0 ? point.x : point.y;
  return sign == LoadSign::tension ? place > 0.0 : place < 0.0;
}

Points RowsOf(const CTableT<double>& table) {
  Points rows;
  for (std::size_t i = 0; i < table.Rows(); ++i) rows.push_back({table(i, 0), table(i, 1)});
  return rows;
}

CTableT<double> TableOf(const Points& points) {
  CTableT<double> table(2);
  for (const Vec2<double>& point : points) table.AddRow({point.x, point.y});
  return table;
}

// In ascending strain. Points that run down from the largest strain are turned round, so that the
// two points of a vertical step stay in the order of the walk along the curve.
Points SortedByStrain(Points points) {
  const auto less = [](const Vec2<double>& a, const Vec2<double>& b) { return a.x < b.x; };
  const auto greater = [](const Vec2<double>& a, const Vec2<double>& b) { return a.x > b.x; };
  if (std::is_sorted(points.begin(), points.end(), greater)) {
    std::reverse(points.begin(), points.end());
  }
  std::stable_sort(points.begin(), points.end(), less);
  return points;
}

LoadSign Opposite(LoadSign sign) {
  return sign == LoadSign::tension ? LoadSign::compression : LoadSign::tension;
}

// A material's curve has one table for both sides: the new points, and those of the other side
// where that is explicit already.
Points WithOtherSide(const CMat& material, LoadState state, LoadSign sign, const Points& points) {
  const LoadSign other = Opposite(sign);
  if (material.Model(state, other) != CurveKind::explicitPoints) return points;
  Points kept = RowsOf(material.Curve(state).ExplicitPoints());
  std::erase_if(kept, [&](const Vec2<double>& point) { return !BelongsTo(point, other); });
  if (kept.empty()) return points;
  Points below = SortedByStrain(sign == LoadSign::tension ? kept : points);
  const Points above = SortedByStrain(sign == LoadSign::tension ? points : kept);
  below.insert(below.end(), above.begin(), above.end());
  return below;
}

bool MakesCurve(MatType type, LoadSign sign, const CTableT<double>& table) {
  CurveShape shape;
  shape.kind = CurveKind::explicitPoints;
  return !BuildSide(type, sign, shape, {}, table).segments.empty();
}

// Types whose curve in tension is whatever was imported last.
bool ReplacesTension(MatType type) { return type == MatType::concrete || type == MatType::FRP; }

bool HasCurves(MatType type) {
  return ReplacesTension(type) || type == MatType::steel || type == MatType::reinforcement;
}

}  // namespace

bool MaterialCurveImporter::Fail(const char* message) {
  error_ = message;
  return false;
}

bool MaterialCurveImporter::ImportPointsFromFile(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return ImportPointsFromText(CurveTextFrom(stream));
}

bool MaterialCurveImporter::ImportPointsFromText(const std::string& text) {
  if (text.empty()) return Fail(CurveMessages::kNoPoints);
  const double toStrain = data_.Units().Conversion(Dimension::strain);
  const double toStress = data_.Units().Conversion(Dimension::stress);
  CTableT<double> points(2);
  bool hasOrigin = false;
  for (const Vec2<double>& typed : NumberPairs(text)) {
    const Vec2<double> point{-typed.x / toStrain + 0.0, -typed.y / toStress + 0.0};
    if (IsOrigin(point)) {
      points.AddRow({0.0, 0.0});
      hasOrigin = true;
    } else if (IsOnSide(point, sign_)) {
      points.AddRow({point.x, point.y});
    }
  }
  if (points.Rows() < 2) return Fail(CurveMessages::kTooFewPoints);
  if (!hasOrigin) return Fail(CurveMessages::kNoOrigin);
  return ApplyExplicitCurve(points);
}

bool MaterialCurveImporter::ApplyExplicitCurve(CTableT<double>& points) {
  if (!HasCurves(type_)) return Fail(CurveMessages::kInvalidType);
  const std::shared_ptr<Data::Materials> materials = data_.getMaterials();
  if (!materials->IsValidGrade(type_, index_)) return Fail(CurveMessages::kInvalidGrade);
  // The origin given twice, or points within one vertical line, would leave no curve at all.
  if (!MakesCurve(type_, sign_, points)) return Fail(CurveMessages::kTooFewPoints);

  CMat& material = materials->Grade(type_, index_);
  const bool isWhole = ReplacesTension(type_) && sign_ == LoadSign::compression;
  const Points rows =
      isWhole ? RowsOf(points) : WithOtherSide(material, state_, sign_, RowsOf(points));
  material.SetExplicitPoints(state_, sign_, TableOf(rows));
  if (ReplacesTension(type_)) {
    material.SetExplicitPoints(state_, LoadSign::tension, TableOf(SortedByStrain(rows)));
  }
  return true;
}

void MaterialCurveImporter::FilterExplicitPoints(CMat& material, LoadState state) {
  Points rows = RowsOf(material.Curve(state).ExplicitPoints());
  for (Vec2<double>& point : rows) {
    if (IsOrigin(point)) point = {};
  }
  std::erase_if(rows, [](const Vec2<double>& point) {
    return !(point == Vec2<double>{}) && !IsOnSide(point, LoadSign::tension) &&
           !IsOnSide(point, LoadSign::compression);
  });
  rows = SortedByStrain(std::move(rows));
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  material.Curve(state).SetExplicitPoints(TableOf(rows));
}

}  // namespace Orlix
