#pragma once

#include <vector>

#include "dxf_import/DxfDiagnostic.h"
#include "dxf_import/IEntityExtractor.h"
#include "dxf_import/SectionGeometry.h"

namespace Orlix::dxf_import {

/// Shapes by what they are in a section, each list in the order of the drawing.
struct ClassifiedGeometry {
  std::vector<Polygon> outerCandidates;
  std::vector<Polygon> holes;
  std::vector<Circle> circularHoles;
  std::vector<Circle> rebars;
};

/// Sorts shapes by the role of their layer. Those on layer IGNORE are left out; those on a layer
/// that is unknown or not for their kind give a warning and are left out.
class SectionLayerClassifier {
 public:
  /// Takes the shapes out of `extraction`, whose own diagnostics it leaves alone.
  static ClassifiedGeometry Classify(DxfExtractionResult&& extraction,
                                     std::vector<DxfDiagnostic>& diagnostics);
};

}  // namespace Orlix::dxf_import
