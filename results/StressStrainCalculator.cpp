#include "results/StressStrainCalculator.h"

#include "model/oxutil/lookup.h"
#include "model/vldata/response/SectionCompiler.h"

namespace Orlix {

using Data::CBar;
using Data::CSecComp;
using Data::Velmo9::AnalysisTask;
using Data::Velmo9::BarULSResult;
using Data::Velmo9::CaseULSDetails;
using Data::Velmo9::Deformation;
using Data::Velmo9::DetailedIntegrationResult;
using Data::Velmo9::PointULSResult;
using Data::Velmo9::StressStrainSummary;
using Data::Velmo9::VelmoSection;

template <class OnPoint, class OnBar>
void StressStrainCalculator::VisitUls(const VelmoSection& section,
                                      const DetailedIntegrationResult& result,
                                      const AnalysisTask& task, OnPoint onPoint,
                                      OnBar onBar) const {
  const Deformation& deformation = result.Deformation();
  int index = -1;
  for (const CSecComp& component : section.Components()) {
    if (!task.IncludesComponent(++index)) continue;
    const ComponentDetails& details = At(result.Components(), index);
    const GradeAndType material =
        GetGradeAndType(component.MaterialGrade(), component.MaterialType());
    for (const Data::SectionPolygon& polygon : component.Geometry().Polygons(0.0)) {
      for (const Vec2<double>& vertex : polygon.outline) {
        const double strain = PointStrainWithPrestrain(deformation, vertex, task, index, details);
        onPoint(index, material, vertex, strain, Stress(details.curve, strain));
      }
    }
    if (!component.ConcreteExist()) continue;
    int number = 0;
    for (const CBar& bar : component.Concrete().Bars()) {
      const Data::Design::CMatRebar& steel = document_.ReinforcementMaterial(bar.Grade());
      const double strain =
          BarStrainWithPrestrain(bar, deformation, LoadState::ULS, task, index, details);
      onBar(index, number++, bar, strain, Stress(steel.Curve(LoadState::ULS), strain));
    }
  }
}

void StressStrainCalculator::AddUlsPointResults(const VelmoSection& section, CaseULSDetails& record,
                                                const DetailedIntegrationResult& result,
                                                const AnalysisTask& task) const {
  VisitUls(
      section, result, task,
      [&](int component, const GradeAndType& material, Vec2<double> position, double strain,
          double stress) {
        record.pointResults[component].push_back(
            PointULSResult{position, strain, stress, material.first, material.second});
      },
      [&](int component, int number, const CBar& bar, double strain, double stress) {
        record.barResults[component].push_back(
            BarULSResult{number, bar.Position(), strain, stress, stress * bar.Area(),
                         document_.ReinforcementMaterial(bar.Grade()).Name()});
      });
}

void StressStrainCalculator::ComputeUlsSummary(const VelmoSection& section, CaseULSDetails& record,
                                               const DetailedIntegrationResult& result,
                                               const AnalysisTask& task) const {
  StressStrainSummary summary;
  VisitUls(
      section, result, task,
      [&](int, const GradeAndType&, Vec2<double>, double strain, double stress) {
        summary.UpdateConcrete(stress, strain);
      },
      [&](int, int, const CBar&, double strain, double stress) {
        summary.UpdateRebar(stress, strain);
      });
  record.stressStrainSummary = summary;
}

double StressStrainCalculator::PointStrainWithPrestrain(const Deformation& deformation,
                                                        Vec2<double> point,
                                                        const AnalysisTask& task, int component,
                                                        const ComponentDetails& details) {
  double strain = deformation.StrainAt(point);
  if (task.PreloadOf(component)) strain += details.lockedIn.StrainAt(point);
  return strain;
}

double StressStrainCalculator::BarStrainWithPrestrain(const CBar& bar,
                                                      const Deformation& deformation,
                                                      LoadState state, const AnalysisTask& task,
                                                      int component,
                                                      const ComponentDetails& details) const {
  double strain = deformation.StrainAt(bar.Position()) - BarPreStrain(bar, state);
  const auto preload = task.PreloadOf(component);
  if (preload && !preload->barsExcluded) {
    strain += details.lockedIn.StrainAt(bar.Position());
  }
  return strain;
}

double StressStrainCalculator::BarPreStrain(const CBar& bar, LoadState state) const {
  return Data::Velmo9::BarPreStrain(document_, bar, state);
}

double StressStrainCalculator::Stress(const Data::Design::CMatCurveParam& curve, double strain) {
  return 0.0 - curve.Stress(-strain);  // a negation that gives no negative zero
}

StressStrainCalculator::GradeAndType StressStrainCalculator::GetGradeAndType(int grade,
                                                                             MatType type) const {
  const Data::Materials& materials = *document_.getMaterials();
  if (type == MatType::concrete) return {materials.Grade(type, grade).Name(), L"concrete"};
  if (type == MatType::steel) return {materials.Grade(type, grade).Name(), L"steel"};
  return {materials.Grade(MatType::FRP, grade).Name(), L"FRP"};
}

}  // namespace Orlix
