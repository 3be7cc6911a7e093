#include "model/vldata/response/compile_problems.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "model/oxdata/section/component_overlay.h"
#include "model/vldata/response/CompileMessages.h"
#include "model/vldata/response/SectionCompiler.h"
#include "model/vldata/response/bar_problems.h"
#include "model/vldata/response/stages.h"

namespace Orlix::Data::Velmo9 {
namespace {

namespace Messages = CompileMessages;

bool IsPlace(Vec2<double> p) {
  // False for NaN.
  return std::abs(p.x) <= kFurthestCoordinate && std::abs(p.y) <= kFurthestCoordinate;
}

bool IsFiniteSegment(const Numeric::CSegment& s) {
  return std::isfinite(s.from) && std::isfinite(s.to) && std::isfinite(s.origin) &&
         std::all_of(s.c.begin(), s.c.end(), [](double c) { return std::isfinite(c); });
}

// The kernel needs limits on both sides of zero strain.
bool IsUsable(const Design::CMatCurveParam& curve) {
  const auto& segments = curve.Segments();
  return !segments.empty() && segments.front().from < 0.0 && segments.back().to > 0.0 &&
         std::all_of(segments.begin(), segments.end(), IsFiniteSegment) &&
         std::isfinite(curve.UniformCompressionLimit());
}

// Concrete creeps by a few times its elastic strain; beyond this the coefficient is a slip.
constexpr double kMostCreep = 100.0;

bool IsUsable(const CreepSettings& creep) {
  return creep.creepCoefficient >= 0.0 && creep.creepCoefficient <= kMostCreep &&
         creep.LongShare() >= 0.0 && creep.LongShare() <= 1.0;
}

class Checker {
 public:
  Checker(const CVelmoData& document, const VelmoSection& section, int iTask, LoadState state)
      : document_(document),
        section_(section),
        task_(section.Task(iTask)),
        iTask_(iTask),
        state_(state) {}

  std::vector<std::string> Run() {
    const auto& components = section_.Components();
    bool isAnyIncluded = false;
    for (int i = 0; i < static_cast<int>(components.size()); ++i) {
      if (!task_.IncludesComponent(i)) continue;
      isAnyIncluded = true;
      CheckComponent(i, components[static_cast<std::size_t>(i)]);
    }
    if (!isAnyIncluded) problems_.push_back(Messages::NothingIncluded(iTask_));
    const std::vector<std::string> bars = BarProblems(document_, section_, iTask_);
    problems_.insert(problems_.end(), bars.begin(), bars.end());
    if (state_ == LoadState::SLS && !IsUsable(task_.Creep())) {
      problems_.push_back(Messages::NoCreep(iTask_));
    }
    if (state_ == LoadState::ULS) CheckPhi();
    std::string preload = PreloadProblem(document_, section_, iTask_, state_);
    if (!preload.empty()) problems_.push_back(std::move(preload));
    return std::move(problems_);
  }

 private:
  void CheckPhi() {
    if (!task_.PhiFactors() || !document_.concreteCode().IsStrengthReduction()) return;
    for (const std::string& problem : PhiProblems(*task_.PhiFactors())) {
      problems_.push_back(Messages::TaskPrefix(iTask_) + problem);
    }
  }

  void CheckComponent(int index, const CSecComp& component) {
    const MatType type = component.MaterialType();
    if (type != MatType::concrete && type != MatType::steel && type != MatType::FRP) {
      problems_.push_back(Messages::NoMaterialType(index));
    } else if (!document_.getMaterials()->IsValidGrade(type, component.MaterialGrade())) {
      problems_.push_back(Messages::NoMaterialGrade(index));
    } else {
      CheckCurve(index, type, component.MaterialGrade());
    }
    if (std::string problem = OutlineProblem(index, component.Geometry()); !problem.empty()) {
      problems_.push_back(std::move(problem));
    }
    if (!component.ConcreteExist()) return;
    const auto& bars = component.Concrete().Bars();
    for (int i = 0; i < static_cast<int>(bars.size()); ++i) {
      CheckBar(index, i, bars[static_cast<std::size_t>(i)]);
    }
  }

