#pragma once

#include <filesystem>
#include <iosfwd>
#include <vector>

#include "dxf_import/DxfDiagnostic.h"
#include "dxf_import/DxfUnit.h"
#include "dxf_import/SectionGeometry.h"

namespace Orlix::dxf_import {

/// What came of an import.
struct DxfImportResult {
  bool success{};            ///< no diagnostic is an error
  SectionGeometry geometry;  ///< [mm]; empty unless `success`
  /// What the drawing was read in; Millimetres when that was assumed; Unknown only when there was
  /// no file to read.
  DxfUnit sourceUnit = DxfUnit::Unknown;
  DxfUnit targetUnit = DxfUnit::Millimetres;
  /// In the order of the stages: collecting, units, extracting, classifying, building, validating.
  std::vector<DxfDiagnostic> diagnostics;
};

/// Reads a cross-section from an ASCII DXF drawing: the outline from a closed LWPOLYLINE on layer
/// OUTER or 0, voids from LWPOLYLINE and CIRCLE on HOLES, bars from CIRCLE on REBAR.
///
/// Any bytes give a result: whatever is wrong with a drawing is a diagnostic, nothing is thrown for
/// it. Memory grows with the length of the drawing and with nothing that is written in it; so does
/// time, see ArePointsInsidePolygon for outlines with very many high edges.
class DxfSectionImporter {
 public:
  /// Reads the drawing at `path`. When there is none, or it cannot be opened, the result has that
  /// one error.
  static DxfImportResult ImportFromFile(const std::filesystem::path& path);

  /// Reads a drawing from where `in` stands to its end. Exceptions that `in` is set to throw are
  /// held off meanwhile; a stream that fails counts as ended.
  static DxfImportResult ImportFromStream(std::istream& in);
};

}  // namespace Orlix::dxf_import
