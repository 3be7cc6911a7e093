#include "dxf_import/DxfSectionImporter.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "dxf_import/DxfEntityCollector.h"
#include "dxf_import/DxfGeometryExtractor.h"
#include "dxf_import/DxfImportMessages.h"
#include "dxf_import/DxfSectionValidator.h"
#include "dxf_import/DxfTokenizer.h"
#include "dxf_import/SectionBuilder.h"
#include "dxf_import/SectionLayerClassifier.h"

namespace Orlix::dxf_import {
namespace {

/// Holds off the exceptions of a stream for as long as it lives.
class NoStreamExceptions {
 public:
  explicit NoStreamExceptions(std::istream& in) : in_(in), mask_(in.exceptions()) {
    in_.exceptions(std::ios::goodbit);
  }
  ~NoStreamExceptions() {
    try {
      in_.exceptions(mask_);
    } catch (const std::ios::failure&) {  // the mask is back; the end of the stream is no failure
    }
  }
  NoStreamExceptions(const NoStreamExceptions&) = delete;
  NoStreamExceptions& operator=(const NoStreamExceptions&) = delete;

 private:
  std::istream& in_;
  std::ios::iostate mask_;
};

DxfImportResult FileFailure(std::string_view message, const std::filesystem::path& path,
                            std::string_view hint) {
  DxfImportResult result;
  result.diagnostics.push_back(
      {DxfSeverity::Error, 0, "", "", std::string(message) + path.string(), std::string(hint)});
  return result;
}

// Everything found before the entities were understood goes first, whatever the order of the file.
void AppendExtraction(std::vector<DxfDiagnostic>&& extraction,
                      std::vector<DxfDiagnostic>& diagnostics) {
  extraction.insert(extraction.begin(), std::make_move_iterator(diagnostics.begin()),
                    std::make_move_iterator(diagnostics.end()));
  diagnostics = std::move(extraction);
}

double MillimetresPer(DxfUnit unit) {
  switch (unit) {
    case DxfUnit::Inches:
      return 25.4;
    case DxfUnit::Feet:
      return 304.8;
    case DxfUnit::Centimetres:
      return 10.0;
    case DxfUnit::Metres:
      return 1000.0;
    case DxfUnit::Millimetres:
    case DxfUnit::Unitless:
    case DxfUnit::Unknown:
      break;
  }
  return 1.0;
}

// The unit the drawing is read in; says when that is a guess.
DxfUnit AssumedUnit(DxfUnit found, std::vector<DxfDiagnostic>& diagnostics) {
  if (found != DxfUnit::Unitless && found != DxfUnit::Unknown) return found;
  const std::string_view message =
      found == DxfUnit::Unitless ? Messages::kUnitless : Messages::kUnitsNotRecognised;
  diagnostics.push_back({DxfSeverity::Warning, 0, "", "", std::string(message),
                         std::string(Messages::kUnitsAssumedHint)});
  return DxfUnit::Millimetres;
}

void Scale(double factor, SectionGeometry& geometry) {
  const auto scalePolygon = [factor](Polygon& polygon) {
    for (Vec3<double>& vertex : polygon.vertices) vertex = factor * vertex;
  };
  const auto scaleCircle = [factor](Circle& circle) {
    circle.center = factor * circle.center;
    circle.radius *= factor;
  };
  scalePolygon(geometry.outer);
  std::for_each(geometry.holes.begin(), geometry.holes.end(), scalePolygon);
  std::for_each(geometry.circularHoles.begin(), geometry.circularHoles.end(), scaleCircle);
  std::for_each(geometry.rebars.begin(), geometry.rebars.end(), scaleCircle);
}

// Collects and extracts in one go, so that no more than one entity is held at a time.
DxfExtractionResult ReadShapes(std::istream& in, DxfImportResult& result) {
  const NoStreamExceptions guard(in);
  const DxfGeometryExtractor extractor;
  DxfExtractionResult extraction;
  DxfTokenizer tokenizer(in);
  const DxfHeaderData header = DxfEntityCollector::Collect(
      tokenizer, [&](const DxfEntity& entity) { extractor.Extract(entity, extraction); },
      result.diagnostics);
  result.sourceUnit = header.units;
  return extraction;
}

}  // namespace

DxfImportResult DxfSectionImporter::ImportFromFile(const std::filesystem::path& path) {
  std::error_code error;
  if (!std::filesystem::exists(path, error)) {
    return FileFailure(Messages::kFileNotFound, path, Messages::kFileNotFoundHint);
  }
  std::ifstream file;
  // A directory can be opened, yet not read.
  if (!std::filesystem::is_directory(path, error)) file.open(path, std::ios::binary);
  if (!file.is_open()) {
    return FileFailure(Messages::kCannotOpenFile, path, Messages::kCannotOpenFileHint);
  }
  return ImportFromStream(file);
}

DxfImportResult DxfSectionImporter::ImportFromStream(std::istream& in) {
  DxfImportResult result;
  std::vector<DxfDiagnostic>& diagnostics = result.diagnostics;
  DxfExtractionResult extraction = ReadShapes(in, result);
  const double factor = MillimetresPer(result.sourceUnit);
  result.sourceUnit = AssumedUnit(result.sourceUnit, diagnostics);
  AppendExtraction(std::move(extraction.diagnostics), diagnostics);
  std::optional<SectionGeometry> geometry = SectionBuilder::Build(
      SectionLayerClassifier::Classify(std::move(extraction), diagnostics), diagnostics);
  if (!geometry) return result;
  if (factor != 1.0) Scale(factor, *geometry);
  std::vector<DxfDiagnostic> found = DxfSectionValidator::Validate(*geometry);
  diagnostics.insert(diagnostics.end(), std::make_move_iterator(found.begin()),
                     std::make_move_iterator(found.end()));
  result.success = std::none_of(diagnostics.begin(), diagnostics.end(),
                                [](const auto& d) { return d.severity == DxfSeverity::Error; });
  if (result.success) result.geometry = std::move(*geometry);
  return result;
}

}  // namespace Orlix::dxf_import
