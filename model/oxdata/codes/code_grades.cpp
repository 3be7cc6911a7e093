#include "model/oxdata/codes/code_grades.h"

namespace Orlix::Data::Design {

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
