// The serviceability half of StressStrainCalculator.

#include <optional>
#include <utility>
#include <vector>

#include "model/oxutil/lookup.h"
#include "results/SlsComponentContext.h"
#include "results/StressStrainCalculator.h"

namespace Orlix {

using Data::Design::CurveKind;
using Data::Velmo9::BarSLSResult;
using Data::Velmo9::CaseSLSDetails;
using Data::Velmo9::DetailedIntegrationResult;
using Data::Velmo9::PointSLSResult;
using Data::Velmo9::SlsResponse;
using Data::Velmo9::SlsStressStrainSummary;
using Data::Velmo9::VelmoSection;

template <class OnComponent>
void StressStrainCalculator::VisitSls(int iSec, int iTask, const SlsResponse& response,
                                      OnComponent onComponent) const {
  static const ComponentDetails kNoDetails;
  const VelmoSection& section = document_.Section(iSec);
  const bool calculateCracked = ShouldCalculateCracked(section, iTask);
  const std::shared_ptr<const TaskSamples> samples = SamplesOf(section, section.Task(iTask));
  for (const TaskSamples::Component& component : samples->components) {
    const ComponentDetails& cracked = At(response.cracked.Components(), component.index);
    const auto uncracked = response.uncracked.Components().find(component.index);
    const bool hasUncracked = uncracked != response.uncracked.Components().end();
    onComponent(SlsComponentContext{component, response,
                                    hasUncracked ? uncracked->second : kNoDetails, cracked,
                                    calculateCracked});
  }
}

template <class OnPoint>
void StressStrainCalculator::VisitSlsPoints(const SlsComponentContext& context, OnPoint onPoint) {
  const int index = context.component.index;
  const bool hasUncracked = context.response.uncracked.Components().contains(index);
  const bool hasCracked =
      context.calculateCracked && context.response.cracked.Components().contains(index);
  const auto at = [&](Vec2<double> point, const DetailedIntegrationResult& state,
                      const ComponentDetails& details) {
    const double strain = PointStrain(state.Deformation(), point, context.component, details);
    return std::optional<SlsSample>({strain, Stress(details.curve, strain)});
  };
  for (const Vec2<double>& vertex : context.component.vertices) {
    onPoint(vertex,
            hasUncracked ? at(vertex, context.response.uncracked, context.uncracked) : std::nullopt,
            hasCracked ? at(vertex, context.response.cracked, context.cracked) : std::nullopt);
  }
}

template <class OnBar>
void StressStrainCalculator::VisitSlsBars(const SlsComponentContext& context, OnBar onBar) {
  const auto at = [&](const Bar& bar, const DetailedIntegrationResult& state,
                      const ComponentDetails& details) {
    const double strain =
        BarStrain(state.Deformation(), bar, bar.slsPreStrain, context.component, details);
    return std::optional<SlsSample>({strain, Stress(bar.steel->Curve(LoadState::SLS), strain)});
  };
  const bool hasUncracked = context.uncracked.barResultsValid;
  const bool hasCracked = context.calculateCracked && context.cracked.barResultsValid;
  for (const Bar& bar : context.component.bars) {
    onBar(bar, hasUncracked ? at(bar, context.response.uncracked, context.uncracked) : std::nullopt,
          hasCracked ? at(bar, context.response.cracked, context.cracked) : std::nullopt);
  }
}

void StressStrainCalculator::AddSlsPointResults(int iSec, int iTask, const SlsResponse& response,
                                                CaseSLSDetails& record) const {
  VisitSls(iSec, iTask, response, [&](const SlsComponentContext& context) {
    AddSlsComponentPointResults(context, record);
    AddSlsComponentBarResults(context, record);
  });
}

void StressStrainCalculator::ComputeSlsSummary(int iSec, int iTask, const SlsResponse& response,
                                               CaseSLSDetails& record) const {
  SlsStressStrainSummary summary;
  if (ShouldCalculateCracked(document_.Section(iSec), iTask)) summary.cracked.emplace();
  VisitSls(iSec, iTask, response, [&](const SlsComponentContext& context) {
    UpdateSlsConcreteSummary(context, summary);
    UpdateSlsRebarSummary(context, summary);
  });
  record.stressStrainSummary = summary;
}

bool StressStrainCalculator::ShouldCalculateCracked(const VelmoSection& section, int iTask) const {
  const auto has = [&](CurveKind model) {
    return document_.HasMaterialModel(section, iTask, LoadState::SLS, static_cast<int>(model));
  };
  return has(CurveKind::bs8110Tension) || has(CurveKind::interpolated);
}

void StressStrainCalculator::AddSlsComponentPointResults(const SlsComponentContext& context,
                                                         CaseSLSDetails& record) {
  std::vector<PointSLSResult> points;
  VisitSlsPoints(context, [&](Vec2<double> position, const std::optional<SlsSample>& uncracked,
                              const std::optional<SlsSample>& cracked) {
    PointSLSResult& point = points.emplace_back();
    point.position = position;
    point.grade = context.component.grade;
    point.materialType = context.component.materialType;
    if (uncracked) {
      point.strainUncracked = uncracked->strain;
      point.stressUncracked = uncracked->stress;
    }
    if (cracked) {
      point.strainCracked = cracked->strain;
      point.stressCracked = cracked->stress;
    }
  });
  record.pointResults[context.component.index] = std::move(points);
}

void StressStrainCalculator::AddSlsComponentBarResults(const SlsComponentContext& context,
                                                       CaseSLSDetails& record) {
  if (!context.component.hasConcrete) return;
  std::vector<BarSLSResult> bars;
  VisitSlsBars(context, [&](const Bar& sample, const std::optional<SlsSample>& uncracked,
                            const std::optional<SlsSample>& cracked) {
    const Data::CBar& bar = *sample.bar;
    const int number = static_cast<int>(bars.size());
    BarSLSResult& result = bars.emplace_back();
    result.number = number;
    result.position = bar.Position();
    result.grade = sample.steel->Name();
    if (uncracked) {
      result.strainUncracked = uncracked->strain;
      result.stressUncracked = uncracked->stress;
      result.forceUncracked = uncracked->stress * bar.Area();
    }
    if (cracked) {
      result.strainCracked = cracked->strain;
      result.stressCracked = cracked->stress;
      result.forceCracked = cracked->stress * bar.Area();
    }
  });
  record.barResults[context.component.index] = std::move(bars);
}

void StressStrainCalculator::UpdateSlsConcreteSummary(const SlsComponentContext& context,
                                                      SlsStressStrainSummary& summary) {
  VisitSlsPoints(context, [&](Vec2<double>, const std::optional<SlsSample>& uncracked,
                              const std::optional<SlsSample>& cracked) {
    if (uncracked) summary.uncracked.UpdateConcrete(uncracked->stress, uncracked->strain);
    if (cracked) summary.cracked->UpdateConcrete(cracked->stress, cracked->strain);
  });
}

void StressStrainCalculator::UpdateSlsRebarSummary(const SlsComponentContext& context,
                                                   SlsStressStrainSummary& summary) {
  VisitSlsBars(context, [&](const Bar&, const std::optional<SlsSample>& uncracked,
                            const std::optional<SlsSample>& cracked) {
    if (uncracked) summary.uncracked.UpdateRebar(uncracked->stress, uncracked->strain);
    if (cracked) summary.cracked->UpdateRebar(cracked->stress, cracked->strain);
  });
}

}  // namespace Orlix
