#pragma once

#include <string>
#include <vector>

#include "model/oxdata/geometry/CSecGeom.h"

namespace Orlix::Data {

/// What is wrong with the dimensions of a parametric shape, naming the parameter; empty: nothing.
std::string DimensionProblem(ShapeKind kind, const ShapeDimensions& dimensions);

/// Number of sides for a full turn of a circle, by the tolerance of `CSecGeom::Polygons`.
/// @param radius     [m], of an ellipse the larger half axis
/// @param tolerance  [m]; 0 (or what is no tolerance): the default number
int SidesOfCircle(double radius, double tolerance);

/// The polygon of a parametric shape about its reference point: outline anticlockwise, hole
/// clockwise.
/// @pre  `DimensionProblem` is empty.
SectionPolygon ShapeOutline(ShapeKind kind, const ShapeDimensions& dimensions, double tolerance);

}  // namespace Orlix::Data
