#include "results/TaskSamples.h"

#include <utility>

#include "model/vldata/response/SectionCompiler.h"

namespace Orlix {

using Data::CBar;
using Data::CSecComp;
using Data::CVelmoData;
using Data::Velmo9::BarPreStrain;

namespace {

void SetMaterial(TaskSamples::Component& samples, const CVelmoData& document,
                 const CSecComp& component) {
  const Data::Materials& materials = *document.getMaterials();
  const MatType type = component.MaterialType();
  const bool isFrp = type != MatType::concrete && type != MatType::steel;
  samples.grade = materials.Grade(isFrp ? MatType::FRP : type, component.MaterialGrade()).Name();
  samples.materialType = isFrp ? L"FRP" : type == MatType::concrete ? L"concrete" : L"steel";
}

TaskSamples::Component SamplesOf(const CVelmoData& document, const CSecComp& component) {
  TaskSamples::Component samples;
  SetMaterial(samples, document, component);
  for (const Data::SectionPolygon& polygon : component.Geometry().Polygons(0.0)) {
    samples.vertices.insert(samples.vertices.end(), polygon.outline.begin(), polygon.outline.end());
  }
  samples.hasConcrete = component.ConcreteExist();
  if (!samples.hasConcrete) return samples;
  for (const CBar& bar : component.Concrete().Bars()) {
    samples.bars.push_back({&bar, &document.ReinforcementMaterial(bar.Grade()),
                            BarPreStrain(document, bar, LoadState::ULS),
                            BarPreStrain(document, bar, LoadState::SLS)});
  }
  return samples;
}

}  // namespace

TaskSamples::TaskSamples(const CVelmoData& document, const Data::Velmo9::VelmoSection& section,
                         const Data::Velmo9::AnalysisTask& task) {
  int index = -1;
  for (const CSecComp& component : section.Components()) {
    if (!task.IncludesComponent(++index)) continue;
    Component samples = SamplesOf(document, component);
    samples.index = index;
    samples.preload = task.PreloadOf(index);
    components.push_back(std::move(samples));
  }
}

const TaskSamples& LazyTaskSamples::Get() const {
  std::call_once(once_, [this] { samples_.emplace(document_, section_, task_); });
  return *samples_;
}

}  // namespace Orlix
