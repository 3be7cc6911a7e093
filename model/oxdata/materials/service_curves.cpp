#include "model/oxdata/materials/service_curves.h"

#include <cstddef>

namespace Orlix::Data::Design {
namespace {

bool IsServiceModel(CurveKind kind) {
  return kind == CurveKind::bs8110Tension || kind == CurveKind::interpolated;
}

CurveShape LinearShape(double slope) {
  CurveShape shape;
  shape.kind = CurveKind::linear;
  shape.slope = slope;
  return shape;
}

CurveShape Stretched(CurveShape shape, double factor) {
  for (double* strain : {&shape.epsPeak, &shape.epsLimit, &shape.uniformLimit, &shape.blockStart,
                         &shape.epsHardening}) {
    *strain *= factor;
  }
  shape.slope /= factor;
  return shape;
}

CTableT<double> Stretched(const CTableT<double>& points, double factor) {
  CTableT<double> stretched(points.Columns());
  for (std::size_t row = 0; row < points.Rows(); ++row) {
    stretched.AddRow({factor * points(row, 0), points(row, 1)});
  }
  return stretched;
}

}  // namespace

CMatCurveParam Stretched(const CMatCurveParam& curve, double factor) {
  CMatCurveParam stretched = curve;
  stretched.SetExplicitPoints(Stretched(curve.ExplicitPoints(), factor));
  const CurveScale& scale = curve.Scale();
  stretched.SetShapes(Stretched(curve.Shape(LoadSign::compression), factor),
                      Stretched(curve.Shape(LoadSign::tension), factor),
                      {scale.strength, scale.modulus / factor});
  return stretched;
}

CMatCurveParam UncrackedCurve(const CMatCurveParam& sls, double creep) {
  CMatCurveParam curve = Stretched(sls, 1.0 + creep);
  CurveShape compression = curve.Shape(LoadSign::compression);
  CurveShape tension = curve.Shape(LoadSign::tension);
  for (CurveShape* side : {&compression, &tension}) {
    if (IsServiceModel(side->kind)) *side = LinearShape(0.0);
  }
  curve.SetShapes(compression, tension, CurveScale(curve.Scale()));
  return curve;
}

CMatCurveParam CrackedCurve(const CMatCurveParam& sls, double creep, double tensionModulus) {
  CMatCurveParam curve = UncrackedCurve(sls, creep);
  const CurveKind model = sls.Kind(LoadSign::tension);
  if (!IsServiceModel(model)) return curve;
  return WithTensionModulus(curve, model == CurveKind::bs8110Tension ? tensionModulus : 0.0);
}

CMatCurveParam WithTensionModulus(const CMatCurveParam& curve, double modulus) {
  CMatCurveParam changed = curve;
  changed.SetShapes(CurveShape(curve.Shape(LoadSign::compression)),
                    modulus > 0.0 ? LinearShape(modulus) : CurveShape{}, CurveScale(curve.Scale()));
  return changed;
}

}  // namespace Orlix::Data::Design
