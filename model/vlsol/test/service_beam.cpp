#include "model/vlsol/test/service_beam.h"

#include <utility>

namespace Orlix::VlSol::Test {

using Data::Design::CurveKind;
using Data::Design::CurveShape;

ServiceBeam::ServiceBeam(CurveKind model) : document_(false) {
  concrete_ = document_.AddMaterial(
      MatType::concrete, {20e6, kModulus},
      {.kind = CurveKind::parabolaRectangle, .epsPeak = 0.002, .epsLimit = 0.0035}, {});
  document_.SetServiceCurve(MatType::concrete, concrete_, {.kind = CurveKind::linear},
                            {.kind = model}, kTensileStrength);
  const CurveShape steel{.kind = CurveKind::bilinear};
  steel_ = document_.AddMaterial(MatType::reinforcement, {kYield, kSteelModulus}, steel, steel);
}

ServiceBeam& ServiceBeam::Outline(std::vector<Vec2<double>> outline,
                                  std::vector<std::vector<Vec2<double>>> holes) {
  document_.AddComponent(MatType::concrete, concrete_, {std::move(outline), std::move(holes)});
  return *this;
}

ServiceBeam& ServiceBeam::Rectangle(double b, double h) {
  return Outline({{-b / 2, -h / 2}, {b / 2, -h / 2}, {b / 2, h / 2}, {-b / 2, h / 2}});
}

ServiceBeam& ServiceBeam::Bar(Vec2<double> position, double area, double prestrain, int component) {
  document_.AddBar(component, position, area, steel_, prestrain);
  return *this;
}

ServiceBeam& ServiceBeam::Code(const wchar_t* name) {
  document_.Document().SetCodes(name);
  return *this;
}

ServiceBeam& ServiceBeam::Creep(const Data::Velmo9::CreepSettings& creep) {
  document_.Settings().SetCreep(creep);
  return *this;
}

Data::Velmo9::SLSResult ServiceBeam::Under(const Vec3<double>& load) {
  return document_.SolveSls(LoadAction::load, load);
}

Data::Velmo9::SLSResult ServiceBeam::At(const Vec3<double>& plane) {
  return document_.SolveSls(LoadAction::deformation, plane);
}

}  // namespace Orlix::VlSol::Test
