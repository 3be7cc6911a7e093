#pragma once

#include <optional>
#include <vector>

#include "dxf_import/DxfDiagnostic.h"
#include "dxf_import/SectionGeometry.h"
#include "dxf_import/SectionLayerClassifier.h"

namespace Orlix::dxf_import {

/// Makes a section of classified shapes, by the one rule that it has one outer boundary.
class SectionBuilder {
 public:
  /// @return the section; nothing, and an error, when there is no outer boundary or more than one.
  static std::optional<SectionGeometry> Build(ClassifiedGeometry&& classified,
                                              std::vector<DxfDiagnostic>& diagnostics);
};

}  // namespace Orlix::dxf_import
