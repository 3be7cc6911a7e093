#include "model/vldata/response/SectionCompiler.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

#include "model/oxnumeric/polygon.h"
#include "model/vldata/response/compile_problems.h"

namespace Orlix::Data::Velmo9 {
namespace {

using Numeric::CurveInput;
using Numeric::PointAreaInput;
using Numeric::RegionInput;
using Numeric::SectionInput;

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

bool IsIn(const SectionPolygon& polygon, Vec2<double> point) {
  if (Numeric::Contains(polygon.outline, point) == Numeric::Location::outside) return false;
  return std::none_of(polygon.holes.begin(), polygon.holes.end(), [&](const auto& hole) {
    return Numeric::Contains(hole, point) == Numeric::Location::inside;
  });
}

class InputBuilder {
 public:
  InputBuilder(const CVelmoData& document, LoadState state) : document_(document), state_(state) {}

  void AddRegion(const CSecComp& component) {
    RegionInput region;
    region.curve = CurveIndex(component.MaterialType(), component.MaterialGrade());
    const std::vector<SectionPolygon> polygons = component.Geometry().Polygons(0.0);
    for (const SectionPolygon& polygon : polygons) {
      region.rings.push_back({polygon.outline, false});
      for (const auto& hole : polygon.holes) region.rings.push_back({hole, true});
    }
    const int index = static_cast<int>(input_.regions.size());
    if (component.ConcreteExist()) concretes_.emplace_back(index, polygons);
    input_.regions.push_back(std::move(region));
  }

  /// @pre every region has been added: a bar may sit in the concrete of another component.
  void AddBars(const CSecComp& component) {
    if (!component.ConcreteExist()) return;
    for (const CBar& bar : component.Concrete().Bars()) {
      PointAreaInput point;
      point.position = bar.Position();
      point.area = bar.Area();
      point.curve = CurveIndex(MatType::reinforcement, bar.Grade());
      point.prestrain = -BarPreStrain(document_, bar, state_);
      point.host = HostOf(bar.Position());
      input_.points.push_back(point);
    }
  }

  const SectionInput& Input() const { return input_; }

 private:
  int CurveIndex(MatType type, int grade) {
    const auto [entry, isNew] =
        curveIndex_.try_emplace({type, grade}, static_cast<int>(input_.curves.size()));
    if (isNew) {
      const Design::CMat& material = document_.getMaterials()->Grade(type, grade);
      input_.curves.push_back(TensionPositive(material.Curve(state_)));
    }
    return entry->second;
  }

  // The region whose concrete a bar displaces; -1: none.
  int HostOf(Vec2<double> position) const {
    if (!document_.Options().deductDisplacedConcrete) return -1;
    for (const auto& [index, polygons] : concretes_) {
      for (const SectionPolygon& polygon : polygons) {
        if (IsIn(polygon, position)) return index;
      }
    }
    return -1;
  }

  const CVelmoData& document_;
  LoadState state_;
  SectionInput input_;
  std::map<std::pair<MatType, int>, int> curveIndex_;
  std::vector<std::pair<int, std::vector<SectionPolygon>>> concretes_;  // region and its outlines
};

}  // namespace

std::shared_ptr<const CompiledTask> SectionCompiler::Compile(const CVelmoData& document,
                                                             const VelmoSection& section, int iTask,
                                                             LoadState state) {
  if (!Problems(document, section, iTask, state).empty()) return nullptr;
  const AnalysisTask& task = section.Task(iTask);
  InputBuilder builder(document, state);
  DetailedIntegrationResult::ComponentMap components;
  int index = 0;
  for (const CSecComp& component : section.Components()) {
    const int i = index++;
    if (!task.IncludesComponent(i)) continue;
    builder.AddRegion(component);
    const auto& material =
        document.getMaterials()->Grade(component.MaterialType(), component.MaterialGrade());
    components[i] = {material.Curve(state), Deformation(), true};
  }
  for (const auto& [i, details] : components) {
    builder.AddBars(section.Components()[static_cast<std::size_t>(i)]);
  }
  auto compiled = std::make_shared<CompiledTask>();
  compiled->section = Numeric::Compile(builder.Input());
  compiled->components =
      std::make_shared<const DetailedIntegrationResult::ComponentMap>(std::move(components));
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
