#pragma once

#include <vector>

#include "dxf_import/DxfDiagnostic.h"
#include "dxf_import/DxfEntity.h"
#include "dxf_import/SectionGeometry.h"

namespace Orlix::dxf_import {

/// The shapes of a drawing, in its own unit, each list in the order of the file.
struct DxfExtractionResult {
  std::vector<Polygon> polygons;
  std::vector<Circle> circles;
  std::vector<DxfDiagnostic> diagnostics;
};

/// Makes a shape of one type of entity.
class IEntityExtractor {
 public:
  virtual ~IEntityExtractor() = default;

  /// Adds the shape of `entity` to `result`, or else the one error that keeps it from being one.
  virtual void Extract(const DxfEntity& entity, DxfExtractionResult& result) const = 0;
};

}  // namespace Orlix::dxf_import
