#include "dxf_import/DxfGeometryExtractor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "dxf_import/DxfEntityCollector.h"
#include "dxf_import/test/drawing_text.h"

namespace Orlix::dxf_import {
namespace {

DxfExtractionResult ShapesOf(const std::string& entities) {
  std::istringstream in(Lines(Entities(entities)));
  DxfTokenizer tokenizer(in);
  return DxfGeometryExtractor().Extract(DxfEntityCollector::Collect(tokenizer).entities);
}

TEST(DxfGeometryExtractor, MakesPolygonsOfPolylines) {
  const struct {
    const char* what;
    std::string tags;
    std::vector<Vec3<double>> vertices;
    bool closed;
  } kCases[] = {
      {"flags alone close", "70 1 10 1 20 2 10 3 20 4", {{1, 2, 0}, {3, 4, 0}}, true},
      {"only bit 0 of the flags", "70 128 10 1 20 2 10 3 20 4", {{1, 2, 0}, {3, 4, 0}}, false},
      {"the first flags count", "70 0 70 1 10 1 20 2 10 3 20 4", {{1, 2, 0}, {3, 4, 0}}, false},
      {"no flags are open", "10 1 20 2 10 3 20 4", {{1, 2, 0}, {3, 4, 0}}, false},
      {"a last vertex on the first closes, whatever its height",
       "10 0 20 0 10 1 20 0 10 1 20 1 10 9e-7 20 0 30 5",
       {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}},
       true},
      {"1e-6 away is another place",
       "10 0 20 0 10 1 20 0 10 1e-6 20 0",
       {{0, 0, 0}, {1, 0, 0}, {1e-6, 0, 0}},
       false},
      {"Z before Y, and Y again", "10 1 30 7 20 2 20 3 10 4 20 5", {{1, 3, 7}, {4, 5, 0}}, false},
      {"a straight bulge and other codes",
       "90 x 43 y 42 1e-6 10 1 20 2 42 -1e-7 10 3 20 4",
       {{1, 2, 0}, {3, 4, 0}},
       false},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    const DxfExtractionResult got = ShapesOf("0 LWPOLYLINE 8 Any " + c.tags);
    EXPECT_TRUE(got.diagnostics.empty());
    EXPECT_EQ(got.polygons, std::vector<Polygon>({{c.vertices, "Any", c.closed}}));
  }
}

TEST(DxfGeometryExtractor, TakesTheLastOfEachValueOfACircle) {
  const DxfExtractionResult got = ShapesOf(
      "0 CIRCLE 8 R 10 9 20 2 40 4 10 1 30 3 0 CIRCLE 40 nan 20 -0 10 1e-999 0 CIRCLE 10 1 20 2 "
      "40 inf");
  EXPECT_TRUE(got.diagnostics.empty());
  ASSERT_EQ(got.circles.size(), 3u);
  EXPECT_EQ(got.circles[0], (Circle{{1, 2, 3}, 4, "R"}));
  EXPECT_TRUE(std::isnan(got.circles[1].radius));
  EXPECT_EQ(got.circles[1].center, (Vec3<double>{0, 0, 0}));
}

TEST(DxfGeometryExtractor, SaysTheOneThingThatKeepsAnEntityFromBeingAShape) {
  const std::string kPairs = "Ensure the DXF file contains valid vertex coordinate pairs.";
  const std::string kAscii = "Ensure the DXF file is a valid ASCII DXF.";
  const std::string kTwo = "Ensure the polyline contains at least two vertex coordinate pairs.";
  const std::string kArcs = "Convert all arcs to straight segments before exporting.";
  const std::string kRadius = "Ensure the circle has a valid positive radius.";
  const struct {
    std::string entity;
    std::string message;
    std::string hint;
  } kCases[] = {
      {"LWPOLYLINE 10 1 10 x 20 2",
       "Group-code 10 (X) encountered twice without an intervening group-code 20 (Y).", kPairs},
      {"LWPOLYLINE 20 x", "Group-code 20 (Y) encountered without a preceding group-code 10 (X).",
       kPairs},
      {"LWPOLYLINE 30 x", "Group-code 30 (Z) encountered without a preceding group-code 10 (X).",
       kPairs},
      {"LWPOLYLINE 10 0 20 0 10 1 70 x",
       "Trailing group-code 10 (X) without a following group-code 20 (Y).", kPairs},
      {"LWPOLYLINE 10 1 20 2x", "Could not parse Y value '2x' as a number.", kPairs},
      {"LWPOLYLINE 10 1 30 _ 20 2", "Could not parse Z value '' as a number.", kPairs},
      {"LWPOLYLINE 42 1e999", "Could not parse bulge value '1e999' as a number.", kPairs},
      {"LWPOLYLINE 10 0 20 0 42 -0.5 10 x",
       "Bulge value detected (bulge=-0.5). Arcs are not supported in v1.", kArcs},
      {"LWPOLYLINE 70 1.0 10 0 20 0",
       "Could not parse flags (group-code 70) value '1.0' as an integer.", kAscii},
      {"LWPOLYLINE 70 1 10 0 20 0 10 0 20 0", "Polyline has fewer than 2 vertices.", kTwo},
      {"LWPOLYLINE", "Polyline has fewer than 2 vertices.", kTwo},
      {"CIRCLE 40 r 10 x", "Could not parse radius value 'r' as a number.", kAscii},
      {"CIRCLE 20 1 40 1", "Missing mandatory group-code 10 (center X).", kAscii},
      {"CIRCLE 10 1", "Missing mandatory group-code 20 (center Y).", kAscii},
      {"CIRCLE 10 1 20 1", "Missing mandatory group-code 40 (radius).", kAscii},
      {"CIRCLE 10 1 20 1 40 -0", "Circle has non-positive radius (-0).", kRadius},
      {"CIRCLE 10 1 20 1 40 -100000", "Circle has non-positive radius (-1e+05).", kRadius},
      {"circle 10 1", "Unsupported entity type 'circle' ignored.",
       "Consider using only supported entity types."},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.entity);
    // The entity after it is read all the same.
    const DxfExtractionResult got = ShapesOf("0 " + c.entity + " 8 L 0 CIRCLE 10 1 20 1 40 1");
    const auto severity =
        c.entity.starts_with("circle") ? DxfSeverity::Warning : DxfSeverity::Error;
    const std::string type = c.entity.substr(0, c.entity.find(' '));
    EXPECT_EQ(got.diagnostics,
              std::vector<DxfDiagnostic>({{severity, 5, type, "L", c.message, c.hint}}));
    EXPECT_TRUE(got.polygons.empty());
    EXPECT_EQ(got.circles.size(), 1u);
  }
}

}  // namespace
}  // namespace Orlix::dxf_import
