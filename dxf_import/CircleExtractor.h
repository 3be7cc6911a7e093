#pragma once

#include "dxf_import/IEntityExtractor.h"

namespace Orlix::dxf_import {

/// Makes a circle of a CIRCLE; of values given twice the last counts.
class CircleExtractor : public IEntityExtractor {
 public:
  void Extract(const DxfEntity& entity, DxfExtractionResult& result) const override;
};

}  // namespace Orlix::dxf_import
