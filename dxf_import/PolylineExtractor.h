#pragma once

#include "dxf_import/IEntityExtractor.h"

namespace Orlix::dxf_import {

/// Makes a polygon of an LWPOLYLINE with straight segments; one with an arc is refused.
///
/// It is closed when its flags say so or when its last vertex lies on the first, less than 1e-6
/// drawing units away in the XY plane; the last one is then left out.
class PolylineExtractor : public IEntityExtractor {
 public:
  void Extract(const DxfEntity& entity, DxfExtractionResult& result) const override;
};

}  // namespace Orlix::dxf_import
