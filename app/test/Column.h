#pragma once

#include "model/vldata/document/CVelmoData.h"

namespace Orlix {

/// Appends a section with one task and no case: a column of C30/37, 0.3 m by 0.5 m about the
/// origin, with a 20 mm bar of B500B 50 mm from each pair of edges.
inline Data::Velmo9::VelmoSection& AddColumn(Data::CVelmoData& document) {
  const Data::Materials& materials = *document.getMaterials();
  const int rebar = materials.Find(MatType::reinforcement, L"B500B");
  Data::CSecComp concrete(MatType::concrete, materials.Find(MatType::concrete, L"C30/37"),
                          Data::CSecGeom(Data::ShapeKind::rectangle, {.width = 0.3, .depth = 0.5}));
  Data::Reinforcement reinforcement;
  for (const double y : {-0.1, 0.1}) {
    for (const double z : {-0.2, 0.2}) {
      reinforcement.bars.emplace_back(Vec2<double>{y, z}, 0.02, 3.14159e-4, rebar);
    }
  }
  concrete.Concrete().SetReinforcement(reinforcement);
  Data::CSection geometry;
  geometry.Components().push_back(concrete);
  Data::Velmo9::VelmoSection& section = document.AddSection(geometry);
  section.AddTask();
  return section;
}

}  // namespace Orlix
