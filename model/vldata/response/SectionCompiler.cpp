#include "model/vldata/response/SectionCompiler.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

#include "model/oxdata/codes/bs8110/tension_stiffening.h"
#include "model/oxdata/materials/service_curves.h"
#include "model/vldata/response/compile_problems.h"
#include "model/vldata/response/stages.h"

namespace Orlix::Data::Velmo9 {
namespace {

using Numeric::CurveInput;
using Numeric::PointAreaInput;
using Numeric::RegionInput;
using Cracking = DetailedIntegrationResult::Cracking;

// The curve s(e) = -curve.Stress(-e): compression positive in, tension positive out.
CurveInput TensionPositive(const Design::CMatCurveParam& curve) {
  CurveInput input;
  const auto& segments = curve.Segments();
  std::transform(segments.rbegin(), segments.rend(), std::back_inserter(input.segments),
                 [](const Numeric::CSegment& s) { return s.Mirrored(); });
  input.uniformLimit = curve.UniformCompressionLimit();
  input.compressionLimitIsCap = curve.IsLimitCap(LoadSign::compression);
  input.tensionLimitIsCap = curve.IsLimitCap(LoadSign::tension);
  return input;
}

bool IsBs8110(const Design::CMat& material) {
  constexpr auto kModel = Design::CurveKind::bs8110Tension;
  return material.Type() == MatType::concrete &&
         (material.Model(LoadState::SLS, LoadSign::compression) == kModel ||
          material.Model(LoadState::SLS, LoadSign::tension) == kModel);
}

double EffectiveModulus(const Design::CMat& concrete, const CreepSettings& creep) {
  return concrete.Properties().E / (1.0 + creep.EffectiveCreep());
}

// The curve that a material has in a state of a task.
Design::CMatCurveParam CurveIn(SectionState state, const Design::CMat& material,
                               const CreepSettings& creep) {
  const Design::CMatCurveParam& curve = material.Curve(LoadStateOf(state));
  if (state == SectionState::ultimate || material.Type() != MatType::concrete) return curve;
  if (state == SectionState::uncracked) return UncrackedCurve(curve, creep.EffectiveCreep());
  return CrackedCurve(curve, creep.EffectiveCreep(), EffectiveModulus(material, creep));
}

std::shared_ptr<const Cracking> CrackingOf(const CSecComp& component, const Design::CMat& concrete,
                                           const TaskGeometry::Component& geometry,
                                           const CreepSettings& creep) {
  auto cracking = std::make_shared<Cracking>();
  for (const Numeric::OwnedPolygon& polygon : geometry.polygons) {
    cracking->vertices.insert(cracking->vertices.end(), polygon.outline.begin(),
                              polygon.outline.end());
  }
  cracking->f_ct = concrete.Properties().f_ct;
  cracking->modulus = EffectiveModulus(concrete, creep);
  cracking->bs8110 = IsBs8110(concrete);
  if (!cracking->bs8110) return cracking;
  cracking->steelLevelStress = Design::Bs8110::TensionAtSteelLevel(creep.LongShare());
  for (const CBar& bar : component.Concrete().Bars()) {
    cracking->bars.push_back({bar.Position(), bar.Area()});
  }
  return cracking;
}

// Collects the kernel's input of one state.
class InputBuilder {
 public:
  InputBuilder(const CVelmoData& document, SectionState state, const CreepSettings& creep)
      : document_(document), state_(state), creep_(creep) {}

  void AddRegion(const CSecComp& component, const TaskGeometry::Component& geometry,
                 const Deformation& lockedIn) {
    RegionInput region;
    region.locked = lockedIn.Vector();
    region.curve = CurveIndex(component.MaterialType(), component.MaterialGrade());
    for (const Numeric::OwnedPolygon& polygon : geometry.polygons) {
      region.rings.push_back({polygon.outline, false});
      for (const auto& hole : polygon.holes) region.rings.push_back({hole, true});
    }
    input_.regions.push_back(std::move(region));
  }

  /// @param lockedIn  plane that the bars take
  void AddBars(const CSecComp& component, const TaskGeometry::Component& geometry,
               const Deformation& lockedIn) {
    for (std::size_t i = 0; i < geometry.barHosts.size(); ++i) {
      const CBar& bar = component.Concrete().Bars()[i];
      PointAreaInput point;
      point.position = bar.Position();
      point.area = bar.Area();
      point.curve = CurveIndex(MatType::reinforcement, bar.Grade());
      point.prestrain = -BarPreStrain(document_, bar, LoadStateOf(state_));
      point.locked = lockedIn.Vector();
      point.host = geometry.barHosts[i];  // regions stand in the order of the components
      input_.points.push_back(point);
    }
  }

