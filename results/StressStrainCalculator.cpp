#include "results/StressStrainCalculator.h"

#include "model/oxutil/lookup.h"

namespace Orlix {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::BarULSResult;
using Data::Velmo9::CaseULSDetails;
using Data::Velmo9::Deformation;
using Data::Velmo9::DetailedIntegrationResult;
using Data::Velmo9::PointULSResult;
using Data::Velmo9::StressStrainSummary;
using Data::Velmo9::VelmoSection;

StressStrainCalculator::StressStrainCalculator(const Data::CVelmoData& document,
                                               const VelmoSection& section,
                                               const AnalysisTask& task)
    : document_(document), shared_(std::make_shared<LazyTaskSamples>(document, section, task)) {}

std::shared_ptr<const TaskSamples> StressStrainCalculator::SamplesOf(
    const VelmoSection& section, const AnalysisTask& task) const {
  if (!shared_) return std::make_shared<TaskSamples>(document_, section, task);
  // Not counted: many threads would count on one number.
  return {std::shared_ptr<const TaskSamples>(), &shared_->Get()};
}

template <class OnPoint, class OnBar>
void StressStrainCalculator::VisitUls(const TaskSamples& samples,
                                      const DetailedIntegrationResult& result, OnPoint onPoint,
                                      OnBar onBar) {
  const Deformation& deformation = result.Deformation();
  for (const TaskSamples::Component& component : samples.components) {
    const ComponentDetails& details = At(result.Components(), component.index);
    for (const Vec2<double>& vertex : component.vertices) {
      const double strain = PointStrain(deformation, vertex, component, details);
      onPoint(component, vertex, strain, Stress(details.curve, strain));
    }
    for (const TaskSamples::Bar& bar : component.bars) {
      const double strain = BarStrain(deformation, bar, bar.ulsPreStrain, component, details);
      onBar(component, bar, strain, Stress(bar.steel->Curve(LoadState::ULS), strain));
    }
  }
}

void StressStrainCalculator::AddUlsPointResults(const VelmoSection& section, CaseULSDetails& record,
                                                const DetailedIntegrationResult& result,
                                                const AnalysisTask& task) const {
  VisitUls(
      *SamplesOf(section, task), result,
      [&](const Component& component, Vec2<double> position, double strain, double stress) {
        record.pointResults[component.index].push_back(
            PointULSResult{position, strain, stress, component.grade, component.materialType});
      },
      [&](const Component& component, const Bar& sample, double strain, double stress) {
        const int number = static_cast<int>(&sample - component.bars.data());
        const Data::CBar& bar = *sample.bar;
        record.barResults[component.index].push_back(BarULSResult{
            number, bar.Position(), strain, stress, stress * bar.Area(), sample.steel->Name()});
      });
}

void StressStrainCalculator::ComputeUlsSummary(const VelmoSection& section, CaseULSDetails& record,
                                               const DetailedIntegrationResult& result,
                                               const AnalysisTask& task) const {
  StressStrainSummary summary;
  VisitUls(
      *SamplesOf(section, task), result,
      [&](const Component&, Vec2<double>, double strain, double stress) {
        summary.UpdateConcrete(stress, strain);
      },
      [&](const Component&, const Bar&, double strain, double stress) {
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

double StressStrainCalculator::PointStrain(const Deformation& deformation, Vec2<double> point,
                                           const Component& component,
                                           const ComponentDetails& details) {
  double strain = deformation.StrainAt(point);
  if (component.preload) strain += details.lockedIn.StrainAt(point);
  return strain;
}

double StressStrainCalculator::BarStrain(const Deformation& deformation, const Bar& bar,
                                         double preStrain, const Component& component,
                                         const ComponentDetails& details) {
  const Vec2<double> position = bar.bar->Position();
  double strain = deformation.StrainAt(position) - preStrain;
  if (component.preload && !component.preload->barsExcluded) {
    strain += details.LockedIntoBars().StrainAt(position);
  }
  return strain;
}

double StressStrainCalculator::Stress(const Data::Design::CMatCurveParam& curve, double strain) {
  return 0.0 - curve.Stress(-strain);  // a negation that gives no negative zero
}

}  // namespace Orlix
