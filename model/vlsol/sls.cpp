#include "model/vlsol/sls.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

#include "model/oxnumeric/section/equilibrium.h"
#include "model/oxnumeric/section/gauge.h"
#include "model/oxnumeric/section/kernel.h"
#include "model/vlsol/CrackingUtilisation.h"
#include "model/vlsol/TensionStiffenedSection.h"
#include "model/vlsol/reported_plane.h"

namespace Orlix::VlSol {
namespace {

using Data::Velmo9::CompiledTask;
using Data::Velmo9::Deformation;
using Data::Velmo9::SectionCompiler;
using Data::Velmo9::SectionState;
using Data::Velmo9::SlsCaseSolution;
using Numeric::CompiledSection;
using Numeric::Plane;
using Numeric::Resultant;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
// A state may reach its strain limits by this margin, as at the ultimate limit state.
constexpr double kLimitMargin = 1e-6;

// One state of a case: plane and load about the section's centre.
struct State {
  Plane plane{};
  Resultant load{};
  double tensionModulus{kInfinity};  // of the BS 8110 model; infinite: the concrete's own
  bool isValid{};
};

bool IsWithinLimits(const CompiledSection& section, const Plane& plane) {
  return Numeric::GaugeOf(section, plane).value <= 1.0 + kLimitMargin;
}

State InEquilibrium(const CompiledSection& section, const Resultant& load, const Plane* start) {
  const Numeric::EquilibriumResult e = Numeric::SolveEquilibrium(section, load, start);
  return {e.plane, e.response.force, kInfinity, e.converged && IsWithinLimits(section, e.plane)};
}

double UtilisationAt(const SlsModel& model, const Plane& local) {
  return CrackingUtilisation(Deformation(model.uncracked->section.ToOrigin(local)),
                             *model.uncracked->components);
}

State CrackedUnder(const SlsModel& model, const CompiledTask& task, const Resultant& load,
                   const Plane& start) {
  if (task.bs8110Curves.empty()) return InEquilibrium(task.section, load, &start);
  TensionStiffenedSection stiffened(task, model.steelLevelStress);
  const Plane plane = stiffened.SolveEquilibrium(load, start);
  State state = InEquilibrium(stiffened.Section(), load, &plane);
  state.tensionModulus = stiffened.TensionModulus();
  return state;
}

State CrackedAt(const SlsModel& model, const Plane& plane) {
  const CompiledTask& task = *model.cracked;
  // Compiled with the full slope of the BS 8110 model, which stands until the section cracks.
  if (task.bs8110Curves.empty() || UtilisationAt(model, plane) <= 1.0) {
    return {plane, Numeric::Integrate(task.section, plane), kInfinity,
            IsWithinLimits(task.section, plane)};
  }
  TensionStiffenedSection stiffened(task, model.steelLevelStress);
  stiffened.AdaptTo(plane);
  return {plane, Numeric::Integrate(stiffened.Section(), plane), stiffened.TensionModulus(),
          IsWithinLimits(stiffened.Section(), plane)};
}

// Largest strain of the concrete at a bar's place, and which bar that is.
std::size_t MostStrainedBar(const CompiledSection& section, const Plane& plane, double& strain) {
  std::size_t most = 0;
  strain = -kInfinity;
  for (std::size_t i = 0; i < section.points.size(); ++i) {
    const auto& point = section.points[i];
    const double e = Dot(Numeric::Phi(point.position), plane) + point.displacedOffset;
    if (e > strain) {
      strain = e;
      most = i;
    }
  }
  return most;
}

// Part of the load at which the section first cracks, on the straight way from the uncracked state
// without load to the one under it: the utilisation is a maximum of linear functions along it.
double FirstCrackingFactor(const SlsModel& model, const Plane& unloaded, const Plane& loaded) {
  if (UtilisationAt(model, unloaded) >= 1.0) return 0.0;
  double low = 0.0;
  double high = 1.0;
  constexpr int kHalvings = 50;  // to the last digits of a factor of about one
  for (int i = 0; i < kHalvings; ++i) {
    const double middle = 0.5 * (low + high);
    const Plane between = unloaded + middle * (loaded - unloaded);
    (UtilisationAt(model, between) >= 1.0 ? high : low) = middle;
  }
  return high;
}

// With prestrain cracking is not proportional to the load. The factor then follows from the steel's
// strain increment since decompression, in the cracked section: at first cracking over that now.
double PreloadedFactor(const SlsModel& model, const Resultant& load, const State& uncracked,
                       const State& cracked, double utilisation) {
  const CompiledSection& section = model.cracked->section;
  double strain = 0.0;
  const std::size_t bar = MostStrainedBar(section, cracked.plane, strain);
  const Plane origin{};
  const State unloaded = InEquilibrium(model.uncracked->section, {}, &origin);
  if (section.points.empty() || strain <= 0.0 || !unloaded.isValid) {
    return DistributionFactor(utilisation, model.beta);
  }
  const double factor = FirstCrackingFactor(model, unloaded.plane, uncracked.plane);
  const State first = CrackedUnder(model, *model.cracked, factor * load, cracked.plane);
  const auto& point = section.points[bar];
  const double atCracking = Dot(Numeric::Phi(point.position), first.plane) + point.displacedOffset;
  const double ratio = std::clamp(atCracking / strain, 0.0, 1.0);
  return 1.0 - model.beta * ratio * ratio;
}

SlsCaseSolution Solution(const SlsModel& model, const Vec3<double>& input, const State& uncracked,
                         const State& cracked, double utilisation, double zeta) {
  const CompiledSection& section = model.uncracked->section;
  SlsCaseSolution solution;
  solution.input = input;
  solution.uncracked = ReportedPlane(section, uncracked.plane);
  solution.cracked = solution.crackPlane = ReportedPlane(section, cracked.plane);
  solution.uncrackedLoad = section.LoadToOrigin(uncracked.load);
  solution.crackedLoad = section.LoadToOrigin(cracked.load);
  solution.zeta = zeta;
  solution.crackingUtilisation = utilisation;
  solution.tensionModulus = cracked.tensionModulus;
  solution.solved = uncracked.isValid && cracked.isValid;
  return solution;
}

// The plane for crack widths, where it is another than the cracked one.
void FindCrackPlane(const SlsModel& model, const Resultant& load, const State& cracked,
                    SlsCaseSolution& solution) {
  if (model.crackCheck == nullptr || !solution.solved) return;
  const CompiledTask& task = *model.crackCheck;
  // The search for the slope of BS 8110 starts at the plane of the full one.
  const Plane start = task.bs8110Curves.empty()
                          ? cracked.plane
                          : Numeric::SolveEquilibrium(task.section, load, &cracked.plane).plane;
  const State state = CrackedUnder(model, task, load, start);
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  solution.crackPlane =
      state.isValid ? ReportedPlane(task.section, state.plane) : Vec3<double>{kNaN, kNaN, kNaN};
}

// The cracked state with another modulus than the task's, which creep of this size stands for.
std::shared_ptr<const CompiledTask> CrackCheckOf(const Data::CVelmoData& document,
                                                 const Data::Velmo9::VelmoSection& section,
                                                 int iTask,
                                                 const Data::Velmo9::TaskGeometry& geometry) {
  const auto& rule = document.concreteCode().Data().crackWidth;
  const double share = rule ? Data::Design::ConcreteModulusShare(*rule) : 0.0;
  if (share <= 0.0 || !section.hasConcreteComponent(iTask)) return nullptr;
  const double creep = 1.0 / share - 1.0;
  if (creep == section.Task(iTask).Creep().EffectiveCreep()) return nullptr;
  return SectionCompiler::Compile(document, section, iTask, SectionState::cracked, geometry,
                                  {Data::Velmo9::LoadTerm::longTerm, creep, 1.0});
}

}  // namespace

bool HasServiceModel(const Data::CVelmoData& document, const Data::Velmo9::VelmoSection& section,
                     int iTask, Data::Design::CurveKind model) {
  return document.HasMaterialModel(section, iTask, LoadState::SLS, static_cast<int>(model));
}

std::optional<SlsModel> SlsModel::Of(const Data::CVelmoData& document,
                                     const Data::Velmo9::VelmoSection& section, int iTask) {
  using Data::Design::CurveKind;
  const Data::Velmo9::TaskGeometry geometry =
      Data::Velmo9::TaskGeometry::Of(document, section, iTask);
  const auto compile = [&](SectionState state) {
    return SectionCompiler::Compile(document, section, iTask, state, geometry);
  };
  SlsModel model;
  const bool bs8110 = HasServiceModel(document, section, iTask, CurveKind::bs8110Tension);
  model.interpolates = HasServiceModel(document, section, iTask, CurveKind::interpolated);
  model.hasCrackedState = bs8110 || model.interpolates;
  model.uncracked = compile(SectionState::uncracked);
  model.cracked = model.hasCrackedState ? compile(SectionState::cracked) : model.uncracked;
  if (model.uncracked == nullptr || model.cracked == nullptr) return std::nullopt;
  model.crackCheck = CrackCheckOf(document, section, iTask, geometry);
  model.beta = 1.0 - 0.5 * section.Task(iTask).Creep().LongShare();
  for (const auto& point : model.uncracked->section.points) {
    model.isPreloaded = model.isPreloaded || point.strainOffset != 0.0;
  }
  model.isPreloaded = model.isPreloaded || model.uncracked->section.hasLockedRegions;
  for (const auto& [index, details] : *model.cracked->components) {
    if (details.cracking && details.cracking->bs8110) {
      model.steelLevelStress = details.cracking->steelLevelStress;
    }
  }
  return model;
}

double DistributionFactor(double crackingUtilisation, double beta) {
  if (crackingUtilisation <= 1.0) return 0.0;
  return 1.0 - beta / (crackingUtilisation * crackingUtilisation);
}

SlsCaseSolution SolveSlsLoad(const SlsModel& model, const Vec3<double>& load) {
  SlsCaseSolution failed;
  failed.input = load;
  if (!IsFinite(load)) return failed;
  const Resultant local = model.uncracked->section.LoadToLocal(load);
  const State uncracked = InEquilibrium(model.uncracked->section, local, nullptr);
  const double utilisation = UtilisationAt(model, uncracked.plane);
  if (!model.hasCrackedState || utilisation <= 1.0) {
    SlsCaseSolution solution = Solution(model, load, uncracked, uncracked, utilisation,
                                        model.interpolates ? 0.0 : kInfinity);
    if (utilisation > 1.0) FindCrackPlane(model, local, uncracked, solution);
    return solution;
  }
  const State cracked = CrackedUnder(model, *model.cracked, local, uncracked.plane);
  double zeta = kInfinity;
  if (model.interpolates) {
    zeta = model.isPreloaded ? PreloadedFactor(model, local, uncracked, cracked, utilisation)
                             : DistributionFactor(utilisation, model.beta);
  }
  SlsCaseSolution solution = Solution(model, load, uncracked, cracked, utilisation, zeta);
  FindCrackPlane(model, local, cracked, solution);
  return solution;
}

SlsCaseSolution SolveSlsDeformation(const SlsModel& model, const Vec3<double>& plane) {
  SlsCaseSolution failed;
  failed.input = plane;
  if (!IsFinite(plane)) return failed;
  const CompiledSection& section = model.uncracked->section;
  const Plane local = section.ToLocal(plane);
  const State uncracked{local, Numeric::Integrate(section, local), kInfinity,
                        IsWithinLimits(section, local)};
  const double utilisation = UtilisationAt(model, local);
  const State cracked = model.hasCrackedState ? CrackedAt(model, local) : uncracked;
  SlsCaseSolution solution =
      Solution(model, plane, uncracked, cracked, utilisation,
               model.interpolates ? DistributionFactor(utilisation, model.beta) : kInfinity);
  solution.uncracked = solution.cracked = solution.crackPlane = plane;
  return solution;
}

}  // namespace Orlix::VlSol
