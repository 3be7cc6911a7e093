#pragma once

#include <vector>

#include "model/vlsol/test/case_document.h"

namespace Orlix::VlSol::Test {

/// A document with one concrete and one steel for examples of serviceability: C30/37 (E 33 GPa,
/// f_ct 2.9 MPa) with a tension model, B500 (E 200 GPa, yielding at 500 MPa). Bars displace
/// nothing, so that closed forms stay short.
class ServiceBeam {
 public:
  static constexpr double kModulus = 33e9;
  static constexpr double kSteelModulus = 200e9;
  static constexpr double kRatio = kSteelModulus / kModulus;
  static constexpr double kTensileStrength = 2.9e6;
  static constexpr double kYield = 500e6;

  explicit ServiceBeam(Data::Design::CurveKind model);

  ServiceBeam& Outline(std::vector<Vec2<double>> outline,
                       std::vector<std::vector<Vec2<double>>> holes = {});
  /// A rectangle about the origin. @param b, h  width and depth [m]
  ServiceBeam& Rectangle(double b, double h);
  ServiceBeam& Bar(Vec2<double> position, double area, double prestrain = 0.0, int component = 0);
  ServiceBeam& Code(const wchar_t* name);
  ServiceBeam& Creep(const Data::Velmo9::CreepSettings& creep);

  CaseDocument& Document() { return document_; }
  /// Solves one load or one deformation as a task of the document.
  Data::Velmo9::SLSResult Under(const Vec3<double>& load);
  Data::Velmo9::SLSResult At(const Vec3<double>& plane);

 private:
  CaseDocument document_;
  int concrete_;
  int steel_;
};

}  // namespace Orlix::VlSol::Test
