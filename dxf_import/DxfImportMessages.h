#pragma once

#include <string_view>

/// What the import says to the engineer. A "{}" is filled with a number or a text; texts that end
/// in a quotation mark are halves around a text of the drawing.
namespace Orlix::dxf_import::Messages {

// The file.
inline constexpr std::string_view kFileNotFound = "File not found: ";
inline constexpr std::string_view kFileNotFoundHint =
    "Check the file path and ensure the file exists.";
inline constexpr std::string_view kCannotOpenFile = "Cannot open file: ";
inline constexpr std::string_view kCannotOpenFileHint =
    "Check file permissions and ensure the file is not locked.";

// Units.
inline constexpr std::string_view kUnitsNotInteger = "Failed to parse $INSUNITS value '";
inline constexpr std::string_view kUnitsNotIntegerEnd = "'.";
inline constexpr std::string_view kUnitsNotIntegerHint =
    "Ensure $INSUNITS contains a valid integer unit code.";
inline constexpr std::string_view kUnitless = "DXF units are missing or unitless.";
inline constexpr std::string_view kUnitsNotRecognised =
    "DXF $INSUNITS unit code is not recognised.";
inline constexpr std::string_view kUnitsAssumedHint =
    "The importer assumed millimetres. Confirm the drawing units are correct.";

// Entities.
inline constexpr std::string_view kUnsupportedEntity = "Unsupported entity type '";
inline constexpr std::string_view kUnsupportedEntityEnd = "' ignored.";
inline constexpr std::string_view kUnsupportedEntityHint =
    "Consider using only supported entity types.";
inline constexpr std::string_view kCouldNotParse = "Could not parse ";
inline constexpr std::string_view kValueQuote = " value '";
inline constexpr std::string_view kNotANumberEnd = "' as a number.";
inline constexpr std::string_view kFlagsNotInteger =
    "Could not parse flags (group-code 70) value '";
inline constexpr std::string_view kNotAnIntegerEnd = "' as an integer.";
inline constexpr std::string_view kValidAsciiHint = "Ensure the DXF file is a valid ASCII DXF.";

// Polylines.
inline constexpr std::string_view kXTwice =
    "Group-code 10 (X) encountered twice without an intervening group-code 20 (Y).";
inline constexpr std::string_view kYWithoutX =
    "Group-code 20 (Y) encountered without a preceding group-code 10 (X).";
inline constexpr std::string_view kZWithoutX =
    "Group-code 30 (Z) encountered without a preceding group-code 10 (X).";
inline constexpr std::string_view kTrailingX =
    "Trailing group-code 10 (X) without a following group-code 20 (Y).";
inline constexpr std::string_view kValidPairsHint =
    "Ensure the DXF file contains valid vertex coordinate pairs.";
inline constexpr std::string_view kBulge =
    "Bulge value detected (bulge={}). Arcs are not supported in v1.";
inline constexpr std::string_view kBulgeHint =
    "Convert all arcs to straight segments before exporting.";
inline constexpr std::string_view kFewerThanTwoVertices = "Polyline has fewer than 2 vertices.";
inline constexpr std::string_view kFewerThanTwoVerticesHint =
    "Ensure the polyline contains at least two vertex coordinate pairs.";

// Circles.
inline constexpr std::string_view kMissingCenterX = "Missing mandatory group-code 10 (center X).";
inline constexpr std::string_view kMissingCenterY = "Missing mandatory group-code 20 (center Y).";
inline constexpr std::string_view kMissingRadius = "Missing mandatory group-code 40 (radius).";
inline constexpr std::string_view kRadiusNotPositive = "Circle has non-positive radius ({}).";
inline constexpr std::string_view kRadiusNotPositiveHint =
    "Ensure the circle has a valid positive radius.";

// Layers.
inline constexpr std::string_view kUnknownLayer = "Entity on unknown layer '";
inline constexpr std::string_view kUnknownLayerEnd = "'. Skipping.";
inline constexpr std::string_view kPolylineLayersHint =
    "Use layers 0, OUTER, HOLES, REBAR, or IGNORE.";
inline constexpr std::string_view kCircleLayersHint = "Use layers HOLES, REBAR, or IGNORE.";
inline constexpr std::string_view kPolylineOnRebar =
    "LWPOLYLINE on REBAR layer is unexpected. REBAR should use CIRCLE entities.";
inline constexpr std::string_view kPolylineOnRebarHint =
    "Use CIRCLE entities on the REBAR layer for reinforcement bars.";
inline constexpr std::string_view kCircleOnOuter =
    "CIRCLE on layer {} is not supported. This layer should only use LWPOLYLINE.";
inline constexpr std::string_view kCircleOnOuterHint =
    "Use a LWPOLYLINE to define the outer boundary.";

// The outer boundary.
inline constexpr std::string_view kNoOuter = "No OUTER boundary polygon found.";
inline constexpr std::string_view kNoOuterHint =
    "Add exactly one closed LWPOLYLINE on the OUTER layer.";
inline constexpr std::string_view kMultipleOuters = "Multiple OUTER boundary polygons found ({}).";
inline constexpr std::string_view kMultipleOutersHint =
    "Ensure exactly one LWPOLYLINE is on the OUTER layer.";

// Shapes of the section.
inline constexpr std::string_view kPolygonNotPlanar =
    "Non-zero Z coordinate detected (max |Z|={}).";
inline constexpr std::string_view kCircleNotPlanar =
    "Non-zero Z coordinate detected on circle center (|Z|={}).";
inline constexpr std::string_view kNotPlanarHint = "Ensure all geometry is in the XY plane (Z=0).";
inline constexpr std::string_view kFewerThanThreeVertices =
    "Polyline has fewer than 3 vertices ({} found).";
inline constexpr std::string_view kFewerThanThreeVerticesHint =
    "Ensure the polyline defines a valid polygon with at least 3 vertices.";
inline constexpr std::string_view kNotClosed =
    "Polyline is not closed (closed flag not set and first/last vertices differ).";
inline constexpr std::string_view kNotClosedHint =
    "Close the polyline in your CAD application or set the closed flag.";
inline constexpr std::string_view kHoleOutside =
    "Hole polygon has one or more vertices outside the OUTER boundary.";
inline constexpr std::string_view kHoleOutsideHint =
    "Ensure all hole vertices are within the outer boundary (and the hole is fully contained).";
inline constexpr std::string_view kCircularHoleOutside =
    "Circular hole is not inside the OUTER boundary.";
inline constexpr std::string_view kCircularHoleOutsideHint =
    "Ensure all circular holes are fully contained within the outer boundary.";
inline constexpr std::string_view kRebarOutside = "Rebar circle is not inside the OUTER boundary.";
inline constexpr std::string_view kRebarOutsideHint =
    "Ensure all rebar circles are within the outer boundary.";

}  // namespace Orlix::dxf_import::Messages
