#include "model/oxdata/codes/code_grades.h"

namespace Orlix::Data::Design {
namespace {

template <class Mat>
std::vector<Mat> Steels(const Mat& empty, std::span<const SteelGrade> grades, double modulus,
                        double gamma) {
  std::vector<Mat> steels;
  for (const SteelGrade& grade : grades) {
    steels.push_back(BilinearSteel(empty, grade.name, grade.megapascals * 1e6, modulus, gamma));
  }
  return steels;
}

}  // namespace

std::vector<CMat> StructuralSteels(std::span<const SteelGrade> grades, double modulus,
                                   double gamma) {
  return Steels(CMat(MatType::steel), grades, modulus, gamma);
}

std::vector<CMatRebar> Bars(std::span<const SteelGrade> grades, double modulus, double gamma) {
  return Steels(CMatRebar(), grades, modulus, gamma);
}

CMat ConcreteGrade(const wchar_t* name, const MaterialProperties& properties, const CurveShape& uls,
                   CurveKind sls) {
  CMat concrete(MatType::concrete);
  concrete.SetName(name);
  concrete.SetProperties(properties);
  concrete.SetShape(LoadState::ULS, LoadSign::compression, uls);
  concrete.SetShape(LoadState::ULS, LoadSign::tension, {});
  CurveShape service;
  service.kind = sls;
  concrete.SetShape(LoadState::SLS, LoadSign::compression, service);
  return concrete;
}

CMatRebar ShapedSteel(const wchar_t* name, const MaterialProperties& properties,
                      const CurveShape& uls, const CurveShape& sls) {
  CMatRebar steel;
  steel.SetName(name);
  steel.SetProperties(properties);
  for (const LoadSign sign : {LoadSign::compression, LoadSign::tension}) {
    steel.SetShape(LoadState::ULS, sign, uls);
    steel.SetShape(LoadState::SLS, sign, sls);
  }
  return steel;
}

}  // namespace Orlix::Data::Design