  const Numeric::SectionInput& Input() const { return input_; }
  const std::vector<int>& Bs8110Curves() const { return bs8110Curves_; }

 private:
  int CurveIndex(MatType type, int grade) {
    const int next = static_cast<int>(input_.curves.size());
    const auto [entry, isNew] = curveIndex_.try_emplace({type, grade}, next);
    if (!isNew) return entry->second;
    const Design::CMat& material = document_.getMaterials()->Grade(type, grade);
    input_.curves.push_back(TensionPositive(CurveIn(state_, material, creep_)));
    if (state_ != SectionState::ultimate && IsBs8110(material)) bs8110Curves_.push_back(next);
    return next;
  }

  const CVelmoData& document_;
  SectionState state_;
  const CreepSettings& creep_;
  Numeric::SectionInput input_;
  std::map<std::pair<MatType, int>, int> curveIndex_;
  std::vector<int> bs8110Curves_;
};

}  // namespace

std::shared_ptr<const CompiledTask> SectionCompiler::Compile(const CVelmoData& document,
                                                             const VelmoSection& section, int iTask,
                                                             SectionState state) {
  return Compile(document, section, iTask, state, TaskGeometry::Of(document, section, iTask));
}

std::shared_ptr<const CompiledTask> SectionCompiler::Compile(const CVelmoData& document,
                                                             const VelmoSection& section, int iTask,
                                                             SectionState state,
                                                             const TaskGeometry& geometry) {
  return Compile(document, section, iTask, state, geometry, section.Task(iTask).Creep());
}

std::shared_ptr<const CompiledTask> SectionCompiler::Compile(const CVelmoData& document,
                                                             const VelmoSection& section, int iTask,
                                                             SectionState state,
                                                             const TaskGeometry& geometry,
                                                             const CreepSettings& creep) {
  if (!Problems(document, section, iTask, LoadStateOf(state)).empty()) return nullptr;
  const AnalysisTask& task = section.Task(iTask);
  const LockedStage stage = StageBefore(document, section, iTask, state);
  InputBuilder builder(document, state, creep);
  DetailedIntegrationResult::ComponentMap components;
  for (const TaskGeometry::Component& own : geometry.Components()) {
    const CSecComp& component = section.Components()[static_cast<std::size_t>(own.index)];
    const auto plane = stage.planes.find(own.index);
    const Deformation lockedIn = plane != stage.planes.end() ? plane->second : Deformation();
    builder.AddRegion(component, own, lockedIn);
    const Design::CMat& material =
        document.getMaterials()->Grade(component.MaterialType(), component.MaterialGrade());
    const bool cracks = state != SectionState::ultimate && component.ConcreteExist();
    components[own.index] = {CurveIn(state, material, creep), lockedIn, true,
                             cracks ? CrackingOf(component, material, own, creep) : nullptr};
    const auto ofBars = stage.barPlanes.find(own.index);
    if (ofBars != stage.barPlanes.end()) components[own.index].barsLockedIn = ofBars->second;
  }
  for (const TaskGeometry::Component& own : geometry.Components()) {
    const auto preload = task.PreloadOf(own.index);
    const bool isPreloaded = preload && !preload->barsExcluded;
    builder.AddBars(section.Components()[static_cast<std::size_t>(own.index)], own,
                    isPreloaded ? components[own.index].LockedIntoBars() : Deformation());
  }
  auto compiled = std::make_shared<CompiledTask>();
  compiled->section = Numeric::Compile(builder.Input());
  if (!stage.isInEquilibrium) compiled->section.lockedBeyondLimit = true;
  compiled->components =
      std::make_shared<const DetailedIntegrationResult::ComponentMap>(std::move(components));
  compiled->bs8110Curves = builder.Bs8110Curves();
  return compiled;
}

std::vector<std::string> SectionCompiler::Problems(const CVelmoData& document,
                                                   const VelmoSection& section, int iTask,
                                                   LoadState state) {
  return CompileProblems(document, section, iTask, state);
}

double BarPreStrain(const CVelmoData& document, const CBar& bar, LoadState state) {
  const Preload preload = bar.GetPreload();
  const auto curve = [&]() -> const Design::CMatCurveParam& {
    return document.ReinforcementMaterial(bar.Grade()).Curve(state);
  };
  switch (preload.kind) {
    case PreloadKind::stress:
      return curve().Strain(-preload.value);
    case PreloadKind::force:
      return curve().Strain(-preload.value / bar.Area());
    case PreloadKind::strain:
      return -preload.value;
  }
  return 0.0;
}

}  // namespace Orlix::Data::Velmo9
