// Any bytes as a drawing: a result that keeps its word, and nothing thrown.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "dxf_import/DxfSectionImporter.h"
#include "dxf_import/point_in_polygon.h"

namespace Orlix::dxf_import {
namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

void CheckSection(const SectionGeometry& section) {
  Require(section.outer.closed && section.outer.vertices.size() >= 3);
  const auto isInside = [&](const Circle& circle) {
    return IsPointInsidePolygon({circle.center.x, circle.center.y}, section.outer);
  };
  Require(std::all_of(section.rebars.begin(), section.rebars.end(), isInside));
  Require(std::all_of(section.circularHoles.begin(), section.circularHoles.end(), isInside));
}

void Import(const std::string& drawing) {
  std::istringstream in(drawing);
  const DxfImportResult result = DxfSectionImporter::ImportFromStream(in);
  const bool hasErrors =
      std::any_of(result.diagnostics.begin(), result.diagnostics.end(),
                  [](const DxfDiagnostic& d) { return d.severity == DxfSeverity::Error; });
  Require(result.success != hasErrors);
  if (result.success) {
    CheckSection(result.geometry);
  } else {
    Require(result.geometry == SectionGeometry{});
  }
}

}  // namespace
}  // namespace Orlix::dxf_import

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Orlix::dxf_import::Import(std::string(data, data + size));
  return 0;
}
