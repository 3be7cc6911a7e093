#include "dxf_import/DxfGeometryExtractor.h"

#include <utility>

#include "dxf_import/CircleExtractor.h"
#include "dxf_import/DxfImportMessages.h"
#include "dxf_import/PolylineExtractor.h"
#include "dxf_import/entity_values.h"

namespace Orlix::dxf_import {

DxfGeometryExtractor::DxfGeometryExtractor() {
  factories_.emplace("LWPOLYLINE", [] { return std::make_unique<PolylineExtractor>(); });
  factories_.emplace("CIRCLE", [] { return std::make_unique<CircleExtractor>(); });
}

DxfExtractionResult DxfGeometryExtractor::Extract(const std::vector<DxfEntity>& entities) const {
  DxfExtractionResult result;
  for (const DxfEntity& entity : entities) Extract(entity, result);
  return result;
}

void DxfGeometryExtractor::Extract(const DxfEntity& entity, DxfExtractionResult& result) const {
  if (const auto extractor = CreateExtractor(entity.type)) {
    extractor->Extract(entity, result);
    return;
  }
  std::string message(Messages::kUnsupportedEntity);
  message.append(entity.type).append(Messages::kUnsupportedEntityEnd);
  result.diagnostics.push_back(AboutEntity(entity, DxfSeverity::Warning, std::move(message),
                                           Messages::kUnsupportedEntityHint));
}

std::unique_ptr<IEntityExtractor> DxfGeometryExtractor::CreateExtractor(
    std::string_view type) const {
  const auto factory = factories_.find(type);
  return factory == factories_.end() ? nullptr : factory->second();
}

}  // namespace Orlix::dxf_import
