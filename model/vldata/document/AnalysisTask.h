#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "model/oxnumeric/Vec.h"
#include "model/oxutil/BaseEntity.h"
#include "model/oxutil/CopyOnWrite.h"
#include "model/oxutil/Enumerations.h"
#include "model/oxutil/json_fwd.h"
#include "model/vldata/document/SLSResult.h"
#include "model/vldata/document/UlSResult.h"

namespace Orlix::Data::Velmo9 {

/// One load case: its input is (N, Myy, Mzz) or (eps0, kyy, kzz), by the task's load action.
struct TaskCase {
  std::string name;  ///< UTF-8, may be empty
  Vec3<double> input;
};

/// How a task preloads one of its components.
struct ComponentPreload {
  bool barsExcluded{};  ///< the bars were added later: they do not take the locked-in strain
};

/// The component preload of a task: a case of an earlier task of the section, whose strain planes
/// are locked into the components that both tasks include. Both numbers count from one.
struct PreloadReference {
  int task{1};
  int iCase{1};
  /// Components, by index, whose bars were put in after that case: they take no locked-in strain.
  std::set<int> barsAddedLater{};
  friend bool operator==(const PreloadReference&, const PreloadReference&) = default;
};

/// How long the loads of a task act; decides the concrete's effective modulus and the tension
/// between cracks.
enum class LoadTerm { shortTerm, longTerm, intermediate };

/// Creep settings of a task's serviceability cases.
struct CreepSettings {
  LoadTerm term{LoadTerm::shortTerm};
  double creepCoefficient{};  ///< phi of the long-term loads
  double longTermShare{1.0};  ///< M_long / M_total, read when the term is intermediate; 0 to 1

  /// Part of the load that acts long: 0 short term, 1 long term, the share between.
  double LongShare() const;
  /// phi times that part: the concrete's modulus is E / (1 + this).
  double EffectiveCreep() const { return creepCoefficient * LongShare(); }
  friend bool operator==(const CreepSettings&, const CreepSettings&) = default;
};

/// A task's own strength-reduction factors and the net tensile strains between which phi rises.
struct CustomPhi {
  double compressionStrain{};  ///< at and below it phi is phiCompression
  double tensionStrain{};      ///< at and above it phi is phiTension
  double phiCompression{};
  double phiTension{};
  friend bool operator==(const CustomPhi&, const CustomPhi&) = default;
};

/// What a solver run leaves in a task; immutable and shared by the copies of the task.
struct TaskResults {
  std::uint64_t stamp{};  ///< of all that the run read besides the cases
  LoadAction action{LoadAction::load};
  std::vector<UlsCaseSolution> uls;  ///< by case; empty when the task does not compute ULS
  std::vector<SlsCaseSolution> sls;  ///< by case; empty when the task does not compute SLS
  std::shared_ptr<const DetailedIntegrationResult::ComponentMap> ulsComponents;
  std::shared_ptr<const DetailedIntegrationResult::ComponentMap> uncrackedComponents;
  std::shared_ptr<const DetailedIntegrationResult::ComponentMap> crackedComponents;
};

/// An analysis task of a section: cases, settings and, once solved, results.
class AnalysisTask : public BaseEntity {
 public:
  /// A load-driven ULS task that includes every component and has no case.
  AnalysisTask() = default;

  const std::string& Name() const { return name_; }
  void SetName(std::string name) { name_ = std::move(name); }

  bool ComputesULS() const { return computesUls_; }
  bool ComputesSLS() const { return computesSls_; }
  void SetLimitStates(bool uls, bool sls);
  /// Whether the cases are loads or deformations.
  LoadAction Action() const { return action_; }
  void SetAction(LoadAction action) { action_ = action; }

  /// Whether a component is enabled in the task.
  bool IncludesComponent(int component) const;
  /// @param components  the indices enabled; without a call all components are
  void SetIncludedComponents(std::set<int> components);
  void IncludeAllComponents();
  bool IncludesAllComponents() const { return includesAll_; }

  const CreepSettings& Creep() const { return creep_; }
  void SetCreep(const CreepSettings& creep) { creep_ = creep; }
  /// The task's own phi factors; nothing: the code's.
  const std::optional<CustomPhi>& PhiFactors() const { return phi_; }
  void SetPhiFactors(std::optional<CustomPhi> phi) { phi_ = phi; }

  /// Where the component preload of the task comes from; nothing: it is switched off.
  const std::optional<PreloadReference>& PreloadFrom() const { return preloadFrom_; }
  void SetPreloadFrom(std::optional<PreloadReference> from) { preloadFrom_ = std::move(from); }
  /// How the task preloads a component; nothing where component preload is switched off. The plane
  /// locked into a component that the reference task does not include is zero.
  std::optional<ComponentPreload> PreloadOf(int component) const;

  /// Copies of the task share the cases until one of them changes its own.
  const std::vector<TaskCase>& Cases() const { return cases_.Get(); }
  int NumCases() const { return static_cast<int>(Cases().size()); }
  /// Appends an empty case.
  void addCase() { cases_.Own().emplace_back(); }
  void addCase(TaskCase taskCase) { cases_.Own().push_back(std::move(taskCase)); }
  /// Replaces all cases.
  void SetCases(std::vector<TaskCase> cases) { cases_ = CopyOnWrite(std::move(cases)); }
  /// @throws std::out_of_range for no such case.
  void SetCaseInput(int iCase, const Vec3<double>& input);

  /// Takes the results of a solver run over the cases as they are now.
  void SetResults(std::shared_ptr<const TaskResults> results) { results_ = std::move(results); }
  void DropResults() { results_.reset(); }
  const std::shared_ptr<const TaskResults>& Results() const { return results_; }
  /// Whether a case has results that belong to its input and to the task's load action as they are
  /// now. Changes of the section, the materials or the code drop the results
  /// (`DropOutdatedResults`).
  bool IsCaseAnalysed(int iCase) const;
  /// The ULS result of a case: failed, without any capacity, when the case is not analysed; not
  /// failed and zero when the task does not compute ULS.
  /// @param withDetails  false: the response comes without component details
  UlSResult ULSResult(int iCase, bool withDetails) const;

  /// The SLS result of a case: failed when the case is not analysed; not failed and zero when the
  /// task does not compute SLS.
  /// @param withCrackWidth  false: the crack width is left out
  /// @param withCracked     false: the cracked part of the response is a copy of the uncracked one
  /// @param withDetails     false: the responses come without component details
  Velmo9::SLSResult SLSResult(int iCase, bool withCrackWidth, bool withCracked,
                              bool withDetails) const;

  /// The task as it stands in a document.
  /// @param withCases      writes the cases
  /// @param withNames      writes the names of the task and its cases
  /// @param firstCase      the first case written
  Util::JsonValue toJson(Util::JsonAllocator& allocator, bool withCases, bool withNames,
                         unsigned long long firstCase) const;

 private:
  std::string name_;
  bool computesUls_{true};
  bool computesSls_{false};
  LoadAction action_{LoadAction::load};
  CreepSettings creep_;
  std::optional<CustomPhi> phi_;
  bool includesAll_{true};
  std::set<int> included_;
  std::optional<PreloadReference> preloadFrom_;
  CopyOnWrite<std::vector<TaskCase>> cases_;
  std::shared_ptr<const TaskResults> results_;
};

}  // namespace Orlix::Data::Velmo9
