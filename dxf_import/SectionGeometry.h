#pragma once

#include <string>
#include <vector>

#include "model/oxnumeric/Vec.h"

namespace Orlix::dxf_import {

/// A polyline of straight edges.
struct Polygon {
  std::vector<Vec3<double>> vertices;  ///< in the order drawn; the first is not repeated at the end
  std::string layer;                   ///< as written in the drawing; any bytes
  bool closed{};                       ///< an edge leads from the last vertex to the first

  friend bool operator==(const Polygon&, const Polygon&) = default;
};

struct Circle {
  Vec3<double> center;
  double radius{};    ///< positive, or NaN where the drawing says so
  std::string layer;  ///< as written in the drawing; any bytes

  friend bool operator==(const Circle&, const Circle&) = default;
};

/// A cross-section as it was drawn: neither turned nor sorted, no point left out. What the importer
/// returns is in millimetres.
struct SectionGeometry {
  Polygon outer;                      ///< the one outer boundary
  std::vector<Polygon> holes;         ///< polygonal voids
  std::vector<Circle> circularHoles;  ///< circular voids
  std::vector<Circle> rebars;         ///< reinforcement bars

  friend bool operator==(const SectionGeometry&, const SectionGeometry&) = default;
};

}  // namespace Orlix::dxf_import
