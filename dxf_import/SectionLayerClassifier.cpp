#include "dxf_import/SectionLayerClassifier.h"

#include <string>
#include <string_view>
#include <utility>

#include "dxf_import/DxfImportMessages.h"
#include "dxf_import/layer_names.h"
#include "model/oxutil/Format.h"

namespace Orlix::dxf_import {
namespace {

DxfDiagnostic Warning(std::string_view entityType, const std::string& layer, std::string message,
                      std::string_view hint) {
  return {DxfSeverity::Warning, 0, std::string(entityType), layer, std::move(message),
          std::string(hint)};
}

DxfDiagnostic UnknownLayer(std::string_view entityType, const std::string& layer,
                           std::string_view hint) {
  std::string message(Messages::kUnknownLayer);
  message.append(layer).append(Messages::kUnknownLayerEnd);
  return Warning(entityType, layer, std::move(message), hint);
}

void Classify(Polygon&& polygon, ClassifiedGeometry& classified,
              std::vector<DxfDiagnostic>& diagnostics) {
  constexpr std::string_view kType = "LWPOLYLINE";
  switch (RoleOf(polygon.layer)) {
    case LayerRole::Outer:
      classified.outerCandidates.push_back(std::move(polygon));
      return;
    case LayerRole::Holes:
      classified.holes.push_back(std::move(polygon));
      return;
    case LayerRole::Rebar:
      diagnostics.push_back(Warning(kType, polygon.layer, std::string(Messages::kPolylineOnRebar),
                                    Messages::kPolylineOnRebarHint));
      return;
    case LayerRole::Unknown:
      diagnostics.push_back(UnknownLayer(kType, polygon.layer, Messages::kPolylineLayersHint));
      return;
    case LayerRole::Ignore:
      return;
  }
}

// Returns whether the circle is a bar; takes it when it is a hole.
bool ClassifyAsBar(const Circle& circle, ClassifiedGeometry& classified,
                   std::vector<DxfDiagnostic>& diagnostics) {
  constexpr std::string_view kType = "CIRCLE";
  switch (RoleOf(circle.layer)) {
    case LayerRole::Rebar:
      return true;
    case LayerRole::Holes:
      classified.circularHoles.push_back(circle);
      break;
    case LayerRole::Outer:
      diagnostics.push_back(Warning(kType, circle.layer,
                                    Format(Messages::kCircleOnOuter, circle.layer),
                                    Messages::kCircleOnOuterHint));
      break;
    case LayerRole::Unknown:
      diagnostics.push_back(UnknownLayer(kType, circle.layer, Messages::kCircleLayersHint));
      break;
    case LayerRole::Ignore:
      break;
  }
  return false;
}

}  // namespace

ClassifiedGeometry SectionLayerClassifier::Classify(DxfExtractionResult&& extraction,
                                                    std::vector<DxfDiagnostic>& diagnostics) {
  ClassifiedGeometry classified;
  for (Polygon& polygon : extraction.polygons) {
    dxf_import::Classify(std::move(polygon), classified, diagnostics);
  }
  extraction.polygons.clear();
  // Bars are what drawings have most of: they stay in the memory they are in and close ranks.
  std::vector<Circle>& circles = extraction.circles;
  auto bar = circles.begin();
  for (auto circle = circles.begin(); circle != circles.end(); ++circle) {
    if (!ClassifyAsBar(*circle, classified, diagnostics)) continue;
    if (bar != circle) *bar = std::move(*circle);
    ++bar;
  }
  circles.erase(bar, circles.end());
  classified.rebars = std::exchange(circles, {});
  return classified;
}

}  // namespace Orlix::dxf_import
