#include "dxf_import/DxfSectionImporter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "dxf_import/test/drawing_text.h"

namespace Orlix::dxf_import {
namespace {

const std::string kMillimetres = "0 SECTION 2 HEADER 9 $INSUNITS 70 4 0 ENDSEC ";

std::string Polyline(const std::string& layer, const std::string& tags) {
  return "0 LWPOLYLINE 8 " + layer + " 70 1 " + tags + ' ';
}

std::string CircleAt(const std::string& layer, const std::string& center) {
  return "0 CIRCLE 8 " + layer + " 40 1 " + center + ' ';
}

const std::string kSquare = "10 0 20 0 10 9 20 0 10 9 20 9 10 0 20 9";
const std::string kOutline = Polyline("OUTER", kSquare);
const std::string kInside = "10 2 20 3";
const std::string kOutside = "10 9 20 3";  // on the right edge

DxfImportResult Import(const std::string& words) {
  std::istringstream in(Lines(words));
  return DxfSectionImporter::ImportFromStream(in);
}

// Everything said of a drawing in millimetres; none of it is about a line.
struct Said {
  DxfSeverity severity;
  std::string entityType;
  std::string layer;
  std::string message;
  std::string hint;
};

std::vector<DxfDiagnostic> Diagnostics(const std::vector<Said>& said) {
  std::vector<DxfDiagnostic> diagnostics;
  for (const Said& s : said) {
    diagnostics.push_back({s.severity, 0, s.entityType, s.layer, s.message, s.hint});
  }
  return diagnostics;
}

constexpr DxfSeverity kWarning = DxfSeverity::Warning;
constexpr DxfSeverity kError = DxfSeverity::Error;

TEST(DxfSectionImporter, SortsShapesByLayerInAnyCase) {
  const DxfImportResult got =
      Import(kMillimetres + Entities(CircleAt("rebar", kInside) + CircleAt("Holes", kInside) +
                                     CircleAt("Rebar", "10 3 20 3") + CircleAt("ignore", kOutside) +
                                     Polyline("hOLES", "10 1 20 1 10 2 20 1 10 2 20 2") +
                                     Polyline("Ignore", kSquare) + Polyline("Outer", kSquare)));
  EXPECT_TRUE(got.success);
  EXPECT_TRUE(got.diagnostics.empty());
  EXPECT_EQ(got.geometry.outer,
            (Polygon{{{0, 0, 0}, {9, 0, 0}, {9, 9, 0}, {0, 9, 0}}, "Outer", true}));
  EXPECT_EQ(got.geometry.holes,
            (std::vector<Polygon>{{{{1, 1, 0}, {2, 1, 0}, {2, 2, 0}}, "hOLES", true}}));
  EXPECT_EQ(got.geometry.circularHoles, (std::vector<Circle>{{{2, 3, 0}, 1, "Holes"}}));
  EXPECT_EQ(got.geometry.rebars,
            (std::vector<Circle>{{{2, 3, 0}, 1, "rebar"}, {{3, 3, 0}, 1, "Rebar"}}));
}

TEST(DxfSectionImporter, WarnsOfShapesOnTheWrongLayer) {
  const DxfImportResult got =
      Import(kMillimetres + Entities(CircleAt("0", kInside) + CircleAt("Outer", kInside) +
                                     CircleAt("Bars", kInside) + Polyline("HOLE", kSquare) +
                                     Polyline("Rebar", kSquare) + Polyline("0", kSquare)));
  const std::string kDrawOutline = "Use a LWPOLYLINE to define the outer boundary.";
  EXPECT_TRUE(got.success);
  EXPECT_EQ(got.diagnostics,
            Diagnostics(
                {{kWarning, "LWPOLYLINE", "HOLE", "Entity on unknown layer 'HOLE'. Skipping.",
                  "Use layers 0, OUTER, HOLES, REBAR, or IGNORE."},
                 {kWarning, "LWPOLYLINE", "Rebar",
                  "LWPOLYLINE on REBAR layer is unexpected. REBAR should use CIRCLE entities.",
                  "Use CIRCLE entities on the REBAR layer for reinforcement bars."},
                 {kWarning, "CIRCLE", "0",
                  "CIRCLE on layer 0 is not supported. This layer should only use LWPOLYLINE.",
                  kDrawOutline},
                 {kWarning, "CIRCLE", "Outer",
                  "CIRCLE on layer Outer is not supported. This layer should only use LWPOLYLINE.",
                  kDrawOutline},
                 {kWarning, "CIRCLE", "Bars", "Entity on unknown layer 'Bars'. Skipping.",
                  "Use layers HOLES, REBAR, or IGNORE."}}));
}

TEST(DxfSectionImporter, SaysWhatIsWrongWithASection) {
  const std::string kFlat = "Ensure all geometry is in the XY plane (Z=0).";
  const std::string kThree =
      "Ensure the polyline defines a valid polygon with at least 3 vertices.";
  const Said kOuterNotClosed{
      kError, "LWPOLYLINE", "OUTER",
      "Polyline is not closed (closed flag not set and first/last vertices differ).",
      "Close the polyline in your CAD application or set the closed flag."};
  const Said kHoleOutside{
      kError, "LWPOLYLINE", "HOLES",
      "Hole polygon has one or more vertices outside the OUTER boundary.",
      "Ensure all hole vertices are within the outer boundary (and the hole is fully contained)."};
  const std::string kOpenOutline = "0 LWPOLYLINE 8 OUTER " + kSquare + ' ';
  const struct {
    const char* what;
    std::string entities;
    std::vector<Said> want;
  } kCases[] = {
      {"no outline",
       CircleAt("REBAR", kInside),
       {{kError, "", "OUTER", "No OUTER boundary polygon found.",
         "Add exactly one closed LWPOLYLINE on the OUTER layer."}}},
      {"two outlines",
       kOutline + Polyline("0", kSquare) + Polyline("HOLES", "10 0 20 0 10 99 20 0"),
       {{kError, "", "OUTER", "Multiple OUTER boundary polygons found (2).",
         "Ensure exactly one LWPOLYLINE is on the OUTER layer."}}},
      {"not closed, so nothing is outside",
       kOpenOutline + CircleAt("REBAR", kOutside) +
           Polyline("HOLES", "10 1 20 1 10 2 20 1 10 99 20 2"),
       {kOuterNotClosed}},
      {"two vertices: no circle is outside, yet a hole is",
       Polyline("OUTER", "10 0 20 0 10 9 20 9") + CircleAt("REBAR", kOutside) +
           Polyline("HOLES", "10 1 20 1 10 2 20 1 10 2 20 2"),
       {{kError, "LWPOLYLINE", "OUTER", "Polyline has fewer than 3 vertices (2 found).", kThree},
        kHoleOutside}},
      {"holes one by one, each with its three checks before where it is",
       kOutline + "0 LWPOLYLINE 8 holes 10 1 20 1 30 -2.5 10 2 20 99 30 nan " +
           Polyline("HOLES", "10 1 20 1 10 2 20 1 10 -2 20 2"),
       {{kError, "LWPOLYLINE", "HOLES", "Non-zero Z coordinate detected (max |Z|=2.5).", kFlat},
        {kError, "LWPOLYLINE", "HOLES", "Polyline has fewer than 3 vertices (2 found).", kThree},
        {kError, "LWPOLYLINE", "HOLES", kOuterNotClosed.message, kOuterNotClosed.hint},
        kHoleOutside,
        kHoleOutside}},
      {"circles: height, then place; holes before bars",
       CircleAt("REBAR", kOutside) + CircleAt("HOLES", kOutside + " 30 -1e-4") + kOutline +
           CircleAt("REBAR", kInside + " 30 1e-6"),
       {{kError, "CIRCLE", "HOLES", "Non-zero Z coordinate detected on circle center (|Z|=1e-04).",
         kFlat},
        {kError, "CIRCLE", "HOLES", "Circular hole is not inside the OUTER boundary.",
         "Ensure all circular holes are fully contained within the outer boundary."},
        {kError, "CIRCLE", "REBAR", "Rebar circle is not inside the OUTER boundary.",
         "Ensure all rebar circles are within the outer boundary."}}},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    const DxfImportResult got = Import(kMillimetres + Entities(c.entities));
    EXPECT_FALSE(got.success);
    EXPECT_EQ(got.geometry, SectionGeometry{});
    EXPECT_EQ(got.diagnostics, Diagnostics(c.want));
  }
}

// The unit stands after the entities here: it counts, and what is said of it comes first.
TEST(DxfSectionImporter, ScalesToMillimetres) {
  const std::string kAssumed =
      "The importer assumed millimetres. Confirm the drawing units are correct.";
  const struct {
    std::string code;
    double factor;
    DxfUnit unit;
    const char* warning = nullptr;
  } kCases[] = {
      {"1", 25.4, DxfUnit::Inches},
      {"2", 304.8, DxfUnit::Feet},
      {"4", 1, DxfUnit::Millimetres},
      {"5", 10, DxfUnit::Centimetres},
      {"6", 1000, DxfUnit::Metres},
      {"0", 1, DxfUnit::Millimetres, "DXF units are missing or unitless."},
      {"7", 1, DxfUnit::Millimetres, "DXF $INSUNITS unit code is not recognised."},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.code);
    const DxfImportResult got =
        Import(Entities(kOutline + CircleAt("HOLES", kInside) + CircleAt("REBAR", kInside) +
                        Polyline("HOLES", "10 1 20 1 10 2 20 1 10 2 20 2") + "0 LINE 8 0 ") +
               "0 SECTION 2 HEADER 9 $INSUNITS 70 " + c.code + " 0 ENDSEC");
    const double f = c.factor;
    const Circle circle{{2 * f, 3 * f, 0}, f, ""};
    EXPECT_TRUE(got.success);
    EXPECT_EQ(got.sourceUnit, c.unit);
    EXPECT_EQ(got.targetUnit, DxfUnit::Millimetres);
    EXPECT_EQ(got.geometry.outer.vertices.at(2), (Vec3<double>{9 * f, 9 * f, 0}));
    EXPECT_EQ(got.geometry.holes.at(0).vertices.at(2), (Vec3<double>{2 * f, 2 * f, 0}));
    for (const auto* circles : {&got.geometry.circularHoles, &got.geometry.rebars}) {
      EXPECT_EQ(circles->at(0).center, circle.center);
      EXPECT_EQ(circles->at(0).radius, circle.radius);
    }
    std::vector<DxfDiagnostic> want;
    if (c.warning != nullptr) want.push_back({kWarning, 0, "", "", c.warning, kAssumed});
    want.push_back({kWarning, 65, "LINE", "0", "Unsupported entity type 'LINE' ignored.",
                    "Consider using only supported entity types."});
    EXPECT_EQ(got.diagnostics, want);
  }
}

TEST(DxfSectionImporter, LooksForHeightsAfterScaling) {
  const std::string drawing = Entities(Polyline("OUTER", kSquare + " 30 5e-7"));
  const std::string inMetres = "0 SECTION 2 HEADER 9 $INSUNITS 70 6 0 ENDSEC ";
  EXPECT_TRUE(Import(kMillimetres + drawing).success);
  const DxfImportResult got = Import(inMetres + drawing);
  ASSERT_EQ(got.diagnostics.size(), 1u);
  EXPECT_EQ(got.diagnostics[0].message, "Non-zero Z coordinate detected (max |Z|=5e-04).");
}

TEST(DxfSectionImporter, SaysWhyAFileCannotBeRead) {
  const auto folder = std::filesystem::temp_directory_path();
  const struct {
    std::filesystem::path path;
    std::string message;
    const char* hint;
  } kCases[] = {
      {"no/such.dxf", "File not found: no/such.dxf",
       "Check the file path and ensure the file exists."},
      {folder, "Cannot open file: " + folder.string(),
       "Check file permissions and ensure the file is not locked."},
  };
  for (const auto& c : kCases) {
    const DxfImportResult got = DxfSectionImporter::ImportFromFile(c.path);
    EXPECT_FALSE(got.success);
    EXPECT_EQ(got.sourceUnit, DxfUnit::Unknown);
    EXPECT_EQ(got.diagnostics, Diagnostics({{kError, "", "", c.message, c.hint}}));
  }
}

TEST(DxfSectionImporter, HoldsOffTheExceptionsOfAStream) {
  std::istringstream in(Lines(kMillimetres + Entities(kOutline)));
  in.exceptions(std::ios::eofbit | std::ios::failbit | std::ios::badbit);
  const auto mask = in.exceptions();
  EXPECT_TRUE(DxfSectionImporter::ImportFromStream(in).success);
  EXPECT_EQ(in.exceptions(), mask);
  // What is at its end already is an empty drawing.
  EXPECT_EQ(DxfSectionImporter::ImportFromStream(in).diagnostics.size(), 2u);
}

}  // namespace
}  // namespace Orlix::dxf_import
