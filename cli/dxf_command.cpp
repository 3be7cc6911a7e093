#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <iostream>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/dxf_json.h"
#include "cli/dxf_section.h"
#include "cli/option_checks.h"
#include "cli/printable.h"
#include "dxf_import/DxfSectionImporter.h"
#include "model/oxutil/StringFrom.h"
#include "model/oxutil/text.h"

namespace Orlix::Cli {

using dxf_import::Circle;
using dxf_import::DxfDiagnostic;
using dxf_import::DxfImportResult;
using dxf_import::DxfSectionImporter;
using dxf_import::DxfSeverity;
using dxf_import::DxfUnit;
using dxf_import::Polygon;
using dxf_import::SectionGeometry;

namespace {

constexpr std::size_t kLines = 40;

struct Arguments {
  std::string drawing;
  bool json{};
  bool all{};
  DxfSectionArguments section;
};

constexpr const char* kExample = R"(Example:
  velmo dxf section.dxf
  velmo dxf section.dxf --json
  velmo dxf section.dxf --into pier.json --grade C40/50

The drawing is ASCII DXF: one closed LWPOLYLINE of straight segments on layer OUTER (or 0) is the
outline; LWPOLYLINE and CIRCLE on HOLES are voids, CIRCLE on REBAR are bars, layer IGNORE is left
out. What is found is in millimetres whatever the unit of the drawing.
Exit status 1 when the drawing has errors, 2 when it cannot be read.)";

const char* NameOf(DxfUnit unit) {
  switch (unit) {
    case DxfUnit::Inches:
      return "inches";
    case DxfUnit::Feet:
      return "feet";
    case DxfUnit::Centimetres:
      return "centimetres";
    case DxfUnit::Metres:
      return "metres";
    case DxfUnit::Millimetres:
    case DxfUnit::Unitless:
    case DxfUnit::Unknown:
      break;
  }
  return "millimetres";
}

std::string Counted(std::size_t count, const std::string& what) {
  return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

std::string DiagnosticText(const DxfDiagnostic& d) {
  std::string text = d.severity == DxfSeverity::Error ? "error: " : "warning: ";
  if (d.line > 0) text += "line " + std::to_string(d.line) + ": ";
  std::string place = d.entityType;
  if (!d.layer.empty()) place += (place.empty() ? "layer " : " on layer ") + d.layer;
  if (!place.empty()) text += place + ": ";
  text += d.message;
  if (!d.hint.empty()) text += ' ' + d.hint;
  return Printable(ValidUtf8(text));
}

// Errors first: warnings may be many, and they stand in no one's way.
void PrintDiagnostics(const std::vector<DxfDiagnostic>& diagnostics, std::size_t limit) {
  std::size_t shown = 0;
  for (const DxfSeverity severity : {DxfSeverity::Error, DxfSeverity::Warning}) {
    for (const DxfDiagnostic& d : diagnostics) {
      if (d.severity != severity || shown == limit) continue;
      std::cerr << DiagnosticText(d) << '\n';
      ++shown;
    }
  }
  if (shown < diagnostics.size()) {
    std::cerr << "and " << diagnostics.size() - shown << " more; --all shows them\n";
  }
}

// "300 x 500", over the finite coordinates; "? x 500" where there are none.
std::string ExtentOf(const Polygon& polygon) {
  const auto widthOf = [&](double Vec3<double>::*axis) {
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    for (const Vec3<double>& vertex : polygon.vertices) {
      if (!std::isfinite(vertex.*axis)) continue;
      low = std::min(low, vertex.*axis);
      high = std::max(high, vertex.*axis);
    }
    return low > high ? std::string("?") : StringFrom(high - low);
  };
  return widthOf(&Vec3<double>::x) + " x " + widthOf(&Vec3<double>::y);
}

// "8: 4 of 16 mm, 4 of 20 mm"
std::string BarsText(const std::vector<Circle>& bars) {
  std::map<std::string, std::size_t> countByDiameter;
  std::vector<const std::string*> inOrder;
  for (const Circle& bar : bars) {
    const auto [entry, isNew] = countByDiameter.emplace(StringFrom(2 * bar.radius), 0);
    if (isNew) inOrder.push_back(&entry->first);
    ++entry->second;
  }
  std::string text = std::to_string(bars.size());
  const char* separator = ": ";
  for (const std::string* diameter : inOrder) {
    text += separator + std::to_string(countByDiameter[*diameter]) + " of " + *diameter + " mm";
    separator = ", ";
  }
  return text;
}

void PrintSection(const DxfImportResult& result, std::ostream& out) {
  const SectionGeometry& section = result.geometry;
  out << "Drawing in  " << NameOf(result.sourceUnit) << '\n'
      << "Outline     " << section.outer.vertices.size() << " vertices, " << ExtentOf(section.outer)
      << " mm\n"
      << "Voids       " << Counted(section.holes.size(), "polygon") << ", "
      << Counted(section.circularHoles.size(), "circle") << '\n'
      << "Bars        " << BarsText(section.rebars) << '\n';
}

int ExitCodeOf(const DxfImportResult& result) {
  // Only a file that cannot be read leaves no unit, not even an assumed one.
  if (result.sourceUnit == DxfUnit::Unknown) return kUnusable;
  return result.success ? kDone : kProblems;
}

int Run(Arguments arguments) {
  const DxfImportResult result = DxfSectionImporter::ImportFromFile(arguments.drawing);
  if (arguments.json) {
    WriteDxfJson(result, std::cout);
  } else {
    PrintDiagnostics(result.diagnostics,
                     arguments.all ? std::numeric_limits<std::size_t>::max() : kLines);
    if (result.success) PrintSection(result, std::cout);
  }
  if (result.success && !arguments.section.document.empty()) {
    if (arguments.section.name.empty()) {
      arguments.section.name = std::filesystem::path(arguments.drawing).stem().string();
    }
    return AddDrawingToDocument(arguments.section, result.geometry, std::cout);
  }
  return ExitCodeOf(result);
}

}  // namespace

void AddDxfCommand(CLI::App& program, int& exitCode) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command =
      program.add_subcommand("dxf", "Read a section from a drawing and say what to change in it");
  command->footer(kExample);
  command->add_option("FILE", arguments->drawing, "ASCII DXF drawing")->required()->check(NotEmpty);
  auto* json = command->add_flag("--json", arguments->json, "The whole record of the import, JSON");
  command->add_flag("--all", arguments->all, "Show every message, not the first 40 alone")
      ->excludes(json);
  AddDxfSectionOptions(*command, arguments->section)->excludes(json);
  command->callback([arguments, &exitCode] { exitCode = Run(*arguments); });
}

}  // namespace Orlix::Cli
