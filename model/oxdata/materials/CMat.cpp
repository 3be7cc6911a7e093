#include "model/oxdata/materials/CMat.h"

#include <cstddef>

namespace Orlix::Data::Design {
namespace {

bool IsServiceabilityModel(CurveKind kind) {
  return kind == CurveKind::bs8110Tension || kind == CurveKind::interpolated;
}

std::size_t Index(LoadState state) { return state == LoadState::ULS ? 0 : 1; }

CurveShape OfKind(CurveKind kind) {
  CurveShape shape;
  shape.kind = kind;
  return shape;
}

}  // namespace

CMat::CMat(MatType type) : type_(type), curves_{CMatCurveParam(type), CMatCurveParam(type)} {
  std::array<CurveShape, 2> compression{OfKind(CurveKind::bilinear), OfKind(CurveKind::bilinear)};
  std::array<CurveShape, 2> tension = compression;
  switch (type) {
    case MatType::concrete:
      properties_ = {30e6, 33e9, 2.9e6, 1.0, 1.5};
      compression = {OfKind(CurveKind::parabolaRectangle), OfKind(CurveKind::linear)};
      compression[0].epsPeak = 0.002;
      compression[0].epsLimit = 0.0035;
      compression[0].uniformLimit = 0.002;
      tension = {};
      break;
    case MatType::reinforcement:
      properties_ = {500e6, 200e9, 0.0, 1.0, 1.15};
      break;
    case MatType::steel:
      properties_ = {355e6, 210e9, 0.0, 1.0, 1.0};
      break;
    case MatType::FRP:
      compression = {};
      tension = {OfKind(CurveKind::linear), OfKind(CurveKind::linear)};
      break;
    case MatType::none:
      return;
  }
  for (const LoadState state : {LoadState::ULS, LoadState::SLS}) {
    const std::size_t i = Index(state);
    curves_[i].SetShapes(compression[i], tension[i], ScaleOf(state));
  }
}

void CMat::SetProperties(const MaterialProperties& properties) {
  properties_ = properties;
  for (const LoadState state : {LoadState::ULS, LoadState::SLS}) {
    CMatCurveParam& curve = curves_[Index(state)];
    curve.SetShapes(curve.Shape(LoadSign::compression), curve.Shape(LoadSign::tension),
                    ScaleOf(state));
  }
}

double CMat::DesignStrength() const {
  return properties_.alpha * properties_.f_k / properties_.gamma;
}

void CMat::SetShape(LoadState state, LoadSign sign, const CurveShape& shape) {
  CMatCurveParam& curve = curves_[Index(state)];
  CurveShape compression = curve.Shape(LoadSign::compression);
  CurveShape tension = curve.Shape(LoadSign::tension);
  CurveShape& own = sign == LoadSign::compression ? compression : tension;
  CurveShape& other = sign == LoadSign::compression ? tension : compression;
  own = shape;
  if (shape.kind != CurveKind::explicitPoints && other.kind != CurveKind::explicitPoints) {
    if (IsServiceabilityModel(shape.kind)) {
      other = shape;
    } else if (IsServiceabilityModel(other.kind)) {
      // Half of such a model means nothing: what stays is the curve that it stood for.
      other = OfKind(sign == LoadSign::tension ? CurveKind::linear : CurveKind::none);
    }
  }
  curve.SetShapes(compression, tension, ScaleOf(state));
}

void CMat::SetExplicitPoints(LoadState state, LoadSign sign, const CTableT<double>& points) {
  CMatCurveParam& curve = curves_[Index(state)];
  curve.SetExplicitPoints(points);
  if (curve.Kind(sign) != CurveKind::explicitPoints) {
    SetShape(state, sign, OfKind(CurveKind::explicitPoints));
  }
}

const CMatCurveParam& CMat::Curve(LoadState state) const { return curves_[Index(state)]; }

CMatCurveParam& CMat::Curve(LoadState state) { return curves_[Index(state)]; }

CurveScale CMat::ScaleOf(LoadState state) const {
  return {state == LoadState::ULS ? DesignStrength() : properties_.f_k, properties_.E};
}

}  // namespace Orlix::Data::Design
