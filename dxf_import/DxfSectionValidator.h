#pragma once

#include <vector>

#include "dxf_import/DxfDiagnostic.h"
#include "dxf_import/SectionGeometry.h"

namespace Orlix::dxf_import {

/// Checks what the analysis needs of a section: shapes in the XY plane, closed polygons of three
/// vertices or more, holes and bars inside the outer boundary. Of a hole its vertices are tested,
/// of a circle its centre. Changes nothing.
class DxfSectionValidator {
 public:
  /// @return errors in the order outer boundary, holes, circular holes, bars; values in them are in
  /// the unit of `geometry`.
  static std::vector<DxfDiagnostic> Validate(const SectionGeometry& geometry);
};

}  // namespace Orlix::dxf_import
