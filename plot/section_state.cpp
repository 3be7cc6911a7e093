#include "plot/section_state.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <stdexcept>
#include <utility>

#include "results/NeutralAxisCalculator.h"
#include "results/StressStrainCalculator.h"

namespace Orlix::Plot {

using Data::CVelmoData;
using Data::Velmo9::AnalysisTask;
using Data::Velmo9::CaseSLSDetails;
using Data::Velmo9::CaseULSDetails;
using Data::Velmo9::Deformation;
using Data::Velmo9::DetailedIntegrationResult;
using Data::Velmo9::SlsResultKind;
using Data::Velmo9::StressStrain;
using Data::Velmo9::VelmoSection;

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

void Widen(Extremes& extremes, double strain, double stress) {
  if (!extremes) {
    extremes = StressStrain{stress, stress, strain, strain};
    return;
  }
  extremes->maxStress = std::max(extremes->maxStress, stress);
  extremes->minStress = std::min(extremes->minStress, stress);
  extremes->maxStrain = std::max(extremes->maxStrain, strain);
  extremes->minStrain = std::min(extremes->minStrain, strain);
}

const char* NameOf(SectionState state) {
  switch (state) {
    case SectionState::atFailure:
      return "at the failure load";
    case SectionState::uncracked:
      return "uncracked state";
    case SectionState::cracked:
      return "cracked state";
    case SectionState::interpolated:
      return "interpolated state, mean strains";
    default:
      return "under the load of the case";
  }
}

/// Puts strains and stresses of a case into a view.
class StateFiller {
 public:
  StateFiller(const CVelmoData& document, const VelmoSection& section, const AnalysisTask& task,
              SectionView& view)
      : document_(document), section_(section), task_(task), view_(view) {}

  /// @return why there is no such state, in words; empty: it is there
  std::string Fill(SectionState state, int iCase) {
    state_.state = state;
    state_.name = NameOf(state);
    state_.isStaged = task_.PreloadFrom().has_value();
    const std::string problem = IsUltimate(state) ? FillUls(iCase) : FillSls(iCase);
    if (problem.empty()) {
      state_.axis = NeutralAxisCalculator::ComputeNeutralAxisData(state_.plane);
      view_.state = std::move(state_);
    }
    return problem;
  }

 private:
  std::string FillUls(int iCase) {
    const Data::Velmo9::UlSResult result = task_.ULSResult(iCase, true);
    const bool atFailure = state_.state == SectionState::atFailure;
    if (!atFailure && result.IsFail()) {
      std::string problem =
          "The section does not carry the case: there are no strains and stresses under it.";
      if (result.DeformationAtFailure().Vector() != Vec3<double>{}) {
        problem += " The state at failure shows what gives way: velmo plot … --state failure.";
      }
      return problem;
    }
    if (atFailure && result.DeformationAtFailure().Vector() == Vec3<double>{}) {
      return "The case has no failure load in the direction of its load.";
    }
    if (!atFailure && task_.Action() != LoadAction::load) state_.name = "under the imposed plane";
    state_.plane = atFailure ? result.DeformationAtFailure() : result.Deformation();
    const auto components = std::make_shared<const DetailedIntegrationResult::ComponentMap>(
        result.Response().Components());
    CaseULSDetails samples;
    StressStrainCalculator(document_).AddUlsPointResults(
        section_, samples, DetailedIntegrationResult(state_.plane, result.Load(), components),
        task_);
    TakeComponents(*components);
    state_.hasStresses = true;
    TakeSamples(samples.pointResults, samples.barResults,
                [](const auto& sample) { return std::pair(sample.strain, sample.stress); });
    return "";
  }

