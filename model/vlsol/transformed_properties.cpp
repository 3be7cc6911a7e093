#include "model/vlsol/transformed_properties.h"

#include <cstddef>

#include "model/oxdata/section/component_overlay.h"
#include "model/vldata/response/TaskGeometry.h"

namespace Orlix::VlSol {
namespace {

using Data::CSecComp;
using Data::Velmo9::TaskGeometry;
using Numeric::AreaMoments;

class Transformer {
 public:
  Transformer(const Data::CVelmoData& document, const Data::Velmo9::VelmoSection& section,
              double creep)
      : materials_(*document.getMaterials()), section_(section), creep_(creep) {}

  // E of a grade, of concrete with creep [Pa]; 0 when there is no such grade.
  double ModulusOf(MatType type, int grade) const {
    if (!materials_.IsValidGrade(type, grade)) return 0.0;
    const double modulus = materials_.Grade(type, grade).Properties().E;
    return type == MatType::concrete ? modulus / (1.0 + creep_) : modulus;
  }

  const CSecComp& ComponentOf(const TaskGeometry::Component& part) const {
    return section_.Components()[static_cast<std::size_t>(part.index)];
  }

  double ModulusOf(const TaskGeometry::Component& part) const {
    const CSecComp& component = ComponentOf(part);
    return ModulusOf(component.MaterialType(), component.MaterialGrade());
  }

  double ReferenceModulus(const TaskGeometry& geometry) const {
    double first = 0.0;
    for (const TaskGeometry::Component& part : geometry.Components()) {
      if (ComponentOf(part).ConcreteExist() && ModulusOf(part) > 0.0) return ModulusOf(part);
      if (first == 0.0) first = ModulusOf(part);
    }
    return first;
  }

  // Moments weighted by modulus over the reference.
  AreaMoments Sum(const TaskGeometry& geometry, double reference) const {
    AreaMoments sum;
    for (const TaskGeometry::Component& part : geometry.Components()) {
      const AreaMoments m = Data::OutlineMoments(part.polygons);
      const double n = ModulusOf(part) / reference;
      sum += {n * m.area, n * m.sy, n * m.sz, n * m.syy, n * m.szz, n * m.syz};
      for (std::size_t i = 0; i < part.barHosts.size(); ++i) {
        const Data::CBar& bar = ComponentOf(part).Concrete().Bars()[i];
        const double own = ModulusOf(MatType::reinforcement, bar.Grade());
        if (own == 0.0) continue;
        const int host = part.barHosts[i];
        const double displaced =
            host < 0 ? 0.0 : ModulusOf(geometry.Components()[static_cast<std::size_t>(host)]);
        sum += Numeric::PointMoments((own - displaced) / reference * bar.Area(), bar.Position());
      }
    }
    return sum;
  }

 private:
  const Data::Materials& materials_;
  const Data::Velmo9::VelmoSection& section_;
  double creep_;
};

}  // namespace

TransformedProperties TransformedPropertiesOf(const Data::CVelmoData& document,
                                              const Data::Velmo9::VelmoSection& section, int iTask,
                                              TransformedTerm term) {
  const bool isLong = term == TransformedTerm::longTerm;
  const double creep = isLong ? section.Task(iTask).Creep().creepCoefficient : 0.0;
  const TaskGeometry geometry = TaskGeometry::Of(document, section, iTask);
  const Transformer transformer(document, section, creep);
  TransformedProperties properties;
  properties.modulus = transformer.ReferenceModulus(geometry);
  if (!(properties.modulus > 0.0)) return properties;
  properties.section =
      Numeric::CentroidalPropertiesOf(transformer.Sum(geometry, properties.modulus));
  return properties;
}

}  // namespace Orlix::VlSol