  void CheckCurve(int component, MatType type, int grade) {
    if (!curvesSeen_.insert({type, grade}).second) return;
    const Design::CMat& material = document_.getMaterials()->Grade(type, grade);
    if (!IsUsable(material.Curve(state_))) {
      problems_.push_back(Messages::NoCurve(component, material.Name(), state_));
    }
  }

  void CheckBar(int component, int index, const CBar& bar) {
    if (!IsPlace(bar.Position())) problems_.push_back(Messages::NoBarPlace(component, index));
    if (!(bar.Area() > 0.0) || !std::isfinite(bar.Area())) {
      problems_.push_back(Messages::NoBarArea(component, index));
      return;
    }
    if (!document_.getMaterials()->IsValidGrade(MatType::reinforcement, bar.Grade())) {
      problems_.push_back(Messages::NoBarGrade(component, index));
      return;
    }
    CheckCurve(component, MatType::reinforcement, bar.Grade());
    if (!IsReached(bar)) problems_.push_back(Messages::NoBarPreload(component, index));
  }

  // Whether the preload of a bar gives a strain, and is no stress beyond the characteristic curve:
  // a tendon may well be stressed beyond the design strength.
  bool IsReached(const CBar& bar) const {
    if (!std::isfinite(BarPreStrain(document_, bar, state_))) return false;
    const Preload preload = bar.GetPreload();
    if (preload.kind != PreloadKind::stress && preload.kind != PreloadKind::force) return true;
    const double stress =
        preload.kind == PreloadKind::force ? preload.value / bar.Area() : preload.value;
    const Design::CMatCurveParam& curve =
        document_.ReinforcementMaterial(bar.Grade()).Curve(LoadState::SLS);
    constexpr double kRounding = 1e-9;  // of an inverse that is found by search
    const double reached = -curve.Stress(curve.Strain(-stress));
    return std::abs(reached - stress) <= kRounding * std::abs(stress);
  }

  const CVelmoData& document_;
  const VelmoSection& section_;
  const AnalysisTask& task_;
  int iTask_;
  LoadState state_;
  std::set<std::pair<MatType, int>> curvesSeen_;
  std::vector<std::string> problems_;
};

}  // namespace

std::string OutlineProblem(int component, const CSecGeom& geometry) {
  if (const std::string problem = geometry.PolygonProblem(); !problem.empty()) {
    return Messages::NoShape(component, problem);
  }
  const std::vector<SectionPolygon> polygons = geometry.Polygons(0.0);
  const bool isNear = std::all_of(polygons.begin(), polygons.end(), [](const auto& polygon) {
    return std::all_of(polygon.outline.begin(), polygon.outline.end(), IsPlace);
  });
  return isNear ? std::string() : Messages::TooFarAway(component);
}

std::vector<std::string> PhiProblems(const CustomPhi& phi) {
  // What holds for good factors, so that one that is no number breaks it, too.
  const struct {
    bool holds;
    const char* otherwise;
  } kRules[] = {
      {phi.compressionStrain >= 0.0 && phi.tensionStrain >= 0.0,
       "strain limit should not be negative"},
      {phi.phiCompression >= 0.0 && phi.phiTension >= 0.0, "phi factors should not be negative"},
      {phi.compressionStrain <= phi.tensionStrain,
       "compression controlled strain limit should not be greater than tension controlled strain "
       "limit"},
      {phi.phiCompression <= phi.phiTension,
       "compression controlled phi should not be greater than tension controlled phi"},
      {phi.phiCompression <= 1.0 && phi.phiTension <= 1.0,
       "phi factors should not be greater than 1"},
  };
  std::vector<std::string> problems;
  for (const auto& [holds, otherwise] : kRules) {
    if (!holds) problems.emplace_back(otherwise);
  }
  return problems;
}

std::vector<std::string> CompileProblems(const CVelmoData& document, const VelmoSection& section,
                                         int iTask, LoadState state) {
  return Checker(document, section, iTask, state).Run();
}

}  // namespace Orlix::Data::Velmo9