  std::string FillSls(int iCase) {
    const CaseSLSDetails& record = view_.sls;
    if (record.resultKind == SlsResultKind::noSolution) {
      return "The case has no solution in service: no state is in equilibrium with it.";
    }
    if (record.resultKind == SlsResultKind::notCalculated) {
      return "Nothing is applied in the case: there are no strains and stresses.";
    }
    const bool hasCracked = record.stressStrainSummary.cracked.has_value();
    if ((state_.state == SectionState::cracked && !hasCracked) ||
        (state_.state == SectionState::interpolated && !std::isfinite(record.zeta))) {
      throw std::invalid_argument(
          state_.state == SectionState::cracked
              ? "the concrete of the task has no cracked state of its own: ask for its one state, "
                "uncracked"
              : "the concrete of the task has no interpolated state; ask for uncracked or cracked");
    }
    if (!hasCracked) {
      state_.name = record.cracked ? "section cracked; the one state of its material curves"
                                   : "section uncracked";
    }
    const Data::Velmo9::SLSResult result = task_.SLSResult(iCase, false, hasCracked, true);
    const bool isUncracked = state_.state == SectionState::uncracked;
    const DetailedIntegrationResult& response =
        isUncracked ? result.Response().uncracked : result.Response().cracked;
    if (state_.state == SectionState::interpolated) {
      TakeInterpolated(record, result.Response());
      return "";
    }
    state_.plane = response.Deformation();
    TakeComponents(response.Components());
    state_.hasStresses = true;
    TakeSamples(record.pointResults, record.barResults, [isUncracked](const auto& sample) {
      return isUncracked ? std::pair(sample.strainUncracked, sample.stressUncracked)
                         : std::pair(sample.strainCracked, sample.stressCracked);
    });
    return "";
  }

  // Mean strains; those that are locked in lie between both states as the plane does.
  void TakeInterpolated(const CaseSLSDetails& record, const Data::Velmo9::SlsResponse& response) {
    const double zeta = record.zeta;
    state_.plane = record.interpolatedDeformation;
    TakeComponents(response.cracked.Components());
    for (const auto& [index, uncracked] : response.uncracked.Components()) {
      ComponentView& view = view_.components.at(static_cast<std::size_t>(index));
      const Vec3<double> lockedIn = view.plane.Vector() - state_.plane.Vector();
      view.plane = Deformation(state_.plane.Vector() + zeta * lockedIn +
                               (1.0 - zeta) * uncracked.lockedIn.Vector());
    }
    TakeSamples(record.pointResults, record.barResults, [zeta](const auto& sample) {
      return std::pair(zeta * sample.strainCracked + (1.0 - zeta) * sample.strainUncracked, kNone);
    });
  }

  void TakeComponents(const DetailedIntegrationResult::ComponentMap& details) {
    for (const auto& [index, detail] : details) {
      ComponentView& view = view_.components.at(static_cast<std::size_t>(index));
      view.plane = Deformation(state_.plane.Vector() + detail.lockedIn.Vector());
      view.curve = detail.curve;
    }
  }

  template <class Points, class Bars, class Of>
  void TakeSamples(const Points& points, const Bars& bars, Of of) {
    for (const auto& [index, samples] : points) {
      const bool isConcrete =
          view_.components.at(static_cast<std::size_t>(index)).type == MatType::concrete;
      for (const auto& sample : samples) {
        const auto [strain, stress] = of(sample);
        Widen(isConcrete ? state_.concrete : state_.others, strain, stress);
      }
    }
    for (const auto& [index, samples] : bars) {
      ComponentView& view = view_.components.at(static_cast<std::size_t>(index));
      for (const auto& sample : samples) {
        const auto [strain, stress] = of(sample);
        if (!std::isfinite(strain)) continue;
        BarView& bar = view.bars.at(static_cast<std::size_t>(sample.number));
        bar.strain = strain;
        bar.stress = stress;
        bar.force = stress * AreaOf(index, sample.number);
        Widen(state_.bars, strain, stress);
      }
    }
  }

  double AreaOf(int component, int bar) const {
    return section_.Components()
        .at(static_cast<std::size_t>(component))
        .Concrete()
        .Bars()
        .at(static_cast<std::size_t>(bar))
        .Area();
  }

  const CVelmoData& document_;
  const VelmoSection& section_;
  const AnalysisTask& task_;
  SectionView& view_;
  StateView state_;
};

}  // namespace

std::string FillState(const CVelmoData& document, const VelmoSection& section,
                      const AnalysisTask& task, int iCase, SectionState state, SectionView& view) {
  return StateFiller(document, section, task, view).Fill(state, iCase);
}

}  // namespace Orlix::Plot
