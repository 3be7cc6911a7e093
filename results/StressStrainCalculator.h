#pragma once

#include <memory>

#include "model/oxnumeric/Vec.h"
#include "model/vldata/document/CVelmoData.h"
#include "model/vldata/records/CaseSLSDetails.h"
#include "model/vldata/records/CaseULSDetails.h"
#include "model/vldata/records/Deformation.h"
#include "model/vldata/records/DetailedIntegrationResult.h"
#include "model/vldata/records/SlsResponse.h"
#include "results/TaskSamples.h"

namespace Orlix {

struct SlsComponentContext;

/// Strains and stresses at the vertices of the outlines and at the bars of a section, tension
/// positive, recomputed from the strain plane of a solved case.
class StressStrainCalculator {
 public:
  using ComponentDetails = Data::Velmo9::DetailedIntegrationResult::ComponentDetails;

  /// @param document  gives the grades; must outlive the calculator
  explicit StressStrainCalculator(const Data::CVelmoData& document) : document_(document) {}
  /// For the cases of one task of one section alone (a copy of the section counts as the same),
  /// whose outlines and bars are looked up once.
  /// @param section, task  must outlive the calculator and stay as they are
  StressStrainCalculator(const Data::CVelmoData& document,
                         const Data::Velmo9::VelmoSection& section,
                         const Data::Velmo9::AnalysisTask& task);

  /// Appends a record for every outline vertex and every bar of the components that the task
  /// includes to the lists of `record`, by component index. The strains are those of the
  /// integration result's deformation.
  /// @throws std::out_of_range "invalid map<K, T> key" when the result lacks an included component;
  ///         what was appended before stays.
  void AddUlsPointResults(const Data::Velmo9::VelmoSection& section,
                          Data::Velmo9::CaseULSDetails& record,
                          const Data::Velmo9::DetailedIntegrationResult& result,
                          const Data::Velmo9::AnalysisTask& task) const;

  /// Replaces the summary of `record` by the extremes over the same samples.
  /// @throws std::out_of_range as AddUlsPointResults; then the record keeps its summary.
  void ComputeUlsSummary(const Data::Velmo9::VelmoSection& section,
                         Data::Velmo9::CaseULSDetails& record,
                         const Data::Velmo9::DetailedIntegrationResult& result,
                         const Data::Velmo9::AnalysisTask& task) const;

  /// Lists every outline vertex and every bar of the components that a task includes, by component
  /// index, with the values of both serviceability states; a list that is there is replaced. Those
  /// of the cracked state are +infinity, not calculated, unless some concrete of the task has the
  /// model 20 or 22. A component without details of the uncracked state is listed without values of
  /// that state.
  /// @throws std::out_of_range for no such section or task, and "invalid map<K, T> key" when the
  ///         cracked response lacks an included component; what was stored before stays.
  void AddSlsPointResults(int iSec, int iTask, const Data::Velmo9::SlsResponse& response,
                          Data::Velmo9::CaseSLSDetails& record) const;

  /// Replaces the summary of `record` by the extremes over the same samples. It has a cracked part,
  /// which may be without samples, exactly where cracked values are calculated.
  /// @throws std::out_of_range as AddSlsPointResults; then the record keeps its summary.
  void ComputeSlsSummary(int iSec, int iTask, const Data::Velmo9::SlsResponse& response,
                         Data::Velmo9::CaseSLSDetails& record) const;

  /// Strain at a point (y, z) [m] of a component; with the locked-in strain when the task preloads
  /// the component.
  static double PointStrainWithPrestrain(const Data::Velmo9::Deformation& deformation,
                                         Vec2<double> point, const Data::Velmo9::AnalysisTask& task,
                                         int component, const ComponentDetails& details);

  /// Stress [Pa], tension positive, of a material curve, which counts compression positive.
  static double Stress(const Data::Design::CMatCurveParam& curve, double strain);

 private:
  using Component = TaskSamples::Component;
  using Bar = TaskSamples::Bar;

  std::shared_ptr<const TaskSamples> SamplesOf(const Data::Velmo9::VelmoSection& section,
                                               const Data::Velmo9::AnalysisTask& task) const;

  /// Calls onPoint(component, position, strain, stress) and onBar(component, bar, strain, stress)
  /// for every sample, components in index order.
  template <class OnPoint, class OnBar>
  static void VisitUls(const TaskSamples& samples,
                       const Data::Velmo9::DetailedIntegrationResult& result, OnPoint onPoint,
                       OnBar onBar);

  /// Strain and stress [Pa] in one serviceability state.
  struct SlsSample {
    double strain{};
    double stress{};
  };

  /// Calls onComponent(context) for every component that the task includes, in index order.
  template <class OnComponent>
  void VisitSls(int iSec, int iTask, const Data::Velmo9::SlsResponse& response,
                OnComponent onComponent) const;
  /// Calls onPoint(position, uncracked, cracked); a state that is not calculated has no sample.
  template <class OnPoint>
  static void VisitSlsPoints(const SlsComponentContext& context, OnPoint onPoint);
  /// Calls onBar(bar, uncracked, cracked), likewise.
  template <class OnBar>
  static void VisitSlsBars(const SlsComponentContext& context, OnBar onBar);

  bool ShouldCalculateCracked(const Data::Velmo9::VelmoSection& section, int iTask) const;
  static void AddSlsComponentPointResults(const SlsComponentContext& context,
                                          Data::Velmo9::CaseSLSDetails& record);
  static void AddSlsComponentBarResults(const SlsComponentContext& context,
                                        Data::Velmo9::CaseSLSDetails& record);
  static void UpdateSlsConcreteSummary(const SlsComponentContext& context,
                                       Data::Velmo9::SlsStressStrainSummary& summary);
  static void UpdateSlsRebarSummary(const SlsComponentContext& context,
                                    Data::Velmo9::SlsStressStrainSummary& summary);

  static double PointStrain(const Data::Velmo9::Deformation& deformation, Vec2<double> point,
                            const Component& component, const ComponentDetails& details);
  static double BarStrain(const Data::Velmo9::Deformation& deformation, const Bar& bar,
                          double preStrain, const Component& component,
                          const ComponentDetails& details);

  const Data::CVelmoData& document_;
  std::shared_ptr<const LazyTaskSamples> shared_;  // null: looked up for every case
};

}  // namespace Orlix
