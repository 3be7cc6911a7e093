#pragma once

#include <string>
#include <vector>

#include "model/oxnumeric/Vec.h"
#include "model/oxutil/OrlixString.h"

namespace Orlix::Data {

/// One outline with its holes; vertices (y, z) [m] in order, the first not repeated at the end.
struct SectionPolygon {
  std::vector<Vec2<double>> outline;
  std::vector<std::vector<Vec2<double>>> holes;
  friend bool operator==(const SectionPolygon&, const SectionPolygon&) = default;
};

/// Shapes by parameters, and the free outline.
enum class ShapeKind {
  none,
  polygon,
  rectangle,
  circle,
  ring,
  tee,
  ell,
  iBeam,
  box,
  trapezoid,
  ellipse
};

/// Dimensions of a parametric shape [m]; which ones a shape reads is told by `ShapeParameters`.
struct ShapeDimensions {
  double width{};            ///< overall, along y
  double depth{};            ///< overall, along z
  double diameter{};         ///< circle and ring, outer
  double thickness{};        ///< ring wall
  double flangeThickness{};  ///< tee, ell (the leg along y), iBeam (top), box (top): along z
  double webThickness{};     ///< tee, ell (the leg along z), iBeam, box: along y
  double bottomWidth{};      ///< iBeam bottom flange; trapezoid bottom side (width is the top side)
  double bottomThickness{};  ///< iBeam bottom flange, box bottom slab
  friend bool operator==(const ShapeDimensions&, const ShapeDimensions&) = default;
};

/// A parameter a shape reads: its name in documents and where it is kept.
struct ShapeParameter {
  const char* name;
  double ShapeDimensions::*member;
  bool required;  ///< otherwise 0 takes the top's value (width, flangeThickness)
};

/// Parameters of a shape, in the order of documents; empty for none and polygon.
const std::vector<ShapeParameter>& ShapeParameters(ShapeKind kind);
/// Name of a shape in documents: "polygon", "rectangle", "circle", "ring", "T", "L", "I", "box",
/// "trapezoid", "ellipse"; "" for none.
const char* ShapeName(ShapeKind kind);
/// The shape with a name; none when there is no such shape.
ShapeKind ShapeWithName(const std::string& name);

/// Where the parts of a shape lie, seen with y to the right and z upwards: the flange of a tee is
/// on top; the legs of an ell run along its left side and its bottom; webs of tee, iBeam and the
/// sides of trapezoid and box are symmetric about the z axis of the shape.
///
/// Geometry of a component: a free outline or a parametric shape, put in its place by a rotation
/// about the shape's reference point and a shift of that point. The reference point of a parametric
/// shape is the centre of its overall width and depth.
class CSecGeom {
 public:
  /// No shape: no polygons, not valid.
  CSecGeom() = default;
  /// Free outlines, kept vertex by vertex.
  explicit CSecGeom(std::vector<SectionPolygon> polygons);
  CSecGeom(ShapeKind kind, const ShapeDimensions& dimensions, Vec2<double> centre = {},
           double rotation = 0.0);

  ShapeKind Kind() const { return kind_; }
  const ShapeDimensions& Dimensions() const { return dimensions_; }
  Vec2<double> Centre() const { return centre_; }  ///< (y, z) [m]; the origin for free outlines
  double Rotation() const { return rotation_; }    ///< anticlockwise, from y towards z [rad]

  /// A text about the geometry for people, such as "300 x 500 mm"; no number comes from it.
  const OrlixString<wchar_t>& Description() const { return description_; }
  void SetDescription(const OrlixString<wchar_t>& description) { description_ = description; }
  /// The description with a unit after numbers that have none: "300 x 500" gives "300 x 500 mm", or
  /// "300 mm x 500 mm". A number has a unit when a letter or a sign such as % follows it, spaces or
  /// not, other than a single x.
  /// @param afterEach  after each number; false: only when the text ends with one
  std::wstring DescriptionWithUnitAppended(const std::wstring& unit, bool afterEach) const;

  /// The polygons of the geometry, outlines anticlockwise and holes clockwise for parametric
  /// shapes. Curved outlines become polygons of equal area.
  /// @param tolerance  largest distance between curve and chord [m], met with 8 to 8192 sides a
  /// full
  ///                   turn, a multiple of 4; 0: 128 sides (radius of the vertices +2e-4, second
  ///                   moment of area +3e-8, relative)
  /// @return nothing when the dimensions make no shape; `PolygonProblem` says why.
  std::vector<SectionPolygon> Polygons(double tolerance) const;
  /// Whether there is at least one polygon, each with area, no edges that cross, holes inside the
  /// outline and apart from each other, and no two polygons that overlap.
  bool hasValidPolygons() const;
  /// What is wrong with the polygons, in words, with the place in metres; empty: nothing.
  std::string PolygonProblem() const;

  friend bool operator==(const CSecGeom&, const CSecGeom&) = default;

 private:
  /// What keeps the geometry from having polygons at all; empty: nothing.
  std::string PlacementProblem() const;

  ShapeKind kind_{ShapeKind::none};
  ShapeDimensions dimensions_;
  std::vector<SectionPolygon> polygons_;
  Vec2<double> centre_;
  double rotation_{};
  OrlixString<wchar_t> description_;
};

}  // namespace Orlix::Data
